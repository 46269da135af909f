#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "plot/window/activation.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

/// The window of the pair under work is drawn; then another pair is current.
struct ActivationBench : PlotBench {
  ActivationBench() {
    draw();
    session.setCurrent({2, 1});
    drawings = 0;
    window().calls.clear();
  }
};

TEST(Activation, MakesThePairOfTheWindowTheCurrentOne) {
  ActivationBench bench;
  activatePlotWindow(bench.fit, bench.window());
  EXPECT_EQ(bench.session.current(), kPair);
  EXPECT_EQ(bench.panel.listPosition(List::Combo2), 0);
  EXPECT_EQ(bench.panel.listPosition(List::Combodirvar), 1);
  // The lists have run their handlers.
  EXPECT_EQ(bench.session.selvar, 1);
  EXPECT_EQ(bench.session.seldir, 2);
}

TEST(Activation, EndsADeleteOfTheReportsAlsoWithoutAPair) {
  for (const char* caption : {"01,02", ""}) {
    ActivationBench bench;
    bench.window().title = caption;
    bench.window().deletesEnded = 0;
    activatePlotWindow(bench.fit, bench.window());
    EXPECT_EQ(bench.window().deletesEnded, 1) << caption;
  }
}

TEST(Activation, FreesTheHandlesAndTouchesTheBorderOfTheFirstAlone) {
  ActivationBench bench;
  bench.session.dragging = true;
  bench.session.dragsel.fill(true);
  activatePlotWindow(bench.fit, bench.window());
  EXPECT_FALSE(bench.session.dragging);
  EXPECT_EQ(bench.session.dragsel, (std::array<bool, 4>{}));
  EXPECT_EQ(bench.window().calls, (std::vector<std::string>{"border 0 on", "guides hidden"}));
}

TEST(Activation, StopsAtACaptionWithoutAPair) {
  for (const char* caption : {"", "Formod", "00,01", "01,00", "-1,02", "01,-2", "xx,02"}) {
    ActivationBench bench;
    bench.session.dragging = true;
    bench.session.dragsel.fill(true);
    bench.window().title = caption;
    activatePlotWindow(bench.fit, bench.window());
    EXPECT_FALSE(bench.session.dragging) << caption;
    EXPECT_EQ(std::ranges::count(bench.session.dragsel, true), 4) << caption;
    EXPECT_TRUE(bench.window().calls.empty()) << caption;
    EXPECT_EQ(bench.drawings, 0) << caption;
    EXPECT_TRUE(bench.session.curvar < 1 || bench.session.curdir < 1) << caption;
  }
}

TEST(Activation, BringsControlsTotalAndDrawingUpToDate) {
  ActivationBench bench;
  bench.session.use1(kPair) = 1;
  bench.session.model1(kPair) = "E";
  bench.session.c1(kPair) = 1.5;
  bench.session.use2(kPair) = 0;
  bench.session.c2(kPair) = 4;
  bench.session.ascale = 0;
  bench.panel.calls.clear();
  // The drawing shows the model and sets the scales too, so here it only counts.
  RecordingPlotter plotter;
  Fit fit{bench.session, bench.panel, plotter, bench.dialogs};
  activatePlotWindow(fit, bench.window());
  EXPECT_EQ(bench.panel.callsOf({"Combo2", "Combodirvar", "letter 1", "HScrolla maximum"}),
            (std::vector<std::string>{"Combo2 = 0", "Combodirvar = 1", "letter 1 = E",
                                      "HScrolla maximum = 32000"}));
  EXPECT_EQ(bench.session.ascale, 32000);
  EXPECT_EQ(bench.session.ctotal(kPair), 3.5);  // 2 + 1.5
  EXPECT_EQ(plotter.drawings, 1);
}

TEST(Activation, RedrawsUnlessTheWindowIsOfOneExactSize) {
  struct {
    const char* name;
    double wider, higher;
    int drawings;
  } const rows[] = {
      {"as drawn", 0, 0, 1},         {"24 wider and 24 lower", 24, -24, 0},
      {"24 wider", 24, 0, 1},        {"24 lower", 0, -24, 1},
      {"the other way", -24, 24, 1}, {"24 wider and 25 lower", 24, -25, 1},
      {"enlarged", 300, 200, 1},
  };
  for (const auto& row : rows) {
    ActivationBench bench;
    MemoryPlotWindow& window = bench.window();
    window.setSize(window.width() + row.wider, window.height() + row.higher);
    activatePlotWindow(bench.fit, window);
    EXPECT_EQ(bench.drawings, row.drawings) << row.name;
    EXPECT_EQ(bench.session.curvar, 1) << row.name;
    EXPECT_EQ(bench.panel.listPosition(List::Combo2), row.drawings == 1 ? 0 : -1) << row.name;
    EXPECT_EQ(std::ranges::count(window.calls, "border 0 on"), 1) << row.name;
  }
}

TEST(Activation, MakesThePictureFollowTheWindow) {
  ActivationBench bench;
  bench.window().setSize(7000, 4000);
  activatePlotWindow(bench.fit, bench.window());
  EXPECT_EQ(bench.window().pictureWidth(), 6892);
  EXPECT_EQ(bench.window().pictureHeight(), 3868);
}

TEST(Activation, EndsSilentlyAtAFault) {
  ActivationBench bench;
  // The nugget on show is above the axis; its text stands already, so that no event runs.
  bench.panel.setText(Field::c0, "11");
  bench.session.sel = Line::nugget;
  bench.session.c0(kPair) = 11;
  bench.session.ctotal(kPair) = -1;
  bench.drawings = 0;
  EXPECT_NO_THROW(activatePlotWindow(bench.fit, bench.window()));
  EXPECT_EQ(bench.drawings, 0);
  EXPECT_EQ(bench.session.ctotal(kPair), -1);
  EXPECT_EQ(bench.panel.listPosition(List::Combodirvar), 1);
}

TEST(Activation, EndsSilentlyAtAPairOutsideTheTables) {
  ActivationBench bench;
  bench.window().title = "99,99";
  EXPECT_NO_THROW(activatePlotWindow(bench.fit, bench.window()));
  EXPECT_EQ(bench.drawings, 0);
}

TEST(Activation, EndsSilentlyAtAFaultOfTheFrame) {
  ActivationBench bench;
  bench.session.use1(kPair) = Cell::ofText("n.a.");
  EXPECT_NO_THROW(activatePlotWindow(bench.fit, bench.window()));
}

}  // namespace
}  // namespace zevfit
