#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <utility>

#include "windows/mdimod.h"

namespace zevfit {

/// The steps of a start. The window is on the screen first, with nothing in it; then it is
/// furnished; then the icons are loaded and the about window comes up over it, when it has its
/// place. So no step waits for what only the next one needs. A key, which needs nothing to be seen,
/// finds all that is in the window.
class Greeting : public QObject {
 public:
  explicit Greeting(mdimod& window) : window_(window) {
    // A key comes to the window of the window system before the program looks for its command.
    qApp->installEventFilter(this);
    // Until a desktop shows a window, and it may never do, the time is of use.
    QTimer::singleShot(kLongestBlank, this, &Greeting::furnish);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Paint) painted();
    if (watched == window_.windowHandle() && event->type() == QEvent::ShortcutOverride) furnish();
    return QObject::eventFilter(watched, event);
  }

 private:
  static constexpr std::chrono::milliseconds kLongestBlank{50};

  void painted() {
    if (furnished_) qApp->removeEventFilter(this);
    QMetaObject::invokeMethod(this, furnished_ ? &Greeting::greet : &Greeting::furnish,
                              Qt::QueuedConnection);
  }

  void furnish() {
    if (std::exchange(furnished_, true)) return;
    window_.furnish();
    // Controls come up, and into their places, in the next turn: before that a picture would be
    // blank once more, and a key would find none of them.
    for (const QEvent::Type step : {QEvent::MetaCall, QEvent::LayoutRequest})
      QCoreApplication::sendPostedEvents(nullptr, step);
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
