#pragma once

#include "model/fit.h"
#include "plot/drawing/plot_window.h"

namespace zevfit {

/// A plot window became the active one: makes its pair the current one, frees the handles and,
/// where the window's size is not that of its picture plus the frame with the two sides exchanged
/// (which is so after every drawing), brings the lists, the controls, the total and the drawing up
/// to date.
void activatePlotWindow(Fit& fit, PlotWindow& window);

}  // namespace zevfit
