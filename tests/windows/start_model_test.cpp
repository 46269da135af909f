// The command Start model, by its key, and its way back.
#include "windows/start_model.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "model/nested_model.h"
#include "session/numbers.h"
#include "tests/support/program.h"

namespace zevfit::test {
namespace {

/// One variable of the variance 1 in two directions that are alike, with ten classes of 100 pairs.
std::string fileOf(double (*semivariance)(double h)) {
  std::string classes;
  for (int lag = 1; lag <= 10; ++lag)
    classes += generalText(100.0 * lag) + " " + generalText(semivariance(100.0 * lag)) + " 100\n";
  return "made\nzevra\n1\nzinc\n2\n10\n0;0\n90;0\n1\n" + classes + classes;
}

double made(double h) { return 0.2 + spherical(h, 0.8, 600); }

class StartModelCommand : public testing::Test {
 protected:
  StartModelCommand() : program_(folder_.path().toStdString()) {}
  void open(double (*semivariance)(double h)) {
    program_.openBytes(fileOf(semivariance));
    QApplication::processEvents();
  }
  void command() {
    QTest::keyClick(&program_.window(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QApplication::processEvents();
  }
  std::string foot() { return program_.control<QLabel>("LabelHint").text().toStdString(); }
  void press(const char* button) { program_.control<QAbstractButton>(button).click(); }
  void type(const char* field, const char* text) {
    auto& edit = program_.control<QLineEdit>(field);
    edit.selectAll();
    QTest::keyClicks(&edit, text);
    QTest::keyClick(&edit, Qt::Key_Return);
  }
  /// A nugget and an exponential structure by hand.
  void fitByHand() {
    press("est1");
    press("plot1");
    type("Textc0", "0.1");
    press("est2");
    press("tipo1");
    type("Textc0", "0.5");
    type("Texta", "300");
    press("est3");
    press("tipo3");
    type("Textc0", "0.25");
    type("Texta", "900");
  }
  Session& session() { return program_.session(); }
  ModelCells cells() { return cellsOf(session(), {1, 1}); }
  void expectMade() {
    const ModelCells found = cells();
    EXPECT_NEAR(found[0].sill.number(), 0.2, 2e-3);
    EXPECT_NEAR(found[1].sill.number(), 0.8, 2e-3);
    EXPECT_NEAR(found[1].range.number(), 600, 2);
    EXPECT_EQ(found[1].letter, "S");
    const double flags[] = {1, 1, 0, 0};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(found[i].flag.number(), flags[i]) << i;
    for (const auto& [box, ticked] :
         {std::pair("plot1", true), {"plot2", true}, {"plot3", false}, {"plot4", false}})
      EXPECT_EQ(program_.control<QCheckBox>(box).isChecked(), ticked) << box;
  }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(StartModelCommand, FillsInTheModelThatTheClassesComeFrom) {
  open(made);
  command();
  expectMade();
  EXPECT_NEAR(session().curvegam(60), 1, 2e-3) << "drawn";
  const QRegularExpression told(
      "^Start model: C0 = 0\\.\\d+; C1 = 0\\.\\d+, a1 = \\d+(\\.\\d+)?, spherical\\. Misfit "
      "0\\.\\d "
      "%\\. The same command takes it back\\.$");
  EXPECT_TRUE(told.match(QString::fromStdString(foot())).hasMatch()) << foot();
  EXPECT_EQ(program_.control<QLabel>("LabelChanged").text(), "*");
}

TEST_F(StartModelCommand, BringsTheModelBackThatWasThereBefore) {
  open(made);
  fitByHand();
  const ModelCells before = cells();
  const double curve = session().curvegam(50);
  command();
  expectMade();
  EXPECT_NE(session().curvegam(50), curve);
  command();
  EXPECT_TRUE(isSame(cells(), before));
  EXPECT_EQ(session().curvegam(50), curve);
  EXPECT_EQ(foot(), "The model from before the start model is back.");
  command();
  expectMade();
}

TEST_F(StartModelCommand, TakesNothingBackOnceItsModelWasChanged) {
  open(made);
  fitByHand();
  command();
  press("est2");
  type("Texta", "450");
  command();
  expectMade();
  command();
  EXPECT_EQ(cells()[1].range.number(), 450) << "the model that was there before";
}

TEST_F(StartModelCommand, LeavesNothingOfItselfWhereThereWasNoModel) {
  open(made);
  const ModelCells before = cells();
  command();
  expectMade();
  command();
  EXPECT_TRUE(isSame(cells(), before));
  for (const char* box : {"plot1", "plot2", "plot3", "plot4"})
    EXPECT_FALSE(program_.control<QCheckBox>(box).isChecked()) << box;
  EXPECT_EQ(program_.control<QLabel>("LabelChanged").text(), "") << "nothing to save";
}

TEST_F(StartModelCommand, IsTakenBackWhateverWasLookedAtMeanwhile) {
  open(made);
  fitByHand();
  const ModelCells before = cells();
  command();
  const ModelCells after = cells();
  for (const char* button : {"est1", "est2", "est3", "est4"}) press(button);
  auto& directions = program_.control<QComboBox>("Combodirvar");
  for (const int direction : {1, 0}) {
    directions.setCurrentIndex(direction);
    QApplication::processEvents();
  }
  ASSERT_TRUE(isSame(cells(), after)) << "no value has settled";
  command();
  EXPECT_TRUE(isSame(cells(), before)) << foot();
}

TEST_F(StartModelCommand, TakesNothingBackBehindALoad) {
  open(made);
  command();
  const ModelCells after = cells();
  program_.open(session().inputfile);
  for (const Line which : kLines) {
    const LineCells& same = after.at(indexOf(which));
    const LineRef at = line(session(), {1, 1}, which);
    at.use(same.flag);
    at.sill() = same.sill;
    if (which == Line::nugget) continue;
    at.range() = same.range;
    at.letter() = same.letter;
  }
  ASSERT_TRUE(isSame(cells(), after));
  command();
  EXPECT_TRUE(isSame(cells(), after)) << foot();
  EXPECT_TRUE(foot().starts_with("Start model: ")) << foot();
}

TEST_F(StartModelCommand, RefusesWithAReason) {
  open([](double h) { return h / 1000; });
  fitByHand();
  const ModelCells before = cells();
  command();
  EXPECT_EQ(foot(),
            "No start model: unbounded: the best range is at the grid's end, 4 times the largest "
            "distance; a power form may do.");
  EXPECT_TRUE(isSame(cells(), before));
  command();
  EXPECT_TRUE(isSame(cells(), before)) << "nothing to take back";
}

TEST_F(StartModelCommand, RefusesASillOutsideTheAxis) {
  open(made);
  session().ymax({1, 1}) = 0.7;
  const ModelCells before = cells();
  command();
  EXPECT_TRUE(foot().starts_with("No start model: its sill of 0.")) << foot();
  EXPECT_TRUE(foot().ends_with(" lies outside the semivariance axis, which goes from 0 to 0.7."))
      << foot();
  EXPECT_TRUE(isSame(cells(), before));
}

TEST_F(StartModelCommand, IsOffWithoutAPair) {
  EXPECT_FALSE(program_.control<QAction>("mnustart").isEnabled());
  command();
  EXPECT_EQ(foot(), "");
}

}  // namespace
}  // namespace zevfit::test
