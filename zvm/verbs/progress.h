#pragma once

#include <chrono>
#include <string>

#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// A line on the terminal that tells how far some work is and how long it will take, for work of
/// more than a second. Nothing where stderr is no terminal, or with --quiet.
class Progress {
 public:
  /// `what`: what is under way, as in "reading".
  Progress(Context& context, std::string what);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  /// Takes the line away.
  ~Progress();

  /// From 0 to 1.
  void tell(double share);

 private:
  using Clock = std::chrono::steady_clock;

  Context& context_;
  std::string what_;
  bool isOn_, isShown_ = false;
  Clock::time_point start_ = Clock::now(), told_ = start_;
};

/// "2:05" or "1:02:05".
std::string durationText(double seconds);

}  // namespace zevfit::verbs
