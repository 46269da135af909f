#pragma once

#include "model/fit.h"

namespace zevfit {

// What a drawing does to the controls and the curve of the plotted pair, which each use reads anew:
// a text or a position may run a drawing of its own. Faults pass to the caller.

/// Samples the model up to the end of the distance axis.
void sampleModel(Fit& fit);
/// Brings the controls to the pair, sets their scales and samples the model.
void refreshModel(Fit& fit);

}  // namespace zevfit
