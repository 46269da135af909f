#pragma once

#include <optional>
#include <span>

#include "model/data_point.h"
#include "model/nested_model.h"

namespace zevfit {

/// How far a model lies from experimental points: the square root of the mean of the squared
/// differences of curve and point, each point weighted by the magnitude of its number of pairs, as
/// a share of the variance (of its magnitude: that of a cross variogram may be negative). Nothing
/// where there is no weight or the variance is 0. Throws Fault where a value is not finite.
std::optional<double> misfit(const NestedModel& model, std::span<const DataPoint> points,
                             double variance);

}  // namespace zevfit
