// The grid of a page: 3147 by 4452 for the preview, 602 by 852 for the small picture of it.

#include "report/page_grid.h"

#include <gtest/gtest.h>

#include "report/report_tables.h"
#include "report/report_window.h"
#include "session/fault.h"
#include "tests/support/recording_surface.h"

namespace zevfit {
namespace {

struct GridRow {
  int columns, rows;
  double width, height, top;
};

// 3147 / 1.7387 = 1809.973, half of that and a third of it: 904.986 and 603.324. What two, four and
// seven rows leave of 4452 is halved: 832.055, 832.055 and 228.731.
TEST(PageGrid, OfThePreviewHasItsCellsAndMargins) {
  const GridRow rows[] = {
      {1, 2, 3147, 1809.97, 416.03}, {2, 4, 1573.5, 904.99, 416.03}, {3, 7, 1049, 603.32, 114.36}};
  for (const GridRow& row : rows) {
    const PageGrid grid = pageGrid(kPageWidth, kPageHeight, row.columns, row.rows);
    EXPECT_EQ(grid.cellWidth, row.width) << row.columns;
    EXPECT_NEAR(grid.cellHeight, row.height, 0.006) << row.columns;
    EXPECT_NEAR(grid.top, row.top, 0.006) << row.columns;
  }
}

TEST(PageGrid, TakesTheMarginWithoutItsSign) {
  // Cells 173.87 wide and 100 high; four rows are 400 of 300.
  const PageGrid grid = pageGrid(173.87, 300, 1, 4);
  EXPECT_NEAR(grid.top, 50, 1e-9);
}

TEST(PageGrid, OfNoColumnsIsAFault) { EXPECT_THROW(pageGrid(3147, 4452, 0, 2), Fault); }

TEST(PageGrid, RowsFollowFromTheColumnsAlone) {
  ReportTables tables;
  resetReports(tables);
  const int rows[] = {2, 4, 7, 0};
  for (int slot = 0; slot < 4; ++slot) EXPECT_EQ(tables.rowsforcolumns(slot), rows[slot]) << slot;
  for (int slot = 0; slot < 6; ++slot) EXPECT_EQ(tables.reportcolumns(slot), 1) << slot;
}

TEST(CellTables, HaveTheirShape) {
  CellTable<int> table{"table"};
  table(7, 3, 6) = 1;
  EXPECT_EQ(table(7, 3, 6), 1);
  EXPECT_EQ(table(0, 0, 0), 0);
  const int outside[][3] = {{-1, 1, 1}, {8, 1, 1}, {1, -1, 1}, {1, 4, 1}, {1, 1, -1}, {1, 1, 7}};
  for (const auto& at : outside) EXPECT_THROW(table(at[0], at[1], at[2]), Fault);
}

/// Three columns of 100 and seven rows of 57.514 in a picture of 300 by 600: 7 rows are 402.600,
/// the margin is (600 - 402.600) / 2 = 98.700.
const PageGrid kGrid = pageGrid(300, 600, 3, 7);

struct CellRow {
  const char* name;
  double x, y;
  int row, column;
};

TEST(PageGrid, FindsTheCellAtAPlace) {
  constexpr int kNone = -5;
  const CellRow rows[] = {
      {"middle of the first", 50, 127, 1, 1},
      {"left edge", 0, 127, 1, kNone},
      {"beyond the left edge", -1, 127, 1, kNone},
      {"just inside", 0.001, 127, 1, 1},
      {"edge between columns", 100, 127, 1, 1},
      {"behind that edge", 100.001, 127, 1, 2},
      {"right edge", 300, 127, 1, 3},
      {"beyond the right edge", 300.001, 127, 1, kNone},
      {"margin above", 150, 98, kNone, 2},
      {"below the margin", 150, 99, 1, 2},
      // 98.700 + 57.514 = 156.214
      {"end of the first row", 150, 156.2, 1, 2},
      {"second row", 150, 156.3, 2, 2},
      // 98.700 + 402.600 = 501.300
      {"end of the last row", 250, 501.2, 7, 3},
      {"margin below", 250, 501.4, kNone, 3},
  };
  for (const CellRow& row : rows) {
    const GridCell cell = cellAt(kGrid, row.x, row.y, kNone);
    EXPECT_EQ(cell.row, row.row) << row.name;
    EXPECT_EQ(cell.column, row.column) << row.name;
  }
}

TEST(PageGrid, LinesAreRowsThenColumnsWithoutTheLeftEdge) {
  RecordingSurface page;
  // Cells 86.935 by 50; four rows in 260 leave 30 above.
  drawGridLines(page, pageGrid(173.87, 260, 2, 4));
  const Stroke black{kBlack, 1, LineStyle::solid};
  const Operations expected{
      LineOf{{0, 30}, {173.87, 30}, black},      LineOf{{0, 80}, {173.87, 80}, black},
      LineOf{{0, 130}, {173.87, 130}, black},    LineOf{{0, 180}, {173.87, 180}, black},
      LineOf{{0, 230}, {173.87, 230}, black},    LineOf{{86.935, 30}, {86.935, 230}, black},
      LineOf{{173.87, 30}, {173.87, 230}, black}};
  EXPECT_EQ(page.operations, expected);
}

}  // namespace
}  // namespace zevfit
