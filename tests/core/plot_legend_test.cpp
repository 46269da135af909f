#include <gtest/gtest.h>

#include "session/fault.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

/// A sample has a line of its colour in the legend column, in front of the axes.
bool hasSample(const Operations& all, Colour colour) {
  const std::vector<LineOf> lines = linesOf(all, colour);
  return !lines.empty() && lines[0].from.x == 5868 && lines[0].to.x == 6168;
}

TEST(PlotLegend, ShowsTheModelWhereTheFlagsDoNotAddUpToZero) {
  struct {
    const char* name;
    double use0, use1, use2;
    std::int16_t use3;
    bool shown;
  } const rows[] = {
      {"none", 0, 0, 0, 0, false},
      {"the nugget", 1, 0, 0, 0, true},
      {"structure 1", 0, 1, 0, 0, true},
      {"structure 2", 0, 0, 1, 0, true},
      {"structure 3", 0, 0, 0, 1, true},
      {"all", 1, 1, 1, 1, true},
      {"a flag of two", 2, 0, 0, 0, true},
      {"one and minus one", 1, -1, 0, 0, false},
      {"a flag of minus one", 0, 0, 0, -1, true},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.use0(kPair) = row.use0;
    bench.session.use1(kPair) = row.use1;
    bench.session.use2(kPair) = row.use2;
    bench.session.use3(kPair) = row.use3;
    bench.draw();
    EXPECT_EQ(!textsNamed(bench.operations(), "Model").empty(), row.shown) << row.name;
    EXPECT_EQ(hasSample(bench.operations(), kCurve), row.shown) << row.name;
  }
}

// The legend looks at the cell of (direction, variable), the line at that of (variable, direction).
TEST(PlotLegend, ReadsTheSillWithExchangedSubscripts) {
  struct {
    bool own, exchanged;
    std::size_t lines;  ///< that of the plot and the sample
  } const rows[] = {{false, false, 0}, {true, false, 1}, {false, true, 1}, {true, true, 2}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.showsill(kPair) = row.own;
    bench.session.showsill(kPair.exchanged()) = row.exchanged;
    bench.draw();
    const Operations& all = bench.operations();
    const std::string name = std::to_string(row.own) + ", " + std::to_string(row.exchanged);
    EXPECT_EQ(!textsNamed(all, "   Sill").empty(), row.exchanged) << name;
    EXPECT_EQ(hasSample(all, kSill), row.exchanged) << name;
    EXPECT_EQ(linesOf(all, kSill).size(), row.lines) << name;
  }
}

TEST(PlotLegend, FollowsTheBoxWhereBothSubscriptsAreTheSame) {
  PlotBench bench;
  bench.session.curdir = 1;
  bench.session.showsill({1, 1}) = false;
  bench.draw();
  EXPECT_TRUE(linesOf(bench.window({1, 1}).surface.operations, kSill).empty());
}

TEST(PlotLegend, ShowsTheSillSampleWithoutAModel) {
  PlotBench bench;
  bench.session.use0(kPair) = 0;
  bench.draw();
  EXPECT_TRUE(hasSample(bench.operations(), kSill));
  EXPECT_FALSE(hasSample(bench.operations(), kCurve));
}

// There are 22 slots for a second subscript, and the legend has the variable there.
TEST(PlotLegend, ShowsNoSillBeyondTheTable) {
  for (const std::int64_t variable : {22, 40, 41}) {
    const Pair pair{variable, kDirection};
    PlotBench bench;
    bench.session.curvar = variable;
    bench.session.hmax(pair) = 100;
    bench.session.ymax(pair) = 10;
    bench.session.variance(variable) = 5;
    bench.session.showsill(pair) = true;
    EXPECT_NO_THROW(bench.plotvariogram()) << variable;
    const Operations& all = bench.window(pair).surface.operations;
    EXPECT_TRUE(textsNamed(all, "   Sill").empty()) << variable;
    EXPECT_FALSE(hasSample(all, kSill)) << variable;
    EXPECT_EQ(linesOf(all, kSill).size(), 1U) << "the line itself, " << variable;
    EXPECT_EQ(bench.window(pair).fronted, 1) << variable;
  }
}

TEST(PlotLegend, HasRoomForVariable21) {
  PlotBench bench;
  bench.session.curvar = 21;
  bench.session.hmax({21, 2}) = 100;
  bench.session.ymax({21, 2}) = 10;
  bench.session.variance(21) = 5;
  bench.draw();
  EXPECT_EQ(bench.window({21, 2}).fronted, 1);
}

TEST(PlotLegend, TrimsTheDistanceLegend) {
  PlotBench bench;
  bench.session.xlegend(kPair) = "  h (m) ";
  bench.session.xlegend({2, 1}) = "other";
  bench.draw();
  const std::vector<TextOf> legend = textsNamed(bench.operations(), "h (m)");
  ASSERT_EQ(legend.size(), 1U);
  EXPECT_EQ(legend[0], (TextOf{{5668, 3270}, "h (m)", kLegendFont, kText}));
}

TEST(PlotLegend, CentresTheNameByItsCharacters) {
  struct {
    const char* name;
    const char* drawn;
    double x;
  } const rows[] = {
      {"", "", 6068},
      {"a", "a", 5993},
      {"  b c  ", "b c", 5843},
      // One byte of Latin-1 is one character.
      {"\xe9t\xe9", "\xe9t\xe9", 5843},
      {"0123456789", "0123456789", 5318},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.varname(1) = row.name;
    bench.draw();
    const std::vector<TextOf> texts = only<TextOf>(bench.operations());
    ASSERT_GT(texts.size(), 7U);
    EXPECT_EQ(texts[7], (TextOf{{row.x, 350}, row.drawn, kLegendFont, kData}));
  }
}

// A window of 10108 by 6156: the picture is 10000 by 6024, two units for each part of 3012.
TEST(PlotLegend, GrowsWithTheHeightWhileTheMarginsStay) {
  PlotBench bench;
  bench.draw();
  bench.window().setSize(10108, 6156);
  bench.draw();
  const Operations& all = bench.operations();
  EXPECT_EQ(textsNamed(all, "Data")[0].at, (Place{9400, 2160}));
  EXPECT_EQ(textsNamed(all, "Model")[0].at, (Place{9350, 4560}));
  EXPECT_EQ(textsNamed(all, "   Sill")[0].at, (Place{9250, 3360}));
  EXPECT_EQ(textsNamed(all, "g")[0].at, (Place{100, 300}));
  EXPECT_EQ(textsNamed(all, "(h)")[0].at, (Place{220, 300}));
  EXPECT_EQ(textsNamed(all, "h( )")[0].at, (Place{9200, 5574}));
  EXPECT_EQ(textsNamed(all, "zinc")[0].at, (Place{9300, 350}));
  EXPECT_EQ(only<DiscOf>(all)[0].at, (Place{9550, 1920}));
  EXPECT_EQ(linesOf(all, kCurve)[0].from, (Place{9400, 4320}));
  EXPECT_EQ(linesOf(all, kCurve)[0].to, (Place{9700, 4080}));
  EXPECT_EQ(linesOf(all, kSill)[0].from, (Place{9400, 3120}));
  EXPECT_EQ(linesOf(all, kSill)[0].to, (Place{9700, 2880}));
  EXPECT_EQ(linesOf(all, kText)[0].from, (Place{800, 600}));
  EXPECT_EQ(linesOf(all, kText)[1].from, (Place{800, 5424}));
  EXPECT_EQ(linesOf(all, kText)[1].to, (Place{9200, 5424}));
}

}  // namespace
}  // namespace zevfit
