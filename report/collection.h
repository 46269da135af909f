#pragma once

#include "model/fit.h"
#include "plot/drawing/plot_window.h"
#include "report/page_grid.h"
#include "report/printer.h"
#include "report/report_tables.h"
#include "report/report_window.h"

namespace zevfit {

/// The reports and what the handlers of their window work on.
struct Collection {
  Fit& fit;
  PlotWindows& plots;
  Printer& printer;
  ReportWindow& window;

  ReportTables tables{};
  /// Width of the sheet over the columns of the report last selected or clicked; not over those
  /// that "OK" has given it since: until the next click plots are as wide as in the former grid.
  double platewidth = 0;
  PenState pen{};  ///< of the sheet under work
};

inline constexpr double kSheetWidth = 11907, kSheetHeight = 16839.9;

// Handlers of the window. Places are in twips of a page. A fault passes to the caller where nothing
// else is told.

void Form_Load(Collection& reports);
/// Another report was selected.
void TabStrip1_Click(Collection& reports);
/// The slider stands elsewhere: shows so, and touches no report.
void HScroll1_Change(Collection& reports);
/// The thumb is dragged: the page is at once an empty grid of that many columns, while its cells
/// stay in use.
void HScroll1_Scroll(Collection& reports);
/// Gives the report its columns and empties the cells of this grid.
void Command1_Click(Collection& reports);
/// Puts the current plot into the cell or, with "Delete" ticked, empties it. Beside the grid the
/// first row and the first column are meant.
void Picture1_MouseDown(Collection& reports, double x, double y);
/// Tells what the cell holds; beside the grid there is none.
void Picture1_MouseMove(Collection& reports, double x, double y);
/// The command that opens the window; a fault drops the printer's document and is told.
void showCollection(Collection& reports);

/// The grid of the selected report's page.
PageGrid selectedGrid(const Collection& reports);
/// Clears the page of the selected report and draws its grid of its applied columns, which become
/// those of the report.
void grelha(Collection& reports);
/// The same grid on the small picture, with the columns on show; changes no table.
void grelha1(Collection& reports);

}  // namespace zevfit
