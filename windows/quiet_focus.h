#pragma once

#include <QPointer>
#include <QWidget>

namespace zevfit {

/// The reason of a focus change that only puts back what the program itself has moved; handlers of
/// focus events take no notice of it.
inline constexpr Qt::FocusReason kQuietFocus = Qt::NoFocusReason;

/// The focus event is one that the user or a handler has caused, not the window system's or our own
/// putting back.
inline bool isRealFocus(Qt::FocusReason reason) {
  return reason != kQuietFocus && reason != Qt::ActiveWindowFocusReason &&
         reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason;
}

/// Keeps the keyboard focus where it is while plot windows come and go: the slider that is moved or
/// the field that is typed in keeps it, also while the main window is not the active one.
class QuietFocus {
 public:
  explicit QuietFocus(const QWidget& window) : before_(window.window()->focusWidget()) {}
  QuietFocus(const QuietFocus&) = delete;
  QuietFocus& operator=(const QuietFocus&) = delete;
  ~QuietFocus() {
    if (before_ && before_->isVisible() && before_->window()->focusWidget() != before_)
      before_->setFocus(kQuietFocus);
  }

 private:
  QPointer<QWidget> before_;
};

}  // namespace zevfit
