#pragma once

#include "model/fit.h"

namespace zevfit {

/// Samples the model of (variable, direction) at 100 distances from distanceend / 100 to
/// distanceend into curveh and curvegam, after making the pair the current one and storing 1e-05
/// for ranges of 0 and below. Nested structures by the practical range: exponential
/// C(1 - exp(-3h/a)), Gaussian C(1 - exp(-3(h/a)^2)), spherical C(1.5 h/a - 0.5 (h/a)^3) up to a;
/// the power form is h^a without C. A ticked line of another letter adds what its row held before.
/// A power structure with a range above 2 warns, resets the range field and ends the sampling, so
/// that curvegam keeps the last complete one. `top` is passed by the callers and not used.
/// Throws Fault for a cell that holds a text and for an overflow.
void modelcurve(Fit& fit, std::int64_t direction, std::int64_t variable, double top,
                double distanceend);

}  // namespace zevfit
