// A printed plot of the sample, operation by operation, at (100, 1000) of the sheet. It is 6954.8
// by 4000, its box from (800, 600) to (6154.8, 3400), columns 1070.96 and rows 560. So on the sheet
// x = 900 + 53.548 h and y = 4400 - 280 gamma.

#include "report/printed_plot.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/report_bench.h"
#include "tests/support/whole_plot.h"

namespace zevfit {
namespace {

constexpr double kWidth = 6954.8;

/// What differs between a sheet of one or two columns and one of three.
struct Type {
  float title, caption, argument, distance, numbers;
  double argumentRight, argumentDown, distanceRight, originRight;
  double nameX;  ///< 100 + 6954.8 - 400 less 4 bold characters of 24 a point
};
const Type kLarge{11, 7, 7, 7, 8, 0, 0, 0, -50, 5982.8};
const Type kSmall{7, 6, 4, 4, 5, -30, 70, -100, 0, 6078.8};

Font face(const Font& of, float size) { return {of.name, size, true}; }

Operations wholePlot(const Type& type, int pen) {
  return operationsOf({.left = 100,
                       .top = 1000,
                       .width = kWidth,
                       .height = 4000,
                       .pen = pen,
                       .ground = BoxOf{{100, 1000}, kWidth, 4000, kWhite},
                       // 23 characters of 120 in the window's label: 100 + 3477.4 - 1380.
                       .titleX = 2197.4,
                       .nameX = type.nameX,
                       // Behind the legend's sill it keeps that colour.
                       .nameColour = kText,
                       .title = face(kTitleFont, type.title),
                       .caption = face(kLegendFont, type.caption),
                       .gamma = face(kGammaFont, type.caption),
                       .argument = face(kLegendFont, type.argument),
                       .distance = face(kLegendFont, type.distance),
                       .number = face(kNumberFont, type.numbers),
                       .argumentRight = type.argumentRight,
                       .argumentDown = type.argumentDown,
                       .distanceRight = type.distanceRight,
                       .distanceDown = 50,
                       .originRight = type.originRight,
                       .numberDown = 20});
}

class PrintedPlot : public testing::Test {
 protected:
  PrintedPlot() { bench_.printer.startDoc(11907, 16839.9); }

  const Operations& print(Pair pair = kPair) {
    bench_.printer.surface.operations.clear();
    imprimirvariograma(bench_.reports, kWidth, 100, 1000, pair);
    return bench_.sheet();
  }
  Session& session() { return bench_.session; }
  TextOf textNamed(std::string_view text) {
    const std::vector<TextOf> found = textsNamed(bench_.sheet(), text);
    EXPECT_EQ(found.size(), 1U) << text;
    return found.empty() ? TextOf{{0, 0}, "", {}, 0} : found[0];
  }

  ReportBench bench_;
};

TEST_F(PrintedPlot, OfOneColumnIsDrawnInItsOrder) {
  expectOperations(print(), wholePlot(kLarge, 1));
}

/// Places worked out without the builder: the legend is at parts of 3012 of 4000.
TEST_F(PrintedPlot, HasItsPlaces) {
  const Operations& all = print();
  const Font caption = face(kLegendFont, 7), number = face(kNumberFont, 8);
  const std::vector<std::pair<std::size_t, Operation>> rows{
      {2, TextOf{{6454.8, 2434.263}, "Data", caption, kText}},
      {5, TextOf{{320, 1300}, "(h)", caption, kText}},
      // 1000 + 4000 - 450 + 50
      {6, TextOf{{6254.8, 4600}, "h( )", caption, kText}},
      {7, DiscOf{{6604.8, 2274.9}, 27, {kData, 1, LineStyle::solid}, kData}},
      {11, LineOf{{6454.8, 3071.713}, {6754.8, 2912.351}, {kSill, 1, LineStyle::solid}}},
      {14, LineOf{{1970.96, 1600}, {1970.96, 4400}, {kGrid, 1, LineStyle::dotted}}},
      {28, LineOf{{6254.8, 4390}, {6254.8, 4410}, {kText, 2, LineStyle::solid}}},
      {33, LineOf{{895, 3840}, {910, 3840}, {kText, 2, LineStyle::solid}}},
      {34, TextOf{{800, 4420}, "0", number, kText}},
      {35, TextOf{{1595.96, 4420}, "20.00", number, kText}},
      {40, TextOf{{450, 1520}, "10.00 ", number, kText}},
      {45, LineOf{{6254.8, 3000}, {900, 3000}, {kSill, 2, LineStyle::solid}}},
      {49, DiscOf{{4916.1, 2720}, 27, {kData, 2, LineStyle::solid}, kData}},
      {51, LineOf{{953.548, 3840}, {1007.096, 3840}, {kCurve, 2, LineStyle::solid}}},
  };
  for (const auto& [at, expected] : rows) EXPECT_EQ(all.at(at), expected) << "operation " << at;
}

TEST_F(PrintedPlot, OfThreeColumnsHasItsPlaces) {
  bench_.giveColumns(3);
  const Operations& all = print();
  EXPECT_EQ(all.at(5), Operation(TextOf{{290, 1370}, "(h)", face(kLegendFont, 4), kText}));
  EXPECT_EQ(all.at(6), Operation(TextOf{{6154.8, 4600}, "h( )", face(kLegendFont, 4), kText}));
  EXPECT_EQ(all.at(34), Operation(TextOf{{850, 4420}, "0", face(kNumberFont, 5), kText}));
}

TEST_F(PrintedPlot, OfTwoColumnsIsDrawnAsThatOfOne) {
  bench_.giveColumns(2);
  expectOperations(print(), wholePlot(kLarge, 1));
}

TEST_F(PrintedPlot, OfThreeColumnsHasReducedType) {
  bench_.giveColumns(3);
  expectOperations(print(), wholePlot(kSmall, 1));
}

TEST_F(PrintedPlot, FollowsTheColumnsOfTheSelectedReport) {
  bench_.giveColumns(3);
  bench_.selectTab(2);
  expectOperations(print(), wholePlot(kLarge, 1));
}

TEST_F(PrintedPlot, BehindAnotherOneHasItsThickerPen) {
  print();
  expectOperations(print(), wholePlot(kLarge, 2));
}

TEST_F(PrintedPlot, WithoutASillInItsLegendHasItsNameInTheColourOfTheData) {
  session().showsill(kPair.exchanged()) = false;
  print();
  EXPECT_EQ(textNamed("zinc").colour, kData);
  EXPECT_TRUE(textsNamed(bench_.sheet(), "   Sill").empty());
  // The line itself goes by the other order.
  EXPECT_EQ(linesOf(bench_.sheet(), kSill).size(), 1U);
}

TEST_F(PrintedPlot, WithItsSillHiddenKeepsTheLegendOfTheExchangedPair) {
  session().showsill(kPair) = false;
  print();
  EXPECT_EQ(textNamed("   Sill").colour, kText);
  EXPECT_EQ(linesOf(bench_.sheet(), kSill).size(), 1U);
}

TEST_F(PrintedPlot, WithoutAModelHasNoneInItsLegend) {
  session().use0(kPair) = 0;
  print();
  EXPECT_EQ(textNamed("Data").colour, kText);
  EXPECT_EQ(only<DiscOf>(bench_.sheet()).size(), 5U);
  EXPECT_TRUE(textsNamed(bench_.sheet(), "Model").empty());
  EXPECT_TRUE(linesOf(bench_.sheet(), kCurve).empty());
}

TEST_F(PrintedPlot, HasNoGroundOfTheBackgroundColour) {
  for (const BoxOf& box : only<BoxOf>(print())) EXPECT_EQ(box.fill, kWhite);
  EXPECT_TRUE(only<ClearOf>(bench_.sheet()).empty());
}

TEST_F(PrintedPlot, MeasuresItsTitleInThePlotWindowOfItsPair) {
  bench_.giveColumns(3);
  print({2, 1});
  EXPECT_EQ(bench_.window({2, 1}).measuredText, "Semivariogram (0 0 N)");
  EXPECT_EQ(bench_.window({2, 1}).measuredFont, kTitleFont);
  EXPECT_EQ(bench_.windows.windows.size(), 1U);
}

TEST_F(PrintedPlot, TouchesNoWindow) {
  MemoryPlotWindow& window = bench_.window();
  window.isMinimised = true;
  print();
  EXPECT_TRUE(window.isMinimised);
  EXPECT_EQ(window.title, "");
  EXPECT_EQ(window.overlayForeground, -1);
  EXPECT_TRUE(window.surface.operations.empty());
  EXPECT_TRUE(window.calls.empty());
  EXPECT_EQ(window.fronted, 0);
  EXPECT_EQ(bench_.drawings, 0);
}

TEST_F(PrintedPlot, SetsTheVarianceAndNoOtherControl) {
  bench_.panel.calls.clear();
  session().c0typed(kPair) = session().atyped(kPair) = true;
  session().sel = Line::nugget;
  print();
  EXPECT_EQ(bench_.panel.calls, std::vector<std::string>{"Labelvariance = 5."});
}

TEST_F(PrintedPlot, NeedsNoCurrentPlotAndMakesItsPairTheCurrentOne) {
  session().setCurrent({0, 0});
  print({2, 1});
  EXPECT_EQ(session().plotted(), (Pair{2, 1}));
  EXPECT_EQ(session().current(), (Pair{2, 1}));
}

TEST_F(PrintedPlot, TakesThePatternsOfTheAxes) {
  session().style.Formfont.formato = {"0", "0"};
  print();
  EXPECT_EQ(textNamed("100").at, Place(6254.8 - 225, 4420));
  EXPECT_EQ(session().xformat, "0");
}

TEST_F(PrintedPlot, SetsADistanceAxisForGood) {
  session().hmax(kPair) = 200;
  print();
  EXPECT_EQ(session().xmax(kPair), 200);
  EXPECT_EQ(session().curveh(100), 200);
}

TEST_F(PrintedPlot, SelectsTheFirstStructureBehindALoadWithModels) {
  session().hasmodel = true;
  session().use1({2, 1}) = 1;
  print(kPair);
  EXPECT_EQ(bench_.panel.line(), std::nullopt);
  EXPECT_TRUE(session().modelshown);
  session().modelshown = false;
  print({2, 1});
  EXPECT_EQ(bench_.panel.line(), Line::first);
  EXPECT_TRUE(session().modelshown);
}

TEST_F(PrintedPlot, WithoutAFileSaysSo) {
  session().loaded = false;
  EXPECT_TRUE(print().empty());
  EXPECT_EQ(bench_.dialogs.shown, std::vector<std::string>{test::kNoFileBox});
}

struct FaultRow {
  const char* name;
  void (*prepare)(Session&);
  std::size_t numbers, points;
};

TEST_F(PrintedPlot, EndsSilentlyAtAFaultBehindItsFrame) {
  const FaultRow rows[] = {
      {"an axis of no length", [](Session& s) { s.hmax(kPair) = 0; }, 11, 0},
      {"an axis of no height", [](Session& s) { s.ymin(kPair) = 10; }, 11, 0},
      {"a variance that is a text", [](Session& s) { s.variance(1) = Cell::ofText("x"); }, 0, 0},
      {"a nugget that is a text", [](Session& s) { s.c0(kPair) = Cell::ofText("x"); }, 0, 0},
      {"a distance that is a text", [](Session& s) { s.hlag.set(kPair, 3, Cell::ofText("x")); }, 11,
       2},
  };
  for (const FaultRow& row : rows) {
    ReportBench bench;
    bench.printer.startDoc(1, 1);
    row.prepare(bench.session);
    EXPECT_NO_THROW(imprimirvariograma(bench.reports, kWidth, 0, 0, kPair)) << row.name;
    std::size_t numbers = 0;
    for (const TextOf& text : only<TextOf>(bench.sheet()))
      numbers += text.font.name == kNumberFont.name ? 1U : 0U;
    EXPECT_EQ(numbers, row.numbers) << row.name;
    EXPECT_EQ(pointsOf(bench.sheet()).size(), row.points) << row.name;
    EXPECT_TRUE(bench.dialogs.shown.empty()) << row.name;
  }
}

TEST_F(PrintedPlot, PassesAFaultOfItsFrameOn) {
  EXPECT_THROW(print({42, 2}), Fault);
  session().use2(kPair) = Cell::ofText("x");
  EXPECT_THROW(print(), Fault);
}

}  // namespace
}  // namespace zevfit
