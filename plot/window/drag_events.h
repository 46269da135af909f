#pragma once

#include "model/fit.h"
#include "plot/window/direction_window.h"

namespace zevfit {

// Handlers of a mouse that moves over a plot window, which is `window`. Places are in twips. A
// fault passes to the caller.

/// The mouse moves over the picture, and over a handle with x and y from the handle's corner.
/// Held handles follow and write their parameters.
void Picture4_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, double x,
                        double y);
void estru_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, Line handle,
                     double x, double y);
/// Applies the last place of the mouse to each held handle. The box is that of the current pair's
/// window, which need not be this one.
void direct(Fit& fit, DirectionWindows& windows, DirectionWindow& window);

}  // namespace zevfit
