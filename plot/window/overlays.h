#pragma once

#include "plot/window/direction_window.h"

namespace zevfit {

// What several handlers of a plot window do with what lies over its picture.

void hideHandles(DirectionWindow& window);

}  // namespace zevfit
