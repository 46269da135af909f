#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zevfit {

/// The semivariance axis and the scale of the sill slider, which spans it.
struct SillScale {
  double ymin = 0, ymax = 0;
  double c0scale = 0;
};

/// The ranges that slider and field offer end at this many times hmax.
inline constexpr double kRangesInScale = 20;

/// The range slider: positions 0 to ascale for ranges up to that end.
struct RangeScale {
  double hmax = 0;
  double ascale = 0;
};

/// (c0scale / (ymax - ymin)) (v - ymin) to the nearest integer, ties to even. Throws Fault for an
/// empty axis and beyond 16 bits.
std::int16_t sillPosition(const SillScale& scale, double value);
/// ymin + p (ymax - ymin) / c0scale, through the pattern "#####.###": at most three decimals.
double sillValue(const SillScale& scale, int position);
/// |reading(text) ascale / (20 hmax - 0.0001)| to the nearest integer, ties to even.
std::int16_t rangePosition(const RangeScale& scale, std::string_view text);
/// The whole part of the same, as a drawing places the slider for a typed range.
std::int16_t rangePositionWhole(const RangeScale& scale, std::string_view text);
/// ((20 hmax - 1e-05) p) / ascale with the pattern "####.###". The way back subtracts 0.0001
/// instead, so the two are not exact inverses: both decide on what value a shown range settles.
std::string rangeText(const RangeScale& scale, int position);

/// Maximum of the range slider for a direction: Int(|20 hmax - 1e-05| 32000), within 1 to 32000.
double rangeSliderMaximum(double hmax);
/// Maximum of the sill slider.
inline constexpr double kSillSliderMaximum = 32000;

}  // namespace zevfit
