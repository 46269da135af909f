#pragma once

#include "plot/drawing/geometry.h"
#include "plot/drawing/surface.h"
#include "session/session.h"

namespace zevfit {

/// Clears the picture and draws what lies behind the data of all directions: title, axes, grid,
/// ticks, their numbers and labels, in the style of the plots.
void drawOverlayFrame(const Session& session, std::int64_t variable, const PlotMap& map,
                      Surface& surface);

}  // namespace zevfit
