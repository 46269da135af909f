#pragma once

#include <functional>
#include <optional>
#include <string>

#include "session/dialogs.h"

namespace zevfit {

/// The boxes of another, but that a fault which ends the program first has the user's work kept.
class RescuingDialogs : public Dialogs {
 public:
  /// `keep` writes the models and returns where they are, or nothing.
  RescuingDialogs(Dialogs& boxes, std::function<std::optional<std::string>()> keep)
      : boxes_(boxes), keep_(std::move(keep)) {}

  void fatal(std::string_view text) override {
    const auto kept = keep_();
    boxes_.fatal(std::string(text) + (kept ? "\n\nThe models are kept in " + *kept : ""));
  }

  void plain(std::string_view text) override { boxes_.plain(text); }
  void warning(std::string_view text) override { boxes_.warning(text); }
  bool confirm(std::string_view text) override { return boxes_.confirm(text); }
  Answer question(std::string_view text) override { return boxes_.question(text); }
  std::optional<std::string> openFile(std::string_view title, std::string_view pattern) override {
    return boxes_.openFile(title, pattern);
  }
  std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) override {
    return boxes_.saveFile(title, pattern);
  }
  std::optional<FontChoice> chooseFont(const FontChoice& start) override {
    return boxes_.chooseFont(start);
  }
  std::optional<Colour> chooseColour(Colour start) override { return boxes_.chooseColour(start); }
  std::string heldFile() const override { return boxes_.heldFile(); }
  void holdFile(std::string_view path) override { boxes_.holdFile(path); }

 private:
  Dialogs& boxes_;
  std::function<std::optional<std::string>()> keep_;
};

}  // namespace zevfit
