#pragma once

#include "model/fit.h"
#include "model/slider_scale.h"

namespace zevfit {

/// Scales of the sliders as they stand for the pair.
SillScale sillScale(const Session& session, Pair pair);
RangeScale rangeScale(const Session& session, Pair pair);

/// Sets the scales of both sliders for the pair and makes it the current one.
void scalesliders(Fit& fit, Pair pair);
/// Pushes the model of the pair to the controls and makes it the current one; while a handle is
/// dragged only the letters. Throws Fault where a slider can't show the value.
void showmodel(Fit& fit, Pair pair);

/// Lets the sliders catch up with typed values before a drawing: those of the pair whose field
/// drives. Throws Fault where a slider can't show the value.
void resynchroniseSliders(Fit& fit, Pair pair);

// Handlers of the two sliders; a failure inside a change ends it silently.
void HScrollc0_Change(Fit& fit);
void HScrolla_Change(Fit& fit);
void HScrollc0_GotFocus(Fit& fit);
void HScrolla_GotFocus(Fit& fit);

}  // namespace zevfit
