#pragma once

#include <cstdint>

#include "model/fit.h"
#include "plot/drawing/plot_window.h"

namespace zevfit {

/// Draws all of the current pair in its window: title, legend, axes, grid, ticks, axis numbers,
/// sill line, data points and model curve. Clears first; nothing is drawn incrementally. Without a
/// file says so; without a current pair does nothing. Throws Fault,
/// before anything is done, for a flag that is a text, and for what else fails in the frame (up to
/// the ticks); from the model refresh on a fault ends the drawing silently with what stands.
void plotvariogram(Fit& fit, PlotWindows& windows);

/// Draws the picture of a window anew in the size of the window, for the pair of its caption, and
/// nothing else: neither a control nor the current and the plotted pair change. With a flag that is
/// a text it leaves the picture as it is. A fault in the frame is thrown on; from the curve on it
/// ends the drawing silently with what stands.
void redrawPlot(Fit& fit, PlotWindow& window);

/// The first drawing after a load with models selects structure 1, where the pair has one.
void selectFirstStructure(Fit& fit, Pair pair);

}  // namespace zevfit
