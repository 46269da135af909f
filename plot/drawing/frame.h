#pragma once

#include "plot/drawing/drawing.h"

namespace zevfit {

/// The steps of the legend and of the axes down to the ticks, in their order.
void drawFrame(Drawing& drawing);
/// The steps behind the refresh of the model: numbers, sill line, points and curve.
void drawContent(Drawing& drawing);

}  // namespace zevfit
