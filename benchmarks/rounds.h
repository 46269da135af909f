#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <limits>
#include <stdexcept>
#include <vector>

namespace zevfit::bench {

/// Times of single steps by the clock, microseconds. Whatever else runs on the machine makes them
/// longer for a while and never shorter, so that the quietest of several rounds tells most of the
/// steps themselves.
class Rounds {
 public:
  explicit Rounds(std::size_t steps) : steps_(steps) {}

  template <class Step>
  void time(const Step& step) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    step();
    times_.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
  }

  /// The time below which a share of all steps lies.
  double quantile(double share) const { return quantileOf(times_, share); }

  /// The same of the round in which it is least; throws when no round was finished.
  double quietest(double share) const {
    if (times_.size() < steps_) throw std::logic_error("no round was finished");
    double least = std::numeric_limits<double>::infinity();
    for (auto from = times_.begin(); times_.end() - from >= size(); from += size())
      least = std::min(least, quantileOf({from, from + size()}, share));
    return least;
  }

 private:
  static double quantileOf(std::vector<double> times, double share) {
    const auto at = static_cast<std::ptrdiff_t>(share * static_cast<double>(times.size() - 1));
    std::nth_element(times.begin(), times.begin() + at, times.end());
    return times[static_cast<std::size_t>(at)];
  }
  std::ptrdiff_t size() const { return static_cast<std::ptrdiff_t>(steps_); }

  std::size_t steps_;  ///< of a round
  std::vector<double> times_;
};

}  // namespace zevfit::bench
