#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "session/session.h"

namespace zevfit {

/// Keeps what no save has brought into the loaded file, before it is lost.
class Unsaved {
 public:
  /// `folder`: the program's own, for the rescue file.
  explicit Unsaved(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Writes the first `variables` variables with their models into the rescue file where their data
  /// or models differ from those of the loaded file, lines that are not used apart; not twice in a
  /// row. Without a file, or where it can't be written, nothing happens.
  void keep(const Session& session, std::int64_t variables);
  /// What stands in the tables is not worth keeping as long as nobody changes it.
  void disregard(const Session& session, std::int64_t variables);

 private:
  std::filesystem::path folder_;
  std::string settled_;  ///< what was kept or disregarded last
};

}  // namespace zevfit
