// A printed plot of the sample, operation by operation, at (100, 1000) of the sheet. It is 6954.8
// by 4000, its box from (800, 600) to (6154.8, 3400), columns 1070.96 and rows 560. So on the sheet
// x = 900 + 53.548 h and y = 4400 - 280 gamma.

#include "report/printed_plot.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/report_bench.h"

namespace zevfit {
namespace {

constexpr double kWidth = 6954.8;

/// What differs between a sheet of one or two columns and one of three.
struct Type {
  float title, caption, argument, distance, numbers;
  double argumentX, argumentY, distanceX, originX;
  double nameX;  ///< 100 + 6954.8 - 400 less 4 bold characters of 24 a point
};
const Type kLarge{11, 7, 7, 7, 8, 320, 1300, 6254.8, 800, 5982.8};
const Type kSmall{7, 6, 4, 4, 5, 290, 1370, 6154.8, 850, 6078.8};

Font face(const Font& of, float size) { return {of.name, size, true}; }

void append(Operations& all, const Operations& more) {
  all.insert(all.end(), more.begin(), more.end());
}

/// The legend is at 1080, 2280, 960, 1680, 2160, 2040, 1560, 1440 of 3012 parts of 4000.
Operations legend(const Type& type, int width) {
  const Font caption = face(kLegendFont, type.caption);
  return {
      BoxOf{{100, 1000}, kWidth, 4000, kWhite},
      // The title's 23 characters of 120 in the window's label: 100 + 3477.4 - 1380.
      TextOf{{2197.4, 1100}, "Semivariogram (45 0 NE)", face(kTitleFont, type.title), kText},
      TextOf{{6454.8, 2434.263}, "Data", caption, kText},
      TextOf{{6404.8, 4027.888}, "Model", caption, kText},
      TextOf{{200, 1300}, "g", face(kGammaFont, type.caption), kText},
      TextOf{{type.argumentX, type.argumentY}, "(h)", face(kLegendFont, type.argument), kText},
      // 1000 + 4000 - 450 + 50
      TextOf{{type.distanceX, 4600}, "h( )", face(kLegendFont, type.distance), kText},
      DiscOf{{6604.8, 2274.9}, 27, {kData, width, LineStyle::solid}, kData},
      TextOf{{6304.8, 3231.076}, "   Sill", caption, kText},
      TextOf{{type.nameX, 1350}, "zinc", caption, kText},
      LineOf{{6454.8, 3868.526}, {6754.8, 3709.163}, {kCurve, width, LineStyle::solid}},
      LineOf{{6454.8, 3071.713}, {6754.8, 2912.351}, {kSill, width, LineStyle::solid}},
  };
}

Operations axesAndGrid() {
  constexpr Stroke axis{kText, 1, LineStyle::solid}, dotted{kGrid, 1, LineStyle::dotted},
      tick{kText, 2, LineStyle::solid};
  return {
      LineOf{{900, 1600}, {900, 4400}, axis},
      LineOf{{900, 4400}, {6254.8, 4400}, axis},
      LineOf{{1970.96, 1600}, {1970.96, 4400}, dotted},
      LineOf{{3041.92, 1600}, {3041.92, 4400}, dotted},
      LineOf{{4112.88, 1600}, {4112.88, 4400}, dotted},
      LineOf{{5183.84, 1600}, {5183.84, 4400}, dotted},
      LineOf{{6254.8, 1600}, {6254.8, 4400}, dotted},
      LineOf{{900, 1600}, {6254.8, 1600}, dotted},
      LineOf{{900, 2160}, {6254.8, 2160}, dotted},
      LineOf{{900, 2720}, {6254.8, 2720}, dotted},
      LineOf{{900, 3280}, {6254.8, 3280}, dotted},
      LineOf{{900, 3840}, {6254.8, 3840}, dotted},
      LineOf{{1970.96, 4390}, {1970.96, 4410}, tick},
      LineOf{{3041.92, 4390}, {3041.92, 4410}, tick},
      LineOf{{4112.88, 4390}, {4112.88, 4410}, tick},
      LineOf{{5183.84, 4390}, {5183.84, 4410}, tick},
      LineOf{{6254.8, 4390}, {6254.8, 4410}, tick},
      LineOf{{895, 1600}, {910, 1600}, tick},
      LineOf{{895, 2160}, {910, 2160}, tick},
      LineOf{{895, 2720}, {910, 2720}, tick},
      LineOf{{895, 3280}, {910, 3280}, tick},
      LineOf{{895, 3840}, {910, 3840}, tick},
  };
}

/// A number of n characters is n * 75 to the left of its place, whatever its size; those of the
/// distances are 20 below the axis.
Operations numbers(const Type& type) {
  const Font font = face(kNumberFont, type.numbers);
  return {
      TextOf{{type.originX, 4420}, "0", font, kText}, TextOf{{1595.96, 4420}, "20.00", font, kText},
      TextOf{{2666.92, 4420}, "40.00", font, kText},  TextOf{{3737.88, 4420}, "60.00", font, kText},
      TextOf{{4808.84, 4420}, "80.00", font, kText},  TextOf{{5804.8, 4420}, "100.00", font, kText},
      TextOf{{450, 1520}, "10.00 ", font, kText},     TextOf{{525, 2080}, "8.00 ", font, kText},
      TextOf{{525, 2640}, "6.00 ", font, kText},      TextOf{{525, 3200}, "4.00 ", font, kText},
      TextOf{{525, 3760}, "2.00 ", font, kText},
  };
}

Operations data() {
  constexpr Stroke outline{kData, 2, LineStyle::solid};
  return {
      LineOf{{6254.8, 3000}, {900, 3000}, {kSill, 2, LineStyle::solid}},
      DiscOf{{1435.48, 3840}, 27, outline, kData},
      DiscOf{{2238.7, 3280}, 27, outline, kData},
      DiscOf{{3577.4, 2160}, 27, outline, kData},
      DiscOf{{4916.1, 2720}, 27, outline, kData},
  };
}

/// The nugget of 2 at 100 distances; the first piece has no length.
Operations curve() {
  Operations pieces;
  double from = 953.548;
  for (int i = 1; i <= 100; ++i) {
    const double to = 900 + 53.548 * i;
    pieces.push_back(LineOf{{from, 3840}, {to, 3840}, {kCurve, 2, LineStyle::solid}});
    from = to;
  }
  return pieces;
}

Operations wholePlot(const Type& type, int width) {
  Operations all = legend(type, width);
  for (const Operations& part : {axesAndGrid(), numbers(type), data(), curve()}) append(all, part);
  return all;
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
  EXPECT_EQ(bench_.dialogs.shown,
            std::vector<std::string>{"plain: Please select input data file (*.ZVM) first!"});
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
