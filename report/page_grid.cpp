#include "report/page_grid.h"

#include <cmath>

#include "session/fault.h"

namespace zevfit {

PageGrid pageGrid(double width, double height, int columns, int rows) {
  PageGrid grid{columns, rows};
  grid.cellWidth = divide(width, columns);
  grid.cellHeight = grid.cellWidth / kPlotAspect;
  grid.top = std::abs(height - rows * grid.cellHeight) / 2;
  return grid;
}

GridCell cellAt(const PageGrid& grid, double x, double y, int none) {
  GridCell cell{none, none};
  for (int column = grid.columns; column >= 1; --column)
    if (x > grid.left(column) && x <= grid.left(column + 1)) cell.column = column;
  for (int row = grid.rows; row >= 1; --row)
    if (y > grid.above(row) && y <= grid.above(row + 1)) cell.row = row;
  return cell;
}

void drawGridLines(Surface& page, const PageGrid& grid) {
  const Stroke black;
  for (int row = 1; row <= grid.rows + 1; ++row)
    page.line(0, grid.above(row), grid.left(grid.columns + 1), grid.above(row), black);
  for (int column = 2; column <= grid.columns + 1; ++column)
    page.line(grid.left(column), grid.above(1), grid.left(column), grid.above(grid.rows + 1),
              black);
}

}  // namespace zevfit
