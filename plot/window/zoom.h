#pragma once

#include "model/fit_panel.h"
#include "plot/window/direction_window.h"
#include "session/messages.h"
#include "session/session.h"

namespace zevfit {

/// The zoom keys, on the window of the current pair; without one nothing happens. A width beyond
/// the limit (twips) and a fault are answered alike, with a plain box.
void kmais(const Session& session, Plotter& plotter, Messages& messages, DirectionWindows& windows,
           double screenWidth);
void kmenos(const Session& session, Plotter& plotter, Messages& messages,
            DirectionWindows& windows);

}  // namespace zevfit
