#include "platform/end_signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <utility>

namespace zevfit {

EndSignals::EndSignals() {
  sigset_t ends{};
  sigemptyset(&ends);
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) sigaddset(&ends, signal);
  pthread_sigmask(SIG_BLOCK, &ends, &before_);
  descriptor_ = ::signalfd(-1, &ends, SFD_NONBLOCK | SFD_CLOEXEC);
  // Without the descriptor nobody would handle the signals: they end the process as before.
  if (descriptor_ < 0) pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

EndSignals::~EndSignals() {
  if (descriptor_ < 0) return;
  ::close(descriptor_);
  pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

std::unique_ptr<QSocketNotifier> EndSignals::deliverTo(std::function<void(int)> handler) const {
  if (descriptor_ < 0) return nullptr;
  auto notifier = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                   [descriptor = descriptor_, handler = std::move(handler)] {
                     signalfd_siginfo about{};
                     while (::read(descriptor, &about, sizeof about) == sizeof about)
                       handler(static_cast<int>(about.ssi_signo));
                   });
  return notifier;
}

}  // namespace zevfit
