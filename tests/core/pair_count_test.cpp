#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plot/window/pair_count.h"
#include "session/fault.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

// The standard picture: the box goes from 800 to 5668 and from 600 to 3120; for distances up to 100
// a unit is 48.68 wide, so that the distance 25 lies at 2017.
constexpr PlotBox kBox{6468, 3720};

TEST(PairCount, CountsClicksUpToFiftyBesideTheBox) {
  struct {
    const char* name;
    double x, y;
    bool near;
  } const rows[] = {
      {"upper left", 750, 550, true},       {"lower right", 5718, 3170, true},
      {"too far left", 749.9, 2000, false}, {"too far right", 5718.1, 2000, false},
      {"too high", 3000, 549.9, false},     {"too low", 3000, 3170.1, false},
      {"inside", 3000, 2000, true},
  };
  for (const auto& row : rows) EXPECT_EQ(isNearBox(kBox, row.x, row.y), row.near) << row.name;
}

/// Distances of the classes of variable 1 in direction 2, on an axis up to 100.
Session classesAt(const std::vector<double>& distances, std::int64_t nclass) {
  Session session;
  session.nclass = nclass;
  session.hlag.create(nclass);
  session.npairs.create(nclass);
  session.xmax(kPair) = 100;
  for (std::size_t i = 0; i < distances.size(); ++i)
    session.hlag.set(kPair, static_cast<std::int64_t>(i) + 1, distances[i]);
  return session;
}

TEST(PairCount, FindsTheFirstClassLessThanFiftyAway) {
  struct {
    const char* name;
    std::vector<double> distances;
    double x;
    std::int64_t found;
  } const rows[] = {
      {"on the point", {10, 25, 50, 75}, 2017, 2},
      {"49 to the right", {10, 25, 50, 75}, 2066, 2},
      {"50 to the right", {10, 25, 50, 75}, 2067, 5},
      {"49 to the left", {10, 25, 50, 75}, 1968, 2},
      {"50 to the left", {10, 25, 50, 75}, 1967, 5},
      {"between two", {10, 25, 50, 75}, 2600, 5},
      {"last class", {10, 25, 50, 75}, 4451, 4},  // 800 + 3651
      {"first of two near ones", {10, 24.5, 25.5, 75}, 2017, 2},
      {"first of two near ones, though further", {10, 25.9, 25, 75}, 2017, 2},
      {"first of two near ones, in the other order", {10, 25, 25.9, 75}, 2017, 2},
      {"first of two at one distance", {25, 25, 25, 25}, 2017, 1},
  };
  for (const auto& row : rows)
    EXPECT_EQ(classAt(classesAt(row.distances, 4), kBox, row.x, kPair), row.found) << row.name;
}

TEST(PairCount, ClassesThatWereNeverWrittenLieAtZero) {
  struct {
    const char* name;
    std::vector<double> distances;
    std::int64_t nclass;
    double x;
    std::int64_t found;
  } const rows[] = {
      {"near the axis", {10, 20}, 5, 820, 3}, {"away from it", {10, 20}, 5, 3000, 6},
      {"none written", {}, 5, 820, 1},        {"all written", {10, 20}, 2, 820, 3},
      {"no classes", {}, 0, 820, 1},
  };
  for (const auto& row : rows)
    EXPECT_EQ(classAt(classesAt(row.distances, row.nclass), kBox, row.x, kPair), row.found)
        << row.name;
}

TEST(PairCount, LooksThroughAnyNumberOfClasses) {
  const std::int64_t many = std::int64_t{1} << 53;
  EXPECT_EQ(classAt(classesAt({10, 20}, many), kBox, 3000, kPair), many + 1);
}

TEST(PairCount, PassesByATextAndFaultsInABoxOfNoWidth) {
  Session session = classesAt({10, 25}, 2);
  session.hlag.set(kPair, 1, Cell::ofText("n.a."));
  EXPECT_EQ(classAt(session, kBox, 2017, kPair), 2);
  EXPECT_THROW(classAt(session, {1600, 3720}, 800, kPair), Fault);
  EXPECT_THROW(classAt(session, kBox, 2017, {42, 2}), Fault);
}

TEST(PairCount, IsPlainText) {
  struct {
    float pairs;
    const char* text;
  } const rows[] = {{7, "7"}, {0, "0"}, {12.5F, "12.5"}, {1234567, "1234567"}, {1e7F, "1E+07"}};
  for (const auto& row : rows) {
    Session session = classesAt({}, 3);
    session.npairs.set(kPair, 2, row.pairs);
    EXPECT_EQ(pairCountText(session, kPair, 2), row.text);
  }
  const Session session = classesAt({}, 3);
  EXPECT_EQ(pairCountText(session, kPair, 4), "0");  // the slot after the last class
  EXPECT_THROW(pairCountText(session, kPair, 5), Fault);
}

/// A drawn plot with the mouse at a place. Class 2, of 7 pairs, lies at (2017, 2112).
struct ClickBench : DragBench {
  ClickBench() = default;
  void clickAt(double x, double y) {
    moveTo(x, y);
    forget();
    Picture4_Click(fit, window());
  }
};

TEST(PairCount, ClickOnADataPointTagsItInThisOrder) {
  ClickBench bench;
  bench.clickAt(2017, 2112);
  EXPECT_EQ(bench.window().calls, (Calls{"tag at 2017 2112", "tag 7", "tag shown", "draw"}));
}

TEST(PairCount, ClickOnTheRimOfAPointTagsItAtTheMouse) {
  ClickBench bench;
  bench.clickAt(2030, 2131.5);
  EXPECT_EQ(bench.window().calls, (Calls{"tag at 2030 2131.5", "tag 7", "tag shown", "draw"}));
}

TEST(PairCount, ClickAwayFromAPointShowsNoTagAndRedraws) {
  ClickBench bench;
  for (const double y : {2000.0, 2140.0}) {
    bench.clickAt(2017, y);
    EXPECT_EQ(bench.window().calls, Calls{"draw"});
  }
}

TEST(PairCount, ClickOnTheLegendSymbolShowsNoTag) {
  ClickBench bench;
  // At 6468 - 450 and 960 / 3012 * 3720; its colour is that of the points.
  ASSERT_EQ(bench.window().colourAt(6018, 1185.66), kData);
  bench.clickAt(6018, 1185.66);
  EXPECT_EQ(bench.window().calls, Calls{"draw"});
}

TEST(PairCount, ClickOnAPointAtTheCornerCountsAPointBeyondIt) {
  ClickBench bench;
  bench.session.hlag.set(kPair, 4, 100);
  bench.session.gam.set(kPair, 4, 10);
  bench.draw();
  bench.clickAt(5680, 590);
  EXPECT_EQ(bench.window().tag.caption, "1");
}

TEST(PairCount, ClickWithoutAMatchShowsTheSlotAfterTheLastClass) {
  ClickBench bench;
  // The class has moved since the drawing, whose point still stands.
  bench.session.hlag.set(kPair, 2, 90);
  bench.clickAt(2017, 2112);
  EXPECT_EQ(bench.window().calls, (Calls{"tag at 2017 2112", "tag 0", "tag shown", "draw"}));
}

TEST(PairCount, TagStaysAtAClickElsewhere) {
  ClickBench bench;
  bench.clickAt(2017, 2112);
  bench.clickAt(3000, 1000);
  EXPECT_TRUE(bench.window().tag.visible);
  EXPECT_EQ(bench.window().tag.caption, "7");
}

TEST(PairCount, ClickMakesThePairOfTheWindowTheCurrentOne) {
  ClickBench bench;
  bench.moveTo(2017, 2112);
  bench.session.setCurrent({2, 1});
  Picture4_Click(bench.fit, bench.window());
  EXPECT_EQ(bench.session.current(), kPair);
  EXPECT_EQ(bench.window().tag.caption, "7");
}

TEST(PairCount, ClickStopsAtACaptionWithoutAPair) {
  for (const char* caption : {"", "00,01", "01,00", "-1,02", "01,-2"}) {
    ClickBench bench;
    bench.window().title = caption;
    bench.clickAt(2017, 2112);
    EXPECT_TRUE(bench.window().calls.empty()) << caption;
    EXPECT_EQ(bench.window().deletesEnded, 1) << caption;
  }
}

TEST(PairCount, FaultPassesToTheCaller) {
  ClickBench bench;
  bench.window().title = "42,02";
  bench.moveTo(2017, 2112);
  EXPECT_THROW(Picture4_Click(bench.fit, bench.window()), Fault);
}

TEST(PairCount, ADistanceThatIsATextLiesNowhere) {
  ClickBench bench;
  bench.session.hlag.set(kPair, 1, Cell::ofText("n.a."));
  bench.clickAt(2017, 2112);
  EXPECT_EQ(bench.window().tag.caption, "7");
}

// From the right edge at 5668 and a margin of 50 on, 1.01 of the axis and more.
TEST(PairCount, AClassAtTheEndOfAllNumbersIsFound) {
  ClickBench bench;
  bench.session.xmax(kPair) = bench.session.hmax(kPair) = 1.79e308;
  bench.session.hlag.set(kPair, 4, 1.79e308);
  EXPECT_EQ(classAt(bench.session, {6468, 3720}, 5668, kPair), 4);
}

}  // namespace
}  // namespace zevfit
