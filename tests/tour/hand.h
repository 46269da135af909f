#pragma once

#include <QPoint>
#include <Qt>

class QComboBox;
class QWidget;

namespace zevfit::tour {

/// A user's mouse and keyboard. What the mouse does goes through the window, which finds the
/// control under it; one that is hidden, disabled or covered ends the tour.
class Hand {
 public:
  void click(QWidget& control);
  void clickAt(QWidget& control, QPoint at);
  /// On the mark of an option or a box, whatever its width.
  void clickMark(QWidget& control);
  void doubleClickMark(QWidget& control);

  /// The mouse goes along in steps with the button down, and stays so.
  void press(QWidget& control, QPoint at, Qt::MouseButton button);
  void drag(QWidget& control, QPoint to);
  void release(Qt::MouseButton button);

  void key(QWidget& inWindow, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);
  /// Into a field, in place of what stands there.
  void type(QWidget& field, const char* text);
  void typeAndEnter(QWidget& field, const char* text);
  /// An entry of the list that a click opens.
  void choose(QComboBox& list, int index);

 private:
  void go(QWidget& control, QPoint at);

  QWidget* window_ = nullptr;  ///< where the mouse is
  QPoint at_;
};

/// Ends the program with this line, which tells what the tour did not find.
[[noreturn]] void fail(const char* what, const QWidget& where);

}  // namespace zevfit::tour
