#pragma once

#include <Qt>

namespace zevfit {

class PlotArea;

// The plots of an area that are neither closed nor minimised are laid out over all of it. Then each
// is activated in turn, which draws it in its new size; the one that was active is so again at the
// end, minimised if it was, and the focus stays where it is.

/// One behind the other, each with its title in view, the active one in front.
void cascadePlots(PlotArea& area);
/// In equal parts of the area, from the first opened plot on.
void tilePlots(PlotArea& area, Qt::Orientation along);

}  // namespace zevfit
