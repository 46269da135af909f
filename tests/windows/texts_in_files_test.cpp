// Files whose cells hold texts, or numbers beyond all bounds, where numbers belong: no event of a
// user ends the program with them.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>

#include "tests/support/full_report.h"
#include "tests/support/temporary_folder.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Lines = std::vector<std::string>;

/// Two variables in two directions with models, one number of the last pair's in another place of
/// each row: a line of its own.
Lines goodLines() {
  Lines made{"t", "zevRA1", "2", "zinc", "lead", "2", "2", "0;0", "90;0"};
  for (const char* variance : {"1", "4"}) {
    made.emplace_back(variance);
    for (int direction = 1; direction <= 2; ++direction)
      for (const char* value : {"10", "0.5", "9", "20", "1.5", "8"}) made.emplace_back(value);
  }
  for (int pair = 1; pair <= 4; ++pair)
    for (const char* value :
         {"1", "0.1", "1", "S", "0.5", "15", "1", "E", "0.25", "20", "0", "-", "0", "0.0001"})
      made.emplace_back(value);
  return made;
}

/// Counted back from the last line, the range of structure 3 of lead in direction 90;0.
enum BackLine : std::size_t {
  kFlag3 = 4,
  kRange2 = 5,
  kFlag2 = 8,
  kRange1 = 9,
  kSill1 = 10,
  kLetter1 = 11,
  kFlag1 = 12,
  kNugget = 13,
  kFlag0 = 14,
};

std::string fileWith(std::size_t backLine, const std::string& text) {
  Lines made = goodLines();
  made.at(made.size() - backLine) = text;
  std::string bytes;
  for (const std::string& line : made) bytes += line + "\n";
  return bytes;
}

std::string flagWarning(const std::string& line) {
  return "warning: Illegal value for flag of " + line + " in Direction (90;0) of lead: yes!";
}

class TextsInFiles : public testing::Test, protected TemporaryFolder {
 protected:
  TextsInFiles() : program_(folder()) {}

  Lines& shown() { return program_.dialogs().shown; }
  Session& session() { return program_.session(); }
  std::size_t plots() {
    return static_cast<std::size_t>(
        program_.control<QMdiArea>("Area").findChildren<Formod*>().size());
  }
  void click(const char* button) { program_.control<QAbstractButton>(button).click(); }
  QString caption(const char* label) { return program_.control<QLabel>(label).text(); }

  Program program_;
};

TEST_F(TextsInFiles, ATextAsAFlagIsWarnedOfAtThePlotWhichIsNotOpened) {
  const std::pair<BackLine, const char*> rows[] = {
      {kFlag0, "Nugget Effect"}, {kFlag1, "Structure 1"}, {kFlag2, "Structure 2"}};
  for (const auto& [line, name] : rows) {
    program_.openBytes(fileWith(line, "yes"));
    shown().clear();
    const std::size_t before = plots();
    plotPair(program_, {2, 2});
    EXPECT_EQ(shown(), Lines{flagWarning(name)});
    EXPECT_EQ(plots(), before) << name;
    EXPECT_EQ(session().plotted(), (Pair{1, 1})) << name;
    EXPECT_TRUE(program_.control<QCheckBox>("plot1").isChecked()) << name;
    shown().clear();
    plotPair(program_, {2, 1});
    EXPECT_EQ(shown(), Lines{}) << "the others plot";
  }
}

TEST_F(TextsInFiles, APlotOfAFormerFileStaysAsItIsBehindItsWarning) {
  program_.openBytes(fileWith(kFlag1, "1"));
  plotPair(program_, {2, 2});
  auto* plot = program_.control<QMdiArea>("Area").findChildren<Formod*>().back();
  auto& picture = Program::find<QWidget>(*plot, "Picture4");
  program_.openBytes(fileWith(kFlag1, "yes"));
  shown().clear();
  const QImage before = picture.grab().toImage();
  QTest::mouseClick(&picture, Qt::LeftButton, {}, {100, 100});
  EXPECT_EQ(shown(), Lines{flagWarning("Structure 1")});
  EXPECT_EQ(picture.grab().toImage(), before);
}

TEST_F(TextsInFiles, APlotOfAFormerFileThatIsResizedStaysAsItIs) {
  program_.openBytes(fileWith(kFlag1, "1"));
  plotPair(program_, {2, 2});
  auto* plot = program_.control<QMdiArea>("Area").findChildren<Formod*>().back();
  auto& picture = Program::find<QWidget>(*plot, "Picture4");
  program_.openBytes(fileWith(kFlag1, "yes"));
  shown().clear();
  const QImage before = picture.grab().toImage();
  program_.control<QMdiArea>("Area").setActiveSubWindow(plot);
  plot->resize(plot->size() + QSize(40, 20));
  EXPECT_EQ(shown(), Lines{});
  EXPECT_EQ(picture.grab().toImage(), before);
  program_.openBytes(fileWith(kFlag1, "1"));
  program_.control<QMdiArea>("Area").setActiveSubWindow(plot);
  plot->resize(plot->size() + QSize(1, 0));
  EXPECT_EQ(picture.size(), picture.parentWidget()->size()) << "a good file is followed again";
}

TEST_F(TextsInFiles, AReportWithATextAsAFlagIsNotPrintedAtAll) {
  program_.openBytes(fileWith(kFlag1, "1"));
  QWidget& reports = openReports(program_);
  pressPage(reports, 0, {100, 80});
  plotPair(program_, {2, 2});
  pressPage(reports, 0, {100, 200});
  program_.openBytes(fileWith(kFlag1, "yes"));
  shown().clear();
  Program::find<QPushButton>(reports, "printar").click();
  EXPECT_EQ(shown(), Lines{flagWarning("Structure 1")});
  EXPECT_EQ(program_.printer().calls, Lines{});
}

TEST_F(TextsInFiles, ASumOfATextIsRefused) {
  // The variance of lead, before 12 numbers and 56 lines of models.
  program_.openBytes(fileWith(56 + 12 + 1, "n.a."));
  shown().clear();
  Program::inModal([&] { program_.trigger("k2"); },
                   [&](QWidget& modal) {
                     session().addflag(1) = session().addflag(2) = true;
                     Program::find<QLineEdit>(modal, "Text2").setText("sum");
                     Program::find<QAbstractButton>(modal, "adicionar").click();
                     EXPECT_EQ(Program::find<QComboBox>(modal, "Combovar").count(), 2);
                     modal.close();
                   });
  EXPECT_EQ(shown(), Lines{"warning: Illegal value for variance of lead: n.a.!"});
  EXPECT_EQ(session().nvar, 2);
}

/// A user who tries out everything on one pair.
class Walk {
 public:
  explicit Walk(Program& program) : program_(program) {
    // Other windows have controls of the same names.
    while (panel_->objectName() != "Picture1") panel_ = panel_->parentWidget();
  }

  void all() {
    plotPair(program_, {2, 2});
    panel();
    plot();
    axes();
    format();
    test();
    results();
    reports();
    for (const char* command : {"k11", "kmais", "kmenos", "k8"}) program_.trigger(command);
    structure();
  }

 private:
  /// Runs `steps` on the modal window, if one comes up.
  static void inModal(const std::function<void()>& opening,
                      const std::function<void(QWidget&)>& steps) {
    QTimer::singleShot(0, [&] {
      if (QWidget* modal = QApplication::activeModalWidget()) {
        steps(*modal);
        modal->close();
      }
    });
    opening();
    QApplication::processEvents();
  }
  QWidget& control(const char* name) { return Program::find<QWidget>(*panel_, name); }
  void click(const char* name) {
    auto* button = qobject_cast<QAbstractButton*>(&control(name));
    if (!button) return QTest::mouseClick(&control(name), Qt::LeftButton);
    button->setFocus(Qt::MouseFocusReason);
    button->click();
  }

  void panel() {
    for (const char* line : {"est1", "est2", "est3", "est4"}) {
      click(line);
      QTest::mouseDClick(&control(line), Qt::LeftButton, {}, {8, 8});
      for (const char* model : {"tipo1", "tipo2", "tipo3", "tipo4"}) click(model);
      for (const char* slider : {"HScrollc0", "HScrolla"}) {
        QTest::keyClick(&control(slider), Qt::Key_PageUp);
        QTest::keyClick(&control(slider), Qt::Key_End);
      }
      for (const char* field : {"Textc0", "Texta"}) {
        click(field);
        QTest::keyClicks(&control(field), "1");
        QTest::keyClick(&control(field), Qt::Key_Return);
      }
      click("Labelvariance");
    }
    for (const char* box : {"plot1", "plot2", "plot3", "plot4", "psill"}) {
      for (int twice = 0; twice < 2; ++twice) click(box);
      click("Command5");
    }
    click("Command3");
  }

  void plot() {
    for (auto* window : program_.control<QMdiArea>("Area").findChildren<Formod*>()) {
      if (!window->isVisible()) continue;
      program_.control<QMdiArea>("Area").setActiveSubWindow(window);
      auto& picture = Program::find<QWidget>(*window, "Picture4");
      for (const QPoint at : {QPoint(60, 60), QPoint(200, 100), QPoint(380, 60)})
        QTest::mouseClick(&picture, Qt::LeftButton, {}, at);
      for (const char* handle : {"estru_0", "estru_1", "estru_2"}) {
        auto& label = Program::find<QWidget>(*window, handle);
        if (!label.isVisible()) continue;
        QTest::mousePress(&label, Qt::RightButton, {}, {2, 2});
        QTest::mouseMove(&label, {9, 9});
        QTest::mouseRelease(&label, Qt::RightButton, {}, {2, 2});
      }
    }
    plotPair(program_, {2, 2});
  }

  void axes() {
    click("Command1");
    if (auto* scales = program_.window().findChild<QWidget*>("cutgraph")) {
      Program::find<QAbstractButton>(*scales, "Command2").click();
      scales->hide();
    }
    inModal([&] { click("Command4"); },
            [](QWidget& modal) { Program::find<QAbstractButton>(modal, "Command2").click(); });
  }

  void format() {
    program_.trigger("k10");
    auto& format = program_.control("Formfont");
    QTest::mouseClick(&Program::find<QWidget>(format, "Picture1"), Qt::LeftButton);
    Program::find<QAbstractButton>(format, "Command2").click();
  }

  void test() {
    click("Command2");
    auto* dialog = program_.window().findChild<QWidget*>("testcruz");
    if (!dialog || !dialog->isVisible()) return;
    for (const char* list : {"combovarp", "combovarsec", "Combovarcruz", "Combodmain"})
      Program::find<QComboBox>(*dialog, list).setCurrentIndex(1);
    for (const char* button : {"Command1", "Command2"})
      Program::find<QAbstractButton>(*dialog, button).click();
  }

  void results() {
    inModal([&] { program_.trigger("k3"); },
            [](QWidget& modal) {
              auto& grid = Program::find<QTableWidget>(modal, "gridsairmod");
              for (int variable : {1, 0}) {
                Program::find<QComboBox>(modal, "Combovarver").setCurrentIndex(variable);
                for (const char* axis : {"Option3d4", "Option3d5", "Option3d6"}) {
                  Program::find<QAbstractButton>(modal, axis).click();
                  for (int row : {2, 3})
                    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                                      grid.visualItemRect(grid.item(row, 1)).center());
                }
                Program::find<QAbstractButton>(modal, "Command2").click();
              }
            });
  }

  void reports() {
    QWidget& reports = openReports(program_);
    for (const QPoint at : {QPoint(100, 80), QPoint(100, 200)}) pressPage(reports, 0, at);
    Program::find<QPushButton>(reports, "printar").click();
    reports.close();
  }

  void structure() {
    inModal([&] { program_.trigger("k2"); },
            [](QWidget& modal) {
              auto& grid = Program::find<QTableWidget>(modal, "grid1");
              for (int row : {1, 2})
                QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                                  grid.visualItemRect(grid.item(row, 1)).center());
              Program::find<QLineEdit>(modal, "Text2").setText("sum");
              Program::find<QAbstractButton>(modal, "adicionar").click();
              auto& variables = Program::find<QComboBox>(modal, "Combovar");
              variables.setCurrentIndex(variables.count() - 1);
              for (const char* button : {"remove", "Command2"})
                Program::find<QAbstractButton>(modal, button).click();
            });
  }

  Program& program_;
  QWidget* panel_ = &program_.control("Command5");
};

TEST_F(TextsInFiles, NoEventOfAUserEndsTheProgram) {
  const std::size_t lines = goodLines().size();
  // All the last pair has: its model, and its first variance and classes.
  std::vector<std::size_t> places;
  for (std::size_t line = 1; line <= 14; ++line) places.push_back(line);
  for (std::size_t line = 4 * 14 + 1; line <= 4 * 14 + 13; line += 2) places.push_back(line);
  for (const std::size_t place : places) {
    for (const char* token : {"yes", "1e400", "1.7e308"}) {
      shown().clear();
      ASSERT_LT(place, lines);
      program_.openBytes(fileWith(place, token));
      Walk(program_).all();
      for (const std::string& box : shown())
        ASSERT_FALSE(box.starts_with("fatal"))
            << token << " at line " << place << " from the end: " << box;
    }
  }
}

}  // namespace
}  // namespace zevfit::test
