#pragma once

#include "plot/drawing/drawing.h"

namespace zevfit {

// The steps of the axes.

void drawAxes(Drawing& drawing);
void drawGrid(Drawing& drawing);
/// Leaves the pen at width 2 and solid for all that follows, the next drawing included.
void drawTicks(Drawing& drawing);
void drawAxisNumbers(Drawing& drawing);

}  // namespace zevfit
