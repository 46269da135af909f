#pragma once

#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace zevfit::test {

/// Chance that is the same for the same seed.
class Chance {
 public:
  explicit Chance(unsigned seed) : random_(seed) {}

  /// 0 to count - 1.
  int upTo(int count) {
    return static_cast<int>(random_() % static_cast<std::mt19937::result_type>(count));
  }
  bool inHundred(int percent) { return upTo(100) < percent; }
  template <class List>
  auto among(const List& list) {
    return list[static_cast<typename List::size_type>(upTo(static_cast<int>(list.size())))];
  }

 private:
  std::mt19937 random_;
};

/// The folders of a user: the program's own, and one with variogram files that are good, cut or
/// hostile. Knows what each of these files must hold.
class UsersDesk {
 public:
  explicit UsersDesk(unsigned seed);

  std::filesystem::path programFolder() const { return folder_ / "program"; }
  /// A path that a user types into the dialog which opens a file; some are none.
  std::string anyFile(Chance& chance) const;
  /// A path for the dialog that writes a file.
  std::string newFile(Chance& chance) const;

  /// A save has taken place: the file is what it is now.
  void saved(const std::string& path);
  /// The first file that is not as it must be; empty when all are.
  std::string changedFile() const;

 private:
  void put(const std::string& name, const std::string& bytes);

  ScratchFolder folder_;
  std::map<std::string, std::string> files_;  ///< bytes by path
};

}  // namespace zevfit::test
