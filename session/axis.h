#pragma once

#include <array>

namespace zevfit {

/// The axes of anisotropy, in the order in which a click on a row of the results looks at them.
enum class Axis { main, minor1, minor2 };
inline constexpr std::array kAxes{Axis::main, Axis::minor1, Axis::minor2};

}  // namespace zevfit
