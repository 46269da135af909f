#pragma once

#include "plot/drawing/surface.h"
#include "zvm/plotting/request.h"

namespace zevfit::plotting {

/// A colour for a share from 0 to 1, dark to light: "viridis", which colour-blind people can read
/// and which stays in order in grey (Smith and van der Walt, 2015).
Colour rampColour(double share);

/// Draws a semivariogram surface, north up, as wide as high and midway across, with axes, a scale
/// of its colours and, where they fit, the number of pairs in each square. A square without pairs
/// is as the paper.
void drawMap(const GraphStyle& style, const Map& map, Surface& surface, double width,
             double height);

}  // namespace zevfit::plotting
