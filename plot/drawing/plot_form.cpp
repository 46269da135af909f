#include "plot/drawing/plot_form.h"

namespace zevfit {
namespace {

// Not the pair's own cell: the legend looks at (direction, variable), while the line itself follows
// (variable, direction). A legend can so name a sill without a line, and leave one without a name.
// Variables beyond the directions of the table have no such cell: their legend shows no sill.
bool exchangedShowsSill(const Session& session, Pair pair) {
  return pair.variable < kDirectionSlots && session.showsill(pair.exchanged());
}

bool ownShowsSill(const Session& session, Pair pair) { return session.showsill(pair); }

constexpr double kDisc = 27;
/// Texts below the axis stand lower on paper.
constexpr double kLegendDown = 50, kNumberDown = 20;

}  // namespace

constinit const PlotForm kScreenPlot{
    .discRadius = kDisc,
    .nameCharacterWidth = kCharacterWidth,
    .legendShowsSill = exchangedShowsSill,
};

constinit const PlotForm kPreviewPlot{
    .discRadius = 20,
    .nameCharacterWidth = 100,
    .legendShowsSill = ownShowsSill,
};

constinit const PlotForm kPrintedPlot{
    .discRadius = kDisc,
    .legendShowsSill = exchangedShowsSill,
    .nameKeepsColour = true,
    .bold = true,
    .distanceLegend = {.down = kLegendDown},
    .origin = {.right = -50, .down = kNumberDown},
    .distanceNumber = {.down = kNumberDown},
};

constinit const PlotForm kSmallPrintedPlot{
    .discRadius = kDisc,
    .legendShowsSill = exchangedShowsSill,
    .nameKeepsColour = true,
    .bold = true,
    .title = {.size = 7},
    .caption = {.size = 6},
    .name = {.size = 6},
    .argument = {.right = -30, .down = 70, .size = 4},
    .distanceLegend = {.right = -100, .down = kLegendDown, .size = 4},
    // Of the two shifts, 350 to the left and 300 to the right, those 50 are left that the screen
    // has too: the number stands to the right of where the larger sheets have it.
    .origin = {.right = 0, .down = kNumberDown, .size = 5},
    .distanceNumber = {.down = kNumberDown, .size = 5},
    .semivarianceNumber = {.size = 5},
};

}  // namespace zevfit
