#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

namespace zevfit::test {

/// Runs the event loop for one action that must end the program; the exit code, 0 when the action
/// did not end it.
inline int runToEnd(const std::function<void()>& action) {
  QTimer::singleShot(0, [&] {
    action();
    QTimer::singleShot(0, [] { QCoreApplication::exit(0); });
  });
  return QApplication::exec();
}

}  // namespace zevfit::test
