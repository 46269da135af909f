#include "zvm/verbs/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zevfit::verbs {
namespace {

constexpr std::chrono::milliseconds kQuietTime{1000}, kBetween{200};
constexpr std::size_t kWidth = 30;

std::string twoDigits(long number) { return (number < 10 ? "0" : "") + std::to_string(number); }

}  // namespace

std::string durationText(double seconds) {
  const long whole = std::lround(std::clamp(seconds, 0.0, 1e12));
  const long hours = whole / 3600, minutes = whole / 60 % 60;
  const std::string rest = ':' + twoDigits(whole % 60);
  return hours > 0 ? std::to_string(hours) + ':' + twoDigits(minutes) + rest
                   : std::to_string(minutes) + rest;
}

Progress::Progress(Context& context, std::string what)
    : context_(context),
      what_(std::move(what)),
      isOn_(!context.common.quiet && ::isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (isShown_) context_.printBeside("\r\x1B[K");
}

void Progress::tell(double share) {
  const Clock::time_point now = Clock::now();
  if (!isOn_ || now - start_ < kQuietTime || now - told_ < kBetween || share <= 0) return;
  told_ = now;
  isShown_ = true;
  const double passed = std::chrono::duration<double>(now - start_).count();
  const auto filled = static_cast<std::size_t>(std::min(share, 1.0) * static_cast<double>(kWidth));
  context_.printBeside("\r" + what_ + " [" + std::string(filled, '#') +
                       std::string(kWidth - filled, '.') + "] " +
                       std::to_string(std::lround(100 * std::min(share, 1.0))) + " %, " +
                       durationText(passed * (1 - share) / share) + " left\x1B[K");
}

}  // namespace zevfit::verbs
