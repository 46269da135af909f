#pragma once

#include <array>
#include <cstddef>

namespace zevfit {

/// The axes of anisotropy, in the order in which a click on a row of the results looks at them.
enum class Axis { main, minor1, minor2 };
inline constexpr std::array kAxes{Axis::main, Axis::minor1, Axis::minor2};

/// The entries of an axis: azimuth, dip, and the ranges of three structures.
inline constexpr std::size_t kAzimuth = 0, kDip = 1, kFirstRange = 2;
inline constexpr std::size_t kAxisEntries = 5;

}  // namespace zevfit
