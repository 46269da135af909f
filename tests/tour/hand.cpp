#include "tests/tour/hand.h"

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QWindow>
#include <cstdlib>
#include <iostream>

namespace zevfit::tour {

namespace {

constexpr int kDragSteps = 10;
constexpr int kMark = 8;
constexpr int kWait = 500;  // milliseconds for a window to get the focus
constexpr int kAsks = 20;   // a desktop that is busy with another window forgets one

/// As the desktop does at a click, and where there is none. A window whose parent is active counts
/// as active too, but has no focus.
void activate(QWidget& window) {
  // The greeting, which is gone at a click: the focus stays with the main window.
  if (window.testAttribute(Qt::WA_ShowWithoutActivating)) return;
  const auto active = [&] { return QApplication::activeWindow() == &window; };
  for (int asked = 0; asked < kAsks && !active(); ++asked) {
    window.activateWindow();
    if (QTest::qWaitFor(active, kWait)) return;
  }
  if (!active()) fail("stays behind", window);
}

bool isUnder(const QWidget& control, const QWidget* found) {
  return found == &control || (found && control.isAncestorOf(found));
}

}  // namespace

void fail(const char* what, const QWidget& where) {
  std::cout << "The hand ends: " << what << ": " << where.metaObject()->className() << ' '
            << where.objectName().toStdString() << " in '"
            << where.window()->windowTitle().toStdString() << "'" << std::endl;
  std::_Exit(1);
}

void Hand::go(QWidget& control, QPoint at) {
  QApplication::processEvents();
  QWidget* window = control.window();
  if (!control.isVisible() || !control.isEnabled()) fail("nothing to click on", control);
  activate(*window);
  const QPoint place = control.mapTo(window, at);
  if (!isUnder(control, window->childAt(place)) && window != &control) fail("covered", control);
  window_ = window;
  at_ = place;
  QTest::mouseMove(window->windowHandle(), place);
}

void Hand::click(QWidget& control) { clickAt(control, control.rect().center()); }

void Hand::clickAt(QWidget& control, QPoint at) {
  go(control, at);
  QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, at_);
  QApplication::processEvents();
}

void Hand::clickMark(QWidget& control) { clickAt(control, {kMark, control.height() / 2}); }

void Hand::doubleClickMark(QWidget& control) {
  go(control, {kMark, control.height() / 2});
  QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, at_);
  QApplication::processEvents();
}

void Hand::press(QWidget& control, QPoint at, Qt::MouseButton button) {
  go(control, at);
  QTest::mousePress(window_->windowHandle(), button, {}, at_);
}

void Hand::drag(QWidget& control, QPoint to) {
  const QPoint from = at_;
  const QPoint way = control.mapTo(window_, to) - from;
  for (int step = 1; step <= kDragSteps; ++step) {
    at_ = from + way * step / kDragSteps;
    QTest::mouseMove(window_->windowHandle(), at_);
  }
}

void Hand::release(Qt::MouseButton button) {
  QTest::mouseRelease(window_->windowHandle(), button, {}, at_);
  QApplication::processEvents();
}

void Hand::key(QWidget& inWindow, Qt::Key key, Qt::KeyboardModifiers held) {
  QTest::keyClick(inWindow.window()->windowHandle(), key, held);
  QApplication::processEvents();
}

void Hand::type(QWidget& field, const char* text) {
  click(field);
  if (!field.hasFocus()) fail("no focus", field);
  key(field, Qt::Key_A, Qt::ControlModifier);
  for (const char* letter = text; *letter; ++letter)
    QTest::keyClick(field.window()->windowHandle(), *letter);
  QApplication::processEvents();
}

void Hand::typeAndEnter(QWidget& field, const char* text) {
  type(field, text);
  key(field, Qt::Key_Return);
}

void Hand::choose(QComboBox& list, int index) {
  click(list);
  QWidget* popup = QApplication::activePopupWidget();
  if (!popup) fail("no entries come up", list);
  key(*popup, Qt::Key_Home);
  for (int i = 0; i < index; ++i) key(*popup, Qt::Key_Down);
  key(*popup, Qt::Key_Return);
  if (list.currentIndex() != index) fail("another entry is chosen", list);
}

}  // namespace zevfit::tour
