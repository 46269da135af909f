#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "plot/drawing/plot_window.h"
#include "session/session.h"

namespace zevfit {

/// The caption of a plot window, which is its key: two digits of the variable, a comma, two digits
/// of the direction, and both names.
std::string windowCaption(const Session& session, Pair pair);

/// The pair that a caption names; numbers as leading-number reading finds them, 0 for none.
Pair windowKey(std::string_view caption);
/// Makes the pair of a window's caption the current one.
void takeKey(Session& session, const PlotWindow& window);

}  // namespace zevfit
