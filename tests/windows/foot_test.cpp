// The foot of the main window: the open file and its mark, the misfit, hints and notes.
#include "windows/foot.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSlider>
#include <QTemporaryDir>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/tour/hand.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

// Variance 1, two directions: distances 10, 20, 30 with semivariances 0.5, 1.5, 2 and 9, 0, 3
// pairs; the axis of the first ends at 2.12.
constexpr const char* kSmall =
    "small\nzevra\n1\nzinc\n2\n3\n0;0\n90;0\n"
    "1\n10 0.5 9\n20 1.5 0\n30 2 3\n10 0.25 9\n20 0.75 9\n30 1 9\n";

class FootOfTheWindow : public testing::Test {
 protected:
  FootOfTheWindow() : program_(folder_.path().toStdString()) {
    program_.openBytes(kSmall);
    settle();
  }
  static void settle() { QApplication::processEvents(); }
  std::string text(const char* label) {
    settle();
    return program_.control<QLabel>(label).text().toStdString();
  }
  std::string tip(const char* label) {
    settle();
    return program_.control<QLabel>(label).toolTip().toStdString();
  }
  void press(const char* button) {
    auto& pressed = program_.control<QAbstractButton>(button);
    pressed.isCheckable() ? hand_.clickMark(pressed) : hand_.click(pressed);
  }
  void enter(const char* field) { hand_.key(program_.control<QLineEdit>(field), Qt::Key_Return); }
  void type(const char* field, const char* typed) {
    hand_.type(program_.control<QLineEdit>(field), typed);
  }
  void choose(const char* list, int index) {
    hand_.choose(program_.control<QComboBox>(list), index);
  }
  void save() { hand_.key(program_.window(), Qt::Key_S, Qt::ControlModifier); }
  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
  tour::Hand hand_;
};

TEST_F(FootOfTheWindow, NamesTheOpenFileAndWhereItIs) {
  EXPECT_EQ(text("LabelFile"), "small.zvm");
  EXPECT_EQ(tip("LabelFile"), folder_.filePath("small.zvm").toStdString());
  EXPECT_EQ(program_.window().windowTitle(), "zevFIT");
}

TEST_F(FootOfTheWindow, MarksModelsThatDifferFromTheFile) {
  EXPECT_EQ(text("LabelChanged"), "");
  press("est1");
  press("plot1");
  EXPECT_EQ(text("LabelChanged"), "*") << "a box alone";
  press("plot1");
  EXPECT_EQ(text("LabelChanged"), "");
  press("plot1");
  type("Textc0", "0.5");
  save();
  EXPECT_EQ(text("LabelChanged"), "");
  EXPECT_EQ(tip("LabelChanged"), "");
  type("Textc0", "0.25");
  EXPECT_EQ(text("LabelChanged"), "*") << "typed, and not drawn yet";
  EXPECT_EQ(tip("LabelChanged"),
            "The models differ from those in the file: Models (Ctrl+S) saves them");
  type("Textc0", "0.5");
  EXPECT_EQ(text("LabelChanged"), "");
  type("Textc0", "0.75");
  program_.open(session().inputfile);
  EXPECT_EQ(text("LabelChanged"), "") << "as the file has it";
}

TEST_F(FootOfTheWindow, KeepsTheMarkWhereASaveIsCancelled) {
  press("est1");
  press("plot1");
  program_.dialogs().confirmations = {false};
  save();
  EXPECT_EQ(text("LabelChanged"), "*");
}

// A nugget of 1 against 0.5 with 9 pairs and 2 with 3: sqrt((9 * 0.25 + 3 * 1) / 12) = 0.6614, over
// the variance of 1. One of 2: sqrt((9 * 2.25 + 0) / 12) = 1.2990.
TEST_F(FootOfTheWindow, TellsTheMisfitOfTheModelOnShow) {
  EXPECT_EQ(text("LabelMisfit"), "") << "no model";
  press("est1");
  press("plot1");
  type("Textc0", "1");
  EXPECT_EQ(text("LabelMisfit"), "") << "typed, and not drawn yet";
  enter("Textc0");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 66.1 %");
  type("Textc0", "2");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 66.1 %") << "the curve is that of before";
  enter("Textc0");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 129.9 %");
  choose("Combodirvar", 1);
  EXPECT_EQ(text("LabelMisfit"), "Misfit 129.9 %") << "the other direction is not on show yet";
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "");
  choose("Combodirvar", 0);
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 129.9 %");
  session().variance(1) = 1e-6;
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "Misfit over 9999.9 %");
  session().variance(1) = 0;
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "");
}

TEST_F(FootOfTheWindow, KeepsTheMisfitOfTheCurveUntilItIsDrawnAnew) {
  press("est1");
  press("plot1");
  type("Textc0", "1");
  enter("Textc0");
  press("plot1");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 66.1 %") << "the curve of the unticked line still stands";
  program_.window().resize(1100, 700);
  auto& plot = *program_.control<QMdiArea>("Area").currentSubWindow();
  plot.resize(plot.width() + 30, plot.height() + 10);
  EXPECT_EQ(text("LabelMisfit"), "Misfit 66.1 %") << "the same curve in another size";
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "");
}

TEST_F(FootOfTheWindow, TellsTheMisfitOfTheLastPlotAsLongAsItIsOpen) {
  press("est1");
  press("plot1");
  type("Textc0", "1");
  enter("Textc0");
  program_.control<QComboBox>("Combodirvar").setCurrentIndex(1);
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "");
  auto& area = program_.control<QMdiArea>("Area");
  area.currentSubWindow()->close();
  EXPECT_EQ(text("LabelMisfit"), "Misfit 66.1 %") << "the other plot is active now";
  area.currentSubWindow()->close();
  EXPECT_EQ(text("LabelMisfit"), "");
}

// The class of 1.5 with a count of -9 is drawn and those of a semivariance of 0 are not:
// sqrt((9 * 0.25 + 9 * 0.25 + 3 * 1) / 21) = 0.5976.
TEST_F(FootOfTheWindow, CountsTheClassesThatThePlotShows) {
  press("est1");
  press("plot1");
  type("Textc0", "1");
  session().npairs.set({1, 1}, 2, -9);
  enter("Textc0");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 59.8 %");
  session().gam.set({1, 1}, 3, 0);
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "Misfit 50.0 %");
  session().xmax({1, 1}) = 5;
  press("Command5");
  EXPECT_EQ(text("LabelMisfit"), "") << "no class is on show";
}

TEST_F(FootOfTheWindow, SaysWhyATypedSillSprangBack) {
  press("est1");
  type("Textc0", "5");
  EXPECT_EQ(program_.control<QLineEdit>("Textc0").text(), "0");
  EXPECT_EQ(
      text("LabelHint"),
      "5 is no sill here: the semivariance axis goes from 0 to 2.12. The value before is back.");
  type("Textc0", "1");
  EXPECT_EQ(text("LabelHint"), "");
}

TEST_F(FootOfTheWindow, SaysThatARangeBeyondTheAxisHasItsHandleOutOfView) {
  setStructure(session(), {1, 1}, Line::first, "S", 1, 15);
  program_.window().plotvariogram();
  press("est2");
  // In the groove behind the handle, a page of 1600: 599.99999 * 2400 / 32000.
  auto& slider = program_.control<QSlider>("HScrolla");
  hand_.clickAt(slider, {slider.width() - 2, slider.height() / 2});
  EXPECT_EQ(text("LabelHint"),
            "a1 = 45 lies beyond the distance axis, which ends at 30: its handle is out of view.");
  hand_.clickAt(program_.control("Picture4"), QPoint(20, 20));
  EXPECT_EQ(text("LabelHint"), "Out of view: S1 (a1 = 45). The axes go to 30 and from 0 to 2.12.");
  hand_.clickAt(slider, {2, slider.height() / 2});
  EXPECT_EQ(text("LabelHint"), "");
}

TEST_F(FootOfTheWindow, KeepsItsHeightAndTheAreaWhateverItTells) {
  auto& foot = program_.control<Foot>("Foot");
  const QRect area = program_.control("Area").geometry();
  const int height = foot.height();
  const int file = program_.control("LabelFile").width();
  tellAtFoot(program_.window(), "/a/very/" + std::string(400, 'x') + "/path");
  tellAtFoot(program_.window(), "a second line");
  hintAtFoot(program_.window(), std::string(400, 'y'));
  settle();
  EXPECT_EQ(foot.height(), height);
  EXPECT_EQ(program_.control("Area").geometry(), area);
  EXPECT_EQ(program_.control("LabelFile").width(), file);
  EXPECT_TRUE(program_.control("LabelFoot").isVisible());
  EXPECT_EQ(tip("LabelHint"), std::string(400, 'y'));
  clearFoot(program_.window());
  settle();
  EXPECT_FALSE(program_.control("LabelFoot").isVisible());
  EXPECT_EQ(text("LabelHint"), "");
  EXPECT_EQ(foot.height(), height);
}

TEST_F(FootOfTheWindow, GivesANoteTheRoomThatTheHintLeaves) {
  auto& note = program_.control<QLabel>("LabelFoot");
  auto& hint = program_.control<QLabel>("LabelHint");
  const auto wanted = [](const QLabel& label) { return label.sizeHint().width(); };
  // Where the pointer is over no control, whose tip would come before the hint.
  auto& area = program_.control("Area");
  hand_.clickAt(area, area.rect().bottomRight() - QPoint(9, 9));
  // More than half of what hints and notes have.
  std::string text;
  while (wanted(note) < note.parentWidget()->width() * 2 / 3) {
    clearFoot(program_.window());
    tellAtFoot(program_.window(), text += "kept ");
  }
  EXPECT_EQ(note.width(), wanted(note)) << "whole";
  hintAtFoot(program_.window(), "printed");
  EXPECT_EQ(note.width(), wanted(note));
  EXPECT_GE(hint.width(), wanted(hint));
  EXPECT_LE(hint.geometry().right(), note.x());
  hintAtFoot(program_.window(), text);
  EXPECT_EQ(note.width(), note.parentWidget()->width() / 2) << "each its half";
  EXPECT_LE(hint.geometry().right(), note.x());
  const int half = hint.width();
  clearFoot(program_.window());
  EXPECT_GT(hint.width(), half * 3 / 2) << "alone";
}

TEST_F(FootOfTheWindow, TakesAwayOnlyAHintOfTheSameTopic) {
  auto& foot = program_.control<Foot>("Foot");
  foot.showHint(HintTopic::sheet, "printed");
  foot.showHint(HintTopic::sill, "");
  EXPECT_EQ(text("LabelHint"), "printed");
  foot.showHint(HintTopic::sheet, "");
  EXPECT_EQ(text("LabelHint"), "");
  foot.showHint("saved");
  foot.showHint(HintTopic::sheet, "");
  EXPECT_EQ(text("LabelHint"), "saved");
  foot.showHint("");
  EXPECT_EQ(text("LabelHint"), "");
}

}  // namespace
}  // namespace zevfit::test
