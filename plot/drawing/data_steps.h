#pragma once

#include "model/fit.h"
#include "plot/drawing/drawing.h"

namespace zevfit {

// The steps that bring controls and model up to date, and those that draw data and model.

void catchUpSliders(Fit& fit);
/// A distance axis that is not set yet ends at the last lag.
void startDistanceAxis(Drawing& drawing);
void showVariance(Fit& fit);

// A fault where an axis is empty.
void placeCurvePen(Drawing& drawing);
void drawSillLine(Drawing& drawing);
void drawDataPoints(Drawing& drawing);
void drawModelCurve(Drawing& drawing);

}  // namespace zevfit
