// The sliders: their scales, what they show of a model and what moving them does. On the axis from
// 0 to 10 a sill v stands at 3200 v; distances up to 100 put a range a at 16 a.

#include "model/sliders.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Lines = std::vector<std::string>;

class Sliders : public testing::Test, protected FitFixture {
 protected:
  /// The calls of one control and its parts.
  Lines callsOf(const std::string& control) {
    Lines kept = panel.calls;
    std::erase_if(kept, [&](const std::string& call) { return !call.starts_with(control); });
    return kept;
  }
  Cell& sill(Line which) { return line(session, kPair, which).sill(); }
  Cell& range(Line structure) { return line(session, kPair, structure).range(); }
  bool& typedSill() { return cell(&Session::c0typed); }
  bool& typedRange() { return cell(&Session::atyped); }
};

TEST_F(Sliders, TakeTheirBoundsAndStepsInOrder) {
  session.curvar = session.curdir = 1;
  scalesliders(fit, kPair);
  EXPECT_EQ(session.curvar, kVariable);
  EXPECT_EQ(session.curdir, kDirection);
  EXPECT_EQ(session.c0scale, 32000);
  EXPECT_EQ(session.ascale, 32000);
  EXPECT_EQ(session.c0step, 1600);
  EXPECT_EQ(session.astep, 1600);
  EXPECT_EQ(panel.calls,
            (Lines{"HScrollc0 maximum = 32000", "HScrolla maximum = 32000", "HScrollc0 minimum = 0",
                   "HScrolla minimum = 0", "HScrollc0 small = 64", "HScrolla small = 64",
                   "HScrollc0 large = 1600", "HScrolla large = 1600"}));
}

TEST_F(Sliders, OfTinyDistancesHaveAShorterScaleForTheRange) {
  struct Row {
    double hmax, ascale, astep;
    int small;
  };
  for (const Row& row : std::vector<Row>{
           {0.05, 31999, 1599, 63},  // 0.99999 * 32000 = 31999.68; 1599.95; 63.998
           {0.001, 639, 31, 1},      // 0.01999 * 32000 = 639.68; 31.95; 1.278
           {0.0001, 63, 3, 1},       // 0.00199 * 32000 = 63.68; 3.15; 0.126, so 1
           {0, 1, 1, 1},             // 0.32, so 1; 0.05, so 1; 0.002, so 1
       }) {
    cell(&Session::hmax) = row.hmax;
    scalesliders(fit, kPair);
    EXPECT_EQ(session.ascale, row.ascale) << row.hmax;
    EXPECT_EQ(session.astep, row.astep) << row.hmax;
    EXPECT_EQ(panel.bounds(Slider::a).maximum, row.ascale) << row.hmax;
    EXPECT_EQ(panel.bounds(Slider::a).smallChange, row.small) << row.hmax;
    EXPECT_EQ(panel.bounds(Slider::a).largeChange, row.astep) << row.hmax;
    EXPECT_EQ(panel.bounds(Slider::c0).maximum, 32000) << row.hmax;
    EXPECT_EQ(session.c0step, 1600) << row.hmax;
  }
}

TEST_F(Sliders, AreMovedByAScaleThatShutsThemOut) {
  panel.setPosition(Slider::a, 16000);
  cell(&Session::hmax) = 0.001;
  scalesliders(fit, kPair);
  EXPECT_EQ(panel.position(Slider::a), 639);
  // 0.01999 of the whole scale, by the event of the move.
  EXPECT_EQ(panel.text(Field::a), ".02");
}

TEST_F(Sliders, ScaleOutsideTheTablesIsAFault) {
  EXPECT_THROW(scalesliders(fit, {1, kDirectionSlots}), Fault);
  EXPECT_THROW(scalesliders(fit, {kVariableSlots, 1}), Fault);
}

TEST_F(Sliders, AModelShowsItsKnownLetters) {
  for (const char* letter : {"-", "E", "S", "P", "G"}) {
    cell(&Session::model1) = cell(&Session::model2) = cell(&Session::model3) = letter;
    showmodel(fit, kPair);
    for (const Line structure : kStructures)
      EXPECT_EQ(panel.letter(structure), letter) << indexOf(structure);
  }
}

TEST_F(Sliders, AnotherLetterLeavesTheOneOnShow) {
  for (const char* letter : {"", "s", "X", "SS"}) {
    for (const Line structure : kStructures) panel.setLetter(structure, "G");
    cell(&Session::model1) = cell(&Session::model2) = cell(&Session::model3) = letter;
    showmodel(fit, kPair);
    for (const Line structure : kStructures)
      EXPECT_EQ(panel.letter(structure), "G") << '"' << letter << '"';
  }
}

TEST_F(Sliders, AModelIsMadeTheCurrentOne) {
  showmodel(fit, {3, 4});
  EXPECT_EQ(session.curdir, 4);
  EXPECT_EQ(session.curvar, 3);
}

TEST_F(Sliders, AModelWithoutALineShowsItsLettersAlone) {
  showmodel(fit, kPair);
  EXPECT_EQ(panel.calls, (Lines{"letter 1 = -", "letter 2 = -", "letter 3 = -"}));
}

TEST_F(Sliders, AModelThatIsDraggedShowsItsLettersAlone) {
  for (const Line which : kLines) {
    select(which);
    session.dragging = true;
    panel.calls.clear();
    showmodel(fit, kPair);
    EXPECT_EQ(panel.calls.size(), 3U) << indexOf(which);
  }
}

TEST_F(Sliders, ShowTheSelectedLine) {
  constexpr std::array kSills{1.25, 2.5, 0.5, 7.5};
  constexpr std::array kRanges{0.0, 12.5, 37.5, 62.5};
  for (const Line which : kLines) sill(which) = kSills[indexOf(which)];
  for (const Line structure : kStructures) range(structure) = kRanges[indexOf(structure)];
  for (const Line which : kLines) {
    select(which);
    showmodel(fit, kPair);
    const std::size_t at = indexOf(which);
    EXPECT_EQ(panel.text(Field::c0), Cell(kSills[at]).toText()) << at;
    EXPECT_EQ(panel.position(Slider::c0), 3200 * kSills[at]) << at;
    EXPECT_EQ(panel.text(Field::a), which == Line::nugget ? "" : Cell(kRanges[at]).toText()) << at;
    EXPECT_EQ(panel.position(Slider::a), 16 * kRanges[at]) << at;
  }
}

TEST_F(Sliders, AreSetAfterTheFields) {
  select(Line::third);
  cell(&Session::c3) = 2.5;
  cell(&Session::a3) = 12.5;
  typedSill() = typedRange() = true;
  showmodel(fit, kPair);
  Lines order = panel.calls;
  std::erase_if(order, [](const std::string& call) {
    return !call.starts_with("Text") && !call.starts_with("HScroll");
  });
  EXPECT_EQ(order, (Lines{"Textc0 = 2.5", "Texta = 12.5", "HScrollc0 = 8000", "HScrolla = 200"}));
}

TEST_F(Sliders, AModelThatIsShownAlreadyFiresNothing) {
  select(Line::first);
  cell(&Session::c1) = 2.5;
  cell(&Session::a1) = 12.5;
  showmodel(fit, kPair);
  plotter.drawings = 0;
  showmodel(fit, kPair);
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Sliders, ASillThatDoesNotFitPassesToTheCaller) {
  select(Line::first);
  cell(&Session::a1) = 12.5;
  for (const double sill : {10.1, -0.1, 11.0}) {
    cell(&Session::c1) = sill;
    EXPECT_THROW(showmodel(fit, kPair), Fault) << sill;
    EXPECT_EQ(panel.text(Field::a), "12.5") << "the fields come first";
    EXPECT_EQ(panel.position(Slider::c0), 0) << sill;
    EXPECT_EQ(panel.position(Slider::a), 0) << sill;
  }
}

TEST_F(Sliders, AnEmptyAxisPassesToTheCaller) {
  select(Line::nugget);
  cell(&Session::ymax) = 0;
  EXPECT_THROW(showmodel(fit, kPair), Fault);
}

TEST_F(Sliders, MovingOneWritesItsFieldAndItsCell) {
  const auto expectWritten = [&](Slider slider, Field field, int position, const char* text,
                                 Line which, const Cell& written) {
    select(which);
    panel.setPosition(slider, 0);
    plotter.drawings = 0;
    panel.setPosition(slider, position);
    EXPECT_EQ(panel.text(field), text) << indexOf(which);
    EXPECT_EQ(written.toText(), text) << indexOf(which);
    EXPECT_EQ(plotter.drawings, 1) << indexOf(which);
  };
  for (const Line which : kLines)
    expectWritten(Slider::c0, Field::c0, 8000, "2.5", which, sill(which));
  for (const Line which : kStructures)
    expectWritten(Slider::a, Field::a, 200, "12.5", which, range(which));
}

TEST_F(Sliders, MovingOneDoesNothingWhileItsFieldDrives) {
  select(Line::first);
  typedSill() = typedRange() = true;
  for (const auto& [slider, field] :
       {std::pair(Slider::c0, Field::c0), std::pair(Slider::a, Field::a)}) {
    panel.setText(field, "3");
    panel.setPosition(slider, slider == Slider::c0 ? 8000 : 200);
    EXPECT_EQ(panel.text(field), "3");
  }
}

TEST_F(Sliders, MovingTheSillDrawsAtEveryPosition) {
  select(Line::first);
  for (const int position : {1600, 3200, 4800}) panel.setPosition(Slider::c0, position);
  EXPECT_EQ(plotter.drawings, 3);
}

TEST_F(Sliders, ThePositionsOfTheTopAreRefused) {
  for (const Line which : kLines) {
    select(which);
    sill(which) = 4;
    panel.setPosition(Slider::c0, 31998);  // 9.999375
    EXPECT_EQ(panel.text(Field::c0), "9.999") << indexOf(which);
    EXPECT_EQ(sill(which).number(), 9.999) << indexOf(which);
    sill(which) = 4;
    panel.setPosition(Slider::c0, 31999);  // 9.9996875, in three decimals the top
    EXPECT_EQ(panel.text(Field::c0), "4") << indexOf(which);
    panel.setText(Field::c0, "5");
    panel.setPosition(Slider::c0, 32000);
    EXPECT_EQ(panel.text(Field::c0), "5") << indexOf(which);
    EXPECT_EQ(panel.position(Slider::c0), 32000) << "the slider itself stays";
    panel.setPosition(Slider::c0, 0);
  }
}

TEST_F(Sliders, APositionThatRoundsBelowTheBottomIsRefused) {
  select(Line::first);
  cell(&Session::c1) = 4;
  cell(&Session::ymin) = 0.0004;
  HScrollc0_Change(fit);
  EXPECT_EQ(panel.text(Field::c0), "4");
  EXPECT_EQ(panel.calls.front(), "Textc0 = 4") << "0.0004 is 0 in three decimals: not even tried";
}

TEST_F(Sliders, MovingTheSillReachesBelowNoughtOnSuchAnAxis) {
  select(Line::first);
  cell(&Session::ymin) = -2;
  cell(&Session::ymax) = 2;
  panel.setPosition(Slider::c0, 4000);  // -2 + 4000 * 4 / 32000
  EXPECT_EQ(number(&Session::c1), -1.5);
}

TEST_F(Sliders, MovingTheSillAsksForNoFileItself) {
  session.loaded = false;
  panel.setPosition(Slider::c0, 8000);
  EXPECT_EQ(panel.text(Field::c0), "2.5");
  EXPECT_EQ(dialogs.shown.size(), 1U) << "the field has asked";
}

TEST_F(Sliders, MovingTheSillFailsSilently) {
  session.c0scale = 0;
  EXPECT_NO_THROW(panel.setPosition(Slider::c0, 8000));
  session.curvar = kVariableSlots;
  EXPECT_NO_THROW(panel.setPosition(Slider::c0, 1600));
  EXPECT_EQ(panel.text(Field::c0), "");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(Sliders, TheRangeGoesFromNoughtToTheVeryEnd) {
  select(Line::first);
  panel.setPosition(Slider::a, 32000);
  EXPECT_EQ(panel.text(Field::a), "2000.");
  EXPECT_EQ(number(&Session::a1), 2000);
  panel.setPosition(Slider::a, 0);
  EXPECT_EQ(panel.text(Field::a), ".");
  EXPECT_EQ(number(&Session::a1), 0);
}

TEST_F(Sliders, MovingTheRangeAsksForAFile) {
  session.loaded = false;
  panel.setPosition(Slider::a, 200);
  EXPECT_EQ(panel.text(Field::a), "");
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{test::kNoFileBox}));
}

TEST_F(Sliders, MovingTheRangeFailsSilently) {
  session.ascale = 0;
  EXPECT_NO_THROW(panel.setPosition(Slider::a, 200));
  EXPECT_EQ(panel.text(Field::a), "");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(Sliders, TheFocusTakesTheLeadFromTheField) {
  typedSill() = typedRange() = true;
  session.c0typed({1, 1}) = session.atyped({1, 1}) = true;
  HScrollc0_GotFocus(fit);
  EXPECT_FALSE(typedSill());
  EXPECT_TRUE(typedRange());
  HScrolla_GotFocus(fit);
  EXPECT_FALSE(typedRange());
  EXPECT_TRUE(session.c0typed({1, 1})) << "other pairs keep theirs";
  EXPECT_TRUE(session.atyped({1, 1}));
}

TEST_F(Sliders, CatchUpWithTypedValues) {
  select(Line::first);
  typedSill() = typedRange() = true;
  panel.setText(Field::c0, "2.50");
  panel.setText(Field::a, "12.50");
  resynchroniseSliders(fit, kPair);
  EXPECT_EQ(panel.position(Slider::c0), 8000);
  EXPECT_EQ(panel.position(Slider::a), 200);
  EXPECT_EQ(panel.text(Field::c0), "2.50") << "the text is not moved";
  EXPECT_EQ(panel.text(Field::a), "12.50");
}

TEST_F(Sliders, CatchUpToTheNearestForASillAndToTheWholePartForARange) {
  typedSill() = typedRange() = true;
  cell(&Session::ymax) = 32000;
  for (const auto& [text, position] :
       std::vector<std::pair<const char*, int>>{{"0.5", 0}, {"1.5", 2}, {"2.5", 2}, {"2.75", 3}}) {
    panel.setText(Field::c0, text);
    resynchroniseSliders(fit, kPair);
    EXPECT_EQ(panel.position(Slider::c0), position) << text;
  }
  panel.setText(Field::a, "0.1");  // 1.60000008
  resynchroniseSliders(fit, kPair);
  EXPECT_EQ(panel.position(Slider::a), 1);
}

TEST_F(Sliders, CatchUpOnlyWhereTheFieldOfThatPairDrives) {
  panel.setText(Field::c0, "2.5");
  panel.setText(Field::a, "12.5");
  session.c0typed({1, 1}) = session.atyped({1, 1}) = true;
  panel.calls.clear();
  resynchroniseSliders(fit, kPair);
  EXPECT_TRUE(panel.calls.empty());
}

TEST_F(Sliders, CatchUpWithinTheirBoundsOnly) {
  typedSill() = true;
  for (const char* text : {"10.1", "11"}) {
    session.ymax({kVariable, kDirection}) = 20;
    panel.setText(Field::c0, text);
    session.ymax({kVariable, kDirection}) = 10;
    EXPECT_THROW(resynchroniseSliders(fit, kPair), Fault) << text;
  }
  typedSill() = false;
  typedRange() = true;
  panel.setText(Field::a, "2000");
  cell(&Session::hmax) = 99;  // 2000 * 32000 / 1979.9999 = 32323.2
  EXPECT_THROW(resynchroniseSliders(fit, kPair), Fault);
}

TEST_F(Sliders, ARoundedPositionSettlesInOneDrawing) {
  select(Line::first);
  drawForReal();
  plotter.plotvariogram();
  plotter.drawings = 0;
  panel.setPosition(Slider::c0, 10667);  // 3.3334375, in three decimals 3.333
  EXPECT_EQ(plotter.drawings, 1);
  EXPECT_EQ(panel.position(Slider::c0), 10666) << "3200 * 3.333 = 10665.6";
  EXPECT_EQ(panel.text(Field::c0), "3.333");
  EXPECT_EQ(number(&Session::c1), 3.333);
}

}  // namespace
}  // namespace zevfit
