#pragma once

#include "model/fit.h"

namespace zevfit {

/// Samples the model of the pair at kCurvePoints distances from distanceend / kCurvePoints to
/// distanceend into curveh and curvegam, after making the pair the current one and storing
/// kSmallestRange for ranges of 0 and below: the values of `semivariance`, but that a ticked line
/// of a letter without a form adds what its row held before. A power structure with a range above 2
/// warns, resets the range field and ends the sampling, so that curvegam keeps the last complete
/// one. Throws Fault for a cell that holds a text and for an overflow.
void modelcurve(Fit& fit, Pair pair, double distanceend);

}  // namespace zevfit
