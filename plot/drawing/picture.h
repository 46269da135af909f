#pragma once

#include "plot/drawing/plot_window.h"
#include "session/session.h"

namespace zevfit {

/// Draws the plot of a pair as its window shows it when it is drawn anew at the size of `target`,
/// whose pen is set for that. Works on a copy of the session and knows no controls: nothing but the
/// picture changes. Policy as of a drawing: a fault in the frame is thrown on, one in the data ends
/// it silently.
void drawPicture(const Session& session, Pair pair, PlotPicture& target);

}  // namespace zevfit
