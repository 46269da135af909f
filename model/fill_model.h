#pragma once

#include "model/fit.h"
#include "session/model_cells.h"

namespace zevfit {

/// Gives the current pair these cells as a user does who selects the lines, ticks them and types
/// the values, and draws once at its end. What the controls refuse, such as a sill outside the
/// axis, is stored all the same. The line that was selected stays so; without one it is the first
/// structure in use. The fields drive afterwards, so that no value settles on a step of its slider.
/// Throws Fault as the handlers do.
void fillModel(Fit& fit, const ModelCells& cells);

}  // namespace zevfit
