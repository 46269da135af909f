#pragma once

#include <QPointer>
#include <QWidget>

#include "session/dialogs.h"

namespace zevfit {

/// The boxes of the desktop, over the window in front.
class QtDialogs : public Dialogs {
 public:
  void plain(std::string_view text) override;
  void warning(std::string_view text) override;
  bool confirm(std::string_view text) override;
  Answer question(std::string_view text) override;
  void fatal(std::string_view text) override;
  std::optional<std::string> openFile(std::string_view title, std::string_view pattern) override;
  std::optional<std::string> saveFile(std::string_view title, std::string_view pattern) override;
  std::optional<ChosenFile> saveFileAs(std::string_view title, std::span<const FileKind> kinds,
                                       std::size_t kind, std::string_view name) override;
  std::optional<FontChoice> chooseFont(const FontChoice& start) override;
  std::optional<Colour> chooseColour(Colour start) override;
  std::string heldFile() const override;
  void holdFile(std::string_view path) override;

 private:
  /// The whole path of the file that the file dialog took last, in the bytes that it was given in:
  /// not all paths are texts.
  std::string lastFile_;
  /// The same of the dialog that saves.
  std::string lastSaved_;
  /// The folder of the last file of a chosen kind.
  std::string lastFolder_;
};

}  // namespace zevfit
