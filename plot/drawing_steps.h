#pragma once

#include "plot/drawing.h"

namespace zevfit {

// The steps of a drawing. Each reads what it needs from the session and the window as they stand;
// the order in which plot_variogram.cpp lists them is part of the picture.

/// The first drawing after a load with models selects structure 1, where the pair has one
/// (plot_variogram.cpp).
void selectFirstStructure(Fit& fit, std::int64_t variable, std::int64_t direction);

// The window and its picture (window_steps.cpp).
void mirrorBoxes(Drawing& drawing);
void colourOverlays(const Session& session, PlotWindow& window);
void writeCaption(const Session& session, PlotWindow& window);
void clearPicture(Drawing& drawing);
/// Centred on the picture as it is before sizeWindow.
void drawTitle(Drawing& drawing);
/// Gives a window that is not on show its standard size; the picture follows its window.
void sizeWindow(PlotWindow& window);

/// The steps of the legend and of the axes down to the ticks, in their order (frame.cpp).
void drawFrame(Drawing& drawing);
/// The steps behind the refresh of the model: numbers, sill line, points and curve.
void drawContent(Drawing& drawing);

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
/// Brings the controls to the pair, then samples its model.
void refreshModel(Drawing& drawing);
void sampleModel(Drawing& drawing);
void showVariance(Drawing& drawing);

// Data (data_steps.cpp). A fault where an axis is empty.
void placeCurvePen(Drawing& drawing);
void drawSillLine(Drawing& drawing);
void drawDataPoints(Drawing& drawing);
void drawModelCurve(Drawing& drawing);

}  // namespace zevfit
