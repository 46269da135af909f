// The field of the range. Distances up to 100 end the ranges at 2000.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/fields.h"
#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

constexpr const char* kDormant = "C0*h^a  (0<a<2)";

class RangeField : public testing::Test, protected FitFixture {};

TEST_F(RangeField, AsksForAFile) {
  select(Line::first);
  session.loaded = false;
  panel.setText(Field::a, "3");
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{test::kNoFileBox}));
  EXPECT_EQ(number(&Session::a1), 1e-05);
  EXPECT_EQ(panel.text(Field::a), "3");
}

TEST_F(RangeField, GoesToTheSelectedStructureAlone) {
  for (const Line selected : kLines) {
    FitFixture fresh;
    fresh.select(selected);
    fresh.panel.setText(Field::a, "3");
    for (const Line other : kStructures)
      EXPECT_EQ(line(fresh.session, kPair, other).range().number(), other == selected ? 3 : 1e-05)
          << indexOf(selected);
    EXPECT_EQ(fresh.plotter.drawings, 1) << "with the nugget too";
  }
}

TEST_F(RangeField, IsHeldWithinTheSlidersRanges) {
  struct Row {
    const char* text;
    double hmax;
    double cell;
    const char* left;
  };
  for (const Row& row : std::vector<Row>{
           {"12.5", 100, 12.5, "12.5"},
           {"0", 100, 0, "0"},
           {"2000", 100, 2000, "2000"},
           {"2000.1", 100, 2000, "2000"},
           {"-1", 100, 2000, "2000"},  // to the far end, not to 0
           {"-1", 0.0125, 0.25, "0.25"},
           {"-1", 1e-07, 2e-06, "2E-06"},
           {"abc", 100, 0, "abc"},
           {"3 km", 100, 3, "3 km"},
       }) {
    FitFixture fresh;
    fresh.select(Line::third);
    fresh.cell(&Session::hmax) = row.hmax;
    fresh.panel.setText(Field::a, row.text);
    EXPECT_EQ(fresh.number(&Session::a3), row.cell) << row.text << " of " << row.hmax;
    EXPECT_EQ(fresh.panel.text(Field::a), row.left) << row.text << " of " << row.hmax;
  }
}

TEST_F(RangeField, DrawsUnlessItIsTyped) {
  select(Line::first);
  panel.setText(Field::a, "3");
  EXPECT_EQ(plotter.drawings, 1);
  panel.setText(Field::a, "-1");
  EXPECT_EQ(plotter.drawings, 3) << "the inner run for 2000, then the outer one";
  Texta_Click(session, dialogs);
  panel.setText(Field::a, "4");
  EXPECT_EQ(plotter.drawings, 3);
  EXPECT_EQ(number(&Session::a1), 4);
}

TEST_F(RangeField, FailsSilently) {
  select(Line::first);
  plotter.onDraw = [] { throw Fault("frame"); };
  EXPECT_NO_THROW(panel.setText(Field::a, "3"));
  EXPECT_EQ(number(&Session::a1), 3);
  EXPECT_NO_THROW(panel.setText(Field::a, "1e999"));
  EXPECT_EQ(number(&Session::a1), 3);
  EXPECT_EQ(plotter.drawings, 1);
}

TEST_F(RangeField, OfNoughtComesBackAsTheSmallestOne) {
  select(Line::first);
  drawForReal();
  panel.setText(Field::a, "0");
  EXPECT_EQ(number(&Session::a1), 1e-05) << "raised by the sampling";
  plotter.plotvariogram();
  EXPECT_EQ(panel.text(Field::a), "1E-05");
}

TEST_F(RangeField, NoCaptionOnShowLimitsARange) {
  select(Line::first);
  for (const char* caption : {" h^a1  (0<a1<2)", "  h^a1  (0<a1<2)", "C0*h^a (0<a<2)"}) {
    panel.setCaption(Caption::label10, caption);
    panel.setText(Field::a, "2");
    panel.setText(Field::a, "3");
    EXPECT_EQ(number(&Session::a1), 3) << caption;
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(RangeField, TheDormantCheckWouldTakeARangeBackToTwo) {
  select(Line::first);
  panel.setCaption(Caption::label10, kDormant);
  panel.setText(Field::a, "2");
  EXPECT_TRUE(dialogs.shown.empty()) << "2 itself passes";
  plotter.drawings = 0;
  panel.setText(Field::a, "3");
  EXPECT_EQ(dialogs.shown, (std::vector<std::string>{"warning: Power Model (0 < a < 2)"}));
  EXPECT_EQ(panel.text(Field::a), "2.") << "by the slider's own event";
  EXPECT_EQ(number(&Session::a1), 2);
  EXPECT_EQ(panel.position(Slider::a), 32) << "2 * 32000 / 1999.9999";
}

}  // namespace
}  // namespace zevfit
