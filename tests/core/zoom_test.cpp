#include <gtest/gtest.h>

#include <string>

#include "plot/window/zoom.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

constexpr double kScreen = 20000;  // 0.9 of it is 18000

struct Key {
  const char* name;
  const char* refusal;
  void (*press)(DragBench& bench, double screenWidth);
};
constexpr Key kLarger{"kmais", "Cannot enlarge variogram plot!", [](DragBench& b, double screen) {
                        kmais(b.fit.session, b.fit.plotter, b.fit.messages, b.windows, screen);
                      }};
constexpr Key kSmaller{"kmenos", "Cannot reduce variogram plot!", [](DragBench& b, double) {
                         kmenos(b.fit.session, b.fit.plotter, b.fit.messages, b.windows);
                       }};
constexpr Key kKeys[] = {kLarger, kSmaller};

using Shown = std::vector<std::string>;

TEST(Zoom, HidesTheOverlaysThenSizesThenDraws) {
  struct {
    const Key& key;
    const char* size;
  } const rows[] = {
      {kLarger, "size 7210 4120"},
      {kSmaller, "size 6796.11650485437 3883.49514563107"},
  };
  for (const auto& row : rows) {
    DragBench bench;
    bench.window().setSize(7000, 4000);
    bench.forget();
    row.key.press(bench, kScreen);
    EXPECT_EQ(bench.window().calls,
              (Calls{"guides hidden", "tag hidden", "handle 0 hidden", "handle 1 hidden",
                     "handle 2 hidden", "handle 3 hidden", row.size, "draw"}))
        << row.key.name;
    EXPECT_TRUE(bench.dialogs.shown.empty());
  }
}

TEST(Zoom, StepsByThreePercentAndThePictureFollows) {
  DragBench bench;
  bench.window().setSize(7000, 4000);
  kmais(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows, kScreen);
  EXPECT_DOUBLE_EQ(bench.window().width(), 7210);
  EXPECT_DOUBLE_EQ(bench.window().height(), 4120);
  EXPECT_DOUBLE_EQ(bench.window().pictureWidth(), 7102);   // less 108
  EXPECT_DOUBLE_EQ(bench.window().pictureHeight(), 3988);  // less 132
  kmenos(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows);
  EXPECT_DOUBLE_EQ(bench.window().width(), 7000);
  EXPECT_DOUBLE_EQ(bench.window().height(), 4000);
  EXPECT_DOUBLE_EQ(bench.window().pictureWidth(), 6892);
  EXPECT_DOUBLE_EQ(bench.window().pictureHeight(), 3868);
}

TEST(Zoom, IsRefusedBeyondItsWidth) {
  struct {
    const char* name;
    const Key& key;
    double width;
    bool refused;
  } const rows[] = {
      {"larger, at the limit", kLarger, 18000, false},
      {"larger, past it", kLarger, 18000.5, true},
      {"larger, far below", kLarger, 100, false},
      {"smaller, at the limit", kSmaller, 4000, false},
      {"smaller, past it", kSmaller, 3999.5, true},
      {"smaller, wider than the screen", kSmaller, 30000, false},
  };
  for (const auto& row : rows) {
    for (const double height : {10.0, 90000.0}) {  // which is never tested
      DragBench bench;
      bench.window().setSize(row.width, height);
      bench.window().tag.visible = true;
      bench.forget();
      row.key.press(bench, kScreen);
      EXPECT_EQ(bench.dialogs.shown,
                row.refused ? Shown{"plain: " + std::string(row.key.refusal)} : Shown())
          << row.name;
      EXPECT_EQ(bench.window().width() == row.width, row.refused) << row.name;
      EXPECT_EQ(bench.window().tag.visible, row.refused) << row.name;
      EXPECT_EQ(bench.drawings, row.refused ? 0 : 1) << row.name;
    }
  }
}

TEST(Zoom, LastStepMayPassTheLimit) {
  DragBench bench;
  bench.window().setSize(17900, 4000);
  kmais(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows, kScreen);
  EXPECT_DOUBLE_EQ(bench.window().width(), 18437);  // 17900 * 1.03
  EXPECT_TRUE(bench.dialogs.shown.empty());
  kmais(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows, kScreen);
  EXPECT_DOUBLE_EQ(bench.window().width(), 18437);
  EXPECT_EQ(bench.dialogs.shown, (Shown{"plain: Cannot enlarge variogram plot!"}));

  bench.window().setSize(4001, 4000);
  kmenos(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows);
  EXPECT_NEAR(bench.window().width(), 3884.466, 0.001);  // 4001 / 1.03
}

TEST(Zoom, AsksForAFileFirst) {
  for (const Key& key : kKeys) {
    DragBench bench;
    bench.session.loaded = false;
    bench.session.curvar = 0;
    key.press(bench, kScreen);
    EXPECT_EQ(bench.dialogs.shown, (Shown{test::kNoFileBox})) << key.name;
    EXPECT_TRUE(bench.window().calls.empty()) << key.name;
  }
}

TEST(Zoom, DoesNothingWithoutACurrentPlot) {
  struct {
    const char* name;
    std::int64_t variable, direction;
    bool closed;
  } const rows[] = {
      {"no variable", 0, 2, false},      {"no direction", 1, 0, false},
      {"below", -1, 2, false},           {"below, too", 1, -1, false},
      {"pair never drawn", 2, 1, false}, {"its window closed", 1, 2, true},
  };
  for (const Key& key : kKeys) {
    for (const auto& row : rows) {
      DragBench bench;
      bench.session.curvar = row.variable;
      bench.session.curdir = row.direction;
      bench.window().closed = row.closed;
      key.press(bench, kScreen);
      EXPECT_TRUE(bench.dialogs.shown.empty()) << row.name;
      EXPECT_TRUE(bench.window().calls.empty()) << row.name;
      EXPECT_EQ(bench.windows.windows.size(), 1U) << row.name;
    }
  }
}

TEST(Zoom, ActsOnTheWindowOfTheCurrentPair) {
  DragBench bench;
  MemoryPlotWindow& other = bench.window({2, 1});
  other.isVisible = true;
  other.setSize(5000, 3000);
  bench.session.curvar = 2;
  bench.session.curdir = 1;
  kmais(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows, kScreen);
  EXPECT_DOUBLE_EQ(other.width(), 5150);
  EXPECT_EQ(bench.window().width(), 6576);
}

TEST(Zoom, AnswersAFaultAsARefusal) {
  struct {
    const char* name;
    void (*spoil)(DragBench& bench);
  } const rows[] = {
      {"drawing", [](DragBench& b) { b.session.use1(kPair) = Cell::ofText("yes"); }},
      {"pair outside the tables", [](DragBench& b) { b.session.curvar = 42; }},
  };
  for (const Key& key : kKeys) {
    for (const auto& row : rows) {
      DragBench bench;
      row.spoil(bench);
      EXPECT_NO_THROW(key.press(bench, kScreen)) << row.name;
      EXPECT_EQ(bench.dialogs.shown, (Shown{"plain: " + std::string(key.refusal)})) << row.name;
    }
  }
}

TEST(Zoom, KeepsTheMarginsOfASmallWindow) {
  DragBench bench;
  bench.window().setSize(4000, 2344);
  kmenos(bench.fit.session, bench.fit.plotter, bench.fit.messages, bench.windows);
  // 4000 / 1.03 - 108 - 800
  EXPECT_NEAR(linesOf(bench.operations(), kText).at(1).to.x, 2975.495, 0.001);
  EXPECT_EQ(linesOf(bench.operations(), kText).at(1).from.x, 800);
}

}  // namespace
}  // namespace zevfit
