#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/fit.h"
#include "plot/plot_window.h"

namespace zevfit {

/// Draws all of the current pair in its window: title, legend, axes, grid, ticks, axis numbers,
/// sill line, data points and model curve. Clears first; nothing is drawn incrementally. Without a
/// file says so; without a current pair does nothing. A fault in the frame (up to the ticks) is
/// thrown on; from the model refresh on it ends the drawing silently with what stands.
void plotvariogram(Fit& fit, PlotWindows& windows);

/// The caption of a plot window, which is its key: two digits of the variable, a comma, two digits
/// of the direction, and both names.
std::string windowCaption(const Session& session, std::int64_t variable, std::int64_t direction);

/// The pair that a caption names; numbers as leading-number reading finds them, 0 for none.
struct WindowKey {
  std::int64_t variable = 0, direction = 0;
};
WindowKey windowKey(std::string_view caption);
/// Makes the pair of a window's caption the current one.
void takeKey(Session& session, const PlotWindow& window);

/// A plot window became the active one: makes its pair the current one, frees the handles and,
/// where the window's size is not that of its picture plus the frame with the two sides exchanged
/// (which is so after every drawing), brings the lists, the controls, the total and the drawing up
/// to date.
void activatePlotWindow(Fit& fit, PlotWindow& window);

}  // namespace zevfit
