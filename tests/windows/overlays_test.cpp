// The handles, the guides and the tag as a plot window shows them, and the mouse on what lies
// beside them.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

/// A nugget of 0.5 and a spherical structure of 1 and 15. The picture is 431 by 248 pixels, its box
/// from 53.3 to 377.9 across and from 40 to 208 down.
class Overlays : public testing::Test {
 protected:
  Overlays() : program_(folder_.path().toStdString()) {
    program_.openBytes(kOneDirection);
    setNugget(session(), {1, 1}, 0.5);
    setStructure(session(), {1, 1}, Line::first, "S", 1, 15);
    program_.window().plotvariogram();
  }

  Formod& plot() { return program_.control<Formod>("Formod"); }
  template <class Widget = QWidget>
  Widget& part(const char* name) {
    return Program::find<Widget>(plot(), name);
  }
  QLabel& handle(int i) { return part<QLabel>(qPrintable(QString("estru_%1").arg(i))); }
  QWidget& picture() { return part("Picture4"); }
  bool shown(const char* name) { return part(name).isVisible(); }

  QPoint inWindow(QWidget& control, QPoint at) { return control.mapTo(&program_.window(), at); }
  void click(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
    QWindow* window = program_.window().windowHandle();
    QTest::mouseMove(window, at);
    QTest::mouseClick(window, button, {}, at);
  }
  void bringOut() { click(inWindow(picture(), {20, 20})); }

  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(Overlays, TheirTypeIsTimesNewRoman) {
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(handle(i).font().families().first(),
              toQFont({"Times New Roman", 10.5F}).families().first());
    EXPECT_EQ(handle(i).font().pointSizeF(), toQFont({"Times New Roman", 10.5F}).pointSizeF());
    EXPECT_TRUE(handle(i).font().bold()) << i;
  }
  EXPECT_FALSE(part<QLabel>("Label1").font().bold());
  EXPECT_EQ(part<QLabel>("Label1").font().pointSizeF(),
            toQFont({"Times New Roman", 10.5F}).pointSizeF());
}

TEST_F(Overlays, GuidesGoThroughTheHeldHandle) {
  bringOut();
  const QPoint left = handle(1).pos();
  QWindow* window = program_.window().windowHandle();
  QTest::mousePress(window, Qt::LeftButton, {}, inWindow(handle(1), {2, 2}));
  // From y 600 to 3720 - 600, that is from pixel 40 to 208.
  EXPECT_EQ(part("Line1").geometry(), QRect(left.x(), 40, 1, 168));
  EXPECT_FALSE(shown("Line2"));
  QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(handle(1), {2, 2}));
  bringOut();
  const QPoint corner = handle(1).pos();
  QTest::mousePress(window, Qt::RightButton, {}, inWindow(handle(1), {2, 2}));
  // From x 800 to 6468 - 800, that is from pixel 53 to 378.
  EXPECT_EQ(part("Line2").geometry(), QRect(53, corner.y(), 325, 1));
  EXPECT_FALSE(shown("Line1"));
  QTest::mouseRelease(window, Qt::RightButton, {}, inWindow(handle(1), {2, 2}));
}

/// The share of a guide's length that is drawn.
double inked(QWidget& guide) {
  const QImage image = guide.grab().toImage();
  const QColor line = guide.palette().color(QPalette::WindowText);
  int drawn = 0;
  for (int i = 0; i < image.height(); ++i) drawn += image.pixelColor(0, i) == line;
  return static_cast<double>(drawn) / image.height();
}

TEST_F(Overlays, GuidesAreDottedUntilTheFirstRelease) {
  bringOut();
  QWindow* window = program_.window().windowHandle();
  const QPoint at = inWindow(handle(1), {2, 2});
  QTest::mousePress(window, Qt::LeftButton, {}, at);
  EXPECT_LT(inked(part("Line1")), 0.8);
  QTest::mouseRelease(window, Qt::LeftButton, {}, at);
  EXPECT_TRUE(shown("Line1")) << "the guides stay where they are";
  EXPECT_EQ(inked(part("Line1")), 1);
}

TEST_F(Overlays, TakeTheColoursOfTheGraph) {
  session().style.cores.Label1 = 255;
  session().style.cores.Label5 = 16711680;
  program_.window().plotvariogram();
  for (int i = 0; i < 4; ++i)
    EXPECT_EQ(handle(i).palette().color(QPalette::WindowText), QColor(255, 0, 0)) << i;
  for (const char* guide : {"Line1", "Line2"})
    EXPECT_EQ(part(guide).palette().color(QPalette::WindowText), QColor(255, 0, 0)) << guide;
  EXPECT_EQ(part("Label1").palette().color(QPalette::WindowText), QColor(255, 0, 0));
  EXPECT_EQ(part("Label1").palette().color(QPalette::Window), QColor(0, 0, 255));
  session().style.cores.Label1 = 32768;
  program_.window().plotvariogram();
  EXPECT_EQ(handle(0).palette().color(QPalette::WindowText), QColor(0, 128, 0));
}

TEST_F(Overlays, AClickBesideThePictureFreesAndHidesTheHandles) {
  plot().resize(plot().size() + QSize(100, 100));
  bringOut();
  QWidget* ground = picture().parentWidget();
  ASSERT_TRUE(handle(0).isVisible());
  // The picture grew with the redraw; a smaller one leaves ground to click.
  picture().resize(200, 150);
  click(inWindow(*ground, QPoint(ground->width() - 5, ground->height() - 5)));
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(handle(i).isVisible()) << i;
  EXPECT_FALSE(session().dragging);
}

TEST_F(Overlays, AnyButtonBringsTheHandlesOut) {
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    program_.control("Textc0").setFocus(Qt::MouseFocusReason);
    ASSERT_FALSE(handle(1).isVisible());
    click(inWindow(picture(), {20, 20}), button);
    EXPECT_TRUE(handle(1).isVisible()) << button;
  }
}

TEST_F(Overlays, ADoubleClickBringsThemOutToo) {
  QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(20, 20),
                    picture().mapToGlobal(QPointF(20, 20)), Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(&picture(), &twice);
  EXPECT_TRUE(handle(1).isVisible());
}

TEST_F(Overlays, APictureOfAnotherSizeLosesItsTag) {
  part<QLabel>("Label1").show();
  static_cast<PictureBox&>(picture()).setSizeTwips(3000, 3000);
  EXPECT_FALSE(shown("Label1"));
}

TEST_F(Overlays, AHandleHeldWithoutAButtonFollowsTheMouseOverThePicture) {
  bringOut();
  QWindow* window = program_.window().windowHandle();
  QTest::mouseDClick(window, Qt::RightButton, {}, inWindow(handle(1), {2, 2}));
  ASSERT_TRUE(session().dragsel[1]);
  QTest::mouseMove(window, inWindow(picture(), {300, 100}));
  // 100 pixels are 1500 twips: (1500 - 3120) / (600 - 3120) * 2.12 = 1.362857.
  EXPECT_NEAR(session().c1({1, 1}).number(), 1.363, 1e-9);
  EXPECT_EQ(session().a1({1, 1}).number(), 15);
}

TEST_F(Overlays, OfHandlesOneOverTheOtherTheUpperOneIsHeld) {
  setStructure(session(), {1, 1}, Line::second, "S", 1, 15);
  program_.window().plotvariogram();
  bringOut();
  handle(2).move(handle(1).pos());
  QWindow* window = program_.window().windowHandle();
  const QPoint at = inWindow(handle(1), {2, 2});
  QTest::mousePress(window, Qt::LeftButton, {}, at);
  EXPECT_TRUE(session().dragsel[2]);
  EXPECT_FALSE(session().dragsel[1]);
  QTest::mouseMove(window, inWindow(picture(), {254, 100}));
  QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(picture(), {254, 100}));
  EXPECT_EQ(session().a1({1, 1}).number(), 15);
  EXPECT_NE(session().a2({1, 1}).number(), 15);
  EXPECT_FALSE(session().dragsel[2]);
}

TEST_F(Overlays, TheWheelAndATouchPadChangeNoCell) {
  bringOut();
  QWindow* window = program_.window().windowHandle();
  const QPoint at = inWindow(handle(1), {2, 2});
  QTest::mousePress(window, Qt::LeftButton, {}, at);
  for (QWidget* under : {&picture(), static_cast<QWidget*>(&handle(1))}) {
    for (const Qt::ScrollPhase phase : {Qt::ScrollBegin, Qt::ScrollUpdate, Qt::ScrollMomentum,
                                        Qt::ScrollEnd, Qt::NoScrollPhase}) {
      QWheelEvent wheel(QPointF(5, 5), under->mapToGlobal(QPointF(5, 5)), QPoint(0, 7),
                        QPoint(0, 120), Qt::LeftButton, {}, phase, false);
      QApplication::sendEvent(under, &wheel);
    }
  }
  QTest::mouseRelease(window, Qt::LeftButton, {}, at);
  EXPECT_EQ(session().a1({1, 1}).number(), 15);
  EXPECT_EQ(session().c1({1, 1}).number(), 1);
  EXPECT_FALSE(session().dragsel[1]);
}

TEST_F(Overlays, AClosedWindowComesBackWithItsPicture) {
  plot().close();
  EXPECT_FALSE(picture().isVisible());
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_TRUE(picture().isVisible());
  bringOut();
  EXPECT_TRUE(handle(1).isVisible());
}

TEST_F(Overlays, AWindowClosedInADragLeavesNoDragBehind) {
  bringOut();
  QWindow* window = program_.window().windowHandle();
  const QPoint at = inWindow(handle(1), {2, 2});
  QTest::mousePress(window, Qt::LeftButton, {}, at);
  plot().close();
  QTest::mouseMove(window, at + QPoint(40, 0));
  QTest::mouseRelease(window, Qt::LeftButton, {}, at + QPoint(40, 0));
  EXPECT_EQ(session().a1({1, 1}).number(), 15);
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_FALSE(session().dragging);
  EXPECT_FALSE(session().dragsel[1]);
  bringOut();
  ASSERT_TRUE(handle(1).isVisible());
  QTest::mousePress(window, Qt::LeftButton, {}, inWindow(handle(1), {2, 2}));
  EXPECT_TRUE(session().dragsel[1]);
  QTest::mouseRelease(window, Qt::LeftButton, {}, inWindow(handle(1), {2, 2}));
}

}  // namespace
}  // namespace zevfit::test
