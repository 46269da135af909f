#pragma once

#include "model/fit.h"
#include "plot/direction_window.h"

namespace zevfit {

/// The button of a press or a release on a handle.
enum class MouseButton { left, right, other };

// Handlers of a plot window, which is `window`. Places are in twips. A fault passes to the caller
// where nothing else is told.

/// The state of a window just loaded: size, picture, caption, pen, handles, guides, tag, no drag.
void Form_Load(DirectionWindow& window);
/// A click beside the picture frees and hides the handles.
void Form_Click(Fit& fit, DirectionWindow& window);
/// Handles and guides are hidden; what was held stays so.
void Picture4_LostFocus(DirectionWindow& window);
/// The size of the picture really changed.
void Picture4_Resize(DirectionWindow& window);
void Label1_Click(DirectionWindow& window);

/// The mouse moves over the picture, and over handle 0 to 3 with x and y from the handle's corner.
/// Held handles follow and write their parameters.
void Picture4_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, double x,
                        double y);
void estru_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, int handle,
                     double x, double y);
/// Applies the last place of the mouse to each held handle. The box is that of the current pair's
/// window, which need not be this one.
void direct(Fit& fit, DirectionWindows& windows, DirectionWindow& window);

/// A press takes hold of a free handle and frees a held one; so does a release.
void estru_MouseDown(Fit& fit, DirectionWindow& window, int handle, MouseButton button);
void estru_MouseUp(Fit& fit, DirectionWindow& window, int handle, MouseButton button);
/// The click that follows a release redraws.
void estru_Click(Fit& fit);

/// Picture4_MouseUp and Picture4_DblClick: brings the handles out, and redraws. A fault frees and
/// hides all handles and ends the handler.
void Picture4_MouseUp(Fit& fit, DirectionWindow& window);
/// Tags a data point under the mouse with its number of pairs; redraws in every case.
void Picture4_Click(Fit& fit, DirectionWindow& window);

/// The zoom keys, on the window of the current pair; without one nothing happens. A width beyond
/// the limit and a fault are answered alike, with a plain box.
void kmais(Fit& fit, DirectionWindows& windows, double screenWidth);
void kmenos(Fit& fit, DirectionWindows& windows);

}  // namespace zevfit
