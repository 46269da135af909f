#include "windows/mdimod.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <fstream>

#include "tests/support/program.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

const Boxes kOpenAsked{"open: Input Data File (*.ZVM)|*.ZVM"};
const Boxes kNoFile{"plain: Please select input data file (*.ZVM) first!"};

class MainWindow : public testing::Test {
 protected:
  MainWindow() : program_(folder_.path().toStdString()) {}

  /// A file of two variables, two directions and three classes; variances 1 and 4.
  std::string smallFile(const char* name = "small.zvm") {
    return write(name,
                 "small\nzevra\n2\nzinc\nlead\n2\n3\n0;0\n90;0\n"
                 "1\n10 0.5 9\n20 1.5 9\n30 2 9\n10 0.25 9\n20 0.75 9\n30 1 9\n"
                 "4\n10 1 9\n20 2 9\n30 3 9\n10 1 9\n20 2 9\n30 8 9\n");
  }

  std::string write(const char* name, const std::string& bytes) {
    std::string path = folder_.filePath(name).toStdString();
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  Boxes& shown() { return program_.dialogs().shown; }
  bool panelEnabled() { return program_.control("Picture1").isEnabled(); }

  /// Opens a file and leaves the data structure window by its other button.
  void openAndGoBack(const std::string& path) {
    program_.dialogs().files.push_back(path);
    Program::inModal(
        [&] { program_.trigger("k1"); },
        [](QWidget& modal) { Program::find<QAbstractButton>(modal, "Command1").click(); });
  }

  QTemporaryDir folder_;
  Program program_;
};

struct ToolRow {
  const char* key;
  const char* caption;
  const char* tip;
  bool needsFile;
};

constexpr ToolRow kTools[] = {
    {"k1", "Open ", "Open Data File (*.ZVM)", false},
    {"k2", "View File", "See Structure of Data File", true},
    {"k3", "Results", "Results from Interactive Fit", true},
    {"k5", "Casc.", "Title Cascade", false},
    {"k6", "Vert.", "Title Vertical", false},
    {"k7", "Horiz.", "Title Horizontal", false},
    {"k8", "Copy", "Copy Variogram Plot to Clipboard", true},
    {"k10", "Format", "Graph Format", true},
    {"k11", "Models", "Save current models with input data file.", true},
    {"kp", "Print", "Print current variogram plot", true},
    {"kmais", "Zoom +", "Enlarge current variogram plot", true},
    {"kmenos", "Zoom -", "Reduce current variogram plot", true},
};

TEST_F(MainWindow, ToolbarHasItsButtonsInOrder) {
  const QList<QAction*> actions = program_.control<QToolBar>("Toolbar1").actions();
  ASSERT_EQ(actions.size(), 13);
  int at = 0;
  for (const ToolRow& row : kTools) {
    if (at == 3) {
      EXPECT_EQ(actions[at]->objectName(), "k4");
      EXPECT_TRUE(actions[at++]->isSeparator());
    }
    EXPECT_EQ(actions[at]->objectName(), row.key);
    EXPECT_EQ(actions[at]->text(), row.caption) << row.key;
    EXPECT_EQ(actions[at]->toolTip(), row.tip) << row.key;
    EXPECT_FALSE(actions[at]->icon().isNull()) << row.key;
    ++at;
  }
}

TEST_F(MainWindow, CommandsThatNeedAFileAskForOne) {
  for (const ToolRow& row : kTools) {
    if (!row.needsFile) continue;
    shown().clear();
    program_.trigger(row.key);
    EXPECT_EQ(shown(), kNoFile) << row.key;
  }
}

struct MenuRow {
  const char* menu;
  const char* name;
  const char* caption;
};

TEST_F(MainWindow, MenusHaveTheirEntries) {
  const MenuRow rows[] = {
      {"Exit ", "mnuvoltar", "&Return to Main Menu"},
      {"Input Data", "mnudatprn", "&Input File (*.ZVM)"},
      {"Arrange", "mnucascade", "&Cascade"},
      {"Arrange", "mnuvertical", "&Vertical"},
      {"Arrange", "mnuhorizontal", "&Horizontal"},
      {"&About", "mnuabout2", "About"},
      {"&Tools", "mnupicture", "&Save picture..."},
      {"&Tools", "mnudirections", "All &directions"},
      {"&Tools", "mnustart", "S&tart model"},
      {"&Tools", "mnumanual", "&Manual"},
      {"&Tools", "mnukeys", "&Keys"},
  };
  QStringList found, wanted;
  for (const QAction* menu : program_.window().menuBar()->actions())
    for (const QAction* entry : menu->menu()->actions())
      found << menu->text() + "|" + entry->objectName() + "|" + entry->text();
  for (const MenuRow& row : rows)
    wanted << QString("%1|%2|%3").arg(row.menu, row.name, row.caption);
  EXPECT_EQ(found, wanted);
}

TEST_F(MainWindow, StartsWithThePanelDisabledAndNoPlot) {
  EXPECT_EQ(program_.window().windowTitle(), "zevFIT");
  EXPECT_FALSE(panelEnabled());
  EXPECT_TRUE(program_.control("Picture1").isVisible());
  EXPECT_FALSE(program_.session().dragging);
  EXPECT_EQ(program_.session().axiscolor, kBlack);
  EXPECT_TRUE(shown().empty());
  EXPECT_EQ(program_.window().findChild<QWidget*>("Formod"), nullptr);
}

TEST_F(MainWindow, CancelInTheFileDialogChangesNothing) {
  program_.trigger("k1");
  EXPECT_EQ(shown(), kOpenAsked);
  EXPECT_FALSE(program_.session().loaded);
  program_.trigger("mnudatprn");
  EXPECT_EQ(shown().size(), 2U);
}

TEST_F(MainWindow, AnotherExtensionBringsTheDialogBack) {
  program_.dialogs().files = {write("small.txt", "x")};
  program_.trigger("k1");
  const Boxes wanted{kOpenAsked[0], "plain: Illegal Type of Input Data File!", kOpenAsked[0]};
  EXPECT_EQ(shown(), wanted);
}

TEST_F(MainWindow, ANameThatEndsInTheLettersWithoutAPointPasses) {
  program_.open(write("noZVM", "t\nzevra\n1\nv\n1\n1\n0;0\n1\n10 1 9\n"));
  EXPECT_TRUE(program_.session().loaded);
}

TEST_F(MainWindow, ABadFileIsToldAndLeavesTheFormerOneLoaded) {
  const std::string good = smallFile();
  program_.open(good);
  shown().clear();
  program_.dialogs().files = {write("empty.zvm", "")};
  program_.trigger("k1");
  const Boxes wanted{kOpenAsked[0], "warning: Invalid Input Data File Format or empty File!"};
  EXPECT_EQ(shown(), wanted);
  EXPECT_EQ(program_.session().inputfile, good);
  EXPECT_TRUE(program_.session().loaded);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, AMissingFileIsABadFile) {
  program_.dialogs().files = {folder_.filePath("missing.zvm").toStdString()};
  program_.trigger("k1");
  EXPECT_EQ(shown().back(), "warning: Invalid Input Data File Format or empty File!");
  EXPECT_FALSE(program_.session().loaded);
}

TEST_F(MainWindow, AGoodLoadHidesTheAboutWindow) {
  program_.window().showAbout();
  QWidget& about = program_.control("formabout");
  EXPECT_TRUE(about.isVisible());
  program_.open(smallFile());
  EXPECT_FALSE(about.isVisible());
  program_.trigger("mnuabout2");
  EXPECT_TRUE(about.isVisible());
}

TEST_F(MainWindow, AFileThatIsNotAcceptedCountsAsLoadedWithThePanelDisabled) {
  openAndGoBack(smallFile());
  EXPECT_TRUE(program_.session().loaded);
  EXPECT_FALSE(panelEnabled());
  EXPECT_EQ(program_.control<QComboBox>("Combo2").count(), 0);
}

TEST_F(MainWindow, AcceptingAFileFillsTheListsAndPlotsTheFirstPair) {
  program_.open(smallFile());
  EXPECT_TRUE(panelEnabled());
  const auto& variables = program_.control<QComboBox>("Combo2");
  const auto& directions = program_.control<QComboBox>("Combodirvar");
  ASSERT_EQ(variables.count(), 2);
  EXPECT_EQ(variables.itemText(1), "lead");
  EXPECT_EQ(directions.itemText(1), "90;0");
  EXPECT_EQ(variables.currentIndex(), 0);
  EXPECT_EQ(program_.control("Formod").windowTitle(), "01,01  Variable: zinc  Direction: 0;0");
  EXPECT_EQ(program_.control<QLabel>("Labelvariance").text(), "1.");
}

TEST_F(MainWindow, AListOfTheFormerFileIsEmptyWhenTheNextIsNotAccepted) {
  program_.open(smallFile());
  openAndGoBack(smallFile("other.zvm"));
  EXPECT_TRUE(panelEnabled());
  EXPECT_EQ(program_.control<QComboBox>("Combo2").count(), 0);
  const std::int64_t direction = program_.session().curdir;
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_EQ(program_.session().curvar, 0);
  EXPECT_EQ(program_.session().curdir, direction);
}

TEST_F(MainWindow, ViewFileShowsTheStructureAgain) {
  program_.open(smallFile());
  QString title;
  Program::inModal([&] { program_.trigger("k2"); },
                   [&](QWidget& modal) {
                     title = modal.windowTitle();
                     modal.close();
                   });
  EXPECT_EQ(title, "Filename (*.ZVM): " + folder_.filePath("small.zvm"));
}

TEST_F(MainWindow, NoCommandIsDisabledOnceAFileIsLoaded) {
  program_.open(smallFile());
  for (const ToolRow& tool : kTools)
    EXPECT_TRUE(program_.control<QAction>(tool.key).isEnabled()) << tool.key;
}

TEST_F(MainWindow, SavingAsksAndReports) {
  const std::string path = smallFile();
  program_.open(path);
  shown().clear();
  program_.dialogs().confirmations = {false};
  program_.trigger("k11");
  EXPECT_EQ(shown(), (Boxes{"confirm: Save  current models to file: " + path}));
  program_.trigger("k11");
  EXPECT_EQ(shown().back(), "plain: Models saved to file:" + path);
}

TEST_F(MainWindow, AFaultThatNoHandlerCatchesIsNamedAndEndsTheProgram) {
  program_.open(smallFile());
  program_.session().curvar = 42;
  QTimer::singleShot(0, [&] { program_.control<QAbstractButton>("plot1").click(); });
  EXPECT_EQ(QApplication::exec(), 70);
  EXPECT_EQ(shown().back(),
            fatalBox("Subscript out of range: use0(42, 1)", folder_.path().toStdString()));
}

}  // namespace
}  // namespace zevfit::test
