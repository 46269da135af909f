// The sheet of a report: which cells are printed where and in what order, the bar, and what happens
// when a printer refuses.

#include <gtest/gtest.h>

#include "report/printing.h"
#include "tests/support/report_bench.h"

namespace zevfit {
namespace {

using Calls = std::vector<std::string>;

class Printing : public testing::Test {
 protected:
  MemoryReportWindow& window() { return bench_.reportWindow; }
  Session& session() { return bench_.session; }

  /// Columns of a report whose page was clicked since.
  void prepare(int columns) {
    bench_.giveColumns(columns);
    bench_.selectTab(2);
    bench_.selectTab(1);
  }
  void fill(int row, int column, std::int64_t variable = 1, std::int64_t direction = 2) {
    session().setCurrent({variable, direction});
    bench_.clickCell(row, column);
  }
  void print() {
    window().calls.clear();
    printar_Click(bench_.reports);
  }
  /// The white grounds of the plots on the sheet.
  std::vector<BoxOf> grounds() { return only<BoxOf>(bench_.sheet()); }

  ReportBench bench_;
};

struct SheetRow {
  int columns, rows;
  double across, down;
};

// 11907 * 0.9 = 10716.3, over 1.7387: 6163.398; half and a third of it.
TEST_F(Printing, GoesDownTheFirstColumnThenDownTheNext) {
  const SheetRow rows[] = {
      {1, 2, 10716.3, 6163.398}, {2, 4, 5358.15, 3081.699}, {3, 7, 3572.1, 2054.466}};
  for (const SheetRow& sheet : rows) {
    bench_.printer.surface.operations.clear();
    prepare(sheet.columns);
    for (int row = 1; row <= sheet.rows; ++row)
      for (int column = 1; column <= sheet.columns; ++column) fill(row, column);
    print();
    const std::vector<BoxOf> boxes = grounds();
    ASSERT_EQ(boxes.size(), static_cast<std::size_t>(sheet.rows * sheet.columns));
    std::size_t at = 0;
    for (int column = 1; column <= sheet.columns; ++column)
      for (int row = 1; row <= sheet.rows; ++row) {
        const BoxOf& box = boxes[at++];
        EXPECT_NEAR(box.at.x, (column - 1) * sheet.across + 100, 0.002);
        EXPECT_NEAR(box.at.y, (row - 1) * sheet.down, 0.005);
        EXPECT_NEAR(box.width, sheet.across, 0.002);
        EXPECT_NEAR(box.height, sheet.down, 0.002);
        EXPECT_EQ(box.fill, kWhite);
      }
  }
}

TEST_F(Printing, PrintsEachCellsOwnPlot) {
  prepare(2);
  fill(1, 1, 1, 2);
  fill(3, 1, 2, 1);
  fill(2, 2, 2, 2);
  print();
  std::vector<std::string> texts;
  for (const TextOf& text : only<TextOf>(bench_.sheet()))
    if (text.text.starts_with("Semi") || text.text == "zinc" || text.text == "lead")
      texts.push_back(text.text);
  EXPECT_EQ(texts, (Calls{"Semivariogram (45 0 NE)", "zinc", "Semivariogram (0 0 N)", "lead",
                          "Semivariogram (45 0 NE)", "lead"}));
}

TEST_F(Printing, LeavesThePlacesOfEmptyCellsBlank) {
  prepare(3);
  fill(7, 3);
  print();
  const std::vector<BoxOf> boxes = grounds();
  ASSERT_EQ(boxes.size(), 1U);
  // 2 * 3572.1 + 100 and 6 * 2054.466.
  EXPECT_NEAR(boxes[0].at.x, 7244.2, 0.001);
  EXPECT_NEAR(boxes[0].at.y, 12326.796, 0.005);
}

TEST_F(Printing, IsOneSheetWithTheBarAndTheHourglass) {
  prepare(3);
  fill(1, 1);
  print();
  EXPECT_EQ(bench_.printer.calls, (Calls{"dialog", "start 11907 16839.9", "end"}));
  EXPECT_EQ(window().calls,
            (Calls{"busy", "maximum 3", "bar 1", "bar 2", "bar 3", "bar 0", "ready"}));
  EXPECT_TRUE(bench_.dialogs.shown.empty());
}

TEST_F(Printing, ASheetWithoutPlotsIsEndedAllTheSame) {
  print();
  EXPECT_EQ(bench_.printer.calls, (Calls{"dialog", "start 11907 16839.9", "end"}));
  EXPECT_TRUE(bench_.sheet().empty());
  EXPECT_TRUE(bench_.dialogs.shown.empty());
}

TEST_F(Printing, PrintsTheSelectedReport) {
  fill(1, 1);
  bench_.selectTab(5);
  print();
  EXPECT_TRUE(bench_.sheet().empty());
  fill(2, 1);
  print();
  EXPECT_EQ(grounds().size(), 1U);
}

// The page is clicked while it has two columns, then gets one and one more plot each.
TEST_F(Printing, KeepsTheWidthOfTheFormerGridBehindAnOk) {
  prepare(2);
  bench_.giveColumns(1);
  bench_.reports.tables.cellused(2, 1, 1) = true;
  bench_.reports.tables.celldir(2, 1, 1) = 2;
  bench_.reports.tables.cellvar(2, 1, 1) = 1;
  print();
  ASSERT_EQ(grounds().size(), 1U);
  // Half a sheet's width of plot on the pitch of one column.
  EXPECT_NEAR(grounds()[0].width, 5358.15, 0.001);
  EXPECT_NEAR(grounds()[0].at.y, 6163.398, 0.001);
}

TEST_F(Printing, PutsTheOldCellsWhereADraggedThumbHasTheirGrid) {
  prepare(3);
  fill(2, 2);
  fill(7, 3);
  bench_.dragColumns(2);
  print();
  ASSERT_EQ(grounds().size(), 1U);
  // Column 2 of two, on the width of three.
  EXPECT_NEAR(grounds()[0].at.x, 5458.15, 0.001);
  EXPECT_NEAR(grounds()[0].at.y, 3081.699, 0.001);
  EXPECT_NEAR(grounds()[0].width, 3572.1, 0.001);
}

TEST_F(Printing, ShowsTheModelAsItIsNow) {
  prepare(1);
  fill(1, 1);
  session().c0(kPair) = 4;
  print();
  // H = 6163.398, a unit of semivariance (H - 1200) / 10 = 496.340 above H - 600.
  EXPECT_NEAR(linesOf(bench_.sheet(), kCurve).at(1).to.y, 5563.398 - 4 * 496.340, 0.01);
}

TEST_F(Printing, LeavesTheVarianceOfTheLastPlotOnThePanel) {
  prepare(1);
  fill(1, 1, 2, 2);
  fill(2, 1, 1, 2);
  session().curvar = 2;
  print();
  EXPECT_EQ(bench_.panel.caption(Caption::Labelvariance), "5.");
  fill(2, 1, 2, 1);
  print();
  EXPECT_EQ(bench_.panel.caption(Caption::Labelvariance), "7.5");
}

TEST_F(Printing, RefusesAReportWithATextAsAFlagBeforeItAsksForAPrinter) {
  prepare(1);
  fill(1, 1, 1, 2);
  fill(2, 1, 2, 1);
  session().use2({2, 1}) = Cell::ofText("yes");
  print();
  EXPECT_EQ(bench_.dialogs.shown,
            std::vector<std::string>{"warning: Illegal value for flag of Structure 2 in Direction "
                                     "(0 0 N) of lead: yes!"});
  EXPECT_EQ(bench_.printer.calls, std::vector<std::string>{});
}

// Black strokes of the legend are outlines; the sample of the model tells the width of the pen.
TEST_F(Printing, DrawsTheLegendOfTheFirstPlotLikeThatOfTheNext) {
  prepare(1);
  fill(1, 1);
  fill(2, 1);
  for (int sheet = 1; sheet <= 2; ++sheet) {
    bench_.printer.surface.operations.clear();
    print();
    // A plot has 101 lines in the colour of the model, of which the first is the legend's.
    const std::vector<LineOf> lines = linesOf(bench_.sheet(), kCurve);
    ASSERT_EQ(lines.size(), 202U);
    for (const std::size_t sample : {std::size_t{0}, std::size_t{101}})
      EXPECT_EQ(lines[sample].stroke.width, 2) << sheet << " " << sample;
  }
}

TEST_F(Printing, LeavesTheCurrentPlotAndItsCurveAsTheyWere) {
  prepare(1);
  fill(1, 1, 2, 1);
  session().setCurrent({1, 2});
  bench_.draw();
  const double middle = session().curvegam(50);
  for (const char* refused : {"", "end"}) {
    bench_.printer.refuses = refused;
    session().c0({2, 1}) = 3;
    print();
    EXPECT_EQ(session().current(), (Pair{1, 2})) << refused;
    EXPECT_EQ(session().plotted(), (Pair{1, 2})) << refused;
    EXPECT_EQ(session().curvegam(50), middle) << refused;
  }
}

struct Refusal {
  const char* name;
  const char* call;
  Calls calls;  ///< of the printer
  Calls steps;  ///< of the window
};

TEST_F(Printing, EndsInAMessageWhenThePrinterRefuses) {
  const Refusal rows[] = {
      {"cancel", "dialog", {"dialog"}, {"bar 0", "ready"}},
      {"no sheet", "start", {"dialog", "start 11907 16839.9"}, {"busy", "bar 0", "ready"}},
      {"not sent",
       "end",
       {"dialog", "start 11907 16839.9", "end"},
       {"busy", "maximum 1", "bar 1", "bar 0", "ready"}},
  };
  prepare(1);
  fill(1, 1);
  for (const Refusal& row : rows) {
    bench_.dialogs.shown.clear();
    bench_.printer.calls.clear();
    bench_.printer.refuses = row.call;
    print();
    EXPECT_EQ(bench_.dialogs.shown, Calls{"plain: cannot print!"}) << row.name;
    EXPECT_EQ(bench_.printer.calls, row.calls) << row.name;
    EXPECT_EQ(window().calls, row.steps) << row.name;
  }
}

TEST_F(Printing, MessageComesBeforeTheBarAndThePointerAreReset) {
  bench_.printer.refuses = "start";
  Calls before;
  bench_.dialogs.meanwhile = [&] { before = window().calls; };
  print();
  EXPECT_EQ(before, Calls{"busy"});
}

TEST_F(Printing, AFaultInAFrameEndsTheSheetWithWhatStands) {
  prepare(1);
  fill(1, 1);
  fill(2, 1);
  bench_.printer.onSheet = [&] {
    if (!grounds().empty()) throw Fault("out of paper");
  };
  print();
  EXPECT_EQ(bench_.dialogs.shown, Calls{"plain: cannot print!"});
  EXPECT_EQ(bench_.printer.calls, (Calls{"dialog", "start 11907 16839.9", "end"}));
  EXPECT_EQ(grounds().size(), 1U);
  EXPECT_EQ(window().calls.back(), "ready");
}

TEST_F(Printing, ACellOfAVariableThatTheFileLacksEndsItsPlotAlone) {
  prepare(2);
  fill(1, 1);
  fill(2, 1);
  bench_.reports.tables.cellvar(1, 1, 1) = 20;
  print();
  EXPECT_TRUE(bench_.dialogs.shown.empty());
  EXPECT_EQ(grounds().size(), 2U);
  EXPECT_EQ(linesOf(bench_.sheet(), kCurve).size(), 101U);
  EXPECT_EQ(bench_.printer.calls.back(), "end");
}

}  // namespace
}  // namespace zevfit
