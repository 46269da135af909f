#include "windows/formabout.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWheelEvent>
#include <functional>

namespace zevfit {
namespace {

class FormaboutTest : public testing::Test {
 protected:
  FormaboutTest() : about(&main) {
    main.setGeometry(100, 60, 700, 600);
    main.show();
    activate(main);
  }

  static void activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
  }

  QWidget* image() { return about.findChild<QWidget*>("Image1"); }

  QWidget main;
  formabout about;
};

// The middle of the main window is (100 + 350, 60 + 300); the picture is 420 by 260.
constexpr QRect kCentred(100 + 350 - 210, 60 + 300 - 130, 420, 260);

TEST_F(FormaboutTest, IsABorderlessWindowWithOnePicture) {
  EXPECT_EQ(about.objectName(), "formabout");
  EXPECT_EQ(about.windowTitle(), "About zevFIT");
  EXPECT_TRUE(about.isWindow());
  EXPECT_TRUE(about.windowFlags().testFlag(Qt::FramelessWindowHint));
  EXPECT_FALSE(about.isModal());
  EXPECT_FALSE(about.isVisible());
  ASSERT_NE(image(), nullptr);
  EXPECT_EQ(about.findChildren<QWidget*>().size(), 1);
}

TEST_F(FormaboutTest, StartsUnderTheTopOfTheMainWindow) {
  about.showAtStart();
  QApplication::processEvents();
  EXPECT_TRUE(about.isVisible());
  // 600 twips are 40 pixels.
  EXPECT_EQ(about.geometry(), QRect(kCentred.left(), 60 + 40, 420, 260));
}

TEST_F(FormaboutTest, ComesUpInTheMiddleOfTheMainWindow) {
  about.showCentred();
  activate(about);
  EXPECT_EQ(about.geometry(), kCentred);
  EXPECT_EQ(image()->geometry(), QRect(0, 0, 420, 260));
}

TEST_F(FormaboutTest, AnActivationAfterTheStartMovesItToTheMiddle) {
  about.showAtStart();
  QApplication::processEvents();
  activate(main);
  activate(about);
  EXPECT_EQ(about.geometry(), kCentred);
}

/// A window system that shows a window without activating it, as it is asked to.
class NotActivating : public QObject {
 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    return event->type() == QEvent::WindowActivate;
  }
};

struct UsersMove {
  const char* what;
  std::function<void(QWidget& main, QWidget& about)> make;
};

const UsersMove kUsersMoves[] = {
    {"a key", [](QWidget& main, QWidget&) { QTest::keyClick(&main, Qt::Key_Alt); }},
    {"the mouse",
     [](QWidget& main, QWidget&) { QTest::mouseMove(main.windowHandle(), QPoint(7, 9)); }},
    {"a button", [](QWidget& main, QWidget&) { QTest::mousePress(&main, Qt::LeftButton); }},
    {"the wheel",
     [](QWidget& main, QWidget&) {
       QWheelEvent wheel({7, 9}, main.mapToGlobal(QPointF(7, 9)), {}, {0, 120}, Qt::NoButton, {},
                         Qt::NoScrollPhase, false);
       QApplication::sendEvent(&main, &wheel);
     }},
    {"another program",
     [](QWidget&, QWidget&) {
       QEvent left(QEvent::ApplicationDeactivate);
       QApplication::sendEvent(QApplication::instance(), &left);
     }},
    {"a hidden window shown again",
     [](QWidget&, QWidget& about) {
       about.hide();
       about.show();
     }},
};

TEST_F(FormaboutTest, TheFirstActivationByTheUserMovesItWhereTheStartActivatedNone) {
  for (const UsersMove& move : kUsersMoves) {
    NotActivating system;
    about.installEventFilter(&system);
    about.showAtStart();
    QApplication::processEvents();
    EXPECT_EQ(about.y(), 60 + 40) << move.what;
    move.make(main, about);
    activate(main);
    about.removeEventFilter(&system);
    activate(about);
    EXPECT_EQ(about.geometry(), kCentred) << move.what;
    about.hide();
    activate(main);
  }
}

TEST_F(FormaboutTest, ALateActivationByTheStartLeavesItInItsPlace) {
  NotActivating system;
  about.installEventFilter(&system);
  about.showAtStart();
  QApplication::processEvents();
  activate(main);
  about.removeEventFilter(&system);
  activate(about);
  EXPECT_EQ(about.geometry(), QRect(kCentred.left(), 60 + 40, 420, 260));
}

TEST_F(FormaboutTest, AnActivationPutsThePictureBackInItsCorner) {
  image()->move(30, 20);
  about.resize(100, 100);
  about.showCentred();
  activate(about);
  EXPECT_EQ(image()->pos(), QPoint(0, 0));
  EXPECT_EQ(about.size(), QSize(420, 260));
}

TEST_F(FormaboutTest, FollowsTheMainWindowAtTheNextShowing) {
  about.showCentred();
  about.hide();
  main.setGeometry(200, 100, 700, 600);
  about.showCentred();
  EXPECT_EQ(about.geometry(), kCentred.translated(100, 40));
}

TEST_F(FormaboutTest, AClickOnThePictureHidesIt) {
  about.showCentred();
  QTest::mouseClick(image(), Qt::LeftButton, {}, QPoint(300, 200));
  EXPECT_FALSE(about.isVisible());
}

TEST_F(FormaboutTest, KeysHideIt) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    about.showCentred();
    QTest::keyClick(&about, key);
    EXPECT_FALSE(about.isVisible()) << "key " << key;
  }
  about.showCentred();
  QTest::keyClick(&about, Qt::Key_A);
  EXPECT_TRUE(about.isVisible());
}

TEST_F(FormaboutTest, ThePictureFillsItsPlace) {
  about.showCentred();
  const QImage shown = image()->grab().toImage();
  for (const QPoint place : {QPoint(0, 0), QPoint(419, 0), QPoint(0, 259), QPoint(419, 259)}) {
    EXPECT_EQ(shown.pixelColor(place * shown.devicePixelRatio()).alpha(), 255) << place.x();
  }
  // Within the border line lies the dark ground.
  EXPECT_LT(shown.pixelColor(5, 5).lightness(), shown.pixelColor(0, 0).lightness());
}

}  // namespace
}  // namespace zevfit
