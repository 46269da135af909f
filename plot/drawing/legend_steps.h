#pragma once

#include "plot/drawing/drawing.h"

namespace zevfit {

// The steps of the legend and of the labels of the axes.

void drawDataCaption(Drawing& drawing);
void drawModelCaption(Drawing& drawing);
void drawSemivarianceLabel(Drawing& drawing);
void drawDistanceLegend(Drawing& drawing);
void drawDataSymbol(Drawing& drawing);
void drawSillCaption(Drawing& drawing);
void drawVariableName(Drawing& drawing);
void drawModelSample(Drawing& drawing);
void drawSillSample(Drawing& drawing);

}  // namespace zevfit
