// What happens when the exponent of a power structure is above 2.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "model/model_curve.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

using Shown = std::vector<std::string>;

struct LimitRow {
  int structure;
  const char* warning;
  const char* text;
  int position;                    ///< of HScrolla afterwards; it stood at 500
  std::vector<std::string> order;  ///< "text", "slider": with the handles held or free
};

// Position 32 of 32.0000016 for the text "2".
const LimitRow kRows[] = {
    {1, "Structure II : Power Model (0 < a < 2)", "2", 32, {"text, held", "slider, free"}},
    {2, "Structure III : Power Model (0 < a < 2)", "0.001", 500, {"text, free"}},
    {3, "Structure IV : Power Model (0 < a < 2)", "0.001", 500, {"text, free"}},
};

class PowerLimit : public testing::Test, protected FitFixture {
 protected:
  /// A power structure with this exponent. The field drives, so that nothing is drawn.
  void givePower(int structure, double exponent) {
    const auto line = static_cast<std::size_t>(structure);
    setFlag(session, structure, kVariable, kDirection, 1);
    cell(kLetterTable[line]) = "P";
    cell(kRangeTable[line]) = exponent;
  }
  void sample() { modelcurve(fit, kDirection, kVariable, 10, 100); }
  double exponent(int structure) {
    return number(kRangeTable[static_cast<std::size_t>(structure)]);
  }

  void holdHandles() { session.dragsel = {1, 1, 1, 1, 1}; }
  /// Notes the events of the range and whether the handles are still held, then runs them.
  void noteOrder(std::vector<std::string>& order) {
    const auto held = [this] { return session.dragsel[1] == 1 ? ", held" : ", free"; };
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
  cell(&Session::atyped) = 1;
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
    EXPECT_EQ(session.dragsel, (std::array<int, 5>{0, 0, 0, 0, 1}));
    EXPECT_EQ(exponent(row.structure), 2.001) << "no line is selected that would store the text";
    setFlag(session, row.structure, kVariable, kDirection, 0);
  }
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(PowerLimit, LetsTwoPass) {
  for (int structure = 1; structure <= 3; ++structure) {
    givePower(structure, 2);
    sample();
    EXPECT_EQ(session.curvegam(9), structure * 81);
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PowerLimit, ConcernsTickedPowerStructuresAlone) {
  givePower(1, 5);
  cell(&Session::use1) = 0;
  givePower(2, 5);
  cell(&Session::model2) = "E";
  givePower(3, 5);
  cell(&Session::model3) = "-";
  sample();
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PowerLimit, KeepsTheLastCompleteCurve) {
  cell(&Session::atyped) = 1;
  givePower(2, 1);
  sample();
  givePower(1, 1);
  givePower(2, 3);
  sample();
  EXPECT_EQ(session.curvegam(9), 9) << "not 9 + 729, nor what structure 1 adds";
  EXPECT_EQ(dialogs.shown.size(), 1U);
}

TEST_F(PowerLimit, EndsTheSamplingAtTheFirstBadStructure) {
  cell(&Session::atyped) = 1;
  for (int structure = 1; structure <= 3; ++structure) givePower(structure, 3);
  sample();
  EXPECT_EQ(dialogs.shown, (Shown{"warning: " + std::string(kRows[0].warning)}));
}

TEST_F(PowerLimit, StoresTheResetInTheSelectedStructure) {
  cell(&Session::atyped) = 1;
  givePower(1, 5);
  givePower(3, 1);
  select(3);
  sample();
  EXPECT_EQ(exponent(1), 5) << "not the selected one";
  EXPECT_EQ(exponent(3), 2);
  select(1);
  panel.setText(Field::a, "5");
  sample();
  EXPECT_EQ(exponent(1), 2);
}

TEST_F(PowerLimit, ComesBackAtTheNextSamplingWhileTheBadCellStays) {
  cell(&Session::atyped) = 1;
  givePower(2, 5);
  select(0);
  sample();
  sample();
  EXPECT_EQ(dialogs.shown.size(), 2U);
  EXPECT_EQ(exponent(2), 5);
}

TEST_F(PowerLimit, PassesAFaultOfTheSliderOn) {
  cell(&Session::atyped) = 1;
  givePower(1, 5);
  panel.setMaximum(Slider::a, 31);
  EXPECT_THROW(sample(), Fault);
  EXPECT_EQ(panel.text(Field::a), "2");
  EXPECT_EQ(panel.position(Slider::a), 0);
}

// While the slider drives, the reset draws inside the sampling: the curve of the inner drawing
// stands.
TEST_F(PowerLimit, LetsTheNestedDrawingStand) {
  drawForReal();
  select(1);
  givePower(1, 5);
  sample();
  EXPECT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(exponent(1), 2);
  EXPECT_GT(plotter.drawings, 0);
  EXPECT_EQ(session.curvegam(9), 81);
  EXPECT_EQ(panel.position(Slider::a), 32);
}

TEST_F(PowerLimit, SettlesInADrawingWhoseSelectedLineIsAnother) {
  drawForReal();
  select(2);
  givePower(1, 5);
  drawWithoutPicture(fit);
  EXPECT_EQ(exponent(1), 5);
  EXPECT_EQ(exponent(2), 2) << "the reset went to the selected line";
  const std::size_t warnings = dialogs.shown.size();
  const int drawings = plotter.drawings;
  drawWithoutPicture(fit);
  EXPECT_EQ(dialogs.shown.size(), warnings + 1) << "the bad cell stays";
  EXPECT_EQ(plotter.drawings, drawings) << "and nothing else changes";
}

}  // namespace
}  // namespace zevfit
