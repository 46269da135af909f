// What happens when the exponent of a power structure is above 2.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "model/model_curve.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Shown = std::vector<std::string>;

struct LimitRow {
  Line structure;
  const char* warning;
  const char* text;
  int position;                    ///< of HScrolla afterwards; it stood at 500
  std::vector<std::string> order;  ///< "text", "slider": with the handles held or free
};

// Position 32 of 32.0000016 for the text "2".
const LimitRow kRows[] = {
    {Line::first,
     "Structure II : Power Model (0 < a < 2)",
     "2",
     32,
     {"text, held", "slider, free"}},
    {Line::second, "Structure III : Power Model (0 < a < 2)", "0.001", 500, {"text, free"}},
    {Line::third, "Structure IV : Power Model (0 < a < 2)", "0.001", 500, {"text, free"}},
};

class PowerLimit : public testing::Test, protected FitFixture {
 protected:
  /// A power structure with this exponent. The field drives, so that nothing is drawn.
  void givePower(Line structure, double exponent) {
    const LineRef at = line(session, kPair, structure);
    at.use(1);
    at.letter() = "P";
    at.range() = exponent;
  }
  void sample() { modelcurve(fit, kPair, 100); }
  double exponent(Line structure) { return line(session, kPair, structure).range().number(); }

  void holdHandles() { session.dragsel.fill(true); }
  /// Notes the events of the range and whether the handles are still held, then runs them.
  void noteOrder(std::vector<std::string>& order) {
    const auto held = [this] { return session.dragsel[1] ? ", held" : ", free"; };
    panel.events.textChanged = [&order, held, text = panel.events.textChanged](Field field) {
      order.push_back(std::string("text") + held());
      text(field);
    };
    panel.events.positionChanged = [&order, held](Slider) {
      order.push_back(std::string("slider") + held());
    };
  }
};

TEST_F(PowerLimit, WarnsAndResetsTheFieldOfEachStructureInItsOwnWay) {
  cell(&Session::atyped) = true;
  for (const LimitRow& row : kRows) {
    SCOPED_TRACE(row.warning);
    panel.setText(Field::a, "700");
    panel.setPosition(Slider::a, 500);
    givePower(row.structure, 2.001);
    holdHandles();
    std::vector<std::string> order;
    const PanelEvents events = panel.events;
    noteOrder(order);
    sample();
    panel.events = events;
    EXPECT_EQ(dialogs.shown, (Shown{"warning: " + std::string(row.warning)}));
    dialogs.shown.clear();
    EXPECT_EQ(panel.text(Field::a), row.text);
    EXPECT_EQ(panel.position(Slider::a), row.position);
    EXPECT_EQ(order, row.order);
    EXPECT_EQ(session.dragsel, (std::array<bool, 4>{}));
    EXPECT_EQ(exponent(row.structure), 2.001) << "no line is selected that would store the text";
    line(session, kPair, row.structure).use(0);
  }
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(PowerLimit, LetsTwoPass) {
  for (const Line structure : kStructures) {
    givePower(structure, 2);
    sample();
    EXPECT_EQ(session.curvegam(9), static_cast<double>(indexOf(structure)) * 81);
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PowerLimit, ConcernsTickedPowerStructuresAlone) {
  givePower(Line::first, 5);
  cell(&Session::use1) = 0;
  givePower(Line::second, 5);
  cell(&Session::model2) = "E";
  givePower(Line::third, 5);
  cell(&Session::model3) = "-";
  sample();
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PowerLimit, KeepsTheLastCompleteCurve) {
  cell(&Session::atyped) = true;
  givePower(Line::second, 1);
  sample();
  givePower(Line::first, 1);
  givePower(Line::second, 3);
  sample();
  EXPECT_EQ(session.curvegam(9), 9) << "not 9 + 729, nor what structure 1 adds";
  EXPECT_EQ(dialogs.shown.size(), 1U);
}

TEST_F(PowerLimit, EndsTheSamplingAtTheFirstBadStructure) {
  cell(&Session::atyped) = true;
  for (const Line structure : kStructures) givePower(structure, 3);
  sample();
  EXPECT_EQ(dialogs.shown, (Shown{"warning: " + std::string(kRows[0].warning)}));
}

TEST_F(PowerLimit, StoresTheResetInTheSelectedStructure) {
  cell(&Session::atyped) = true;
  givePower(Line::first, 5);
  givePower(Line::third, 1);
  select(Line::third);
  sample();
  EXPECT_EQ(exponent(Line::first), 5) << "not the selected one";
  EXPECT_EQ(exponent(Line::third), 2);
  select(Line::first);
  panel.setText(Field::a, "5");
  sample();
  EXPECT_EQ(exponent(Line::first), 2);
}

TEST_F(PowerLimit, ComesBackAtTheNextSamplingWhileTheBadCellStays) {
  cell(&Session::atyped) = true;
  givePower(Line::second, 5);
  select(Line::nugget);
  sample();
  sample();
  EXPECT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(exponent(Line::second), 5);
}

TEST_F(PowerLimit, PassesAFaultOfTheSliderOn) {
  cell(&Session::atyped) = true;
  givePower(Line::first, 5);
  panel.setMaximum(Slider::a, 31);
  EXPECT_THROW(sample(), Fault);
  EXPECT_EQ(panel.text(Field::a), "2");
  EXPECT_EQ(panel.position(Slider::a), 0);
}

// While the slider drives, the reset draws inside the sampling: the curve of the inner drawing
// stands.
TEST_F(PowerLimit, LetsTheNestedDrawingStand) {
  drawForReal();
  select(Line::first);
  givePower(Line::first, 5);
  sample();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(exponent(Line::first), 2);
  EXPECT_GT(plotter.drawings, 0);
  EXPECT_EQ(session.curvegam(9), 81);
  EXPECT_EQ(panel.position(Slider::a), 32);
}

TEST_F(PowerLimit, SettlesInADrawingWhoseSelectedLineIsAnother) {
  drawForReal();
  select(Line::second);
  givePower(Line::first, 5);
  drawWithoutPicture(fit);
  EXPECT_EQ(exponent(Line::first), 5);
  EXPECT_EQ(exponent(Line::second), 2) << "the reset went to the selected line";
  const std::size_t warnings = dialogs.shown.size();
  const int drawings = plotter.drawings;
  drawWithoutPicture(fit);
  EXPECT_EQ(dialogs.shown.size(), warnings + 1) << "the bad cell stays";
  EXPECT_EQ(plotter.drawings, drawings) << "and nothing else changes";
}

}  // namespace
}  // namespace zevfit
