// The options of the models.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

enum Tipo { kE, kS, kG, kP };

class SelectModel : public testing::Test, protected FitFixture {
 protected:
  std::string model(int structure) {
    return cell(kLetterTable.at(static_cast<std::size_t>(structure)));
  }
  double use(int line) { return flag(session, line, session.curvar, session.curdir); }
};

struct Row {
  int structure;
  Tipo tipo;
  const char* letter;
  const char* expression;
  const char* sillLabel;
};

const std::vector<Row> kRows{
    {1, kE, "E", "C1*(1-exp(-3h/a1))", "C1 :"},
    {1, kS, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1 :"},
    {1, kG, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1 :"},
    {1, kP, "P", "  h^a1  (0<a1<2)", "  :"},
    {2, kE, "E", "C2*(1-exp(-3h/a2))", "C2 :"},
    {2, kS, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)", "C2 :"},
    {2, kG, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2 :"},
    {2, kP, "P", " h^a2  (0<a2<2)", "   :"},
    {3, kE, "E", "C3*(1-exp(-3h/a3))", "C3 :"},
    {3, kS, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)", "C3 :"},
    {3, kG, "G", "C3*(1-exp(-3*(h/a3)^2) )", "C3 :"},
    {3, kP, "P", "  h^a3  (0<a3<2)", "   :"},
};

using Handler = void (*)(Fit&, int);

TEST_F(SelectModel, GivesTheSelectedStructureItsLetterAndTexts) {
  constexpr std::array<const char*, 4> kRangeLabels{"", "a1 :", "a2 :", "a3 :"};
  for (const Handler handler : {tipo_Click, tipo_DblClick})
    for (const Row& row : kRows) {
      SCOPED_TRACE(std::to_string(row.structure) + row.letter);
      select(row.structure);
      handler(fit, row.tipo);
      EXPECT_EQ(panel.letter(row.structure), row.letter);
      EXPECT_EQ(model(row.structure), row.letter);
      EXPECT_EQ(panel.caption(Caption::label10), row.expression);
      EXPECT_EQ(panel.caption(Caption::Label18), row.sillLabel);
      EXPECT_EQ(panel.caption(Caption::Label21),
                kRangeLabels.at(static_cast<std::size_t>(row.structure)));
    }
}

TEST_F(SelectModel, TicksTheBoxOfItsLineAlone) {
  constexpr std::array kBoxes{Box::plot1, Box::plot2, Box::plot3, Box::plot4};
  for (int structure = 1; structure <= 3; ++structure) {
    FitFixture fresh;
    fresh.select(structure);
    tipo_Click(fresh.fit, kS);
    for (int line = 0; line < kLines; ++line) {
      const bool own = line == structure;
      EXPECT_EQ(fresh.panel.ticked(kBoxes.at(static_cast<std::size_t>(line))), own) << line;
      EXPECT_EQ(flag(fresh.session, line, kVariable, kDirection), own ? 1 : 0) << line;
    }
  }
}

TEST_F(SelectModel, LeavesTheOtherStructures) {
  select(2);
  tipo_Click(fit, kG);
  EXPECT_EQ(model(1), "-");
  EXPECT_EQ(model(2), "G");
  EXPECT_EQ(model(3), "-");
  EXPECT_EQ(session.model2(kVariable, kDirection + 1), "-");
  EXPECT_EQ(session.model2(kVariable + 1, kDirection), "-");
}

TEST_F(SelectModel, OnlyThePowerDisablesTheSill) {
  for (const Tipo tipo : {kE, kS, kG, kP}) {
    const bool hasSill = tipo != kP;
    panel.setEnabled(Control::HScrollc0, !hasSill);
    panel.setEnabled(Control::Textc0, !hasSill);
    select(1);
    tipo_Click(fit, tipo);
    EXPECT_EQ(panel.enabled(Control::HScrollc0), hasSill) << tipo;
    EXPECT_EQ(panel.enabled(Control::Textc0), hasSill) << tipo;
  }
}

TEST_F(SelectModel, WithTheNuggetChangesTheEnablingAlone) {
  select(0);
  tipo_Click(fit, kE);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"HScrollc0 = enabled", "Textc0 = enabled"}));
  panel.calls.clear();
  tipo_Click(fit, kP);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"HScrollc0 = disabled", "Textc0 = disabled"}));
  for (int line = 0; line < kLines; ++line) EXPECT_EQ(use(line), 0) << line;
}

TEST_F(SelectModel, DoesNotDraw) {
  for (int line = 0; line < kLines; ++line) {
    select(line);
    for (const Tipo tipo : {kE, kS, kG, kP}) tipo_Click(fit, tipo);
  }
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(SelectModel, ABoxThatIsTickedAlreadyIsNotClicked) {
  panel.setTicked(Box::plot4, true);
  ASSERT_EQ(session.plot4state, 1);
  select(3);
  tipo_Click(fit, kE);
  EXPECT_EQ(session.plot4state, 1);
  EXPECT_EQ(use(3), 1);
}

TEST_F(SelectModel, TheClickOfABoxMayTakeTheLineOut) {
  struct Case {
    int structure;
    Box box;
    int Session::*state;
  };
  for (const Case& one :
       {Case{2, Box::plot3, &Session::plot3state}, Case{3, Box::plot4, &Session::plot4state}}) {
    session.*one.state = 1;
    select(one.structure);
    tipo_Click(fit, kE);
    EXPECT_TRUE(panel.ticked(one.box)) << one.structure;
    EXPECT_EQ(use(one.structure), 0) << one.structure;
    EXPECT_EQ(session.*one.state, 0) << one.structure;
  }
}

TEST_F(SelectModel, GoesByEachMarkOnItsOwn) {
  session.sel = {0, 1, 0, 1};
  tipo_Click(fit, kS);
  EXPECT_EQ(model(1), "S");
  EXPECT_EQ(model(2), "-");
  EXPECT_EQ(model(3), "S");
}

TEST_F(SelectModel, ByDoubleClickWorksWithoutAFile) {
  session.loaded = false;
  select(1);
  tipo_DblClick(fit, kG);
  EXPECT_EQ(model(1), "G");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SelectModel, BackToAPowerStructureTheFieldIsDisabledAgain) {
  est_Click(fit, 1);
  tipo_Click(fit, kP);
  EXPECT_EQ(panel.caption(Caption::label10), "  h^a1  (0<a1<2)");
  est_Click(fit, 2);
  tipo_Click(fit, kS);
  EXPECT_TRUE(panel.enabled(Control::Textc0));
  est_Click(fit, 1);
  EXPECT_FALSE(panel.enabled(Control::Textc0));
  EXPECT_EQ(panel.caption(Caption::label10), " h^a1  (0<a1<2)") << "one blank, not two";
}

TEST_F(SelectModel, TheSphericalOfStructureTwoIsSquareByTheLineAndCubicByTheModel) {
  panel.setLetter(2, "S");
  est_Click(fit, 2);
  EXPECT_EQ(panel.caption(Caption::label10), "C2*(3/2*(h/a2) -1/2*(h/a2)^2)");
  tipo_Click(fit, kS);
  EXPECT_EQ(panel.caption(Caption::label10), "C2*(3/2*(h/a2) -1/2*(h/a2)^3)");
}

TEST_F(SelectModel, AfterAPowerStructureTheNuggetHasItsFieldAlone) {
  est_Click(fit, 1);
  tipo_Click(fit, kP);
  est_Click(fit, 0);
  EXPECT_TRUE(panel.enabled(Control::Textc0));
  EXPECT_FALSE(panel.enabled(Control::HScrollc0));
}

}  // namespace
}  // namespace zevfit
