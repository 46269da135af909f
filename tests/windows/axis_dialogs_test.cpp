// The windows for the scales and the legend of the axes, with keys and clicks.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "tests/support/program.h"
#include "tests/tour/hand.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

class AxisWindows : public testing::Test {
 protected:
  AxisWindows() : program_(folder_.path().toStdString()) {
    program_.openBytes(
        "small\nzevra\n1\nzinc\n2\n3\n0;0\n90;0\n"
        "1\n10 0.5 9\n20 1.5 9\n30 2 9\n10 0.25 9\n20 0.75 9\n40 1 9\n");
    program_.dialogs().shown.clear();
  }

  void openScales() {
    QTest::mouseClick(&program_.control("Command1"), Qt::LeftButton);
    QApplication::processEvents();
  }
  QWidget& scales() { return program_.control("cutgraph"); }
  template <class Widget>
  Widget& in(QWidget& window, const char* name) {
    return Program::find<Widget>(window, name);
  }
  void type(QLineEdit& field, const char* text) {
    field.selectAll();
    QTest::keyClicks(&field, text);
  }
  QImage picture() { return program_.control("Picture4").grab().toImage(); }
  Boxes& shown() { return program_.dialogs().shown; }
  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
  tour::Hand hand_;
};

TEST_F(AxisWindows, ScalesShowTheirTextsAndHints) {
  openScales();
  ASSERT_TRUE(scales().isVisible());
  EXPECT_FALSE(program_.window().isEnabled());
  EXPECT_EQ(scales().windowTitle(), "Axis Scale (X,Y):  (0;0)");
  EXPECT_EQ(in<QLabel>(scales(), "Label3_0").text(), "X - Maximum :");
  EXPECT_EQ(in<QLabel>(scales(), "Label3_1").text(), "Y-Maximum");
  EXPECT_EQ(in<QLabel>(scales(), "Labelxm").text(), "30. ");
  // 1.06 times the largest semivariance of 2.
  EXPECT_EQ(in<QLineEdit>(scales(), "novoymax").text(), "2.12 ");
  EXPECT_EQ(in<QLabel>(scales(), "Labelym").text(), "2.12");
  const std::pair<const char*, const char*> hints[] = {
      {"Labelxm", "Click here to set the curreny X-Maximum to the real one"},
      {"Labelym", "Click here to set the current Y-Maximum to the real one"},
      {"Command2", "Save new X-Maximum and Y-Maximum"},
      {"Command1", "Cancel this Options"}};
  for (const auto& [name, hint] : hints)
    EXPECT_EQ(in<QWidget>(scales(), name).toolTip(), hint) << name;
}

TEST_F(AxisWindows, AClickOnARealLimitTakesIt) {
  openScales();
  for (const auto& [label, field] :
       {std::pair("Labelxm", "novoxmax"), std::pair("Labelym", "novoymax")}) {
    auto& edited = in<QLineEdit>(scales(), field);
    type(edited, "1");
    QTest::mouseClick(&in<QWidget>(scales(), label), Qt::LeftButton);
    EXPECT_EQ(edited.text(), in<QLabel>(scales(), label).text()) << label;
    type(edited, "1");
    QTest::keyClick(&in<QWidget>(scales(), label), Qt::Key_Space);
    EXPECT_EQ(edited.text(), in<QLabel>(scales(), label).text()) << label;
  }
  EXPECT_EQ(session().xmax({1, 1}), 30) << "nothing is saved yet";
}

TEST_F(AxisWindows, SavingStoresAndCloses) {
  openScales();
  type(in<QLineEdit>(scales(), "novoxmax"), "60");
  type(in<QLineEdit>(scales(), "novoymax"), "4");
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_FALSE(scales().isVisible());
  EXPECT_TRUE(program_.window().isEnabled());
  EXPECT_EQ(session().xmax({1, 1}), 60);
  EXPECT_EQ(session().ymax({1, 1}), 4);
  EXPECT_EQ(shown(), Boxes{});
}

TEST_F(AxisWindows, TabGoesFromFieldToFieldAndEnterSaves) {
  openScales();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&scales()));
  const QImage before = picture();
  EXPECT_EQ(scales().focusWidget()->objectName(), "novoxmax");
  QTest::keyClicks(scales().focusWidget(), "60");
  const std::pair<Qt::Key, const char*> ways[] = {
      {Qt::Key_Tab, "novoymax"}, {Qt::Key_Tab, "Labelxm"},  {Qt::Key_Tab, "Labelym"},
      {Qt::Key_Tab, "Command2"}, {Qt::Key_Tab, "Command1"}, {Qt::Key_Tab, "novoxmax"},
      {Qt::Key_Tab, "novoymax"}};
  for (const auto& [key, name] : ways) {
    QTest::keyClick(scales().windowHandle(), key);
    EXPECT_EQ(scales().focusWidget()->objectName(), name);
  }
  QTest::keyClick(scales().windowHandle(), Qt::Key_Return);
  EXPECT_FALSE(scales().isVisible());
  // The field held 30 before the keys.
  EXPECT_EQ(session().xmax({1, 1}), 60);
  EXPECT_EQ(session().ymax({1, 1}), 2.12);
  EXPECT_NE(picture(), before) << "the plot has its new axis";
}

// The window has the second direction's scales when the lists say so, but what is saved belongs to
// the plot that is the current one; it is drawn, and the lists show it again.
TEST_F(AxisWindows, SavingDrawsTheActivePlotAtOnce) {
  hand_.click(program_.control("Command5"));
  hand_.choose(program_.control<QComboBox>("Combodirvar"), 1);
  session().setCurrent({1, 1});
  openScales();
  const QImage before = picture();
  type(in<QLineEdit>(scales(), "novoxmax"), "60");
  type(in<QLineEdit>(scales(), "novoymax"), "4");
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(session().xmax({1, 1}), 60);
  EXPECT_NE(picture(), before);
  EXPECT_EQ(session().plotted(), (Pair{1, 1}));
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 0);
}

TEST_F(AxisWindows, SavingBringsNoClosedPlotBack) {
  auto& plot = program_.control<Formod>("Formod");
  plot.close();
  openScales();
  type(in<QLineEdit>(scales(), "novoymax"), "4");
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(session().ymax({1, 1}), 4);
  EXPECT_FALSE(plot.isVisible());
}

TEST_F(AxisWindows, AScaleBeyondAllNumbersKeepsTheWindowUp) {
  openScales();
  const double before = session().ymax({1, 1});
  type(in<QLineEdit>(scales(), "novoxmax"), "1e400");
  type(in<QLineEdit>(scales(), "novoymax"), "4");
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(shown(), Boxes{"warning: Illegal value for X-Maximum: 1e400!"});
  EXPECT_TRUE(scales().isVisible());
  EXPECT_EQ(session().xmax({1, 1}), 30);
  EXPECT_EQ(session().ymax({1, 1}), before);
}

TEST_F(AxisWindows, ARefusedLimitKeepsTheWindowUp) {
  openScales();
  type(in<QLineEdit>(scales(), "novoymax"), "1");
  // The box takes the focus, which is no loss of it.
  program_.dialogs().meanwhile = [&] {
    QEvent away(QEvent::WindowDeactivate);
    QApplication::sendEvent(&scales(), &away);
  };
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(shown(), Boxes{"warning: Illegal value ymax ! Note:  legal value >  1"});
  EXPECT_TRUE(scales().isVisible());
  EXPECT_EQ(in<QLineEdit>(scales(), "novoymax").text(), "1");
  EXPECT_EQ(session().ymax({1, 1}), 2.12);
}

TEST_F(AxisWindows, AClickElsewhereClosesTheScalesAndLosesTheTyping) {
  openScales();
  type(in<QLineEdit>(scales(), "novoxmax"), "60");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&scales()));
  program_.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !scales().isActiveWindow(); }));
  EXPECT_FALSE(scales().isVisible());
  EXPECT_TRUE(program_.window().isEnabled());
  EXPECT_EQ(session().xmax({1, 1}), 30);
}

/// Where a click beside the window goes, and what it would do there.
struct Beside {
  const char* control;
  const char* what;
};
const Beside kBeside[] = {{"Command5", "draws"},
                          {"Textc0", "takes the focus"},
                          {"Picture4", "brings out the handles"},
                          {"plot1", "ticks"}};

class ClickBesideScales : public AxisWindows {
 protected:
  QWindow* main() { return program_.window().windowHandle(); }
  QPoint middleOf(QWidget& control) {
    return control.mapTo(&program_.window(), control.rect().center());
  }
  void prepare() {
    hand_.click(program_.control("Command5"));
    openScales();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&scales()));
    type(in<QLineEdit>(scales(), "novoxmax"), "60");
    before_ = picture();
  }
  void expectNothingDone(const Beside& beside) {
    EXPECT_FALSE(scales().isVisible()) << beside.what;
    EXPECT_TRUE(program_.window().isEnabled()) << beside.what;
    EXPECT_EQ(session().xmax({1, 1}), 30) << beside.what;
    EXPECT_EQ(session().use0({1, 1}).number(), 0) << beside.what;
    EXPECT_EQ(program_.window().focusWidget(), &program_.control("Command1")) << beside.what;
    EXPECT_EQ(picture(), before_) << beside.what;
  }
  /// A click does something again.
  void expectFreeAgain() {
    QWidget& option = program_.control("psill");
    const bool ticked = dynamic_cast<QAbstractButton&>(option).isChecked();
    const QPoint at = option.mapTo(&program_.window(), QPoint(8, option.height() / 2));
    QTest::mouseClick(main(), Qt::LeftButton, {}, at);
    EXPECT_NE(dynamic_cast<QAbstractButton&>(option).isChecked(), ticked);
  }

  QImage before_;
};

// As on a desktop that hands over the press first.
TEST_F(ClickBesideScales, ClosesThemAndDoesNothingElse) {
  for (const Beside& beside : kBeside) {
    prepare();
    const QPoint at = middleOf(program_.control(beside.control));
    QTest::mousePress(main(), Qt::LeftButton, {}, at);
    program_.window().activateWindow();
    QApplication::processEvents();
    QTest::mouseMove(main(), at + QPoint(3, 3));
    QTest::mouseRelease(main(), Qt::LeftButton, {}, at);
    expectNothingDone(beside);
    expectFreeAgain();
  }
}

// As on one that makes the other window the active one first.
TEST_F(ClickBesideScales, DoesNothingElseWhereTheFocusGoesFirst) {
  for (const Beside& beside : kBeside) {
    prepare();
    program_.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !scales().isVisible(); }));
    QTest::mouseClick(main(), Qt::LeftButton, {}, middleOf(program_.control(beside.control)));
    expectNothingDone(beside);
    expectFreeAgain();
  }
}

// Where keys have changed the windows, the release of one comes next.
TEST_F(ClickBesideScales, ThatComesBehindAKeyCounts) {
  prepare();
  program_.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !scales().isVisible(); }));
  QTest::keyRelease(main(), Qt::Key_Alt);
  expectFreeAgain();
}

// What comes up over the window is no window beside the scales.
TEST_F(ClickBesideScales, ThatGoesToABoxCounts) {
  prepare();
  program_.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitFor([&] { return !scales().isVisible(); }));
  QMessageBox box(QMessageBox::NoIcon, "box", "text", QMessageBox::Ok, &program_.window());
  bool pressed = false;
  QTimer::singleShot(0, &box, [&] {
    const QWidget* ok = box.button(QMessageBox::Ok);
    QTest::mouseClick(box.windowHandle(), Qt::LeftButton, {}, ok->mapTo(&box, ok->rect().center()));
    pressed = !box.isVisible();
    box.reject();
  });
  box.exec();
  EXPECT_TRUE(pressed);
  expectFreeAgain();
}

TEST_F(AxisWindows, CancelAndEscapeClose) {
  for (const bool key : {false, true}) {
    openScales();
    type(in<QLineEdit>(scales(), "novoxmax"), "60");
    if (key)
      QTest::keyClick(&scales(), Qt::Key_Escape);
    else
      QTest::mouseClick(&in<QWidget>(scales(), "Command1"), Qt::LeftButton);
    EXPECT_FALSE(scales().isVisible()) << key;
    EXPECT_TRUE(program_.window().isEnabled()) << key;
    EXPECT_EQ(session().xmax({1, 1}), 30) << key;
  }
}

// The second direction has its maximum from its own drawing already: the field shows what was typed
// for the first one, and a save stores that.
TEST_F(AxisWindows, TheFieldKeepsTheTextOfTheFormerOpening) {
  openScales();
  type(in<QLineEdit>(scales(), "novoxmax"), "12.5");
  QTest::mouseClick(&in<QWidget>(scales(), "Command1"), Qt::LeftButton);
  hand_.choose(program_.control<QComboBox>("Combodirvar"), 1);
  hand_.click(program_.control("Command5"));
  EXPECT_EQ(session().xmax({1, 2}), 40);
  openScales();
  EXPECT_EQ(scales().windowTitle(), "Axis Scale (X,Y):  (90;0)");
  EXPECT_EQ(in<QLineEdit>(scales(), "novoxmax").text(), "12.5");
  EXPECT_EQ(in<QLabel>(scales(), "Labelxm").text(), "40. ");
  type(in<QLineEdit>(scales(), "novoymax"), "3");
  QTest::mouseClick(&in<QWidget>(scales(), "Command2"), Qt::LeftButton);
  EXPECT_EQ(session().xmax({1, 2}), 12.5);
}

TEST_F(AxisWindows, TheFocusComesBackWhereItWas) {
  QWidget& button = program_.control("Command1");
  hand_.click(program_.control("Textc0"));
  hand_.click(button);
  hand_.key(scales(), Qt::Key_Escape);
  EXPECT_EQ(program_.window().focusWidget(), &button);
}

TEST_F(AxisWindows, ALegendIsStoredAndDrawn) {
  Program::inModal([&] { QTest::mouseClick(&program_.control("Command4"), Qt::LeftButton); },
                   [&](QWidget& modal) {
                     EXPECT_EQ(modal.objectName(), "legenda");
                     EXPECT_EQ(modal.windowTitle(), "Variogram  (0;0)");
                     EXPECT_EQ(in<QLabel>(modal, "Label1").text(), "h [units]:");
                     EXPECT_EQ(in<QWidget>(modal, "Command2").toolTip(), "Save this legend");
                     EXPECT_EQ(in<QWidget>(modal, "Command1").toolTip(), "Cancel");
                     const QImage before = program_.control("Picture4").grab().toImage();
                     type(in<QLineEdit>(modal, "Text1"), "meters");
                     QTest::mouseClick(&in<QWidget>(modal, "Command2"), Qt::LeftButton);
                     EXPECT_NE(program_.control("Picture4").grab().toImage(), before);
                   });
  EXPECT_EQ(session().xlegend({1, 1}), "h (meters)");
}

// Each takes two bytes where texts are in UTF-8; six of them are six characters all the same.
TEST_F(AxisWindows, ALegendCountsCharactersAsTheUserTypesThem) {
  const QString mu(6, QChar(0xb5));
  for (const QString& typed : {mu, mu + QChar(0xb5)}) {
    Program::inModal([&] { QTest::mouseClick(&program_.control("Command4"), Qt::LeftButton); },
                     [&](QWidget& modal) {
                       auto& text = in<QLineEdit>(modal, "Text1");
                       text.selectAll();
                       QTest::keyClicks(&text, typed);
                       EXPECT_EQ(text.text(), typed);
                       QTest::mouseClick(&in<QWidget>(modal, "Command2"), Qt::LeftButton);
                       modal.close();
                     });
    EXPECT_EQ(session().xlegend({1, 1}), typed == mu ? "h (\xb5\xb5\xb5\xb5\xb5\xb5)" : "h ()");
  }
  EXPECT_EQ(shown(), Boxes{"plain: Legend too long: Maximum 6 char.!"});
}

TEST_F(AxisWindows, ALegendThatIsTooLongIsGone) {
  Program::inModal([&] { QTest::mouseClick(&program_.control("Command4"), Qt::LeftButton); },
                   [&](QWidget& modal) {
                     auto& text = in<QLineEdit>(modal, "Text1");
                     type(text, "meters.");
                     QTest::mouseClick(&in<QWidget>(modal, "Command2"), Qt::LeftButton);
                     EXPECT_EQ(shown(), Boxes{"plain: Legend too long: Maximum 6 char.!"});
                     EXPECT_TRUE(modal.isVisible());
                     EXPECT_EQ(text.text(), "");
                     EXPECT_EQ(modal.focusWidget(), &text);
                     EXPECT_EQ(session().xlegend({1, 1}), "h ()");
                     type(text, "km");
                     QTest::mouseClick(&in<QWidget>(modal, "Command1"), Qt::LeftButton);
                   });
  EXPECT_EQ(session().xlegend({1, 1}), "h ()");
  // The box shows what it last held.
  Program::inModal([&] { QTest::mouseClick(&program_.control("Command4"), Qt::LeftButton); },
                   [&](QWidget& modal) {
                     EXPECT_EQ(in<QLineEdit>(modal, "Text1").text(), "km");
                     modal.close();
                   });
}

}  // namespace
}  // namespace zevfit::test
