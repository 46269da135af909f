#include "report/collection.h"

#include "report/thumbnail.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {
namespace {

int rowsFor(const ReportTables& tables, int columns) { return tables.rowsforcolumns(columns - 1); }

/// The slot of the selected report.
int slotOf(const Collection& reports) { return reports.window.tab() - 1; }

int columnsOf(const Collection& reports) { return reports.tables.reportcolumns(slotOf(reports)); }

PageGrid gridOf(const Collection& reports, double width, double height, int columns) {
  return pageGrid(width, height, columns, rowsFor(reports.tables, columns));
}

void takePlateWidth(Collection& reports) {
  reports.platewidth = divide(kSheetWidth, columnsOf(reports));
}

/// The hourglass, also where a fault ends the handler.
class Hourglass {
 public:
  explicit Hourglass(ReportWindow& window) : window_(window) { window_.setBusy(true); }
  ~Hourglass() { window_.setBusy(false); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  ReportWindow& window_;
};

void emptyCell(Collection& reports, const PageGrid& grid, GridCell cell) {
  reports.window.pasteBlank(slotOf(reports), grid.left(cell.column), grid.above(cell.row));
  reports.tables.cellused(cell.row, cell.column, reports.window.tab()) = false;
}

void fillCell(Collection& reports, const PageGrid& grid, GridCell cell) {
  const Session& session = reports.fit.session;
  const int report = reports.window.tab();
  reports.window.pasteThumbnail(slotOf(reports), grid.left(cell.column), grid.above(cell.row));
  reports.tables.cellused(cell.row, cell.column, report) = true;
  reports.tables.celldir(cell.row, cell.column, report) = session.curdir;
  reports.tables.cellvar(cell.row, cell.column, report) =
      toInt16(static_cast<double>(session.curvar));
}

/// The legend is empty for an empty cell, and where there is no cell.
void showCell(Collection& reports, GridCell cell) {
  const ReportTables& tables = reports.tables;
  const Session& session = reports.fit.session;
  const int report = reports.window.tab();
  if (!tables.cellused(cell.row, cell.column, report)) return reports.window.showLegend("", "");
  reports.window.showLegend(session.varname(tables.cellvar(cell.row, cell.column, report)),
                            session.dirname(tables.celldir(cell.row, cell.column, report)));
}

}  // namespace

PageGrid selectedGrid(const Collection& reports) {
  return gridOf(reports, kPageWidth, kPageHeight, columnsOf(reports));
}

void Form_Load(Collection& reports) {
  resetReports(reports.tables);
  TabStrip1_Click(reports);
  // The slider has not moved, and yet the small picture is that of its grid from the start.
  grelha1(reports);
}

void TabStrip1_Click(Collection& reports) {
  ReportWindow& window = reports.window;
  window.setDeleteTicked(false);
  for (int slot = 0; slot < kReports; ++slot) {
    if (slot == slotOf(reports)) {
      window.setSlider(columnsOf(reports));
      takePlateWidth(reports);
    }
    window.showPage(slot, slot == slotOf(reports));
  }
}

void HScroll1_Change(Collection& reports) {
  reports.window.showColumns(reports.window.slider());
  grelha1(reports);
}

void HScroll1_Scroll(Collection& reports) {
  reports.window.applyColumns(reports.window.slider());
  grelha(reports);
}

void Command1_Click(Collection& reports) {
  const int columns = reports.window.shownColumns();
  reports.window.applyColumns(columns);
  for (int column = 1; column <= columns; ++column)
    for (int row = 1; row <= rowsFor(reports.tables, columns); ++row)
      reports.tables.cellused(row, column, reports.window.tab()) = false;
  grelha(reports);
}

void grelha(Collection& reports) {
  const int columns = reports.window.appliedColumns();
  Surface& page = reports.window.page(slotOf(reports));
  page.clear(kWhite);
  drawGridLines(page, gridOf(reports, kPageWidth, kPageHeight, columns));
  reports.tables.reportcolumns(slotOf(reports)) = static_cast<std::int16_t>(columns);
}

void grelha1(Collection& reports) {
  const int columns = reports.window.shownColumns();
  Surface& picture = reports.window.settings();
  picture.clear(kWhite);
  drawGridLines(picture, gridOf(reports, kSettingsWidth, kSettingsHeight, columns));
}

void Picture1_MouseDown(Collection& reports, double x, double y) {
  const Session& session = reports.fit.session;
  if (session.curvar < 1 || session.curdir < 1)
    return reports.fit.messages.plain("Please select variogram plot first!");
  const Hourglass hourglass(reports.window);
  const PageGrid grid = selectedGrid(reports);
  const GridCell cell = cellAt(grid, x, y, 1);
  variog(reports, grid.cellWidth, grid.cellWidth / kPlotAspect);
  takePlateWidth(reports);
  if (reports.window.deleteTicked()) {
    emptyCell(reports, grid, cell);
  } else {
    fillCell(reports, grid, cell);
  }
  drawGridLines(reports.window.page(slotOf(reports)), grid);
  reports.window.refreshPage(slotOf(reports));
}

// A place beside the grid has a cell that no table holds: the fault leaves the legend empty.
void Picture1_MouseMove(Collection& reports, double x, double y) {
  attempt([&] { showCell(reports, cellAt(selectedGrid(reports), x, y, -1)); },
          [&] { reports.window.showLegend("", ""); });
}

void showCollection(Collection& reports) {
  attempt([&] { reports.window.showNormally(); },
          [&] {
            reports.printer.killDoc();
            reports.fit.messages.plain("Cannot print!");
          });
}

}  // namespace zevfit
