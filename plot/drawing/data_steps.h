#pragma once

#include "plot/drawing/drawing.h"

namespace zevfit {

// The steps that bring controls and model up to date, and those that draw data and model.

void catchUpSliders(Drawing& drawing);
/// A distance axis that is not set yet ends at the last lag.
void startDistanceAxis(Drawing& drawing);
/// Brings the controls to the pair, then samples its model.
void refreshModel(Drawing& drawing);
void sampleModel(Drawing& drawing);
void showVariance(Drawing& drawing);

// A fault where an axis is empty.
void placeCurvePen(Drawing& drawing);
void drawSillLine(Drawing& drawing);
void drawDataPoints(Drawing& drawing);
void drawModelCurve(Drawing& drawing);

}  // namespace zevfit
