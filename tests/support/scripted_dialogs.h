#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "session/dialogs.h"
#include "session/numbers.h"

namespace zevfit::test {

// Boxes as they are kept, of which many tests meet one.
inline const std::string kNoFileBox = "plain: Please select input data file (*.ZVM) first!";
inline const std::string kBadFileBox = "warning: Invalid Input Data File Format or empty File!";
inline std::string savedBox(const std::string& path) {
  return "plain: Models saved to file:" + path;
}
inline std::string notSavedBox(const std::string& path) {
  return "plain: Cannot save  models to file:\n-" + path;
}
inline std::string noParametersBox(const std::string& folder) {
  return "plain: Cannot save  session parameters to " + folder + "\\zevFIT.INI";
}

/// Boxes that answer by a script and keep what they were asked, one line each: the kind, a colon
/// and the text.
class ScriptedDialogs : public Dialogs {
 public:
  std::vector<std::string> shown;
  std::deque<std::string> files;    ///< answers of the file dialog in turn; empty: Cancel
  std::deque<std::string> saved;    ///< answers of the dialog that saves in turn; empty: Cancel
  std::deque<ChosenFile> pictures;  ///< answers of the dialog with kinds in turn; empty: Cancel
  std::deque<FontChoice> fonts;     ///< answers of the font dialog in turn; empty: Cancel
  std::deque<Colour> colours;       ///< answers of the colour dialog in turn; empty: Cancel
  std::deque<bool> confirmations;   ///< answers of OK and Cancel in turn; empty: OK
  std::deque<Answer> answers;       ///< answers of questions in turn; empty: Cancel
  std::function<void()> meanwhile;  ///< runs while a box is up
  std::string held;                 ///< the name in the file dialog

  void plain(std::string_view text) override { keep("plain", text); }
  void warning(std::string_view text) override { keep("warning", text); }
  void fatal(std::string_view text) override { keep("fatal", text); }

  bool confirm(std::string_view text) override {
    keep("confirm", text);
    if (confirmations.empty()) return true;
    const bool answer = confirmations.front();
    confirmations.pop_front();
    return answer;
  }

  Answer question(std::string_view text) override {
    keep("question", text);
    if (answers.empty()) return Answer::cancel;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  std::optional<std::string> openFile(std::string_view title, std::string_view pattern) override {
    keep("open", std::string(title) + "|" + std::string(pattern));
    if (files.empty()) return std::nullopt;
    const std::string file = files.front();
    files.pop_front();
    held = file;
    return file;
  }
  std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) override {
    keep("save", std::string(title) + "|" + std::string(pattern));
    return next(saved);
  }
  std::optional<ChosenFile> saveFileAs(std::string_view title, std::span<const FileKind> kinds,
                                       std::size_t kind, std::string_view name) override {
    keep("save", std::string(title) + "|" + kinds[kind].name + "|" + std::string(name));
    return next(pictures);
  }
  std::optional<FontChoice> chooseFont(const FontChoice& start) override {
    keep("font", start.name + " " + generalText(start.size));
    return next(fonts);
  }
  std::optional<Colour> chooseColour(Colour start) override {
    keep("colour", std::to_string(start));
    return next(colours);
  }
  std::string heldFile() const override { return held; }
  void holdFile(std::string_view path) override { held = path; }

 private:
  /// The next answer; nothing when there is none left.
  template <class Answer>
  static std::optional<Answer> next(std::deque<Answer>& answers) {
    if (answers.empty()) return std::nullopt;
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  void keep(const char* kind, std::string_view text) {
    shown.push_back(std::string(kind) + ": " + std::string(text));
    if (meanwhile) meanwhile();
  }
};

}  // namespace zevfit::test
