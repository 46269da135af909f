// What the program looks like when it has started, and when a file is being read.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QMdiArea>
#include <QPaintEvent>
#include <QRadioButton>
#include <QStatusTipEvent>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <fstream>

#include "platform/house_style.h"
#include "tests/support/program.h"
#include "tests/support/temporary_folder.h"
#include "windows/formod.h"
#include "windows/greeting.h"

namespace zevfit::test {
namespace {

class Start : public testing::Test, protected TemporaryFolder {
 protected:
  /// zevfit.ini with a path and the first colour.
  void writeParameters(const std::string& path, const std::string& colour) {
    write("zevfit.ini", path + "\r\n" + colour +
                            "\r\n 32768 \r\n 16711680 \r\n 255 \r\n 16777215 \r\n*#0.#0 *\r\n"
                            "*####.#0*\r\nA\r\nTimes New Roman\r\n 10 \r\nB\r\nTimes New Roman\r\n"
                            " 7.8 \r\nC\r\nTimes New Roman\r\n 7.8 \r\n");
  }
};

/// The program as its main makes it, for a test to show.
struct Started {
  explicit Started(const std::filesystem::path& folder,
                   std::chrono::milliseconds longestBlank = Greeting::kLongestBlank)
      : window(dialogs, printer, angleTest, folder), greeting(window, longestBlank) {}
  QWidget* find(const char* name) { return window.findChild<QWidget*>(name); }
  /// Whether that control comes up within five seconds.
  bool comesUp(const char* name) {
    return QTest::qWaitFor([&] { return find(name) && find(name)->isVisible(); });
  }

  ScriptedDialogs dialogs;
  RecordingPrinter printer;
  AngleTest angleTest;
  mdimod window;
  Greeting greeting;
};

/// Notes each painting of these widgets, in order.
class Paints : public QObject {
 public:
  explicit Paints(QStringList names) : names_(std::move(names)) { qApp->installEventFilter(this); }
  QStringList painted;
  std::function<void()> first = [] {};  ///< run at the first one

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !names_.contains(watched->objectName())) return false;
    painted += watched->objectName();
    if (painted.size() == 1) first();
    return false;
  }

 private:
  QStringList names_;
};

TEST_F(Start, GreetsOverTheMainWindow) {
  Started started(folder());
  started.window.show();
  ASSERT_TRUE(started.comesUp("formabout"));
  const QWidget* about = started.find("formabout");
  EXPECT_FALSE(about->isModal());
  const QRect main(started.window.mapToGlobal(QPoint()), started.window.size());
  EXPECT_NEAR(about->geometry().center().x(), main.center().x(), 1);
  EXPECT_EQ(about->y(), main.y() + 40) << "600 twips";
  EXPECT_FALSE(started.window.findChild<QAction*>("k1")->icon().isNull());
  EXPECT_TRUE(started.dialogs.shown.empty());
}

TEST_F(Start, ShowsTheWindowFirstThenWhatIsInItThenTheGreeting) {
  // However long a busy machine takes for the first picture.
  Started started(folder(), std::chrono::hours(1));
  const Paints paints({"mdimod", "Picture1", "Toolbar1", "Foot"});
  started.window.show();
  EXPECT_EQ(started.find("Picture1"), nullptr);
  ASSERT_TRUE(started.comesUp("formabout"));
  const QStringList both{"mdimod", "mdimod"};
  EXPECT_EQ(paints.painted.mid(0, 2), both) << "the second time with all that is in it:";
  for (const char* name : {"Picture1", "Toolbar1", "Foot"})
    EXPECT_TRUE(paints.painted.mid(2, 3).contains(name)) << name;
}

/// The libraries of this process that read pictures.
int readersOfPictures() {
  std::ifstream maps("/proc/self/maps");
  int count = 0;
  for (std::string line; std::getline(maps, line);)
    for (const char* plugins : {"/imageformats/", "/iconengines/"})
      if (line.find(plugins) != std::string::npos) ++count;
  return count;
}

TEST_F(Start, ReadsNoPictureBeforeTheWindowIsThere) {
  const QString style = QApplication::style()->name();
  QApplication::setStyle(new HouseStyle);
  const int before = readersOfPictures();
  int whenPainted = 0;
  Started started(folder());
  Paints paints({"Picture1"});
  paints.first = [&] { whenPainted = readersOfPictures(); };
  started.window.show();
  ASSERT_TRUE(started.comesUp("formabout"));
  EXPECT_EQ(whenPainted, before);
  EXPECT_TRUE(QTest::qWaitFor([] { return readersOfPictures() > 0; }, 1000)) << "of the icons";
  QApplication::setStyle(style);
}

TEST_F(Start, TheFirstButtonHasTheFocus) {
  Started started(folder());
  started.window.show();
  ASSERT_TRUE(started.comesUp("formabout"));
  ASSERT_NE(started.window.focusWidget(), nullptr);
  EXPECT_EQ(started.window.focusWidget()->accessibleName(), "Open Data File (*.ZVM)");
}

/// Lets nothing pass: a painting that is only told of paints nothing.
class Deaf : public QObject {
 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* /*event*/) override { return true; }
};

TEST_F(Start, WhatIsInTheWindowComesUpInOneStep) {
  Started started(folder());
  started.window.show();
  Deaf deaf;
  started.window.installEventFilter(&deaf);
  QPaintEvent blank(started.window.rect());
  QApplication::sendEvent(&started.window, &blank);
  started.window.removeEventFilter(&deaf);
  QCoreApplication::sendPostedEvents(&started.greeting, QEvent::MetaCall);
  ASSERT_NE(started.find("Picture1"), nullptr);
  // Another picture now would be one of all.
  EXPECT_TRUE(started.find("Picture1")->isVisible());
  EXPECT_EQ(started.find("Foot")->width(), started.window.width());
}

TEST_F(Start, AKeyFindsItsCommandWhileTheWindowIsBlank) {
  Started started(folder());
  started.window.show();
  ASSERT_EQ(started.find("Picture1"), nullptr);
  QTest::keyClick(started.window.windowHandle(), Qt::Key_O, Qt::ControlModifier);
  const std::vector<std::string> asked{"open: Input Data File (*.ZVM)|*.ZVM"};
  EXPECT_EQ(started.dialogs.shown, asked);
  EXPECT_TRUE(started.comesUp("formabout"));
}

/// A dialog that notes the about window that is there when it is raised.
class RaisedDialog : public QDialog {
 public:
  explicit RaisedDialog(QWidget* over) : QDialog(over) { setModal(true); }
  QWidget* behind = nullptr;

 protected:
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ZOrderChange)
      behind = parentWidget()->findChild<QWidget*>("formabout");
    return QDialog::event(event);
  }
};

TEST_F(Start, GreetsBehindADialogThatIsOpen) {
  Started started(folder());
  started.window.show();
  RaisedDialog dialog(&started.window);
  dialog.show();
  ASSERT_TRUE(started.comesUp("formabout"));
  EXPECT_EQ(dialog.behind, started.find("formabout"));
}

TEST_F(Start, FurnishesAWindowThatTheDesktopDoesNotShow) {
  Started started(folder());
  EXPECT_TRUE(QTest::qWaitFor([&] { return started.find("Picture1") != nullptr; }));
  EXPECT_EQ(started.find("formabout"), nullptr) << "which has its place over a window on show";
  started.window.show();
  EXPECT_TRUE(started.comesUp("Command5"));
  EXPECT_TRUE(started.comesUp("formabout"));
}

TEST_F(Start, AWindowThatIsClosedAtOnceKeepsTheParameters) {
  writeParameters("/data/a.zvm", " 255 ");
  const std::string before = contentOf(folder() + "/zevfit.ini");
  Started started(folder());
  started.dialogs.answers = {Answer::yes};
  EXPECT_EQ(started.dialogs.held, "/data/a.zvm");
  started.window.show();
  QStatusTipEvent tip("a tip");
  QApplication::sendEvent(&started.window, &tip);
  EXPECT_TRUE(started.window.close());
  EXPECT_EQ(started.find("Picture1"), nullptr);
  EXPECT_EQ(contentOf(folder() + "/zevfit.ini"), before);
  // The end that it asked for is not to meet the next loop of events.
  QTimer::singleShot(0, [] { QApplication::exit(0); });
  QApplication::exec();
}

TEST_F(Start, TheGridTakesItsColourBeforeTheFileIsRead) {
  writeParameters("a.zvm", " 255 ");
  Program program(folder());
  EXPECT_EQ(program.session().style.cores.Label1, 255);
  EXPECT_EQ(program.session().axiscolor, 0);
}

TEST_F(Start, TheFileDialogStartsWithTheLastFile) {
  writeParameters("/data/a.zvm", " 255 ");
  Program program(folder());
  EXPECT_EQ(program.dialogs().held, "/data/a.zvm");
}

TEST_F(Start, ACommaInThePathLeavesColoursAndDialogAlone) {
  writeParameters("/data/a, b.zvm", " 255 ");
  Program program(folder());
  EXPECT_EQ(program.dialogs().held, "");
  EXPECT_EQ(program.session().style.cores.Label1, 0);
  EXPECT_TRUE(program.dialogs().shown.empty());
}

TEST_F(Start, TheHourglassIsUpWhileAFileIsRead) {
  Program program(folder());
  program.dialogs().files = {write("none.zvm", "t\nzevra\n0\n1\n0\n0;0\n")};
  Qt::CursorShape during = Qt::ArrowCursor;
  program.dialogs().meanwhile = [&] {
    const QCursor* cursor = QGuiApplication::overrideCursor();
    if (program.dialogs().shown.back() == "warning: You Must Select a Variable First !" && cursor)
      during = cursor->shape();
  };
  bool waiting = true;
  Program::inModal([&] { program.trigger("k1"); },
                   [&](QWidget& modal) {
                     waiting = QGuiApplication::overrideCursor() != nullptr;
                     modal.close();
                   });
  EXPECT_EQ(during, Qt::WaitCursor);
  EXPECT_FALSE(waiting);
}

/// Two variables and two directions; a model block in which only the last variable's first
/// direction has a structure.
std::string fileWithModel() {
  std::string bytes =
      "two\nzevra1\n2\nzinc\nlead\n2\n1\n0;0\n90;0\n1\n10 0.5 9\n10 1 9\n4\n10 1 9\n10 2 9\n";
  const std::string none = "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
  return bytes + none + none + "0\n0\n1\nS\n2\n20\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n" + none;
}

TEST_F(Start, AFileWithModelsOpensAtItsFirstModel) {
  Program program(folder());
  program.open(write("two.zvm", fileWithModel()));
  EXPECT_EQ(program.control<QComboBox>("Combo2").currentIndex(), 1);
  EXPECT_EQ(program.control<QComboBox>("Combodirvar").currentIndex(), 0);
  EXPECT_EQ(program.session().curvar, 2);
  EXPECT_EQ(program.session().selvar, 2);
  EXPECT_EQ(program.session().curdir, 1);
  EXPECT_TRUE(program.control<QRadioButton>("est2").isChecked());
  const auto plots = program.control<QMdiArea>("Area").subWindowList();
  ASSERT_EQ(plots.size(), 1);
  EXPECT_EQ(plots.front()->windowTitle(), "02,01  Variable: lead  Direction: 0;0");
}

TEST_F(Start, TheFitBeginsInAMainWindowThatWasMinimised) {
  Program program(folder());
  program.window().showMinimized();
  program.window().startFit();
  EXPECT_TRUE(program.window().isMaximized());
}

TEST_F(Start, TheFitBeginsWithTheFocusOnThePlotButton) {
  Program program(folder());
  program.open(write("two.zvm", fileWithModel()));
  ASSERT_NE(program.window().focusWidget(), nullptr);
  EXPECT_EQ(program.window().focusWidget()->objectName(), "Command5");
}

TEST_F(Start, TheDirectionsStayWhenTheNextFileIsNotAccepted) {
  Program program(folder());
  program.open(write("two.zvm", fileWithModel()));
  program.dialogs().files = {write("next.zvm", "t\nzevra\n1\nzinc\n1\n1\n30;0\n1\n10 0.5 9\n")};
  Program::inModal(
      [&] { program.trigger("k1"); },
      [](QWidget& modal) { Program::find<QAbstractButton>(modal, "Command1").click(); });
  auto& directions = program.control<QComboBox>("Combodirvar");
  ASSERT_EQ(directions.count(), 2);
  EXPECT_EQ(directions.itemText(0), "0;0");
  EXPECT_EQ(directions.itemText(1), "90;0");
}

TEST_F(Start, AnEntryOnShowCanBeChosenAgain) {
  Program program(folder());
  program.open(write("two.zvm", fileWithModel()));
  Session& session = program.session();
  auto& variables = program.control<QComboBox>("Combo2");
  session.curvar = session.selvar = 1;
  Q_EMIT variables.activated(variables.currentIndex());
  EXPECT_EQ(session.curvar, 2);
  EXPECT_EQ(session.selvar, 2);
  auto& directions = program.control<QComboBox>("Combodirvar");
  directions.setCurrentIndex(1);
  session.curdir = session.seldir = 1;
  QApplication::processEvents();
  Q_EMIT directions.activated(1);
  EXPECT_EQ(session.curdir, 2);
  EXPECT_EQ(session.seldir, 2);
}

}  // namespace
}  // namespace zevfit::test
