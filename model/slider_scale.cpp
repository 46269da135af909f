#include "model/slider_scale.h"

#include <algorithm>
#include <cmath>

#include "session/fault.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {

namespace {

// The two maps subtract different constants. On both depends on what value a range settles when its
// line is shown, and so what a save writes.
constexpr double kForwardOffset = 1e-05;
constexpr double kBackwardOffset = 0.0001;

double axisSpan(const SillScale& scale) { return finite(scale.ymax - scale.ymin); }

double rangeSpan(double hmax, double offset) { return finite(kRangesInScale * hmax - offset); }

double rangePlace(const RangeScale& scale, std::string_view text) {
  return std::abs(
      divide(finite(leadingNumber(text) * scale.ascale), rangeSpan(scale.hmax, kBackwardOffset)));
}

}  // namespace

std::int16_t sillPosition(const SillScale& scale, double value) {
  return toInt16(divide(scale.c0scale, axisSpan(scale)) * (value - scale.ymin));
}

double sillValue(const SillScale& scale, int position) {
  const double value = scale.ymin + position * divide(axisSpan(scale), scale.c0scale);
  return leadingNumber(formatNumber(value, "#####.###"));
}

std::int16_t rangePosition(const RangeScale& scale, std::string_view text) {
  return toInt16(rangePlace(scale, text));
}

std::int16_t rangePositionWhole(const RangeScale& scale, std::string_view text) {
  return toInt16(std::floor(rangePlace(scale, text)));
}

std::string rangeText(const RangeScale& scale, int position) {
  const double value =
      divide(finite(rangeSpan(scale.hmax, kForwardOffset) * position), scale.ascale);
  return formatNumber(value, "####.###");
}

double rangeSliderMaximum(double hmax) {
  const double maximum =
      std::floor(finite(std::abs(rangeSpan(hmax, kForwardOffset)) * kSillSliderMaximum));
  if (maximum <= 0) return 1;
  return std::min(maximum, kSillSliderMaximum);
}

}  // namespace zevfit
