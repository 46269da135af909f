// The windows for the scales and the legend of the axes, without their controls.
#include "model/axis_dialogs.h"

#include <gtest/gtest.h>

#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Boxes = std::vector<std::string>;

/// The lists show variable 1 and direction 2; the pair under work is variable 2 and direction 3.
class AxisDialogs : public testing::Test, protected FitFixture {
 protected:
  static constexpr Pair kListed{1, 2};

  AxisDialogs() {
    panel.setListPosition(List::Combo2, 0);
    panel.setListPosition(List::Combodirvar, 1);
    session.setCurrent(kPair);
    session.dirname(2) = "90;0";
    session.dirname(3) = "45;0";
    session.hmax(kListed) = 30;
    session.ymax(kListed) = 4.24;
    session.ymax0(kPair) = 2.12;
    session.variance(kVariable) = 5;
    dialogs.shown.clear();
  }

  ScaleTexts texts;
};

TEST_F(AxisDialogs, ScalesOpenWithThePairOfTheLists) {
  texts.novoxmax = "77";
  ASSERT_TRUE(Command1_Click(fit, texts));
  EXPECT_EQ(session.plotted(), kListed);
  EXPECT_EQ(session.current(), kPair);
  EXPECT_EQ(texts.caption, "Axis Scale (X,Y):  (90;0)");
  EXPECT_EQ(session.xmax(kListed), 30);
  EXPECT_EQ(texts.novoxmax, "30.");
  EXPECT_EQ(texts.Labelxm, "30. ");
  EXPECT_EQ(texts.novoymax, "4.24 ");
  EXPECT_EQ(texts.Labelym, "2.12") << "of the pair under work, in general form";
}

TEST_F(AxisDialogs, ADistanceMaximumThatIsSetLeavesTheFieldAsItWas) {
  session.xmax(kListed) = 25;
  texts.novoxmax = "77";
  Command1_Click(fit, texts);
  EXPECT_EQ(texts.novoxmax, "77");
  EXPECT_EQ(session.xmax(kListed), 25);
  EXPECT_EQ(texts.Labelxm, "30. ");
}

TEST_F(AxisDialogs, APlotWithAFloorIsEditedByItsMinimum) {
  session.ymin(kListed) = -2.12;
  session.ymin0(kPair) = -1.06;
  Command1_Click(fit, texts);
  EXPECT_EQ(texts.novoymax, "-2.12 ");
  EXPECT_EQ(texts.Labelym, "-1.06");
}

TEST_F(AxisDialogs, NumbersHaveThePatternsOfTheWindow) {
  session.hmax(kListed) = 1234.56789;
  session.ymax(kListed) = 0.12345;
  session.ymax0(kPair) = 0.00001;
  Command1_Click(fit, texts);
  EXPECT_EQ(texts.novoxmax, "1234.57");
  EXPECT_EQ(texts.Labelxm, "1234.568 ");
  EXPECT_EQ(texts.novoymax, ".123 ");
  EXPECT_EQ(texts.Labelym, "1E-05");
}

TEST_F(AxisDialogs, WithoutAFileNeitherOpens) {
  session.loaded = false;
  std::string caption = "as it was";
  EXPECT_FALSE(Command1_Click(fit, texts));
  EXPECT_FALSE(Command4_Click(fit, caption));
  EXPECT_EQ(dialogs.shown, (Boxes{test::kNoFileBox, test::kNoFileBox}));
  EXPECT_EQ(caption, "as it was");
  EXPECT_EQ(session.plotdir, 0);
}

TEST_F(AxisDialogs, TheCaptionOfTheLimitFollowsThePairUnderWork) {
  cutgraph_Activate(session, texts);
  EXPECT_EQ(texts.Label3_1, "Y-Maximum");
  session.ymin(kListed) = -1;
  cutgraph_Activate(session, texts);
  EXPECT_EQ(texts.Label3_1, "Y-Maximum");
  cell(&Session::ymin) = -1;
  cutgraph_Activate(session, texts);
  EXPECT_EQ(texts.Label3_1, "Y-Minimum");
}

struct IllegalRow {
  const char* novoxmax;
  const char* novoymax;
  const char* warning;
};

const IllegalRow kIllegal[] = {
    {"1e400", "6", "warning: Illegal value for X-Maximum: 1e400!"},
    {"-1e400", "6", "warning: Illegal value for X-Maximum: -1e400!"},
    {"60", "1e400", "warning: Illegal value for Y-Maximum: 1e400!"},
    {"1e400", "1e400", "warning: Illegal value for Y-Maximum: 1e400!"},
};

TEST_F(AxisDialogs, AScaleBeyondAllNumbersIsWarnedOfByName) {
  for (const IllegalRow& row : kIllegal) {
    dialogs.shown.clear();
    cell(&Session::xmax) = 25;
    cell(&Session::ymax) = 7;
    texts.novoxmax = row.novoxmax;
    texts.novoymax = row.novoymax;
    EXPECT_FALSE(cutgraph_Command2_Click(session, dialogs, texts));
    EXPECT_EQ(dialogs.shown, Boxes{row.warning});
    EXPECT_EQ(cell(&Session::xmax), 25) << row.warning;
    EXPECT_EQ(cell(&Session::ymax), 7) << row.warning;
  }
  dialogs.shown.clear();
  cell(&Session::ymin) = -1;
  EXPECT_FALSE(cutgraph_Command2_Click(session, dialogs, texts));
  EXPECT_EQ(dialogs.shown, Boxes{"warning: Illegal value for Y-Minimum: 1e400!"});
}

TEST_F(AxisDialogs, AVarianceThatIsATextIsWarnedOf) {
  session.variance(kVariable) = Cell::ofText("none");
  cell(&Session::ymax) = 7;
  texts.novoymax = "6";
  EXPECT_FALSE(cutgraph_Command2_Click(session, dialogs, texts));
  EXPECT_EQ(dialogs.shown, Boxes{"warning: Illegal value for variance: none!"});
  EXPECT_EQ(cell(&Session::ymax), 7);
}

struct LimitRow {
  const char* what;
  double floor;
  const char* typed;
  bool stored;
};

// The variance is 5.
const LimitRow kLimits[] = {
    {"above the variance", 0, "5.1", true},
    {"at the variance", 0, "5", false},
    {"below the variance", 0, "4.9", false},
    {"a number with words behind it", 0, "6 units", true},
    {"no number", 0, "abc", false},
    {"empty", 0, "", false},
    {"with a floor: below the variance", -1, "4.9", true},
    {"with a floor: at the variance", -1, "5", false},
    {"with a floor: above the variance", -1, "5.1", false},
    {"with a floor: no number", -1, "abc", true},
};

TEST_F(AxisDialogs, ALimitOnTheWrongSideOfTheVarianceIsRefused) {
  for (const LimitRow& row : kLimits) {
    dialogs.shown.clear();
    cell(&Session::ymin) = row.floor;
    cell(&Session::ymax) = 10;
    cell(&Session::xmax) = 100;
    texts.novoxmax = "50.5";
    texts.novoymax = row.typed;
    EXPECT_EQ(cutgraph_Command2_Click(fit.session, fit.messages, texts), row.stored) << row.what;
    const double typed = std::atof(row.typed);
    const bool hasFloor = row.floor < 0;
    EXPECT_EQ(cell(&Session::xmax), row.stored ? 50.5 : 100) << row.what;
    EXPECT_EQ(cell(&Session::ymax), row.stored && !hasFloor ? typed : 10) << row.what;
    EXPECT_EQ(cell(&Session::ymin), row.stored && hasFloor ? typed : row.floor) << row.what;
    EXPECT_EQ(dialogs.shown,
              row.stored ? Boxes{} : Boxes{"warning: Illegal value ymax ! Note:  legal value >  5"})
        << row.what;
    EXPECT_EQ(plotter.drawings, 0) << "the plot is drawn at its next activation";
  }
}

TEST_F(AxisDialogs, TheDistanceMaximumIsNotChecked) {
  texts.novoymax = "6";
  for (const auto& [text, value] :
       {std::pair("-3", -3.0), {"", 0.0}, {"12a", 12.0}, {"0.5", 0.5}}) {
    texts.novoxmax = text;
    EXPECT_TRUE(cutgraph_Command2_Click(fit.session, fit.messages, texts)) << text;
    EXPECT_EQ(cell(&Session::xmax), value) << text;
  }
}

TEST_F(AxisDialogs, TheTextOfAnotherPlotIsStoredInTheNextOne) {
  Command1_Click(fit, texts);
  EXPECT_EQ(texts.novoxmax, "30.");
  // The pair under work has its maximum of 100 already.
  panel.setListPosition(List::Combo2, 1);
  panel.setListPosition(List::Combodirvar, 2);
  Command1_Click(fit, texts);
  EXPECT_EQ(texts.novoxmax, "30.");
  EXPECT_TRUE(cutgraph_Command2_Click(fit.session, fit.messages, texts));
  EXPECT_EQ(cell(&Session::xmax), 30);
}

TEST_F(AxisDialogs, TheLegendOpensWithTheDirectionOfTheLastDrawing) {
  session.plotdir = 3;
  std::string caption;
  ASSERT_TRUE(Command4_Click(fit, caption));
  EXPECT_EQ(caption, "Variogram  (45;0)");
  EXPECT_EQ(session.current(), kListed);
}

struct LegendRow {
  const char* typed;
  const char* legend;
  bool stored;
};

const LegendRow kLegends[] = {
    {"m", "h (m)", true},         {"meters", "h (meters)", true}, {"meters.", "h ()", false},
    {"", "h ()", true},           {"  km", "h (km)", true},       {"  meters", "h (meters)", true},
    {"km   ", "h (km   )", true}, {"km    .", "h ()", false},     {"   ", "h ()", true},
    {"\xb5m", "h (\xb5m)", true},
};

TEST_F(AxisDialogs, ALegendHasSixCharactersAtMost) {
  for (const LegendRow& row : kLegends) {
    dialogs.shown.clear();
    cell(&Session::xlegend) = "h( )";
    EXPECT_EQ(legenda_Command2_Click(fit.session, fit.messages, row.typed), row.stored)
        << row.typed;
    EXPECT_EQ(cell(&Session::xlegend), row.legend) << row.typed;
    EXPECT_EQ(dialogs.shown,
              row.stored ? Boxes{} : Boxes{"plain: Legend too long: Maximum 6 char.!"})
        << row.typed;
  }
}

}  // namespace
}  // namespace zevfit
