#include "plot/overlay/dashes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zevfit {
namespace {

/// Lengths in twips; a line without a gap is drawn as it is.
struct Pattern {
  double dash = 0, gap = 0;
};
constexpr std::array<Pattern, 3> kPatterns{{{0, 0}, {150, 90}, {45, 60}}};

/// No line of a picture is longer; what is has ends that no picture shows.
constexpr double kLongest = 200000;

}  // namespace

void DashedLine::moveTo(double x, double y) {
  x_ = x;
  y_ = y;
  done_ = 0;
}

void DashedLine::lineTo(double x, double y) {
  const auto [dash, gap] = kPatterns.at(static_cast<std::size_t>(dash_));
  const double fromx = x_, fromy = y_, length = std::hypot(x - fromx, y - fromy);
  x_ = x;
  y_ = y;
  if (gap == 0 || length > kLongest) return surface_.line(fromx, fromy, x, y, stroke_);
  for (double at = 0; at < length;) {
    const bool drawn = done_ < dash;
    const double piece = std::min(length - at, (drawn ? dash : dash + gap) - done_);
    const double begin = at / length, end = (at + piece) / length;
    if (drawn)
      surface_.line(fromx + begin * (x - fromx), fromy + begin * (y - fromy),
                    fromx + end * (x - fromx), fromy + end * (y - fromy), stroke_);
    at += piece;
    // At the end of a line the rest may be too small to add up.
    if (piece <= 0) break;
    done_ += piece;
    if (done_ >= dash + gap) done_ = 0;
  }
}

}  // namespace zevfit
