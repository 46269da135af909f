#pragma once

#include <QWidget>

namespace zevfit {

/// The borderless picture shown at start and on demand, over the main window. A click on it hides
/// it, as do Escape, Enter and the blank key.
class formabout : public QWidget {
 public:
  explicit formabout(QWidget* mainWindow);

  /// Under the top of the main window; the main window stays the active one. A window system that
  /// activates it nevertheless does not move it; the first activation by the user does.
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
  void endStart();

  QWidget* mainWindow_;
  QWidget* Image1;
  bool starting_ = false;  ///< an activation may be the start's own
};

}  // namespace zevfit
