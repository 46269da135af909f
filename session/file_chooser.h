#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zevfit {

/// Asks the user for files. Paths are UTF-8.
class FileChooser {
 public:
  virtual ~FileChooser() = default;

  /// Asks for an existing file `pattern` (such as "*.ZVM"); a path, or nothing on Cancel.
  virtual std::optional<std::string> openFile(std::string_view title, std::string_view pattern) = 0;
  /// Asks for the name of a file to write, as `openFile` does for one to read; an existing file is
  /// asked about.
  virtual std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) = 0;
  /// The name that the file dialog took last and starts with; empty at first.
  virtual std::string heldFile() const = 0;
  /// Lets the file dialog start with `path`.
  virtual void holdFile(std::string_view path) = 0;
};

}  // namespace zevfit
