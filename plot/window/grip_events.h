#pragma once

#include "model/fit.h"
#include "plot/window/direction_window.h"

namespace zevfit {

/// The button of a press or a release on a handle.
enum class MouseButton { left, right, other };

/// A press takes hold of a free handle 0 to 3 and frees a held one; so does a release.
void estru_MouseDown(Fit& fit, DirectionWindow& window, int handle, MouseButton button);
void estru_MouseUp(Fit& fit, DirectionWindow& window, int handle, MouseButton button);
/// The click that follows a release redraws.
void estru_Click(Fit& fit);

}  // namespace zevfit
