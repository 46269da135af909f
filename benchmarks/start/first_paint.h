#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <cstdlib>

/// Ends the program once a widget has been painted for the first time, with what is painted
/// together with it: that of the name, or without one the first window.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QString name = {}) : name_(std::move(name)) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // Before anything else that waits for the paint.
    if (event->type() == QEvent::Paint && isMeant(*watched))
      QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
    return QObject::eventFilter(watched, event);
  }

  // Without taking the program down in order: the time is that of a start.
  void customEvent(QEvent* /*event*/) override { std::_Exit(0); }

 private:
  bool isMeant(const QObject& watched) const {
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    return name_.isEmpty() ? widget && widget->isWindow() : watched.objectName() == name_;
  }

  QString name_;
};
