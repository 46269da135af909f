#pragma once

#include "model/fit_panel.h"
#include "plot/window/direction_window.h"
#include "session/hints.h"
#include "session/session.h"

namespace zevfit {

/// Picture4_MouseUp and Picture4_DblClick: brings the handles out, redraws, and says which handles
/// are out of view. A fault frees and hides all handles and ends the handler.
void Picture4_MouseUp(Session& session, Plotter& plotter, Hints& hints, DirectionWindow& window);

}  // namespace zevfit
