#pragma once

#include "model/fit.h"
#include "plot/drawing/drawing.h"

namespace zevfit {

// The steps of a window and its picture. Each step of a drawing reads what it needs from the
// session and the window as they stand.

void mirrorBoxes(Fit& fit);
void colourOverlays(const Session& session, PlotWindow& window);
void writeCaption(const Session& session, PlotWindow& window);
void clearPicture(Drawing& drawing);
/// Centred on the picture as it is before sizeWindow.
void drawTitle(Drawing& drawing);
/// Gives a window that is not on show its standard size; the picture follows its window.
void sizeWindow(PlotWindow& window);

}  // namespace zevfit
