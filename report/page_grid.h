#pragma once

#include "plot/drawing/surface.h"

namespace zevfit {

/// Width over height of every plot, cell and thumbnail.
inline constexpr double kPlotAspect = 1.7387;

/// The grid of a page: cells side by side from the left edge, the whole of it centred between top
/// and bottom. Twips.
struct PageGrid {
  int columns = 0, rows = 0;
  double cellWidth = 0, cellHeight = 0;
  double top = 0;  ///< of the first row

  double left(int column) const { return (column - 1) * cellWidth; }
  double above(int row) const { return (row - 1) * cellHeight + top; }
};

/// The grid that a picture of that size has. Throws Fault for 0 columns.
PageGrid pageGrid(double width, double height, int columns, int rows);

/// The cell at a place, `none` for what lies in no column or row: the right and the lower edge
/// belong to a cell, the left and the upper one do not.
struct GridCell {
  int row = 0, column = 0;
};
GridCell cellAt(const PageGrid& grid, double x, double y, int none);

/// The lines of the rows, then those of the columns, in black. None at the left, where the picture
/// has its border.
void drawGridLines(Surface& page, const PageGrid& grid);

}  // namespace zevfit
