#pragma once

#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <memory>

namespace zevfit {

/// The signals that ask a process to end (terminate, hang up, interrupt), taken up in the event
/// loop. Made before the first thread, so that all threads leave them to it.
class EndSignals {
 public:
  EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;
  /// Lets the signals end the process again.
  ~EndSignals();

  /// As long as the result lives, `handler` runs in the event loop with the number of each signal
  /// that has come. Needs the application.
  std::unique_ptr<QSocketNotifier> deliverTo(std::function<void(int)> handler) const;

 private:
  sigset_t before_{};
  int descriptor_ = -1;
};

}  // namespace zevfit
