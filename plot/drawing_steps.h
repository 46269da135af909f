#pragma once

#include "plot/drawing.h"

namespace zevfit {

// The steps of a drawing. Each reads what it needs from the session and the window as they stand;
// the order in which plot_variogram.cpp lists them is part of the picture.

// The window and its picture (window_steps.cpp).
void mirrorBoxes(Drawing& drawing);
void colourOverlays(Drawing& drawing);
void writeCaption(Drawing& drawing);
void clearPicture(Drawing& drawing);
/// Centred on the picture as it is before sizeWindow.
void drawTitle(Drawing& drawing);
/// Gives a window that is not on show its standard size; the picture follows its window.
void sizeWindow(Drawing& drawing);

// Legend and labels (legend_steps.cpp).
void drawDataCaption(Drawing& drawing);
void drawModelCaption(Drawing& drawing);
void drawSemivarianceLabel(Drawing& drawing);
void drawDistanceLegend(Drawing& drawing);
void drawDataSymbol(Drawing& drawing);
void drawSillCaption(Drawing& drawing);
void drawVariableName(Drawing& drawing);
void drawModelSample(Drawing& drawing);
void drawSillSample(Drawing& drawing);

// Axes (axis_steps.cpp).
void drawAxes(Drawing& drawing);
void drawGrid(Drawing& drawing);
/// Leaves the pen at width 2 and solid for all that follows, the next drawing included.
void drawTicks(Drawing& drawing);
void drawAxisNumbers(Drawing& drawing);

// Controls and model (data_steps.cpp).
void catchUpSliders(Drawing& drawing);
/// A distance axis that is not set yet ends at the last lag.
void startDistanceAxis(Drawing& drawing);
void refreshModel(Drawing& drawing);
void showVariance(Drawing& drawing);

// Data (data_steps.cpp). A fault where an axis is empty.
void placeCurvePen(Drawing& drawing);
void drawSillLine(Drawing& drawing);
void drawDataPoints(Drawing& drawing);
void drawModelCurve(Drawing& drawing);

}  // namespace zevfit
