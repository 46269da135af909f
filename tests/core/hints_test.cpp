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
