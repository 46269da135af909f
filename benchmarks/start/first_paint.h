#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

/// Ends the program once a window has been painted for the first time.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget& window) { window.installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, [] { QApplication::exit(0); });
    return QObject::eventFilter(watched, event);
  }
};
