// How far a drawing gets that a fault ends.

#include <gtest/gtest.h>

#include "session/fault.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

/// What stands of a plot of the sample, whose legend has one disc and one line each for model and
/// sill: the frame with its ticks, the numbers, the sill line, points, pieces of the curve.
struct Extent {
  bool frame, numbers, sill;
  std::size_t points, pieces;
  bool operator==(const Extent&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Extent& extent) {
  return out << (extent.frame ? "frame " : "") << (extent.numbers ? "numbers " : "")
             << (extent.sill ? "sill " : "") << extent.points << " points " << extent.pieces
             << " pieces";
}

Extent extentOf(const Operations& all) {
  return {linesOf(all, kText).size() == 12 && linesOf(all, kGrid).size() == 10,
          numbersOf(all).size() == 10, linesOf(all, kSill).size() == 2, pointsOf(all).size(),
          linesOf(all, kCurve).size() - 1};
}

constexpr Extent kWhole{true, true, true, 4, 100};
constexpr Extent kNumbers{true, true, false, 0, 0};
constexpr Extent kFrame{true, false, false, 0, 0};

struct FaultCase {
  const char* name;
  void (*prepare)(PlotBench&);
  Extent extent;
};
std::ostream& operator<<(std::ostream& out, const FaultCase& row) { return out << row.name; }

const Cell kWord = Cell::ofText("n.a.");

const FaultCase kFaultCases[] = {
    {"the top of the axis is its bottom", [](PlotBench& bench) { bench.session.ymin(kPair) = 10; },
     kNumbers},
    {"no distance is above 0", [](PlotBench& bench) { bench.session.hmax(kPair) = 0; }, kNumbers},
    {"the distance of a class is a text",
     [](PlotBench& bench) { bench.session.hlag.set(kPair, 3, kWord); },
     {true, true, true, 2, 0}},
    {"so is that of a class without pairs",
     [](PlotBench& bench) {
       bench.session.hlag.set(kPair, 3, kWord);
       bench.session.npairs.set(kPair, 3, 0);
     },
     {true, true, true, 2, 0}},
    {"so is that of a class above the axis",
     [](PlotBench& bench) {
       bench.session.hlag.set(kPair, 3, kWord);
       bench.session.gam.set(kPair, 3, 11);
     },
     {true, true, true, 2, 0}},
    {"so is that of the last class, which has no more",
     [](PlotBench& bench) {
       bench.session.nclass = 5;
       bench.session.hlag.set(kPair, 5, kWord);
     },
     {true, true, true, 4, 0}},
    {"the variance is a text", [](PlotBench& bench) { bench.session.variance(1) = kWord; }, kFrame},
    {"the nugget is a text", [](PlotBench& bench) { bench.session.c0(kPair) = kWord; }, kFrame},
    {"a range is a text", [](PlotBench& bench) { bench.session.a3(kPair) = kWord; }, kFrame},
    {"the nugget on show is above the axis",
     [](PlotBench& bench) {
       bench.draw();
       bench.session.sel = Line::nugget;
       bench.session.c0(kPair) = 11;
     },
     kFrame},
    {"the typed sill is above the slider",
     [](PlotBench& bench) {
       bench.draw();
       bench.session.c0typed(kPair) = true;
       bench.panel.setText(Field::c0, "20");
     },
     kFrame},
    {"the typed range is above the slider",
     [](PlotBench& bench) {
       bench.draw();
       bench.session.atyped(kPair) = true;
       bench.panel.setText(Field::a, "2000");
       bench.session.hmax(kPair) = 1;
     },
     kFrame},
    {"the typed sill has an empty axis",
     [](PlotBench& bench) {
       bench.session.c0typed(kPair) = true;
       bench.session.ymin(kPair) = 10;
     },
     kFrame},
    {"a number of an axis is too large",
     [](PlotBench& bench) {
       bench.session.ymin(kPair) = -1.7e+308;
       bench.session.ymax(kPair) = 1.7e+308;
     },
     kFrame},
};

class PlotFault : public testing::TestWithParam<FaultCase> {};

TEST_P(PlotFault, EndsTheDrawingSilently) {
  PlotBench bench;
  GetParam().prepare(bench);
  const int fronted = bench.window().fronted;
  EXPECT_NO_THROW(bench.plotvariogram());
  EXPECT_EQ(extentOf(bench.operations()), GetParam().extent);
  EXPECT_EQ(bench.window().fronted, fronted);
  EXPECT_TRUE(bench.dialogs.shown.empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, PlotFault, testing::ValuesIn(kFaultCases));

TEST(PlotFaults, AreNoneInTheSample) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(extentOf(bench.operations()), kWhole);
}

TEST(PlotFaults, DoNotComeFromTextsBehindTheLastClass) {
  PlotBench bench;
  bench.session.hlag.set(kPair, 5, kWord);
  bench.draw();
  EXPECT_EQ(extentOf(bench.operations()), kWhole);
}

TEST(PlotFaults, LeaveTheEndOfTheDistanceAxisSet) {
  PlotBench bench;
  bench.session.ymin(kPair) = 10;
  bench.draw();
  EXPECT_EQ(bench.session.xmax(kPair), 100);
}

TEST(PlotFaults, OfTheFrameAreTheCallers) {
  struct {
    const char* name;
    void (*prepare)(Session&);
  } const rows[] = {
      {"use0", [](Session& session) { session.use0(kPair) = kWord; }},
      {"use1", [](Session& session) { session.use1(kPair) = kWord; }},
      {"use2", [](Session& session) { session.use2(kPair) = kWord; }},
      // A typed value does not guard the frame.
      {"use0 with typed values",
       [](Session& session) {
         session.use0(kPair) = kWord;
         session.c0typed(kPair) = session.atyped(kPair) = true;
       }},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    row.prepare(bench.session);
    EXPECT_THROW(bench.plotvariogram(), Fault) << row.name;
    EXPECT_EQ(bench.window().fronted, 0) << row.name;
  }
}

}  // namespace
}  // namespace zevfit
