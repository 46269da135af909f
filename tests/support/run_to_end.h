#pragma once

#include <QApplication>
#include <QObject>
#include <QTimer>
#include <functional>

namespace zevfit::test {

/// Runs the event loop for one action that must end the program; the exit code, 0 when the action
/// did not end it.
inline int runToEnd(const std::function<void()>& action) {
  // What it leaves behind must not end a later loop of events.
  QObject alive;
  QTimer::singleShot(0, &alive, [&] {
    action();
    QTimer::singleShot(0, &alive, [] { QCoreApplication::exit(0); });
  });
  return QApplication::exec();
}

}  // namespace zevfit::test
