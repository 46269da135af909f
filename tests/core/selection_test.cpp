// The boxes, lists, buttons and tips of the panel, and which handlers ask for a file.

#include "model/selection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

class Selection : public testing::Test, protected FitFixture {
 protected:
  double use(int line) { return flag(session, line, kVariable, kDirection); }
};

TEST_F(Selection, TheFirstTwoBoxesSayWhetherTheirLineCounts) {
  struct Case {
    Box box;
    int line;
  };
  for (const Case& one : {Case{Box::plot1, 0}, Case{Box::plot2, 1}}) {
    panel.setTicked(one.box, true);
    EXPECT_EQ(use(one.line), 1) << one.line;
    panel.setTicked(one.box, false);
    EXPECT_EQ(use(one.line), 0) << one.line;
    box_Click(fit, one.box);
    EXPECT_EQ(use(one.line), 0) << one.line << ": the box is read";
  }
}

TEST_F(Selection, TheLastTwoBoxesFlipAStateAndAreNotRead) {
  struct Case {
    Box box;
    int line;
    int Session::*state;
  };
  for (const Case& one :
       {Case{Box::plot3, 2, &Session::plot3state}, Case{Box::plot4, 3, &Session::plot4state}}) {
    for (const int expected : {1, 0, 1}) {
      box_Click(fit, one.box);
      EXPECT_FALSE(panel.ticked(one.box));
      EXPECT_EQ(use(one.line), expected) << one.line;
      EXPECT_EQ(session.*one.state, expected) << one.line;
    }
  }
}

TEST_F(Selection, TheTwoStatesAreTheirOwn) {
  box_Click(fit, Box::plot3);
  EXPECT_EQ(session.plot3state, 1);
  EXPECT_EQ(session.plot4state, 0);
  EXPECT_EQ(use(3), 0);
}

TEST_F(Selection, TheStatesAreSharedByAllPairs) {
  panel.setTicked(Box::plot3, true);
  ASSERT_EQ(use(2), 1);
  session.curvar = 3;
  // As a drawing of the other pair sets it there, and a click then ticks it again.
  panel.setTicked(Box::plot3, false);
  EXPECT_EQ(session.use2(3, kDirection).number(), 0);
  box_Click(fit, Box::plot3);
  EXPECT_EQ(session.use2(3, kDirection).number(), 1);
  EXPECT_FALSE(panel.ticked(Box::plot3)) << "the flag is opposite to the box";
  EXPECT_EQ(use(2), 1) << "the first pair keeps its own";
}

TEST_F(Selection, ABoxThatADrawingSetsMayTakeItsLineOut) {
  session.use3(kVariable, kDirection) = 1;
  session.plot4state = 1;
  panel.setTicked(Box::plot4, true);
  EXPECT_EQ(use(3), 0);
  EXPECT_TRUE(panel.ticked(Box::plot4));
}

TEST_F(Selection, TheSillBoxShowsTheSill) {
  cell(&Session::showsill) = 0;
  panel.setTicked(Box::psill, true);
  EXPECT_EQ(cell(&Session::showsill), 1);
  panel.setTicked(Box::psill, false);
  EXPECT_EQ(cell(&Session::showsill), 0);
  EXPECT_EQ(session.showsill(kDirection, kVariable), 1) << "the exchanged cell is another one";
}

TEST_F(Selection, NoBoxDrawsOrSumsUp) {
  for (const auto table : kSillTable) cell(table) = 3;
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
  est_Click(fit, 2);
  panel.setListPosition(List::Combo2, 0);
  panel.setListPosition(List::Combodirvar, 0);
  EXPECT_EQ(session.sel, (std::array{0, 0, 1, 0}));
}

TEST_F(Selection, AnEditAfterAChoiceGoesToTheNewVariable) {
  est_Click(fit, 1);
  session.ymax(1, kDirection) = 3;
  panel.setListPosition(List::Combo2, 0);
  panel.setText(Field::c0, "2");
  EXPECT_EQ(session.c1(1, kDirection).number(), 2);
  EXPECT_EQ(session.c1(kVariable, kDirection).number(), 0);
  panel.setText(Field::c0, "5");
  EXPECT_EQ(session.c1(1, kDirection).number(), 2) << "5 is above the new variable's axis";
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
  Command5_GotFocus(fit);
  Command5_Click(fit);
  EXPECT_EQ(plotter.drawings, 2);
}

TEST_F(Selection, OnlyTheFocusIgnoresADrawingThatFails) {
  plotter.onDraw = [] { throw Fault("frame"); };
  EXPECT_NO_THROW(Command5_GotFocus(fit));
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
      {"Command5 focus", false, Command5_GotFocus},
  };
  for (int i = 0; i < 4; ++i) {
    const std::string number = std::to_string(i + 1);
    all.push_back({"est" + number, true, [i](Fit& fit) { est_Click(fit, i); }});
    all.push_back({"tipo" + number, true, [i](Fit& fit) { tipo_Click(fit, i); }});
    all.push_back({"tipo" + number + " twice", false, [i](Fit& fit) { tipo_DblClick(fit, i); }});
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
    fresh.select(1);
    const Colour grid = fresh.session.axiscolor;
    guard.handler(fresh.fit);
    if (!guard.asks) {
      EXPECT_TRUE(fresh.dialogs.shown.empty()) << guard.name;
      continue;
    }
    EXPECT_EQ(fresh.dialogs.shown,
              (std::vector<std::string>{"plain: Please select input data file (*.ZVM) first!"}))
        << guard.name;
    EXPECT_TRUE(fresh.panel.calls.empty()) << guard.name;
    EXPECT_EQ(fresh.plotter.drawings, 0) << guard.name;
    EXPECT_EQ(fresh.session.sel, (std::array{0, 1, 0, 0})) << guard.name;
    EXPECT_EQ(fresh.session.curvar, FitFixture::kVariable) << guard.name;
    EXPECT_EQ(fresh.session.curdir, FitFixture::kDirection) << guard.name;
    EXPECT_EQ(fresh.session.axiscolor, grid) << guard.name;
  }
}

}  // namespace
}  // namespace zevfit
