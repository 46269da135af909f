// A whole model into the controls, as a user would do it, and back again.
#include "model/fill_model.h"

#include <gtest/gtest.h>

#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

ModelCells twoStructures() {
  return {{{1, 0.5, {}, ""}, {1, 3, 20, "S"}, {1, 4, 60, "E"}, {0, 0, 1e-05, "-"}}};
}

/// Boxes, flags and the states behind two of the boxes say the same.
void expectAgreement(PlotBench& bench) {
  const std::pair<Line, Box> rows[] = {{Line::nugget, Box::plot1},
                                       {Line::first, Box::plot2},
                                       {Line::second, Box::plot3},
                                       {Line::third, Box::plot4}};
  for (const auto& [which, box] : rows)
    EXPECT_EQ(bench.panel.ticked(box), line(bench.session, kPair, which).isOn()) << indexOf(which);
  EXPECT_EQ(bench.session.plot3state, bench.panel.ticked(Box::plot3));
  EXPECT_EQ(bench.session.plot4state, bench.panel.ticked(Box::plot4));
}

TEST(FillModel, TakesAllCellsAndDrawsThem) {
  PlotBench bench;
  bench.session.plot3state = true;
  fillModel(bench.fit, twoStructures());
  EXPECT_TRUE(isSame(cellsOf(bench.session, kPair), twoStructures()));
  expectAgreement(bench);
  EXPECT_EQ(bench.drawings, 1);
  // Spherical beyond its range, exponential at 75: 0.5 + 3 + 4 (1 - exp(-3.75)).
  EXPECT_DOUBLE_EQ(bench.session.curvegam(75), 3.5 + 4 * (1 - std::exp(-3 * 75 / 60.0)));
  EXPECT_EQ(bench.session.ctotal(kPair), 7.5);
  EXPECT_EQ(bench.panel.letter(Line::second), "E");
}

TEST(FillModel, GivesTheFieldsTheLineThatWasSelected) {
  PlotBench bench;
  fillModel(bench.fit, twoStructures());
  EXPECT_EQ(bench.session.sel, Line::first) << "the first in use, where none was";
  EXPECT_EQ(bench.panel.text(Field::a), "20");
  bench.panel.selectLine(Line::second);
  fillModel(bench.fit, twoStructures());
  EXPECT_EQ(bench.session.sel, Line::second);
  EXPECT_EQ(bench.panel.text(Field::c0), "4");
  EXPECT_EQ(bench.panel.text(Field::a), "60");
}

// The slider would make 19.998 of 20.
TEST(FillModel, SettlesOnNoStepOfASlider) {
  PlotBench bench;
  fillModel(bench.fit, twoStructures());
  bench.draw();
  bench.panel.selectLine(Line::second);
  bench.draw();
  EXPECT_TRUE(isSame(cellsOf(bench.session, kPair), twoStructures()));
}

TEST(FillModel, BringsBackWhatNoControlWouldTake) {
  PlotBench bench;
  setStructure(bench.session, kPair, Line::second, "G", 12, 30);
  setStructure(bench.session, kPair, Line::third, "P", Cell::ofText("s"), 1.5);
  bench.session.use0(kPair) = 2;
  bench.session.use2(kPair) = 0;
  const ModelCells before = cellsOf(bench.session, kPair);
  fillModel(bench.fit, twoStructures());
  fillModel(bench.fit, before);
  EXPECT_TRUE(isSame(cellsOf(bench.session, kPair), before));
  expectAgreement(bench);
}

TEST(FillModel, WarnsOfAFlagThatIsAText) {
  PlotBench bench;
  ModelCells cells = twoStructures();
  cells[1].flag = Cell::ofText("yes");
  fillModel(bench.fit, cells);
  EXPECT_EQ(bench.drawings, 0);
  EXPECT_EQ(bench.dialogs.shown.size(), 1U);
  EXPECT_TRUE(isSame(cellsOf(bench.session, kPair), cells));
}

}  // namespace
}  // namespace zevfit
