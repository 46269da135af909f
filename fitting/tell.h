#pragma once

#include <cstddef>
#include <functional>

namespace zevfit::fitting {

/// Is told which share of some work is done, from 0 to 1, by the thread that does it; may be empty.
using Tell = std::function<void(double share)>;

inline void tell(const Tell& whole, std::size_t done, std::size_t count) {
  if (whole) whole(static_cast<double>(done) / static_cast<double>(count));
}

/// What tells of the part of the work between two shares.
inline Tell partOf(const Tell& whole, double from, double to) {
  if (!whole) return {};
  return [whole, from, to](double share) { whole(from + (to - from) * share); };
}

/// The same of one of `count` equal parts, from 0.
inline Tell partOf(const Tell& whole, std::size_t part, std::size_t count) {
  const auto width = 1 / static_cast<double>(count);
  return partOf(whole, static_cast<double>(part) * width, static_cast<double>(part + 1) * width);
}

}  // namespace zevfit::fitting
