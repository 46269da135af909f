#pragma once

#include <string_view>

namespace zevfit {

inline constexpr const char* kWarningTitle = "zevRA : Program zevFIT";
inline constexpr const char* kQuestionTitle = "zevRA: Program zevFIT";
inline constexpr const char* kNoFileText = "Please select input data file (*.ZVM) first!";
inline constexpr const char* kBadFileText = "Invalid Input Data File Format or empty File!";

/// The buttons of a question; closing the box without one is a Cancel.
enum class Answer { yes, no, cancel };

/// The modal boxes of the program. Each call returns when the user has answered. Texts are UTF-8,
/// as paths are, or else Latin-1, as names from files are.
class Messages {
 public:
  virtual ~Messages() = default;

  /// A plain box: no icon and no title of its own.
  virtual void plain(std::string_view text) = 0;
  /// Exclamation icon, titled kWarningTitle.
  virtual void warning(std::string_view text) = 0;
  /// OK and Cancel, question icon, titled kQuestionTitle; true for OK.
  virtual bool confirm(std::string_view text) = 0;
  /// Yes, No and Cancel, question icon, titled kQuestionTitle.
  virtual Answer question(std::string_view text) = 0;
};

}  // namespace zevfit
