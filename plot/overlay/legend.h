#pragma once

#include "plot/overlay/overlay.h"

namespace zevfit {

/// How wide a legend of the shown directions is, twips; at most a third of a picture of that width.
double legendWidth(const Session& session, const Directions& shown, Surface& surface,
                   double pictureWidth);

/// Draws a sample and the name of each shown direction, one below the other, from a place on down;
/// where `height` is too little for them they stand closer.
void drawLegend(const Session& session, const Directions& shown, Surface& surface, double left,
                double top, double height);

}  // namespace zevfit
