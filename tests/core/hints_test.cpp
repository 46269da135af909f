// What the handlers say of a value that springs back and of a handle that is out of view.

#include <gtest/gtest.h>

#include "model/fields.h"
#include "model/sliders.h"
#include "plot/window/placing.h"
#include "report/printing.h"
#include "session/hint_number.h"
#include "session/line.h"
#include "tests/support/drag_bench.h"
#include "tests/support/fit_fixture.h"
#include "tests/support/recording_hints.h"
#include "tests/support/report_bench.h"

namespace zevfit {
namespace {

/// The axis goes from 0 to 10, distances to 100; a fit of its own that tells its hints.
struct ToldFit : FitFixture {
  RecordingHints hints;
  Fit told{session, panel, plotter, dialogs, hints};

  ToldFit() {
    connectPanel(panel, told);
    plotter.onDraw = [this] { drawWithoutPicture(told); };
    for (const Line which : {Line::first, Line::second}) line(session, kPair, which).use(1);
  }
  void type(Field field, const char* text) {
    if (field == Field::c0)
      Textc0_Click(session);
    else
      Texta_Click(session, dialogs);
    panel.setText(field, text);
  }
};

/// A plot of the first structure, selected, in a fit that tells its hints.
struct ToldPlot : PlotBench {
  RecordingHints hints;
  Fit told{session, panel, *this, dialogs, hints};

  ToldPlot() {
    connectPanel(panel, told);
    setStructure(session, zevfit::kPair, Line::first, "S", 1, 20);
    plotvariogram();
    panel.selectLine(Line::first);
  }
  void plotvariogram() override {
    const DrawingDepth::Level level(depth);
    zevfit::plotvariogram(told, windows);
  }
  void type(const char* text) {
    Texta_Click(session, dialogs);
    panel.setText(Field::a, text);
  }
};

TEST(Hint, SaysWhyASillSprangBackUntilOneIsTaken) {
  struct Row {
    const char* text;
    const char* hint;
  };
  const Row rows[] = {
      {"12",
       "12 is no sill here: the semivariance axis goes from -2 to 10. The value before is back."},
      {"-2.5",
       "-2.5 is no sill here: the semivariance axis goes from -2 to 10. The value before is back."},
      {"False", "False is no number. The value before is back."},
      {"10", ""},
      {"abc", ""},
  };
  for (const Row& row : rows) {
    ToldFit fit;
    fit.cell(&Session::ymin) = -2;
    fit.select(Line::first);
    fit.type(Field::c0, "3");
    EXPECT_EQ(fit.hints.standing, "");
    fit.type(Field::c0, row.text);
    EXPECT_EQ(fit.hints.standing, row.hint) << row.text;
    fit.type(Field::c0, "4");
    EXPECT_EQ(fit.hints.standing, "") << row.text;
  }
}

TEST(Hint, SaysNothingOfASillThatGoesNowhere) {
  ToldFit fit;
  fit.type(Field::c0, "12");
  EXPECT_EQ(fit.hints.standing, "");
}

TEST(Hint, SaysWhyTheSliderStopsBelowTheTop) {
  ToldFit fit;
  fit.select(Line::first);
  fit.panel.setPosition(Slider::c0, 16000);
  EXPECT_EQ(fit.hints.standing, "");
  fit.panel.setPosition(Slider::c0, 32000);
  EXPECT_EQ(fit.hints.standing,
            "The slider does not take the end of the axis: type 10 to have it.");
  fit.panel.setPosition(Slider::c0, 16000);
  EXPECT_EQ(fit.hints.standing, "");
}

TEST(Hint, SaysWhatBecameOfARange) {
  for (const char* text : {"-1", "2001"}) {
    ToldFit fit;
    fit.select(Line::first);
    fit.type(Field::a, text);
    EXPECT_EQ(fit.hints.standing,
              std::string(text) +
                  " is no range here: ranges go from 0 to 2000, 20 times the largest "
                  "distance. The far end is taken.");
    fit.type(Field::a, "50");
    EXPECT_EQ(fit.hints.standing, "");
  }
}

TEST(Hint, SaysWhyADrawingShowsAnotherRangeThanTheTypedOne) {
  struct Row {
    const char* text;
    const char* typed;  ///< the hint before the drawing
    const char* drawn;  ///< and the one behind it
    const char* left;   ///< in the field
  };
  const Row rows[] = {
      {"0", "", "0 is no range: 1E-05 is taken.", "0"},
      {"-0.0", "", "0 is no range: 1E-05 is taken.", "0"},
      {"", "", "The empty field counts as 0, and 0 is no range: 1E-05 is taken.", "0"},
      {"km", "", "\"km\" counts as 0, and 0 is no range: 1E-05 is taken.", "0"},
      // No number lies so near to 0.
      {"1E-05900", "", "\"1E-05900\" counts as 0, and 0 is no range: 1E-05 is taken.", "0"},
      {"3 km", "", "\"3 km\" counts as 3.", "3"},
      {"1E999", "1E999 is beyond all numbers. The range stays 50.",
       "1E999 is beyond all numbers. The range stays 50.", "1E999"},
      {" 7.50 ", "", "", "7.5"},
      {"1e1", "", "", "10"},
  };
  for (const Row& row : rows) {
    ToldPlot fit;
    fit.type("50");
    fit.type(row.text);
    EXPECT_EQ(fit.hints.standing, row.typed) << row.text;
    Text_KeyDown(fit, kEnterKeyCode);
    EXPECT_EQ(fit.hints.standing, row.drawn) << row.text;
    EXPECT_EQ(fit.panel.text(Field::a), row.left) << row.text;
    fit.type("50");
    EXPECT_EQ(fit.hints.standing, "") << row.text;
  }
}

TEST(Hint, OfARangeOfNoughtStaysWhereTheNextDrawingShowsTheOneTaken) {
  ToldPlot fit;
  fit.type("0");
  Text_KeyDown(fit, kEnterKeyCode);
  Text_KeyDown(fit, kEnterKeyCode);
  EXPECT_EQ(fit.panel.text(Field::a), "1E-05");
  EXPECT_EQ(fit.hints.standing, "0 is no range: 1E-05 is taken.");
  Text_KeyDown(fit, kEnterKeyCode);
  EXPECT_EQ(fit.panel.text(Field::a), "1E-05");
}

TEST(Hint, SaysThatTheSliderStandsAtNoRange) {
  ToldPlot fit;
  HScrolla_GotFocus(fit.told);
  fit.panel.setPosition(Slider::a, 500);
  EXPECT_EQ(fit.hints.standing, "");
  fit.panel.setPosition(Slider::a, 0);
  EXPECT_EQ(fit.hints.standing, "0 is no range: 1E-05 is taken.");
}

TEST(Hint, OfATypedRangeIsNotThatOfAnotherPair) {
  ToldPlot fit;
  const Pair other{1, 1};
  fit.type("0");
  fit.session.setCurrent(other);
  fit.plotvariogram();
  EXPECT_EQ(fit.hints.standing, "") << "its own range was 1E-05 before";
}

TEST(Hint, SaysThatASillIsBeyondAllNumbers) {
  ToldFit fit;
  fit.select(Line::first);
  fit.type(Field::c0, "3");
  fit.type(Field::c0, "1E999");
  EXPECT_EQ(fit.hints.standing, "1E999 is beyond all numbers. The sill stays 3.");
}

// Files have seven digits, drags three decimals.
TEST(Hint, SaysNothingOfARangeThatIsTheEndOfTheAxisInItsDigits) {
  struct Row {
    double axisEnd;
    const char* range;
    bool beyond;
  };
  const Row rows[] = {{1620.3727726, "1620.373", false},
                      {1620.3727726, "1620.374", true},
                      {162037.27726, "162037.3", false},
                      {0.1236, "0.124", false},
                      {0.1236, "0.125", true}};
  for (const Row& row : rows) {
    ToldFit fit;
    fit.select(Line::first);
    fit.cell(&Session::hmax) = fit.cell(&Session::xmax) = row.axisEnd;
    fit.type(Field::a, row.range);
    EXPECT_EQ(fit.hints.standing != "", row.beyond) << row.range;
  }
}

TEST(Hint, SaysThatTheHandleOfARangeIsOutOfView) {
  ToldFit fit;
  fit.select(Line::second);
  fit.type(Field::a, "100");
  EXPECT_EQ(fit.hints.standing, "") << "the end of the axis";
  fit.type(Field::a, "150");
  EXPECT_EQ(
      fit.hints.standing,
      "a2 = 150 lies beyond the distance axis, which ends at 100: its handle is out of view.");
  // The sill has no say in it.
  fit.type(Field::c0, "3");
  EXPECT_NE(fit.hints.standing, "");
  fit.cell(&Session::xmax) = 200;
  fit.type(Field::a, "151");
  EXPECT_EQ(fit.hints.standing, "");
  fit.select(Line::third);
  fit.type(Field::a, "250");
  EXPECT_EQ(fit.hints.standing, "") << "a line that is not used has no handle";
}

TEST(Hint, NamesTheHandlesThatAPlotHasNoPlaceFor) {
  // Sills 2, 2.5, 5 fit and 7.5 does not; ranges 25 fits, 50 and 75 do not.
  DragBench bench;
  RecordingHints hints;
  bench.session.ymax(kPair) = 6;
  bench.session.xmax(kPair) = 40;
  bench.session.a3(kPair) = 30;
  Picture4_MouseUp(bench.session, bench.fit.plotter, hints, bench.window());
  EXPECT_EQ(hints.standing,
            "Out of view: S2 (a2 = 50), S3 (C3 = 7.5). The axes go to 40 and from 0 to 6.");
  bench.session.use2(kPair) = 0;
  bench.session.c3(kPair) = 1;
  bench.session.c0(kPair) = 7;
  Picture4_MouseUp(bench.session, bench.fit.plotter, hints, bench.window());
  EXPECT_EQ(hints.standing, "Out of view: Co (C0 = 7). The axes go to 40 and from 0 to 6.");
  bench.session.c0(kPair) = 1;
  Picture4_MouseUp(bench.session, bench.fit.plotter, hints, bench.window());
  EXPECT_EQ(hints.standing, "");
}

TEST(Hint, NamesTheEndOfAnAxisByItsFirstDigits) {
  const std::pair<double, const char*> rows[] = {{1614.17777265153, "1614.178"},
                                                 {-0.00123456789, "-0.001234568"},
                                                 {1e300, "1E+300"},
                                                 {0, "0"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(hintNumber(value, ""), text);
  EXPECT_EQ(hintNumber(1620.3727726, "a1 = 1620.373"), "1620.3727726");
}

TEST(Hint, SaysWhereASheetWent) {
  ReportBench bench;
  RecordingHints hints;
  Fit told{bench.session, bench.panel, bench.fit.plotter, bench.dialogs, hints};
  Collection reports{told, bench.windows, bench.printer, bench.reportWindow};
  Form_Load(reports);
  bench.reportWindow.selected = 2;
  printar_Click(reports);
  EXPECT_EQ(hints.standing, "Report 2 went to the printer in memory.");
  bench.printer.refuses = "end";
  printar_Click(reports);
  EXPECT_EQ(hints.standing, "") << "this one went nowhere";
}

}  // namespace
}  // namespace zevfit
