#pragma once

#include <QEvent>
#include <QObject>

#include "windows/mdimod.h"

namespace zevfit {

/// Loads the icons and shows the about window over the main window once that has been painted, so
/// that the start waits for no picture and the main window has its place on the screen.
class Greeting : public QObject {
 public:
  explicit Greeting(mdimod& window) : window_(window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) {
      window_.removeEventFilter(this);
      QMetaObject::invokeMethod(
          &window_,
          [this] {
            window_.loadIcons();
            window_.showAbout();
          },
          Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  mdimod& window_;
};

}  // namespace zevfit
