#pragma once

#include "model/fit.h"
#include "plot/window/direction_window.h"

namespace zevfit {

/// The zoom keys, on the window of the current pair; without one nothing happens. A width beyond
/// the limit (twips) and a fault are answered alike, with a plain box.
void kmais(Fit& fit, DirectionWindows& windows, double screenWidth);
void kmenos(Fit& fit, DirectionWindows& windows);

}  // namespace zevfit
