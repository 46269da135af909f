#include "windows/outside_click.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace zevfit {

namespace {

/// A press that comes later than this behind a change of windows has not caused it, ms.
constexpr int kSoon = 500;

bool isMouse(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick ||
         event.type() == QEvent::MouseButtonRelease || event.type() == QEvent::MouseMove;
}

bool isPress(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

bool isKey(const QEvent& event) {
  return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

bool hasButtons(const QEvent& event) {
  return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
}

}  // namespace

OutsideClick::OutsideClick(QWidget& window, std::function<void()> close)
    : window_(window), close_(std::move(close)) {}

void OutsideClick::enter(State state) {
  if (state_ == State::idle && state != State::idle) qApp->installEventFilter(this);
  if (state_ != State::idle && state == State::idle) qApp->removeEventFilter(this);
  state_ = state;
}

void OutsideClick::watch() { enter(State::watching); }

void OutsideClick::unwatch() {
  if (state_ == State::watching) enter(State::idle);
}

void OutsideClick::awaitClick() {
  if (state_ != State::idle) return;
  awaited_.start();
  enter(State::awaiting);
}

// The window system's events are told to windows first; what is swallowed there moves no focus.
bool OutsideClick::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWindowType()) return false;
  // It was keys that have changed windows.
  if (state_ == State::awaiting && isKey(*event)) enter(State::idle);
  if (!isMouse(*event)) return false;
  if (state_ != State::swallowing) return isPress(*event) && takePress(*watched);
  if (!hasButtons(*event)) enter(State::idle);
  return true;
}

bool OutsideClick::takePress(const QObject& pressed) {
  if (state_ == State::idle) return false;
  if (state_ == State::watching) {
    if (!isBeside(pressed)) return false;
    enter(State::swallowing);
    close_();
    return true;
  }
  const bool swallowed = isBeside(pressed) && awaited_.elapsed() < kSoon;
  enter(swallowed ? State::swallowing : State::idle);
  return swallowed;
}

bool OutsideClick::isBeside(const QObject& pressed) const {
  if (QApplication::activeModalWidget() || QApplication::activePopupWidget()) return false;
  return &pressed != window_.windowHandle();
}

}  // namespace zevfit
