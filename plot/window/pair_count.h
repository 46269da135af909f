#pragma once

#include <cstdint>
#include <string>

#include "model/fit.h"
#include "plot/drawing/geometry.h"
#include "plot/window/direction_window.h"
#include "session/session.h"

namespace zevfit {

/// A click so far outside the plot box still counts for a data point on its edge.
inline constexpr double kClickMargin = 50;

/// Within the plot box, kClickMargin around it included.
bool isNearBox(const PlotBox& box, double x, double y);

/// The first class of the pair whose distance lies less than 50 twips from x; `nclass` + 1 when
/// there is none. A distance that is a text lies nowhere. Throws Fault for a box of no width.
std::int64_t classAt(const Session& session, const PlotBox& box, double x, Pair pair);

/// The tag's text for a class: its number of pairs. Throws Fault for a class outside the table.
std::string pairCountText(const Session& session, Pair pair, std::int64_t lag);

/// Tags a data point under the mouse with its number of pairs; redraws in every case. A fault
/// passes to the caller.
void Picture4_Click(Fit& fit, DirectionWindow& window);

}  // namespace zevfit
