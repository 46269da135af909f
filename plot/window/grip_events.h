#pragma once

#include "model/fit.h"
#include "plot/window/direction_window.h"
#include "session/session.h"

namespace zevfit {

/// The button of a press or a release on a handle.
enum class MouseButton { left, right, other };

/// A press takes hold of a free handle and frees a held one; so does a release.
void estru_MouseDown(Session& session, FitPanel& panel, DirectionWindow& window, Line handle,
                     MouseButton button);
void estru_MouseUp(Session& session, FitPanel& panel, DirectionWindow& window, Line handle,
                   MouseButton button);
/// The click that follows a release redraws.
void estru_Click(Fit& fit);

}  // namespace zevfit
