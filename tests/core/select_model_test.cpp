// The options of the models.

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "model/selection.h"
#include "session/line.h"
#include "tests/support/fit_fixture.h"

namespace zevfit {
namespace {

class SelectModel : public testing::Test, protected FitFixture {
 protected:
  const std::string& model(Line structure) {
    return line(session, session.current(), structure).letter();
  }
  double use(Line which) { return line(session, session.current(), which).used(); }
};

struct Row {
  Line structure;
  Form form;
  const char* letter;
  const char* expression;
  const char* sillLabel;
};

const std::vector<Row> kRows{
    {Line::first, Form::exponential, "E", "C1*(1-exp(-3h/a1))", "C1 :"},
    {Line::first, Form::spherical, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1 :"},
    {Line::first, Form::gaussian, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1 :"},
    {Line::first, Form::power, "P", "  h^a1  (0<a1<2)", "  :"},
    {Line::second, Form::exponential, "E", "C2*(1-exp(-3h/a2))", "C2 :"},
    {Line::second, Form::spherical, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)", "C2 :"},
    {Line::second, Form::gaussian, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2 :"},
    {Line::second, Form::power, "P", " h^a2  (0<a2<2)", "   :"},
    {Line::third, Form::exponential, "E", "C3*(1-exp(-3h/a3))", "C3 :"},
    {Line::third, Form::spherical, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)", "C3 :"},
    {Line::third, Form::gaussian, "G", "C3*(1-exp(-3*(h/a3)^2) )", "C3 :"},
    {Line::third, Form::power, "P", "  h^a3  (0<a3<2)", "   :"},
};

using Handler = void (*)(Fit&, Form);

TEST_F(SelectModel, GivesTheSelectedStructureItsLetterAndTexts) {
  constexpr std::array<const char*, 4> kRangeLabels{"", "a1 :", "a2 :", "a3 :"};
  for (const Handler handler : {tipo_Click, tipo_DblClick})
    for (const Row& row : kRows) {
      SCOPED_TRACE(std::to_string(indexOf(row.structure)) + row.letter);
      select(row.structure);
      handler(fit, row.form);
      EXPECT_EQ(panel.letter(row.structure), row.letter);
      EXPECT_EQ(model(row.structure), row.letter);
      EXPECT_EQ(panel.caption(Caption::label10), row.expression);
      EXPECT_EQ(panel.caption(Caption::Label18), row.sillLabel);
      EXPECT_EQ(panel.caption(Caption::Label21), kRangeLabels.at(indexOf(row.structure)));
    }
}

TEST_F(SelectModel, TicksTheBoxOfItsLineAlone) {
  constexpr std::array kBoxes{Box::plot1, Box::plot2, Box::plot3, Box::plot4};
  for (const Line structure : kStructures) {
    FitFixture fresh;
    fresh.select(structure);
    tipo_Click(fresh.fit, Form::spherical);
    for (const Line which : kLines) {
      const bool own = which == structure;
      EXPECT_EQ(fresh.panel.ticked(kBoxes.at(indexOf(which))), own) << indexOf(which);
      EXPECT_EQ(line(fresh.session, kPair, which).used(), own ? 1 : 0) << indexOf(which);
    }
  }
}

TEST_F(SelectModel, LeavesTheOtherStructures) {
  select(Line::second);
  tipo_Click(fit, Form::gaussian);
  EXPECT_EQ(model(Line::first), "-");
  EXPECT_EQ(model(Line::second), "G");
  EXPECT_EQ(model(Line::third), "-");
  EXPECT_EQ(session.model2({kVariable, kDirection + 1}), "-");
  EXPECT_EQ(session.model2({kVariable + 1, kDirection}), "-");
}

TEST_F(SelectModel, OnlyThePowerDisablesTheSill) {
  for (const Form form : kTipoForms) {
    const bool hasSill = form != Form::power;
    panel.setEnabled(Control::HScrollc0, !hasSill);
    panel.setEnabled(Control::Textc0, !hasSill);
    select(Line::first);
    tipo_Click(fit, form);
    EXPECT_EQ(panel.enabled(Control::HScrollc0), hasSill) << letterOf(form);
    EXPECT_EQ(panel.enabled(Control::Textc0), hasSill) << letterOf(form);
  }
}

TEST_F(SelectModel, WithTheNuggetChangesTheEnablingAlone) {
  select(Line::nugget);
  tipo_Click(fit, Form::exponential);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"HScrollc0 = enabled", "Textc0 = enabled"}));
  panel.calls.clear();
  tipo_Click(fit, Form::power);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"HScrollc0 = disabled", "Textc0 = disabled"}));
  for (const Line which : kLines) EXPECT_EQ(use(which), 0) << indexOf(which);
}

TEST_F(SelectModel, DoesNotDraw) {
  for (const Line which : kLines) {
    select(which);
    for (const Form form : kTipoForms) tipo_Click(fit, form);
  }
  EXPECT_EQ(plotter.drawings, 0);
}

TEST_F(SelectModel, ABoxThatIsTickedAlreadyIsNotClicked) {
  panel.setTicked(Box::plot4, true);
  ASSERT_TRUE(session.plot4state);
  select(Line::third);
  tipo_Click(fit, Form::exponential);
  EXPECT_TRUE(session.plot4state);
  EXPECT_EQ(use(Line::third), 1);
}

TEST_F(SelectModel, TheClickOfABoxMayTakeTheLineOut) {
  struct Case {
    Line structure;
    Box box;
    bool Session::*state;
  };
  for (const Case& one : {Case{Line::second, Box::plot3, &Session::plot3state},
                          Case{Line::third, Box::plot4, &Session::plot4state}}) {
    session.*one.state = true;
    select(one.structure);
    tipo_Click(fit, Form::exponential);
    EXPECT_TRUE(panel.ticked(one.box)) << indexOf(one.structure);
    EXPECT_EQ(use(one.structure), 0) << indexOf(one.structure);
    EXPECT_FALSE(session.*one.state) << indexOf(one.structure);
  }
}

TEST_F(SelectModel, GoesByTheSelectedLineAlone) {
  select(Line::first);
  tipo_Click(fit, Form::spherical);
  select(Line::third);
  tipo_Click(fit, Form::spherical);
  EXPECT_EQ(model(Line::first), "S");
  EXPECT_EQ(model(Line::second), "-");
  EXPECT_EQ(model(Line::third), "S");
}

TEST_F(SelectModel, WithNoLineChangesTheEnablingAlone) {
  tipo_Click(fit, Form::spherical);
  EXPECT_EQ(panel.calls, (std::vector<std::string>{"HScrollc0 = enabled", "Textc0 = enabled"}));
  for (const Line structure : kStructures) EXPECT_EQ(model(structure), "-") << indexOf(structure);
  for (const Line which : kLines) EXPECT_EQ(use(which), 0) << indexOf(which);
}

TEST_F(SelectModel, ByDoubleClickWorksWithoutAFile) {
  session.loaded = false;
  select(Line::first);
  tipo_DblClick(fit, Form::gaussian);
  EXPECT_EQ(model(Line::first), "G");
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SelectModel, BackToAPowerStructureTheFieldIsDisabledAgain) {
  est_Click(fit, Line::first);
  tipo_Click(fit, Form::power);
  EXPECT_EQ(panel.caption(Caption::label10), "  h^a1  (0<a1<2)");
  est_Click(fit, Line::second);
  tipo_Click(fit, Form::spherical);
  EXPECT_TRUE(panel.enabled(Control::Textc0));
  est_Click(fit, Line::first);
  EXPECT_FALSE(panel.enabled(Control::Textc0));
  EXPECT_EQ(panel.caption(Caption::label10), " h^a1  (0<a1<2)") << "one blank, not two";
}

TEST_F(SelectModel, TheSphericalOfStructureTwoIsSquareByTheLineAndCubicByTheModel) {
  panel.setLetter(Line::second, "S");
  est_Click(fit, Line::second);
  EXPECT_EQ(panel.caption(Caption::label10), "C2*(3/2*(h/a2) -1/2*(h/a2)^2)");
  tipo_Click(fit, Form::spherical);
  EXPECT_EQ(panel.caption(Caption::label10), "C2*(3/2*(h/a2) -1/2*(h/a2)^3)");
}

TEST_F(SelectModel, AfterAPowerStructureTheNuggetHasItsFieldAlone) {
  est_Click(fit, Line::first);
  tipo_Click(fit, Form::power);
  est_Click(fit, Line::nugget);
  EXPECT_TRUE(panel.enabled(Control::Textc0));
  EXPECT_FALSE(panel.enabled(Control::HScrollc0));
}

}  // namespace
}  // namespace zevfit
