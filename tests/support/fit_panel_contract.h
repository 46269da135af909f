#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "session/fault.h"
#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {

/// What every FitPanel must keep. A harness is default constructible and has `FitPanel& panel()`,
/// `void connectTo(Fit&)`, which makes the panel's events run the handlers of the fit, and `void
/// fillList(List, int)`, which gives a list that many entries, none chosen, without an event.
///
/// Events show by what the handlers do while no file is loaded: those of fields, lists and options
/// say so in one box; a move of HScrollc0 writes its field, which says so; a box writes its cell.
template <class Harness>
class FitPanelContract : public testing::Test {
 protected:
  FitPanelContract() {
    session.setCurrent({1, 1});
    session.c0scale = 32000;
    session.ymax({1, 1}) = 10;
    harness.connectTo(fit);
  }

  /// The boxes shown since the last call.
  std::size_t events() {
    const std::size_t shown = dialogs.shown.size();
    dialogs.shown.clear();
    return shown;
  }

  Session session;
  RecordingPlotter plotter;
  test::ScriptedDialogs dialogs;
  Harness harness;
  FitPanel& panel = harness.panel();
  Fit fit{session, panel, plotter, dialogs};
};

inline constexpr Field kFields[] = {Field::c0, Field::a};
inline constexpr Slider kSliders[] = {Slider::c0, Slider::a};
inline constexpr List kLists[] = {List::Combo2, List::Combodirvar};

TYPED_TEST_SUITE_P(FitPanelContract);

TYPED_TEST_P(FitPanelContract, StartsEmptyAndOff) {
  for (const Field field : kFields) EXPECT_EQ(this->panel.text(field), "");
  for (const Slider slider : kSliders) EXPECT_EQ(this->panel.position(slider), 0);
  for (const List list : kLists) EXPECT_EQ(this->panel.listPosition(list), -1);
  for (const Box box : {Box::plot1, Box::plot2, Box::plot3, Box::plot4, Box::psill})
    EXPECT_FALSE(this->panel.ticked(box));
}

TYPED_TEST_P(FitPanelContract, StartsWithItsDesignCaptions) {
  EXPECT_EQ(this->panel.caption(Caption::label10), "Model Expression");
  EXPECT_EQ(this->panel.caption(Caption::Label18), "C0");
  EXPECT_EQ(this->panel.caption(Caption::Label21), "a:");
  EXPECT_EQ(this->panel.caption(Caption::Labelc), "");
  EXPECT_EQ(this->panel.caption(Caption::Labelvariance), "");
  for (const Line structure : kStructures)
    EXPECT_EQ(this->panel.letter(structure), "-") << indexOf(structure);
}

TYPED_TEST_P(FitPanelContract, TellsOfATextOnlyWhenItChanges) {
  for (const Field field : kFields) {
    this->panel.setText(field, "");
    EXPECT_EQ(this->events(), 0U) << "empty as it was";
    this->panel.setText(field, "1.5");
    EXPECT_EQ(this->events(), 1U);
    this->panel.setText(field, "1.5");
    EXPECT_EQ(this->events(), 0U) << "as it was";
    this->panel.setText(field, "1.50");
    EXPECT_EQ(this->events(), 1U) << "the text counts, not the number";
    this->panel.setText(field, "");
    EXPECT_EQ(this->events(), 1U);
  }
}

TYPED_TEST_P(FitPanelContract, ShowsTheNewTextToItsHandler) {
  std::string seen;
  this->dialogs.meanwhile = [&] { seen = this->panel.text(Field::a); };
  this->panel.setText(Field::a, "7");
  EXPECT_EQ(seen, "7");
}

TYPED_TEST_P(FitPanelContract, KeepsTheBytesOfATextThatIsNoNumber) {
  for (const std::string text : {" 12abc ", "caf\xE9", "-"}) {
    this->panel.setText(Field::a, text);
    EXPECT_EQ(this->panel.text(Field::a), text);
  }
}

TYPED_TEST_P(FitPanelContract, EndsASetterWithWhatItsHandlerMadeOfIt) {
  this->session.loaded = true;
  this->session.sel = Line::first;
  this->session.c1({1, 1}) = 4;
  this->panel.setText(Field::c0, "11");
  EXPECT_EQ(this->panel.text(Field::c0), "4") << "11 is beyond the axis";
}

TYPED_TEST_P(FitPanelContract, TellsOfAPositionOnlyWhenItChanges) {
  this->panel.setPosition(Slider::c0, 0);
  EXPECT_EQ(this->events(), 0U) << "where it was";
  this->panel.setPosition(Slider::c0, 3200);
  EXPECT_EQ(this->events(), 1U);
  EXPECT_EQ(this->panel.text(Field::c0), "1");
  this->panel.setPosition(Slider::c0, 3200);
  EXPECT_EQ(this->events(), 0U) << "where it was";
  this->panel.setPosition(Slider::a, 5);
  EXPECT_EQ(this->events(), 1U);
  this->panel.setPosition(Slider::a, 5);
  EXPECT_EQ(this->events(), 0U) << "where it was";
}

TYPED_TEST_P(FitPanelContract, RefusesAPositionOutsideTheBoundsOfTheStart) {
  for (const Slider slider : kSliders) {
    EXPECT_THROW(this->panel.setPosition(slider, -1), Fault);
    EXPECT_THROW(this->panel.setPosition(slider, 32768), Fault);
    EXPECT_EQ(this->panel.position(slider), 0);
    EXPECT_EQ(this->events(), 0U);
    EXPECT_NO_THROW(this->panel.setPosition(slider, 32767));
    EXPECT_EQ(this->panel.position(slider), 32767);
    this->events();
  }
}

TYPED_TEST_P(FitPanelContract, RefusesAPositionOutsideItsBounds) {
  for (const Slider slider : kSliders) {
    this->panel.setPosition(slider, 300);
    this->panel.setMinimum(slider, 100);
    this->panel.setMaximum(slider, 400);
    this->events();
    EXPECT_THROW(this->panel.setPosition(slider, 99), Fault);
    EXPECT_THROW(this->panel.setPosition(slider, 401), Fault);
    EXPECT_EQ(this->panel.position(slider), 300);
    EXPECT_EQ(this->events(), 0U);
    this->panel.setPosition(slider, 100);
    EXPECT_EQ(this->panel.position(slider), 100);
    this->panel.setPosition(slider, 400);
    EXPECT_EQ(this->panel.position(slider), 400);
    this->events();
  }
}

TYPED_TEST_P(FitPanelContract, MovesAPositionThatNewBoundsShutOut) {
  for (const Slider slider : kSliders) {
    this->panel.setPosition(slider, 3200);
    this->events();
    this->panel.setMaximum(slider, 3200);
    this->panel.setMinimum(slider, 0);
    EXPECT_EQ(this->events(), 0U) << "still inside";
    this->panel.setMaximum(slider, 1600);
    EXPECT_EQ(this->panel.position(slider), 1600);
    EXPECT_EQ(this->events(), 1U);
    this->panel.setMaximum(slider, 6400);
    EXPECT_EQ(this->panel.position(slider), 1600);
    this->panel.setMinimum(slider, 4800);
    EXPECT_EQ(this->panel.position(slider), 4800);
    EXPECT_EQ(this->events(), 1U);
  }
}

TYPED_TEST_P(FitPanelContract, TakesStepsWithoutAnEvent) {
  for (const Slider slider : kSliders) {
    this->panel.setSmallChange(slider, 64);
    this->panel.setLargeChange(slider, 1600);
  }
  EXPECT_EQ(this->events(), 0U);
}

TYPED_TEST_P(FitPanelContract, KeepsCaptionsToTheLetter) {
  for (const Caption caption : {Caption::label10, Caption::Label18, Caption::Label21,
                                Caption::Labelc, Caption::Labelvariance})
    for (const std::string text : {"Model  expression", "  h^a1  (0<a1<2)", "   :", "."}) {
      this->panel.setCaption(caption, text);
      EXPECT_EQ(this->panel.caption(caption), text);
    }
  EXPECT_EQ(this->events(), 0U);
}

TYPED_TEST_P(FitPanelContract, KeepsALetterForEachStructure) {
  constexpr std::pair<Line, const char*> kLetters[] = {
      {Line::first, "E"}, {Line::second, "-"}, {Line::third, "P"}};
  for (const auto& [structure, letter] : kLetters) this->panel.setLetter(structure, letter);
  for (const auto& [structure, letter] : kLetters) EXPECT_EQ(this->panel.letter(structure), letter);
}

/// The cells that the boxes write, as numbers.
inline std::vector<double> boxCells(const Session& session) {
  return {session.use0({1, 1}).number(), session.use1({1, 1}).number(), double(session.plot3state),
          double(session.plot4state), double(session.showsill({1, 1}))};
}

TYPED_TEST_P(FitPanelContract, TellsOfABoxOnlyWhenItChanges) {
  constexpr Box kBoxes[] = {Box::plot1, Box::plot2, Box::plot3, Box::plot4, Box::psill};
  for (std::size_t i = 0; i < 5; ++i) {
    SCOPED_TRACE(i);
    const auto clear = [&] {
      this->session.use0({1, 1}) = this->session.use1({1, 1}) = 0;
      this->session.plot3state = this->session.plot4state = this->session.showsill({1, 1}) = false;
    };
    std::vector<double> clicked(5, 0.0);
    clicked[i] = 1;
    clear();
    this->panel.setTicked(kBoxes[i], false);
    EXPECT_EQ(boxCells(this->session), std::vector<double>(5, 0.0)) << "off as it was";
    this->panel.setTicked(kBoxes[i], true);
    EXPECT_EQ(boxCells(this->session), clicked);
    EXPECT_TRUE(this->panel.ticked(kBoxes[i]));
    clear();
    this->panel.setTicked(kBoxes[i], true);
    EXPECT_EQ(boxCells(this->session), std::vector<double>(5, 0.0)) << "on as it was";
  }
}

TYPED_TEST_P(FitPanelContract, TellsOfABoxThatIsTakenOff) {
  this->panel.setTicked(Box::plot1, true);
  this->panel.setTicked(Box::plot1, false);
  EXPECT_FALSE(this->panel.ticked(Box::plot1));
  EXPECT_EQ(this->session.use0({1, 1}).number(), 0);
}

TYPED_TEST_P(FitPanelContract, TellsOfALineOnlyWhenItsOptionChanges) {
  for (const Line which : kLines) {
    this->panel.selectLine(which);
    EXPECT_EQ(this->events(), 1U) << indexOf(which);
    this->panel.selectLine(which);
    EXPECT_EQ(this->events(), 0U) << indexOf(which) << " again";
  }
}

TYPED_TEST_P(FitPanelContract, SelectsTheLineThatItWasTold) {
  this->session.loaded = true;
  for (const Line which : {Line::second, Line::nugget, Line::third, Line::first}) {
    this->panel.selectLine(which);
    EXPECT_EQ(this->session.sel, which);
  }
}

TYPED_TEST_P(FitPanelContract, TellsOfAnEntryOnlyWhenAnotherIsChosen) {
  for (const List list : kLists) {
    this->harness.fillList(list, 3);
    EXPECT_EQ(this->panel.listPosition(list), -1);
    EXPECT_EQ(this->events(), 0U);
    this->panel.setListPosition(list, 0);
    EXPECT_EQ(this->events(), 1U);
    this->panel.setListPosition(list, 0);
    EXPECT_EQ(this->events(), 0U) << "chosen as it was";
    this->panel.setListPosition(list, 2);
    EXPECT_EQ(this->events(), 1U);
    EXPECT_EQ(this->panel.listPosition(list), 2);
    this->panel.setListPosition(list, -1);
    EXPECT_EQ(this->panel.listPosition(list), -1);
    EXPECT_EQ(this->events(), 0U) << "no entry is no choice";
  }
}

TYPED_TEST_P(FitPanelContract, RefusesAnEntryThatAListDoesNotHave) {
  for (const List list : kLists) {
    this->harness.fillList(list, 3);
    this->panel.setListPosition(list, 1);
    this->events();
    EXPECT_THROW(this->panel.setListPosition(list, 3), Fault);
    EXPECT_THROW(this->panel.setListPosition(list, -2), Fault);
    EXPECT_EQ(this->panel.listPosition(list), 1);
    EXPECT_EQ(this->events(), 0U);
  }
}

TYPED_TEST_P(FitPanelContract, LetsRoutinesSetWhatTheUserCanNot) {
  for (const Control control :
       {Control::Textc0, Control::Texta, Control::HScrollc0, Control::HScrolla, Control::tipos})
    this->panel.setEnabled(control, false);
  EXPECT_EQ(this->events(), 0U);
  this->panel.setText(Field::c0, "3");
  EXPECT_EQ(this->panel.text(Field::c0), "3");
  EXPECT_EQ(this->events(), 1U);
  this->panel.setPosition(Slider::c0, 3200);
  EXPECT_EQ(this->panel.position(Slider::c0), 3200);
  EXPECT_EQ(this->events(), 1U);
}

TYPED_TEST_P(FitPanelContract, DrawsWhenThePlotButtonIsGivenTheFocus) {
  this->panel.focusPlotButton();
  EXPECT_EQ(this->plotter.drawings, 1);
}

REGISTER_TYPED_TEST_SUITE_P(
    FitPanelContract, StartsEmptyAndOff, StartsWithItsDesignCaptions, TellsOfATextOnlyWhenItChanges,
    ShowsTheNewTextToItsHandler, KeepsTheBytesOfATextThatIsNoNumber,
    EndsASetterWithWhatItsHandlerMadeOfIt, TellsOfAPositionOnlyWhenItChanges,
    RefusesAPositionOutsideTheBoundsOfTheStart, RefusesAPositionOutsideItsBounds,
    MovesAPositionThatNewBoundsShutOut, TakesStepsWithoutAnEvent, KeepsCaptionsToTheLetter,
    KeepsALetterForEachStructure, TellsOfABoxOnlyWhenItChanges, TellsOfABoxThatIsTakenOff,
    TellsOfALineOnlyWhenItsOptionChanges, SelectsTheLineThatItWasTold,
    TellsOfAnEntryOnlyWhenAnotherIsChosen, RefusesAnEntryThatAListDoesNotHave,
    LetsRoutinesSetWhatTheUserCanNot, DrawsWhenThePlotButtonIsGivenTheFocus);

}  // namespace zevfit
