#pragma once

#include <QTemporaryDir>
#include <string>

#include "tests/support/scratch_folder.h"

namespace zevfit::test {

/// A folder for the program and its files, as base of a test.
class TemporaryFolder {
 public:
  std::string folder() const { return folder_.path().toStdString(); }
  std::string path(const char* name) const { return folder_.filePath(name).toStdString(); }
  /// Makes a file of these bytes; its path.
  std::string write(const char* name, const std::string& bytes) const {
    std::string made = path(name);
    putFile(made, bytes);
    return made;
  }

 private:
  QTemporaryDir folder_;
};

}  // namespace zevfit::test
