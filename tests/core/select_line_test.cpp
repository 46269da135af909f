// The options of the lines. On the axis from 0 to 10 a sill v stands at 3200 v; distances up to 100
// put a range a at 16 a.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "model/selection.h"
#include "session/line.h"
#include "session/number_reading.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

class SelectLine : public testing::Test, protected FitFixture {
 protected:
  SelectLine() {
    for (const Line which : kLines) line(session, kPair, which).sill() = kSills[indexOf(which)];
    for (const Line structure : kStructures)
      line(session, kPair, structure).range() = kRanges[indexOf(structure)];
  }

  /// The calls that change a value, a bound or the expression, without those of the total.
  std::vector<std::string> moves() {
    std::vector<std::string> kept = panel.calls;
    std::erase_if(kept, [](const std::string& call) {
      return call.starts_with("Label") || call.starts_with("sill") || call.ends_with("abled");
    });
    return kept;
  }

  void giveLetters(const char* letter) {
    for (const Line structure : kStructures) panel.setLetter(structure, letter);
    panel.calls.clear();
  }

  // Chosen so that the texts of the patterns are those of the numbers, and no event changes them.
  static constexpr std::array<double, 4> kSills{1.25, 2.5, 0.5, 7.5};
  static constexpr std::array<double, 4> kRanges{0, 12.5, 37.5, 62.5};
};

TEST_F(SelectLine, TheNuggetHasNoRange) {
  panel.setCaption(Caption::Label21, "a2 :");
  est_Click(fit, Line::nugget);
  EXPECT_EQ(panel.caption(Caption::label10), "C0");
  EXPECT_EQ(panel.caption(Caption::Label18), "C0 :");
  EXPECT_EQ(panel.caption(Caption::Label21), "a2 :") << "not touched";
  for (const Control control : {Control::Texta, Control::HScrolla, Control::tipos})
    EXPECT_FALSE(panel.enabled(control)) << static_cast<int>(control);
}

TEST_F(SelectLine, TheNuggetEnablesItsFieldButNotItsSlider) {
  for (const bool before : {false, true}) {
    panel.setEnabled(Control::Textc0, false);
    panel.setEnabled(Control::HScrollc0, before);
    est_Click(fit, Line::nugget);
    EXPECT_TRUE(panel.enabled(Control::Textc0));
    EXPECT_EQ(panel.enabled(Control::HScrollc0), before);
  }
}

TEST_F(SelectLine, TheNuggetShowsItsSillInFieldThenSlider) {
  est_Click(fit, Line::nugget);
  EXPECT_EQ(moves(), (std::vector<std::string>{"label10 = C0", "Textc0 = 1.25", "HScrollc0 = 4000",
                                               "Textc0 = 1.25"}))
      << "the last is the slider's own event";
}

TEST_F(SelectLine, TheNuggetLeavesTheScales) {
  session.ascale = 500;
  panel.setMaximum(Slider::a, 500);
  est_Click(fit, Line::nugget);
  EXPECT_EQ(session.ascale, 500);
  EXPECT_EQ(panel.bounds(Slider::a).maximum, 500);
}

TEST_F(SelectLine, TheNuggetOnAnEmptyAxisLeavesTheSliderWithoutAWord) {
  panel.setPosition(Slider::c0, 1234);
  cell(&Session::ymin) = cell(&Session::ymax) = 1.25;
  EXPECT_NO_THROW(est_Click(fit, Line::nugget));
  EXPECT_EQ(panel.text(Field::c0), "1.25");
  EXPECT_EQ(panel.position(Slider::c0), 1234);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SelectLine, ANuggetBeyondTheAxisLeavesTheSlider) {
  panel.setPosition(Slider::c0, 1234);
  cell(&Session::c0) = 10.1;
  EXPECT_NO_THROW(est_Click(fit, Line::nugget));
  EXPECT_EQ(panel.text(Field::c0), "10.1");
  EXPECT_EQ(panel.position(Slider::c0), 1234);
}

TEST_F(SelectLine, ExactlyOneLineIsSelected) {
  for (const Line which : {Line::second, Line::nugget, Line::third, Line::first}) {
    est_Click(fit, which);
    EXPECT_EQ(session.sel, which);
  }
}

TEST_F(SelectLine, AStructureNamesItsSillAndItsRange) {
  constexpr std::array<std::array<const char*, 2>, 4> kLabels{
      {{}, {"C1 :", "a1 :"}, {"C2 :", "a2 :"}, {"C3 :", "a3 :"}}};
  for (const Line structure : kStructures) {
    est_Click(fit, structure);
    const auto& labels = kLabels.at(indexOf(structure));
    EXPECT_EQ(panel.caption(Caption::Label18), labels[0]);
    EXPECT_EQ(panel.caption(Caption::Label21), labels[1]);
  }
}

TEST_F(SelectLine, AStructureEnablesItsRangeAndTheModels) {
  for (const Line structure : kStructures) {
    for (const Control control : {Control::Texta, Control::HScrolla, Control::tipos})
      panel.setEnabled(control, false);
    est_Click(fit, structure);
    for (const Control control : {Control::Texta, Control::HScrolla, Control::tipos})
      EXPECT_TRUE(panel.enabled(control))
          << indexOf(structure) << ": " << static_cast<int>(control);
  }
}

TEST_F(SelectLine, APowerStructureHasNoSill) {
  for (const Line structure : kStructures)
    for (const char* letter : {"-", "E", "S", "G", "P"}) {
      giveLetters(letter);
      const bool hasSill = std::string(letter) != "P";
      panel.setEnabled(Control::HScrollc0, !hasSill);
      panel.setEnabled(Control::Textc0, !hasSill);
      est_Click(fit, structure);
      EXPECT_EQ(panel.enabled(Control::HScrollc0), hasSill) << indexOf(structure) << letter;
      EXPECT_EQ(panel.enabled(Control::Textc0), hasSill) << indexOf(structure) << letter;
    }
}

TEST_F(SelectLine, TheLetterOnShowCountsNotTheOneOfTheTable) {
  cell(&Session::model1) = "P";
  panel.setLetter(Line::first, "S");
  est_Click(fit, Line::first);
  EXPECT_TRUE(panel.enabled(Control::Textc0));
  EXPECT_EQ(panel.caption(Caption::label10), "C1*(3/2*(h/a1) -1/2*(h/a1)^3)");
}

TEST_F(SelectLine, AStructureShowsFieldsThenSlidersThenScalesThenExpression) {
  giveLetters("E");
  est_Click(fit, Line::second);
  EXPECT_EQ(moves(),
            (std::vector<std::string>{
                "Textc0 = 0.5", "Texta = 37.5", "HScrollc0 = 1600", "Textc0 = 0.5",
                "HScrolla = 600", "Texta = 37.5", "HScrollc0 maximum = 32000",
                "HScrolla maximum = 32000", "HScrollc0 minimum = 0", "HScrolla minimum = 0",
                "HScrollc0 small = 64", "HScrolla small = 64", "HScrollc0 large = 1600",
                "HScrolla large = 1600", "label10 = C2*(1-exp(-3h/a2))"}));
}

TEST_F(SelectLine, EachStructureShowsItsOwnCells) {
  for (const Line structure : kStructures) {
    est_Click(fit, structure);
    const std::size_t at = indexOf(structure);
    EXPECT_EQ(panel.position(Slider::c0), 3200 * kSills[at]) << at;
    EXPECT_EQ(panel.position(Slider::a), 16 * kRanges[at]) << at;
    EXPECT_EQ(leadingNumber(panel.text(Field::c0)), kSills[at]);
    EXPECT_EQ(leadingNumber(panel.text(Field::a)), kRanges[at]);
  }
}

TEST_F(SelectLine, AStructureSetsTheScalesOfItsDirection) {
  cell(&Session::hmax) = 0.05;
  cell(&Session::a1) = 0.5;
  est_Click(fit, Line::first);
  EXPECT_EQ(session.ascale, 31999) << "0.99999 * 32000 = 31999.68";
  EXPECT_EQ(panel.bounds(Slider::a).maximum, 31999);
}

TEST_F(SelectLine, ASillBeyondTheAxisLeavesTheOldExpressionAndTheScales) {
  giveLetters("E");
  panel.setCaption(Caption::label10, "old");
  panel.setPosition(Slider::c0, 1234);
  cell(&Session::c1) = 11;
  session.ascale = 500;
  EXPECT_NO_THROW(est_Click(fit, Line::first));
  EXPECT_EQ(panel.caption(Caption::label10), "old");
  EXPECT_EQ(panel.caption(Caption::Label18), "C1 :");
  EXPECT_EQ(panel.position(Slider::c0), 1234);
  EXPECT_EQ(session.ascale, 500);
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SelectLine, AStructureOnAnEmptyAxisLeavesTheOldExpression) {
  giveLetters("E");
  panel.setCaption(Caption::label10, "old");
  cell(&Session::ymin) = cell(&Session::ymax) = 2.5;
  EXPECT_NO_THROW(est_Click(fit, Line::first));
  EXPECT_EQ(panel.caption(Caption::label10), "old");
  EXPECT_EQ(panel.text(Field::a), "12.5");
}

TEST_F(SelectLine, ANewTextDrawsAndAPresentOneDoesNot) {
  est_Click(fit, Line::first);
  EXPECT_EQ(plotter.drawings, 2) << "one for each field";
  plotter.drawings = 0;
  est_Click(fit, Line::first);
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(SelectLine, TheSliderMayRewriteTheRange) {
  cell(&Session::a1) = 50;
  est_Click(fit, Line::first);
  // Position 800 stands for 49.99999975, which the pattern writes with a bare point.
  EXPECT_EQ(panel.text(Field::a), "50.");
  EXPECT_EQ(number(&Session::a1), 50);
}

TEST_F(SelectLine, TheEventsOfADrawingSettle) {
  cell(&Session::a1) = 50;
  drawForReal();
  est_Click(fit, Line::first);
  EXPECT_EQ(panel.text(Field::c0), "2.5");
  EXPECT_EQ(leadingNumber(panel.text(Field::a)), 50);
  EXPECT_EQ(panel.position(Slider::c0), 8000);
  EXPECT_EQ(panel.position(Slider::a), 800);
  EXPECT_EQ(number(&Session::c1), 2.5);
  EXPECT_EQ(number(&Session::a1), 50);
}

TEST_F(SelectLine, ARangeBeyondTheEndIsTakenBackToIt) {
  cell(&Session::a1) = 2100;
  est_Click(fit, Line::first);
  EXPECT_EQ(number(&Session::a1), 2000);
  EXPECT_EQ(panel.position(Slider::a), 32000);
}

TEST_F(SelectLine, AgainAppliesTheLetterThatHasChanged) {
  panel.selectLine(Line::first);
  panel.setLetter(Line::first, "P");
  panel.selectLine(Line::first);
  EXPECT_TRUE(panel.enabled(Control::Textc0)) << "no event";
  est_Click(fit, Line::first);
  EXPECT_FALSE(panel.enabled(Control::Textc0));
  EXPECT_EQ(panel.caption(Caption::label10), " h^a1  (0<a1<2)");
}

TEST_F(SelectLine, OutsideTheTablesIsAFaultOfTheProgram) {
  session.curvar = kVariableSlots;
  for (const Line which : kLines) EXPECT_THROW(est_Click(fit, which), Fault) << indexOf(which);
}

TEST_F(SelectLine, WritesTheExpressionOfItsOwnColumn) {
  struct Row {
    Line structure;
    const char* letter;
    const char* expression;
  };
  for (const Row& row : std::vector<Row>{
           {Line::first, "-", "Model  expression"},
           {Line::first, "E", "C1*(1-exp(-3h/a1))"},
           {Line::first, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)"},
           {Line::first, "G", "C1*(1-exp(-3*(h/a1)^2) )"},
           {Line::first, "P", " h^a1  (0<a1<2)"},
           {Line::second, "-", "Model  expression"},
           {Line::second, "E", "C2*(1-exp(-3h/a2))"},
           {Line::second, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^2)"},
           {Line::second, "G", "C2*(1-exp(-3*(h/a2)^2) )"},
           {Line::second, "P", " h^a2  (0<a2<2)"},
           {Line::third, "-", "Model  expression"},
           {Line::third, "E", "C3*(1-exp(-3h/a3))"},
           {Line::third, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^2)"},
           {Line::third, "G", "C3*(1-exp(-3*(h3/a)^2) )"},
           {Line::third, "P", " h^a3  (0<a3<2)"},
           {Line::first, "X", "old"},
           {Line::second, "", "old"},
       }) {
    panel.setCaption(Caption::label10, "old");
    giveLetters(row.letter);
    est_Click(fit, row.structure);
    EXPECT_EQ(panel.caption(Caption::label10), row.expression)
        << indexOf(row.structure) << row.letter;
  }
}

}  // namespace
}  // namespace zevfit
