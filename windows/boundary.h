#pragma once

#include <QCoreApplication>
#include <exception>
#include <functional>
#include <string_view>
#include <utility>

namespace zevfit {

/// Tells the user of a fault that ends the program.
using FaultReport = std::function<void(std::string_view fault)>;

/// Exit code of a program that a fault has ended.
inline constexpr int kFatalExitCode = 70;
/// With the number of a signal added: exit code of a program that the signal has ended.
inline constexpr int kSignalExitCode = 128;

/// Runs the body of a slot. What a handler's own policy has not caught ends the program: the fault
/// is reported, then comes an orderly end with kFatalExitCode. Nothing is thrown through Qt.
template <class Body>
void guarded(const FaultReport& report, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception& fault) {
    report(fault.what());
    QCoreApplication::exit(kFatalExitCode);
  }
}

}  // namespace zevfit
