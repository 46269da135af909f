#pragma once

#include "plot/overlay/overlay.h"

namespace zevfit {

/// Where a legend stands, twips.
struct LegendBox {
  double left = 0, top = 0, width = 0, height = 0;
};

/// How wide a legend of a picture is, twips; at most a third of a picture of that width.
double legendWidth(const Session& session, const OverlayContent& content, Surface& surface,
                   double pictureWidth);

/// Draws a sample and the name of each shown direction, one below the other, and behind them those
/// of the variance where the picture has it. Names that are too long end with three points; where
/// the height is too little for the lines these are closer and smaller.
void drawLegend(const Session& session, const OverlayContent& content, Surface& surface,
                const LegendBox& box);

}  // namespace zevfit
