#pragma once

#include <optional>

#include "model/fit.h"

namespace zevfit {

/// Samples the model of the pair at kCurvePoints distances from distanceend / kCurvePoints to
/// distanceend into curveh and curvegam, after storing kSmallestRange for ranges of 0 and below:
/// the values of `semivariance`, but that a ticked line of a letter without a form adds what its
/// row held before. A power structure with a range above 2 ends the sampling, so that curvegam
/// keeps the last complete one, and is what is returned. Throws Fault for a cell that holds a text
/// and for an overflow.
std::optional<Line> sampleCurve(Session& session, Pair pair, double distanceend);

/// The same, after making the pair the current one. A refused structure warns and resets the range
/// field.
void modelcurve(Fit& fit, Pair pair, double distanceend);

}  // namespace zevfit
