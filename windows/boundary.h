#pragma once

#include <QCoreApplication>
#include <exception>
#include <utility>

#include "session/dialogs.h"

namespace zevfit {

/// Exit code of a program that a fault has ended.
inline constexpr int kFatalExitCode = 70;
/// With the number of a signal added: exit code of a program that the signal has ended.
inline constexpr int kSignalExitCode = 128;

/// Runs the body of a slot. What a handler's own policy has not caught ends the program: a message
/// that names the fault, then an orderly end with kFatalExitCode. Nothing is thrown through Qt.
template <class Body>
void guarded(Dialogs& dialogs, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception& fault) {
    dialogs.fatal(fault.what());
    QCoreApplication::exit(kFatalExitCode);
  }
}

}  // namespace zevfit
