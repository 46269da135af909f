#pragma once

#include <QEvent>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <utility>

#include "windows/mdimod.h"

namespace zevfit {

/// The steps of a start. The window is on the screen first, with nothing in it; then it is
/// furnished; then the icons are loaded and the about window comes up over it, when it has its
/// place. So no step waits for what only the next one needs.
class Greeting : public QObject {
 public:
  explicit Greeting(mdimod& window) : window_(window) {
    window.installEventFilter(this);
    // Until a desktop shows a window, and it may never do, the time is of use.
    QTimer::singleShot(kLongestBlank, this, &Greeting::furnish);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted();
    return QObject::eventFilter(watched, event);
  }

 private:
  static constexpr std::chrono::milliseconds kLongestBlank{50};

  void painted() {
    if (furnished_) window_.removeEventFilter(this);
    QMetaObject::invokeMethod(this, furnished_ ? &Greeting::greet : &Greeting::furnish,
                              Qt::QueuedConnection);
  }

  void furnish() {
    if (std::exchange(furnished_, true)) return;
    window_.furnish();
    // Its own ground, too: the picture of all is what the next step waits for.
    window_.update();
  }

  void greet() {
    window_.loadIcons();
    window_.showAbout();
  }

  mdimod& window_;
  bool furnished_ = false;
};

}  // namespace zevfit
