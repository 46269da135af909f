#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zevfit {

/// A kind of file that a dialog offers.
struct FileKind {
  const char* name;    ///< as a user reads it
  const char* ending;  ///< without its point
};
/// What was chosen: a path, and the place of the kind among those that were offered.
struct ChosenFile {
  std::string path;
  std::size_t kind = 0;
};

/// Asks the user for files. Paths are UTF-8.
class FileChooser {
 public:
  virtual ~FileChooser() = default;

  /// Asks for an existing file `pattern` (such as "*.ZVM"); a path, or nothing on Cancel.
  virtual std::optional<std::string> openFile(std::string_view title, std::string_view pattern) = 0;
  /// Asks for the name of a file to write, as `openFile` does for one to read; an existing file is
  /// asked about.
  virtual std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) = 0;
  /// The same with a choice of kinds, of which `kind` is offered first, and a `name` to start with,
  /// which gets the ending of the kind. The ending of a name that is typed counts more than the
  /// chosen kind.
  virtual std::optional<ChosenFile> saveFileAs(std::string_view title,
                                               std::span<const FileKind> kinds, std::size_t kind,
                                               std::string_view name) = 0;
  /// The name that the file dialog took last and starts with; empty at first.
  virtual std::string heldFile() const = 0;
  /// Lets the file dialog start with `path`.
  virtual void holdFile(std::string_view path) = 0;
};

}  // namespace zevfit
