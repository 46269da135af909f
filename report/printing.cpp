#include "report/printing.h"

#include <string>

#include "report/collection.h"
#include "report/printed_plot.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// What of a cell's part of the sheet its plot is printed in.
constexpr double kShare = 0.9;
constexpr double kSideOffset = 100;

void printCell(Collection& reports, int row, int column, int columns) {
  const ReportTables& tables = reports.tables;
  const int report = reports.window.tab();
  if (!tables.cellused(row, column, report)) return;
  const double across = divide(kSheetWidth, columns) * kShare;
  const double down = across / kPlotAspect;
  imprimirvariograma(reports, reports.platewidth * kShare, (column - 1) * across + kSideOffset,
                     (row - 1) * down,
                     {tables.cellvar(row, column, report), tables.celldir(row, column, report)});
}

/// The stroke of the legend on a sheet, from its first plot on.
constexpr PenState kSheetPen{.width = 2};

/// What printed plots set for themselves, put back at the end: the pairs and the curve of the plot
/// on the screen, which controls and thumbnails go on with.
class PlotKept {
 public:
  explicit PlotKept(Session& session)
      : session_(session),
        current_(session.current()),
        plotted_(session.plotted()),
        curveh_(session.curveh),
        curvegam_(session.curvegam) {}
  PlotKept(const PlotKept&) = delete;
  PlotKept& operator=(const PlotKept&) = delete;
  ~PlotKept() {
    session_.setCurrent(current_);
    session_.setPlotted(plotted_);
    session_.curveh = curveh_;
    session_.curvegam = curvegam_;
  }

 private:
  Session& session_;
  Pair current_, plotted_;
  decltype(Session::curveh) curveh_, curvegam_;
};

/// Down the first column, then down the next, from the very top of the sheet.
void printCells(Collection& reports) {
  const int columns = reports.tables.reportcolumns(reports.window.tab() - 1);
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
  attempt([&] { printReport(reports); },
          [&] {
            // What stands on the sheet is not withdrawn.
            endSilently([&] { reports.printer.endDoc(); });
            reports.fit.messages.plain("cannot print!");
          });
  reports.window.setBarValue(0);
  reports.window.setBusy(false);
}

}  // namespace zevfit
