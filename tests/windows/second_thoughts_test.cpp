// What users do after the first fit: variables made and saved, files that don't load, windows that
// come back, keys in place of the mouse.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QTest>
#include <QWindow>

#include "files/output_file.h"
#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "tests/support/temporary_folder.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

class SecondThoughts : public testing::Test, protected TemporaryFolder {
 protected:
  SecondThoughts() : program_(folder()) {}

  std::string smallFile() { return write("small.zvm", kTwoVariables); }
  /// One variable and direction, a class at `last`.
  std::string fileTo(const char* last) {
    return write("one.zvm", std::string("one\nzevra\n1\nv\n1\n1\n0;0\n1\n") + last + " 0.5 9\n");
  }

  /// The lines of a file as a save ends them.
  std::vector<std::string> linesOf(const std::string& path) {
    const std::string bytes = readWhole(path);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
      const std::size_t end = bytes.find("\r\n", at);
      lines.push_back(bytes.substr(at, end - at));
      at = end == std::string::npos ? bytes.size() : end + 2;
    }
    return lines;
  }

  /// Adds both variables up to a third one in the data structure window, and goes on.
  void openWithSum(const std::string& path) {
    program_.dialogs().files = {path};
    Program::inModal([&] { program_.trigger("k1"); },
                     [&](QWidget& modal) {
                       for (int v = 1; v <= 2; ++v) program_.session().addflag(v) = true;
                       Program::find<QLineEdit>(modal, "Text2").setText("sum");
                       Program::find<QAbstractButton>(modal, "adicionar").click();
                       Program::find<QAbstractButton>(modal, "Command2").click();
                     });
  }

  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }
  Formod& plot(int direction) {
    const QString key = QString("01,0%1").arg(direction);
    for (QMdiSubWindow* window : area().subWindowList())
      if (window->windowTitle().startsWith(key)) return dynamic_cast<Formod&>(*window);
    throw std::runtime_error("no such plot");
  }
  void plotDirection(int direction) {
    program_.control<QComboBox>("Combodirvar").setCurrentIndex(direction - 1);
    program_.control<QAbstractButton>("Command5").click();
  }
  bool checked(const char* option) { return program_.control<QRadioButton>(option).isChecked(); }
  Boxes& shown() { return program_.dialogs().shown; }
  Session& session() { return program_.session(); }

  Program program_;
};

TEST_F(SecondThoughts, ASumIsSavedByTheListAndIsOneOfTheFileAfterReload) {
  const std::string path = smallFile();
  openWithSum(path);
  ASSERT_EQ(program_.control<QComboBox>("Combo2").count(), 3);
  program_.trigger("k11");
  EXPECT_EQ(shown().back(), savedBox(path));
  const std::vector<std::string> lines = linesOf(path);
  // Title, tag, count, three names, directions and classes and their names, then for each variable
  // its variance and two times three classes.
  const std::vector<std::string> head(lines.begin(), lines.begin() + 6);
  EXPECT_EQ(head, (Boxes{"small", "zevRA1", " 3 ", "zinc", "lead", "sum"}));
  EXPECT_EQ(lines.at(10), " 1 ");
  EXPECT_EQ(lines.at(17), " 4 ");
  EXPECT_EQ(lines.at(24), " 5 ") << "1 and 4";
  EXPECT_EQ(session().nvar, 2) << "the old file's count";
  const std::string bytes = readWhole(path);
  program_.trigger("k11");
  EXPECT_EQ(readWhole(path), bytes);
  EXPECT_EQ(session().nvar, 3);

  program_.dialogs().files = {path};
  Program::inModal([&] { program_.trigger("k1"); },
                   [&](QWidget& modal) {
                     shown().clear();
                     Program::find<QComboBox>(modal, "Combovar").setCurrentIndex(2);
                     Program::find<QAbstractButton>(modal, "remove").click();
                     EXPECT_EQ(shown(), Boxes{"warning: Cannot remove this variable!"});
                     modal.close();
                   });
}

// The window left by its other button has emptied the list: a file of no variable is none.
TEST_F(SecondThoughts, ASaveBehindAFileThatWasNotAcceptedAsksForAFile) {
  const std::string file = smallFile();
  program_.dialogs().files = {file};
  Program::inModal(
      [&] { program_.trigger("k1"); },
      [](QWidget& modal) { Program::find<QAbstractButton>(modal, "Command1").click(); });
  const std::string old = readWhole(file);
  shown().clear();
  program_.trigger("k11");
  EXPECT_EQ(shown(), Boxes{kNoFileBox});
  EXPECT_EQ(readWhole(file), old);
  EXPECT_FALSE(std::filesystem::exists(path("temporario.zvm")));
}

TEST_F(SecondThoughts, ABadFileLeavesTheControlsAsTheyWere) {
  program_.open(smallFile());
  plotDirection(2);
  program_.control<QRadioButton>("est3").setChecked(true);
  const QString title = plot(2).windowTitle();
  const char* const badFiles[] = {
      "bad\nzevra\n",                             // no counts
      "bad\nzevra\n1\nx\n1\n1\n45;0\n1\n10 0.5",  // no number of pairs
  };
  for (const char* bytes : badFiles) {
    shown().clear();
    program_.dialogs().files = {write("bad.zvm", bytes)};
    program_.trigger("k1");
    EXPECT_EQ(shown(), (Boxes{"open: Input Data File (*.ZVM)|*.ZVM", kBadFileBox}));
    const auto& variables = program_.control<QComboBox>("Combo2");
    ASSERT_EQ(variables.count(), 2) << bytes;
    EXPECT_EQ(variables.itemText(0), "zinc") << bytes;
    EXPECT_EQ(variables.currentIndex(), 0) << bytes;
    const auto& directions = program_.control<QComboBox>("Combodirvar");
    ASSERT_EQ(directions.count(), 2) << bytes;
    EXPECT_EQ(directions.currentText(), "90;0") << bytes;
    EXPECT_TRUE(checked("est3")) << bytes;
    EXPECT_TRUE(program_.control("Picture1").isEnabled()) << bytes;
    EXPECT_EQ(plot(2).windowTitle(), title) << bytes;
    EXPECT_TRUE(plot(2).isVisible()) << bytes;
  }
}

TEST_F(SecondThoughts, ArrowKeysChooseLinesAndModels) {
  program_.open(smallFile());
  auto& first = program_.control<QRadioButton>("est1");
  first.setChecked(true);
  first.setFocus(Qt::TabFocusReason);
  const char* const lines[] = {"est2", "est3", "est4"};
  QWidget* focused = &first;
  for (std::size_t i = 0; i < 3; ++i) {
    QTest::keyClick(focused, Qt::Key_Down);
    EXPECT_TRUE(checked(lines[i])) << i;
    EXPECT_EQ(session().sel, kStructures[i]);
    focused = &program_.control(lines[i]);
  }
  auto& model = program_.control<QRadioButton>("tipo1");
  model.setFocus(Qt::TabFocusReason);
  QTest::keyClick(&model, Qt::Key_Space);
  EXPECT_EQ(session().model3({1, 1}), "E");
  EXPECT_EQ(session().use3({1, 1}), 1) << "a model ticks its line";
  // E and S stand over G and P.
  struct Step {
    const char* from;
    Qt::Key key;
    const char* to;
    const char* letter;
  };
  for (const Step& step : {Step{"tipo1", Qt::Key_Right, "tipo2", "S"},
                           {"tipo2", Qt::Key_Down, "tipo4", "P"},
                           {"tipo4", Qt::Key_Left, "tipo3", "G"},
                           {"tipo3", Qt::Key_Up, "tipo1", "E"}}) {
    QTest::keyClick(&program_.control(step.from), step.key);
    EXPECT_TRUE(checked(step.to)) << step.from;
    EXPECT_EQ(session().model3({1, 1}), step.letter) << step.from;
    EXPECT_EQ(program_.control("Textc0").isEnabled(), *step.letter != 'P') << step.from;
  }
}

TEST_F(SecondThoughts, AWindowWhosePairTheNextFileDoesNotHaveIsHarmless) {
  program_.open(smallFile());
  plotDirection(2);
  Formod& gone = plot(2);
  program_.control<QComboBox>("Combo2").setCurrentIndex(1);
  plotDirection(1);
  auto& goneToo = dynamic_cast<Formod&>(*area().activeSubWindow());
  ASSERT_EQ(goneToo.windowTitle().left(5), "02,01");
  program_.open(write("one.zvm", "one\nzevra\n1\nv\n1\n1\n0;0\n1\n10 0.5 9\n"));
  shown().clear();
  area().setActiveSubWindow(&gone);
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 0);
  EXPECT_EQ(session().curdir, 2) << "taken from the caption, before the list refuses it";
  area().setActiveSubWindow(&goneToo);
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(program_.control<QComboBox>("Combo2").currentIndex(), 0);
  EXPECT_EQ(session().curvar, 2);
  // PLOT goes by the lists.
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_EQ(area().activeSubWindow(), &plot(1));
  EXPECT_EQ(session().curvar, 1);
  EXPECT_EQ(session().curdir, 1);
}

TEST_F(SecondThoughts, AClickOnTheTitleOrThePictureMakesThePairTheCurrentOne) {
  program_.open(smallFile());
  plotDirection(2);
  program_.trigger("k7");
  QWindow* window = program_.window().windowHandle();
  const auto at = [&](QWidget& control, QPoint place) {
    return control.mapTo(&program_.window(), place);
  };
  QTest::mouseClick(window, Qt::LeftButton, {}, at(plot(1), {plot(1).QWidget::width() / 2, 8}));
  EXPECT_EQ(session().curdir, 1);
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 0);
  QTest::mouseClick(window, Qt::LeftButton, {},
                    at(Program::find<QWidget>(plot(2), "Picture4"), {30, 30}));
  EXPECT_EQ(session().curdir, 2);
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 1);
}

TEST_F(SecondThoughts, AMaximisedNeighbourGivesWayToTheNextPlot) {
  program_.open(smallFile());
  plot(1).showMaximized();
  plotDirection(2);
  EXPECT_EQ(area().activeSubWindow(), &plot(2));
  EXPECT_TRUE(plot(2).isVisible());
  EXPECT_NEAR(plot(2).width(), 6576, 1e-9) << "the standard size";
}

TEST_F(SecondThoughts, AWindowLoadedAgainBeginsWithTheThinPen) {
  program_.open(smallFile());
  EXPECT_EQ(plot(1).pen().width, 2) << "the last line of a drawing leaves it";
  plot(1).close();
  Formod& window = plot(1);
  window.load();
  EXPECT_EQ(window.pen().width, 1);
}

// The sample of the model in the legend is drawn before any width is set.
TEST_F(SecondThoughts, TheFirstPictureOfAWindowLoadedAgainHasAThinSampleOfTheModel) {
  program_.open(smallFile());
  setStructure(session(), {1, 1}, Line::first, "S", 1, 15);
  program_.window().plotvariogram();
  // In pixels of 15 twips the sample goes from 391 to 411 across and about 173 down; nothing else
  // is in its colour there.
  const auto inked = [&] {
    int count = 0;
    for (int y = 160; y < 186; ++y)
      for (int x = 391; x < 412; ++x)
        count += plot(1).colourAt(x * 15.0, y * 15.0) != session().style.cores.Label5 ? 1 : 0;
    return count;
  };
  const int thick = inked();
  plot(1).close();
  {
    const QSignalBlocker activation(area());  // It would draw a second time.
    program_.window().plotvariogram();
  }
  ASSERT_TRUE(plot(1).isVisible());
  const int thin = inked();
  EXPECT_GT(thin, 0);
  EXPECT_GT(thick, thin);
  program_.window().plotvariogram();
  EXPECT_EQ(inked(), thick);
}

// A position of the range slider is worth 20 times the last distance over 32000 steps: just above
// one thousandth here, the last decimal of the field, so that text and slider hardly agree.
TEST_F(SecondThoughts, ARangeSliderOfTheFinestStepsEndsInOrder) {
  for (const char* last : {"1.6001", "1.60003"}) {
    shown().clear();
    program_.open(fileTo(last));
    session().use1({1, 1}) = 1;
    session().model1({1, 1}) = "S";
    session().c1({1, 1}) = 0.5;
    program_.control<QRadioButton>("est2").setChecked(true);
    auto& slider = program_.control<QSlider>("HScrolla");
    slider.setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 50; ++i) {
      slider.setValue(i * 640);
      const double range = session().a1({1, 1}).number();
      EXPECT_GE(range, 0) << last << " " << i;
      EXPECT_LE(range, 33) << last << " " << i;
    }
    for (const std::string& box : shown()) EXPECT_NE(box.substr(0, 5), "fatal") << last;
  }
}

// The field has the whole thousandth next to p * (20 h - 0.00001) / 32000, and the slider goes to
// the position next to t * 32000 / (20 h - 0.0001). With 20 h = 32.002 the former is p plus
// 0.0000621875 p thousandths, a half too many from p = 8041 on: its text is 8.042, which stands at
// 8042 - 0.0000594 * 8042 = 8041.52, that is 8042, whose text is 8.043, and so on. With 32.0006 it
// is 0.0000184375 p, a half from 27119 on.
TEST_F(SecondThoughts, ARangeSliderThatPushesItselfOnStopsWithItsFieldAndItsCurve) {
  struct Row {
    const char* last;
    int firstPushed;
  };
  for (const Row& row : {Row{"1.6001", 8041}, Row{"1.60003", 27119}}) {
    program_.open(fileTo(row.last));
    session().use1({1, 1}) = 1;
    session().model1({1, 1}) = "S";
    session().c1({1, 1}) = 0.5;
    program_.control<QRadioButton>("est2").setChecked(true);
    auto& slider = program_.control<QSlider>("HScrolla");
    slider.setFocus(Qt::TabFocusReason);
    shown().clear();
    const auto range = [&] { return session().a1({1, 1}).number(); };
    slider.setValue(row.firstPushed - 1);
    EXPECT_EQ(slider.value(), row.firstPushed - 1) << row.last;
    EXPECT_NEAR(range(), (row.firstPushed - 1) / 1000.0, 1e-9) << row.last;
    slider.setValue(row.firstPushed);
    EXPECT_GT(slider.value(), row.firstPushed) << row.last;
    EXPECT_LT(slider.value(), 32000) << row.last;
    EXPECT_NEAR(range(), (slider.value() + 1) / 1000.0, 1e-9) << row.last;
    EXPECT_NEAR(program_.control<QLineEdit>("Texta").text().toDouble(), range(), 1e-9) << row.last;
    // Back to where all agrees.
    slider.setValue(4000);
    EXPECT_EQ(slider.value(), 4000) << row.last;
    EXPECT_NEAR(range(), 4, 1e-9) << row.last;
    EXPECT_EQ(shown(), Boxes{}) << row.last;
  }
}

}  // namespace
}  // namespace zevfit::test
