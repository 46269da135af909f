#pragma once

#include <QWidget>

namespace zevfit {

/// The borderless picture shown at start and on demand, over the main window. A click on it hides
/// it, as do Escape, Enter and the blank key.
class formabout : public QWidget {
 public:
  explicit formabout(QWidget* mainWindow);

  /// Under the top of the main window; the main window stays the active one.
  void showAtStart();
  /// In the middle of the main window, as at each activation.
  void showCentred();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// The picture fills the window.
  void fitPicture();
  void centre();
  void activated();

  QWidget* mainWindow_;
  QWidget* Image1;
};

}  // namespace zevfit
