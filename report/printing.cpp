#include "report/printing.h"

#include <optional>
#include <string>

#include "plot/drawing/plot_kept.h"
#include "report/collection.h"
#include "report/printed_plot.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// What of a cell's part of the sheet its plot is printed in.
constexpr double kShare = 0.9;
constexpr double kSideOffset = 100;

int columnsOf(const Collection& reports) {
  return reports.tables.reportcolumns(reports.window.tab() - 1);
}

/// The pair of a cell of the selected report; nothing for an empty one.
std::optional<Pair> pairIn(const Collection& reports, int row, int column) {
  const ReportTables& tables = reports.tables;
  const int report = reports.window.tab();
  if (!tables.cellused(row, column, report)) return std::nullopt;
  return Pair{tables.cellvar(row, column, report), tables.celldir(row, column, report)};
}

void printCell(Collection& reports, int row, int column, int columns) {
  const std::optional<Pair> pair = pairIn(reports, row, column);
  if (!pair) return;
  const double across = divide(kSheetWidth, columns) * kShare;
  const double down = across / kPlotAspect;
  imprimirvariograma(reports, reports.platewidth * kShare, (column - 1) * across + kSideOffset,
                     (row - 1) * down, *pair);
}

/// True where each plot of the report has flags that are numbers; otherwise warns of the first that
/// has not, before the user is asked for a printer: no sheet comes out that lacks a plot.
bool requirePrintable(const Collection& reports) {
  const int columns = columnsOf(reports);
  for (int column = 1; column <= columns; ++column)
    for (int row = 1; row <= reports.tables.rowsforcolumns(columns - 1); ++row) {
      const std::optional<Pair> pair = pairIn(reports, row, column);
      if (pair && !requireFlags(reports.fit.session, *pair, reports.fit.messages)) return false;
    }
  return true;
}

/// The stroke of the legend on a sheet, from its first plot on.
constexpr PenState kSheetPen{.width = 2};

/// Down the first column, then down the next, from the very top of the sheet.
void printCells(Collection& reports) {
  const int columns = columnsOf(reports);
  reports.window.setBarMaximum(columns);
  for (int column = 1; column <= columns; ++column) {
    reports.window.setBarValue(column);
    for (int row = 1; row <= reports.tables.rowsforcolumns(columns - 1); ++row)
      printCell(reports, row, column, columns);
  }
}

void printReport(Collection& reports) {
  reports.printer.showPrinter();
  reports.window.setBusy(true);
  reports.printer.startDoc(kSheetWidth, kSheetHeight);
  reports.pen = kSheetPen;
  const PlotKept kept(reports.fit.session);
  printCells(reports);
  reports.printer.endDoc();
  reports.fit.hints.hint(HintTopic::sheet, "Report " + std::to_string(reports.window.tab()) +
                                               " went to " + reports.printer.destination() + ".");
}

}  // namespace

void printar_Click(Collection& reports) {
  reports.fit.hints.hint(HintTopic::sheet, "");
  attempt(
      [&] {
        if (requirePrintable(reports)) printReport(reports);
      },
      [&] {
        // What stands on the sheet is not withdrawn.
        endSilently([&] { reports.printer.endDoc(); });
        reports.fit.messages.plain("cannot print!");
      });
  reports.window.setBarValue(0);
  reports.window.setBusy(false);
}

}  // namespace zevfit
