// The field of the sill and the total, and what both fields share. The axis goes from 0 to 10, the
// variance is 5.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "model/fields.h"
#include "model/selection.h"
#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Lines = std::vector<std::string>;

const std::vector<std::string> kNoFile{test::kNoFileBox};

class Fields : public testing::Test, protected FitFixture {
 protected:
  void use(std::initializer_list<Line> lines) {
    for (const Line which : lines) line(session, kPair, which).use(1);
  }
  std::string total() { return panel.caption(Caption::Labelc); }
  /// Types into the field without a drawing; the handlers then wait for Enter.
  void typeSill(const char* text) {
    Textc0_Click(session);
    panel.setText(Field::c0, text);
  }
};

TEST_F(Fields, ASillAsksForAFile) {
  select(Line::first);
  session.loaded = false;
  panel.setText(Field::c0, "3");
  EXPECT_EQ(dialogs.shown, kNoFile);
  EXPECT_EQ(number(&Session::c1), 0);
  EXPECT_EQ(panel.calls, (Lines{"Textc0 = 3"}));
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Fields, ASillGoesToTheSelectedLineOfThePairAlone) {
  for (const Line which : kLines) {
    FitFixture fresh;
    fresh.select(which);
    fresh.panel.setText(Field::c0, "3");
    for (const Line other : kLines)
      EXPECT_EQ(line(fresh.session, kPair, other).sill().number(), other == which ? 3 : 0)
          << indexOf(which);
    for (const Pair pair : {Pair{kVariable, kDirection + 1}, Pair{kVariable + 1, kDirection}})
      EXPECT_EQ(line(fresh.session, pair, which).sill().number(), 0) << indexOf(which);
  }
}

TEST_F(Fields, ASillIsHeldAgainstTheAxis) {
  struct Row {
    const char* text;
    double ymin, ymax;
    double cell;       // 4 before
    const char* left;  // in the field
  };
  for (const Row& row : std::vector<Row>{
           {"3", 0, 10, 3, "3"},
           {"10", 0, 10, 10, "10"},  // the top itself is taken
           {"10.001", 0, 10, 4, "4"},
           {"0", 0, 10, 0, "0"},
           {"-0.001", 0, 10, 4, "4"},
           {"-1.5", -2, 10, -1.5, "-1.5"},
           {"-2", -2, 10, -2, "-2"},
           {"-2.5", -2, 10, 4, "4"},
           {"abc", 0, 10, 0, "abc"},
           {"abc", 1, 10, 4, "4"},  // 0 is below the axis
           {"2abc", 0, 10, 2, "2abc"},
           {"12abc", 0, 10, 4, "4"},
           {"", 0, 10, 0, ""},
           {" 7", 0, 10, 7, " 7"},
           {"False", 0, 10, 4, "4"},
           {"false", 0, 10, 0, "false"},
           {"FALSE", 0, 10, 0, "FALSE"},
           {" False", 0, 10, 0, " False"},
           {"False ", 0, 10, 0, "False "},
           {"1e-3", 0, 10, 0.001, "1e-3"},
       }) {
    FitFixture fresh;
    fresh.select(Line::second);
    fresh.panel.setText(Field::c0, "9");
    fresh.cell(&Session::c2) = 4;
    fresh.cell(&Session::ymin) = row.ymin;
    fresh.cell(&Session::ymax) = row.ymax;
    fresh.panel.setText(Field::c0, row.text);
    EXPECT_EQ(fresh.number(&Session::c2), row.cell) << '"' << row.text << '"';
    EXPECT_EQ(fresh.panel.text(Field::c0), row.left) << '"' << row.text << '"';
    EXPECT_TRUE(fresh.dialogs.shown.empty());
  }
}

TEST_F(Fields, TheVarianceLimitsNoSill) {
  select(Line::first);
  panel.setText(Field::c0, "9");
  EXPECT_EQ(number(&Session::c1), 9);
}

TEST_F(Fields, ARefusedSillPutsBackTheSelectedLine) {
  constexpr std::array kSills{1.0, 2.0, 3.0, 4.0};
  for (const Line which : kLines) line(session, kPair, which).sill() = kSills[indexOf(which)];
  for (const Line which : kLines) {
    select(which);
    panel.setText(Field::c0, "11");
    EXPECT_EQ(panel.text(Field::c0), Cell(kSills[indexOf(which)]).toText());
    for (const Line other : kLines)
      EXPECT_EQ(line(session, kPair, other).sill().number(), kSills[indexOf(other)])
          << indexOf(which);
  }
}

TEST_F(Fields, ARefusedSillWithoutALineStays) {
  panel.setText(Field::c0, "11");
  EXPECT_EQ(panel.text(Field::c0), "11");
}

TEST_F(Fields, ARefusedSillPutsBackEvenWhatWouldBeRefused) {
  select(Line::first);
  cell(&Session::c1) = 20;
  panel.setText(Field::c0, "15");
  EXPECT_EQ(panel.text(Field::c0), "20");
  EXPECT_EQ(number(&Session::c1), 20);
}

TEST_F(Fields, ARefusedSillRunsTheHandlerAgainInside) {
  select(Line::first);
  panel.setText(Field::c0, "11");
  EXPECT_EQ(plotter.drawings, 2) << "the inner run for 0, then the outer one";
}

TEST_F(Fields, TheTotalSumsUpTheTickedLines) {
  cell(&Session::c0) = 0.5;
  cell(&Session::c2) = 2;
  cell(&Session::c3) = 4;
  cell(&Session::model3) = "P";
  use({Line::nugget, Line::first, Line::third});
  select(Line::first);
  panel.setText(Field::c0, "1.25");
  EXPECT_EQ(cell(&Session::ctotal), 5.75) << "0.5 + 1.25 + 4, the power structure's too";
  EXPECT_EQ(total(), "5.75");
}

TEST_F(Fields, ARefusedSillSumsUpToo) {
  cell(&Session::c1) = 3;
  use({Line::first});
  select(Line::first);
  panel.setText(Field::c0, "11");
  EXPECT_EQ(cell(&Session::ctotal), 3);
  EXPECT_EQ(total(), "3.");
}

TEST_F(Fields, TheTotalIsRedAboveTheVarianceAlone) {
  struct Row {
    double variance;
    const char* sill;
    Colour background;
  };
  for (const Row& row : std::vector<Row>{
           {5, "4.999", 0xC0C0C0},
           {5, "5", 0xC0C0C0},
           {5, "5.001", 255},
           {0, "5", 0xC0C0C0},
           {-1, "5", 0xC0C0C0},
       }) {
    use({Line::first});
    select(Line::first);
    session.variance(kVariable) = row.variance;
    panel.setText(Field::c0, row.sill);
    EXPECT_EQ(panel.sillBackground, row.background) << row.sill << " of " << row.variance;
  }
}

TEST_F(Fields, TheTotalIsWrittenInGeneralFormThenByThePattern) {
  cell(&Session::ymax) = 2000;
  use({Line::first});
  select(Line::first);
  panel.setText(Field::c0, "1234.5678");
  EXPECT_EQ(panel.calls, (Lines{"Textc0 = 1234.5678", "sill background = 255", "Labelc = 1234.5678",
                                "sill background = 255", "Labelc = 1234.568"}));
}

TEST_F(Fields, ATotalOfNoughtIsABarePoint) {
  select(Line::first);
  panel.setText(Field::c0, "3");
  EXPECT_EQ(cell(&Session::ctotal), 0);
  EXPECT_EQ(total(), ".");
}

TEST_F(Fields, ASillDrawsUnlessItIsTyped) {
  select(Line::first);
  std::string during;
  plotter.onDraw = [&] { during = total(); };
  use({Line::first});
  panel.setText(Field::c0, "3");
  EXPECT_EQ(plotter.drawings, 1);
  EXPECT_EQ(during, "3") << "before the pattern";
  typeSill("4");
  EXPECT_EQ(plotter.drawings, 1);
  EXPECT_EQ(number(&Session::c1), 4);
  EXPECT_EQ(total(), "4.");
}

TEST_F(Fields, ADrawingThatFailsIsFollowedByTheTotal) {
  plotter.onDraw = [&] {
    cell(&Session::c1) = 7;
    throw Fault("frame");
  };
  use({Line::first});
  select(Line::first);
  EXPECT_NO_THROW(panel.setText(Field::c0, "3"));
  EXPECT_EQ(cell(&Session::ctotal), 7);
  EXPECT_EQ(panel.sillBackground, 255);
  EXPECT_EQ(total(), "7.");
}

TEST_F(Fields, ANumberBeyondAllNumbersChangesNothingButTheTotal) {
  cell(&Session::c1) = 3;
  use({Line::first});
  select(Line::first);
  EXPECT_NO_THROW(panel.setText(Field::c0, "1e999"));
  EXPECT_EQ(number(&Session::c1), 3);
  EXPECT_EQ(panel.text(Field::c0), "1e999");
  EXPECT_EQ(panel.calls, (Lines{"Textc0 = 1e999", "sill background = 12632256", "Labelc = 3."}));
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Fields, ATextInAnotherSillLeavesTheCaption) {
  cell(&Session::c2) = Cell::ofText("text");
  cell(&Session::ctotal) = 6;
  panel.setCaption(Caption::Labelc, "old");
  select(Line::first);
  EXPECT_NO_THROW(panel.setText(Field::c0, "3"));
  EXPECT_EQ(number(&Session::c1), 3);
  EXPECT_EQ(cell(&Session::ctotal), 0) << "set back before the sum";
  EXPECT_EQ(total(), "old");
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Fields, ATextInTheVarianceFailsSilently) {
  session.variance(kVariable) = Cell::ofText("text");
  select(Line::first);
  use({Line::first});
  EXPECT_NO_THROW(panel.setText(Field::c0, "3"));
  EXPECT_EQ(cell(&Session::ctotal), 3);
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(Fields, AClickIntoAFieldLetsItDrive) {
  Textc0_Click(session);
  EXPECT_TRUE(cell(&Session::c0typed));
  EXPECT_FALSE(cell(&Session::atyped));
  Texta_Click(session, dialogs);
  EXPECT_TRUE(cell(&Session::atyped));
  EXPECT_FALSE(session.c0typed({1, 1})) << "other pairs keep theirs";
  EXPECT_FALSE(session.atyped({1, 1}));
}

TEST_F(Fields, OnlyTheRangesClickAsksForAFile) {
  session.loaded = false;
  Textc0_Click(session);
  EXPECT_TRUE(cell(&Session::c0typed));
  EXPECT_TRUE(dialogs.shown.empty());
  Texta_Click(session, dialogs);
  EXPECT_FALSE(cell(&Session::atyped));
  EXPECT_EQ(dialogs.shown, kNoFile);
}

TEST_F(Fields, TheVarianceOnShowBecomesTheSillAndIsDrawn) {
  select(Line::second);
  panel.setCaption(Caption::Labelvariance, "4.568");
  typeSill("1");
  Labelvariance_Click(fit);
  EXPECT_FALSE(cell(&Session::c0typed));
  EXPECT_EQ(panel.text(Field::c0), "4.568");
  EXPECT_EQ(number(&Session::c2), 4.568);
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(Fields, TheVarianceOnShowReachesThePowerStructureToo) {
  panel.setLetter(Line::first, "P");
  use({Line::first});
  est_Click(fit, Line::first);
  ASSERT_FALSE(panel.enabled(Control::Textc0));
  panel.setCaption(Caption::Labelvariance, "4.5");
  Labelvariance_Click(fit);
  EXPECT_EQ(number(&Session::c1), 4.5);
  EXPECT_EQ(cell(&Session::ctotal), 4.5);
}

TEST_F(Fields, EnterDrawsAndNoOtherKeyDoes) {
  for (const int key : {0, 10, 12, 14, 27, 65}) Text_KeyDown(plotter, key);
  EXPECT_EQ(plotter.drawings, 0);
  Text_KeyDown(plotter, 13);
  EXPECT_EQ(plotter.drawings, 1);
  plotter.onDraw = [] { throw Fault("frame"); };
  EXPECT_NO_THROW(Text_KeyDown(plotter, 13));
}

TEST_F(Fields, EnterBringsATypedValueToTheSlider) {
  select(Line::first);
  drawForReal();
  typeSill("4");
  EXPECT_EQ(panel.position(Slider::c0), 0);
  Text_KeyDown(plotter, 13);
  EXPECT_EQ(panel.position(Slider::c0), 12800);
  EXPECT_EQ(panel.text(Field::c0), "4");
}

}  // namespace
}  // namespace zevfit
