#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "session/dialogs.h"

namespace zevfit {

/// A box or a file dialog that was shown: its kind as in the interface, and its text; the title and
/// the pattern of a file dialog stand in the text, parted by "|".
struct ShownDialog {
  std::string kind;
  std::string text;
  bool operator==(const ShownDialog&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ShownDialog& dialog) {
  return out << dialog.kind << ": " << dialog.text;
}

/// Dialogs that nobody sees: they keep what was shown and answer from queues; an empty queue
/// answers as Cancel does.
class RecordingDialogs : public Dialogs {
 public:
  std::vector<ShownDialog> shown;
  std::deque<bool> answers;
  std::deque<Answer> questions;
  std::deque<std::optional<std::string>> paths;
  /// Runs while a dialog is up.
  std::function<void()> meanwhile;

  void plain(std::string_view text) override { record("plain", text); }
  void warning(std::string_view text) override { record("warning", text); }
  void fatal(std::string_view text) override { record("fatal", text); }
  bool confirm(std::string_view text) override {
    record("confirm", text);
    return next(answers, false);
  }
  Answer question(std::string_view text) override {
    record("question", text);
    return next(questions, Answer::cancel);
  }
  std::optional<std::string> openFile(std::string_view title, std::string_view pattern) override {
    record("openFile", std::string(title) + "|" + std::string(pattern));
    return next(paths, std::optional<std::string>());
  }

 private:
  void record(const char* kind, std::string_view text) {
    shown.push_back({kind, std::string(text)});
    if (meanwhile) meanwhile();
  }
  template <class T>
  static T next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T answer = queue.front();
    queue.pop_front();
    return answer;
  }
};

}  // namespace zevfit
