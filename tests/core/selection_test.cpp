// The boxes, lists, buttons and tips of the panel, and which handlers ask for a file.

#include "model/selection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

class Selection : public testing::Test, protected FitFixture {
 protected:
  double use(Line which) { return line(session, kPair, which).used(); }
};

TEST_F(Selection, TheFirstTwoBoxesSayWhetherTheirLineCounts) {
  struct Case {
    Box box;
    Line line;
  };
  for (const Case& one : {Case{Box::plot1, Line::nugget}, Case{Box::plot2, Line::first}}) {
    panel.setTicked(one.box, true);
    EXPECT_EQ(use(one.line), 1) << indexOf(one.line);
    panel.setTicked(one.box, false);
    EXPECT_EQ(use(one.line), 0) << indexOf(one.line);
    box_Click(fit, one.box);
    EXPECT_EQ(use(one.line), 0) << indexOf(one.line) << ": the box is read";
  }
}

TEST_F(Selection, TheLastTwoBoxesFlipAStateAndAreNotRead) {
  struct Case {
    Box box;
    Line line;
    bool Session::*state;
  };
  for (const Case& one : {Case{Box::plot3, Line::second, &Session::plot3state},
                          Case{Box::plot4, Line::third, &Session::plot4state}}) {
    for (const bool expected : {true, false, true}) {
      box_Click(fit, one.box);
      EXPECT_FALSE(panel.ticked(one.box));
      EXPECT_EQ(use(one.line), expected ? 1 : 0) << indexOf(one.line);
      EXPECT_EQ(session.*one.state, expected) << indexOf(one.line);
    }
  }
}

TEST_F(Selection, TheTwoStatesAreTheirOwn) {
  box_Click(fit, Box::plot3);
  EXPECT_TRUE(session.plot3state);
  EXPECT_FALSE(session.plot4state);
  EXPECT_EQ(use(Line::third), 0);
}

TEST_F(Selection, TheStatesAreSharedByAllPairs) {
  panel.setTicked(Box::plot3, true);
  ASSERT_EQ(use(Line::second), 1);
  session.curvar = 3;
  // As a drawing of the other pair sets it there, and a click then ticks it again.
  panel.setTicked(Box::plot3, false);
  EXPECT_EQ(session.use2({3, kDirection}).number(), 0);
  box_Click(fit, Box::plot3);
  EXPECT_EQ(session.use2({3, kDirection}).number(), 1);
  EXPECT_FALSE(panel.ticked(Box::plot3)) << "the flag is opposite to the box";
  EXPECT_EQ(use(Line::second), 1) << "the first pair keeps its own";
}

TEST_F(Selection, ABoxThatADrawingSetsMayTakeItsLineOut) {
  session.use3({kVariable, kDirection}) = 1;
  session.plot4state = true;
  panel.setTicked(Box::plot4, true);
  EXPECT_EQ(use(Line::third), 0);
  EXPECT_TRUE(panel.ticked(Box::plot4));
}

TEST_F(Selection, TheSillBoxShowsTheSill) {
  cell(&Session::showsill) = false;
  panel.setTicked(Box::psill, true);
  EXPECT_TRUE(cell(&Session::showsill));
  panel.setTicked(Box::psill, false);
  EXPECT_FALSE(cell(&Session::showsill));
  EXPECT_TRUE(session.showsill({kDirection, kVariable})) << "the exchanged cell is another one";
}

TEST_F(Selection, NoBoxDrawsOrSumsUp) {
  for (const Line which : kLines) line(session, kPair, which).sill() = 3;
  cell(&Session::ctotal) = 1.5;
  for (const Box box : {Box::plot1, Box::plot2, Box::plot3, Box::plot4, Box::psill})
    panel.setTicked(box, true);
  EXPECT_EQ(cell(&Session::ctotal), 1.5);
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Selection, TheListsChooseThePair) {
  panel.setListPosition(List::Combo2, 2);
  EXPECT_EQ(session.selvar, 3);
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(session.curdir, kDirection);
  panel.setListPosition(List::Combodirvar, 0);
  EXPECT_EQ(session.seldir, 1);
  EXPECT_EQ(session.curdir, 1);
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"Combo2 = 2", "Combodirvar = 0"}))
      << "nothing on screen changes";
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Selection, OutlastsTheChoiceOfAnotherPair) {
  est_Click(fit, Line::second);
  panel.setListPosition(List::Combo2, 0);
  panel.setListPosition(List::Combodirvar, 0);
  EXPECT_EQ(session.sel, Line::second);
}

TEST_F(Selection, AnEditAfterAChoiceGoesToTheNewVariable) {
  est_Click(fit, Line::first);
  session.ymax({1, kDirection}) = 3;
  panel.setListPosition(List::Combo2, 0);
  panel.setText(Field::c0, "2");
  EXPECT_EQ(session.c1({1, kDirection}).number(), 2);
  EXPECT_EQ(session.c1({kVariable, kDirection}).number(), 0);
  panel.setText(Field::c0, "5");
  EXPECT_EQ(session.c1({1, kDirection}).number(), 2) << "5 is above the new variable's axis";
  EXPECT_EQ(panel.text(Field::c0), "2");
}

TEST_F(Selection, TheGridTakesTheColourOfTheBackgroundAndThatOfTheLegends) {
  session.style.cores = {11, 12, 13, 14, 15};
  session.axiscolor = 11;
  Command3_Click(fit);
  EXPECT_EQ(session.axiscolor, 15);
  Command3_Click(fit);
  EXPECT_EQ(session.axiscolor, 11);
  session.axiscolor = 99;
  Command3_Click(fit);
  EXPECT_EQ(session.axiscolor, 15) << "any other colour goes off first";
  EXPECT_EQ(plotter.drawings, 3) << "by the focus of the plot button";
}

TEST_F(Selection, TheGridIgnoresADrawingThatFails) {
  plotter.onDraw = [] { throw Fault("frame"); };
  EXPECT_NO_THROW(Command3_Click(fit));
  panel.events.plotButtonFocused = [] { throw Fault("focus"); };
  EXPECT_NO_THROW(Command3_Click(fit));
}

TEST_F(Selection, ThePlotButtonTakesThePairOfTheListsAndDraws) {
  panel.setListPosition(List::Combo2, 0);
  panel.setListPosition(List::Combodirvar, 3);
  session.curvar = session.curdir = 2;
  Command5_Click(fit);
  EXPECT_EQ(session.curvar, 1);
  EXPECT_EQ(session.curdir, 4);
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(Selection, AListWithoutAChoiceLeavesNoPair) {
  Command5_Click(fit);
  EXPECT_EQ(session.curvar, 0);
  EXPECT_EQ(session.curdir, 0);
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(Selection, AClickComingFromElsewhereDrawsTwice) {
  Command5_GotFocus(plotter);
  Command5_Click(fit);
  EXPECT_EQ(plotter.drawings, 2);
}

TEST_F(Selection, OnlyTheFocusIgnoresADrawingThatFails) {
  plotter.onDraw = [] { throw Fault("frame"); };
  EXPECT_NO_THROW(Command5_GotFocus(plotter));
  EXPECT_THROW(Command5_Click(fit), Fault);
}

TEST_F(Selection, TheTipsTellThePair) {
  session.curvar = 12;
  est1_MouseMove(fit);
  tipo1_MouseMove(fit);
  EXPECT_EQ(panel.lineTip, "12");
  EXPECT_EQ(panel.modelTip, "3");
}

struct Guard {
  std::string name;
  bool asks;
  std::function<void(Fit&)> handler;
};

std::vector<Guard> guards() {
  std::vector<Guard> all{
      {"Combo2", true, Combo2_Click},
      {"Combodirvar", true, Combodirvar_Click},
      {"Command3", true, Command3_Click},
      {"Command5", true, Command5_Click},
      {"Command5 focus", false, [](Fit& with) { Command5_GotFocus(with.plotter); }},
  };
  for (const Line which : kLines)
    all.push_back({"est" + std::to_string(indexOf(which) + 1), true,
                   [which](Fit& fit) { est_Click(fit, which); }});
  for (const Form form : kTipoForms) {
    const std::string tipo = "tipo of " + std::string(letterOf(form));
    all.push_back({tipo, true, [form](Fit& fit) { tipo_Click(fit, form); }});
    all.push_back({tipo + " twice", false, [form](Fit& fit) { tipo_DblClick(fit, form); }});
  }
  for (const Box box : {Box::plot1, Box::plot2, Box::plot3, Box::plot4, Box::psill})
    all.push_back({"box " + std::to_string(static_cast<int>(box)), false,
                   [box](Fit& fit) { box_Click(fit, box); }});
  return all;
}

TEST(SelectionGuards, AskForAFileAndDoNothingElse) {
  for (const Guard& guard : guards()) {
    FitFixture fresh;
    fresh.session.loaded = false;
    fresh.select(Line::first);
    const Colour grid = fresh.session.axiscolor;
    guard.handler(fresh.fit);
    if (!guard.asks) {
      EXPECT_TRUE(fresh.dialogs.shown.empty()) << guard.name;
      continue;
    }
    EXPECT_EQ(fresh.dialogs.shown, (std::vector<std::string>{test::kNoFileBox})) << guard.name;
    EXPECT_TRUE(fresh.panel.calls.empty()) << guard.name;
    EXPECT_EQ(fresh.plotter.drawings, 0) << guard.name;
    EXPECT_EQ(fresh.session.sel, Line::first) << guard.name;
    EXPECT_EQ(fresh.session.curvar, FitFixture::kVariable) << guard.name;
    EXPECT_EQ(fresh.session.curdir, FitFixture::kDirection) << guard.name;
    EXPECT_EQ(fresh.session.axiscolor, grid) << guard.name;
  }
}

}  // namespace
}  // namespace zevfit
