#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/style.h"

namespace zevfit {

inline constexpr const char* kWarningTitle = "zevRA : Program zevFIT";
inline constexpr const char* kQuestionTitle = "zevRA: Program zevFIT";
inline constexpr const char* kNoFileText = "Please select input data file (*.ZVM) first!";
inline constexpr const char* kBadFileText = "Invalid Input Data File Format or empty File!";

/// The buttons of a question; closing the box without one is a Cancel.
enum class Answer { yes, no, cancel };

/// The modal boxes of the program and its file chooser. Each call returns when the user has
/// answered. Texts are UTF-8, as paths are, or else Latin-1, as names from files are.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  /// A plain box: no icon and no title of its own.
  virtual void plain(std::string_view text) = 0;
  /// Exclamation icon, titled kWarningTitle.
  virtual void warning(std::string_view text) = 0;
  /// OK and Cancel, question icon, titled kQuestionTitle; true for OK.
  virtual bool confirm(std::string_view text) = 0;
  /// Yes, No and Cancel, question icon, titled kQuestionTitle.
  virtual Answer question(std::string_view text) = 0;
  /// A fault that ends the program.
  virtual void fatal(std::string_view text) = 0;
  /// Asks for an existing file `pattern` (such as "*.ZVM"); a path, or nothing on Cancel.
  virtual std::optional<std::string> openFile(std::string_view title, std::string_view pattern) = 0;
  /// Asks for the name of a file to write, as `openFile` does for one to read; an existing file is
  /// asked about.
  virtual std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) = 0;
  /// Asks for a font among those of the screen; nothing on Cancel.
  virtual std::optional<FontChoice> chooseFont(const FontChoice& start) = 0;
  /// Asks for a colour; nothing on Cancel.
  virtual std::optional<Colour> chooseColour(Colour start) = 0;
  /// The name that the file dialog took last and starts with; empty at first.
  virtual std::string heldFile() const = 0;
  /// Lets the file dialog start with `path`.
  virtual void holdFile(std::string_view path) = 0;
};

}  // namespace zevfit
