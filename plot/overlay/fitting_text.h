#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "plot/drawing/surface.h"

namespace zevfit {

// Texts that have so much room, for pictures that have no place told for each text.

/// A text in no more than `room` twips: one that is longer ends with three points.
std::string elided(Surface& surface, const Font& font, std::string_view text, double room);
/// The same of a text within others that stay whole, as of a name in a title.
std::string elidedWithin(Surface& surface, const Font& font, const std::string& before,
                         std::string_view text, const std::string& behind, double room);

/// The numbers of an axis, at equal steps from the first to the last, in a pattern of the style.
/// Where that is off by more than a quarter of a step, as for steps of 1E-06 in two decimals, or
/// where a text does not fit, in decimal or exponent form, whichever is shorter, with three digits
/// of the step or, where two alone fit, two. Nothing is "0" in whatever pattern.
std::vector<std::string> axisNumbers(std::span<const double> values, std::string_view pattern,
                                     const std::function<bool(const std::string&)>& fits);

/// Texts stand side by side, each in a room of that width: every how many-th of them finds place.
/// At least 1.
std::size_t strideOf(Surface& surface, const Font& font, std::span<const std::string> texts,
                     double room);

}  // namespace zevfit
