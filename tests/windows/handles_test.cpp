// The handles, the tag and the zoom of a plot window, played with a mouse.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QRadioButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

// Distances to 30 and semivariances to 2 over a variance of 1: xmax 30, ymin 0, ymax 2.12. The
// picture of 6468 by 3720 twips has its box from 800 to 5668 across and from 600 to 3120 down, in
// pixels 53.3 to 377.9 and 40 to 208.
class Handles : public testing::Test {
 protected:
  Handles() : program_(folder_.path().toStdString()) {
    const std::string path = folder_.filePath("small.zvm").toStdString();
    std::ofstream(path) << "small\nzevra\n1\nzinc\n2\n3\n0;0\n90;0\n"
                           "1\n10 0.5 9\n20 1.5 8\n30 2 7\n10 0.25 9\n20 0.75 9\n30 1 9\n";
    program_.open(path);
    setNugget(session(), {1, 1}, 0.5);
    setStructure(session(), {1, 1}, Line::first, "S", 1, 15);
    program_.window().plotvariogram();
  }

  Formod& plot() { return program_.control<Formod>("Formod"); }
  QWidget& picture() { return Program::find<QWidget>(plot(), "Picture4"); }
  QLabel& handle(int i) {
    return Program::find<QLabel>(plot(), qPrintable(QString("estru_%1").arg(i)));
  }
  QWidget& part(const char* name) { return Program::find<QWidget>(plot(), name); }

  void clickPicture(QPoint at = QPoint(20, 20)) {
    QTest::mouseMove(&picture(), at);
    QTest::mouseClick(&picture(), Qt::LeftButton, {}, at);
  }

  /// Moves with the button down to a place of the picture, as the handle that has the mouse sees
  /// it.
  void moveTo(QLabel& held, QPoint at, Qt::MouseButton button) {
    const QPointF local = QPointF(at - held.pos());
    QMouseEvent move(QEvent::MouseMove, local, held.mapToGlobal(local), Qt::NoButton, button, {});
    QApplication::sendEvent(&held, &move);
  }

  void drag(int i, QPoint to, Qt::MouseButton button) {
    QTest::mousePress(&handle(i), button, {}, QPoint(2, 2));
    moveTo(handle(i), to, button);
    QTest::mouseRelease(&handle(i), button, {}, QPoint(2, 2));
  }

  double value(const Cell& cell) { return cell.number(); }
  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(Handles, AClickOnThePlotBringsOutThoseInUse) {
  EXPECT_TRUE(handle(0).isHidden());
  clickPicture();
  EXPECT_TRUE(handle(0).isVisible());
  EXPECT_TRUE(handle(1).isVisible());
  EXPECT_TRUE(handle(2).isHidden());
  EXPECT_TRUE(handle(3).isHidden());
  // The nugget's stands at x 2400 and y 3120 - 2520 * 0.5 / 2.12 = 2525.66 twips: 160, 168.4
  // pixels.
  EXPECT_EQ(handle(0).pos(), QPoint(160, 168));
  // The first structure's at x 800 + 4868 * 15 / 30 = 3234 less its width, y 3120 - 2520 / 2.12 =
  // 1931.3 twips: 215.6 and 128.8 pixels.
  EXPECT_EQ(handle(1).pos(), QPoint(static_cast<int>(std::lround(215.6 - handle(1).width())), 129));
}

TEST_F(Handles, TheLeftButtonDragsTheRangeAndNotTheSill) {
  clickPicture();
  drag(1, QPoint(254, 100), Qt::LeftButton);
  // 254 pixels are 3810 twips: (3810 - 800) / 4868 * 30 = 18.54971, so 18.55. The drawing behind
  // the release puts the slider on the nearest of its places, 18.55 * 32000 / 599.9999 = 989.3, so
  // 989, and the slider drives: 599.99999 * 989 / 32000 = 18.54375.
  EXPECT_NEAR(value(session().a1({1, 1})), 18.544, 1e-9);
  EXPECT_EQ(value(session().c1({1, 1})), 1);
  EXPECT_EQ(program_.control<QLineEdit>("Texta").text(), "18.544");
  EXPECT_TRUE(program_.control<QRadioButton>("est2").isChecked());
  EXPECT_FALSE(session().dragging);
  EXPECT_TRUE(part("Line1").isVisible());
  EXPECT_TRUE(part("Line2").isHidden());
}

TEST_F(Handles, TheRightButtonDragsTheSillAndNotTheRange) {
  clickPicture();
  drag(1, QPoint(254, 100), Qt::RightButton);
  // 100 pixels are 1500 twips: (1500 - 3120) / (600 - 3120) * 2.12 = 1.362857.
  EXPECT_NEAR(value(session().c1({1, 1})), 1.363, 1e-9);
  EXPECT_EQ(value(session().a1({1, 1})), 15);
  EXPECT_TRUE(part("Line2").isVisible());
  EXPECT_TRUE(part("Line1").isHidden());
}

TEST_F(Handles, TheNuggetHasOnlyASill) {
  clickPicture();
  drag(0, QPoint(300, 180), Qt::LeftButton);
  // 2700 twips: 420 / 2520 * 2.12 = 0.353333.
  EXPECT_NEAR(value(session().c0({1, 1})), 0.353, 1e-9);
  EXPECT_TRUE(program_.control<QRadioButton>("est1").isChecked());
}

TEST_F(Handles, AMoveFarOutsideStopsAtTheEdges) {
  clickPicture();
  drag(1, QPoint(90000, -90000), Qt::LeftButton);
  EXPECT_EQ(value(session().a1({1, 1})), 30);
  clickPicture();
  drag(0, QPoint(-90000, 90000), Qt::LeftButton);
  EXPECT_EQ(value(session().c0({1, 1})), 0);
}

TEST_F(Handles, TheCurveFollowsEachMove) {
  clickPicture();
  QTest::mousePress(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  QImage before = picture().grab().toImage();
  for (const int x : {120, 180, 240, 300}) {
    moveTo(handle(1), QPoint(x, 100), Qt::LeftButton);
    EXPECT_TRUE(session().dragging);
    const QImage now = picture().grab().toImage();
    EXPECT_NE(now, before) << x;
    before = now;
  }
  QTest::mouseRelease(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_FALSE(session().dragging);
}

TEST_F(Handles, ASecondPressFreesAndItsReleaseHoldsAgain) {
  clickPicture();
  QTest::mousePress(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  QTest::mousePress(&handle(1), Qt::RightButton, {}, QPoint(2, 2));
  EXPECT_FALSE(session().dragsel[1]);
  QTest::mouseRelease(&handle(1), Qt::RightButton, {}, QPoint(2, 2));
  EXPECT_TRUE(session().dragsel[1]);
  // Held without a button it follows the mouse over the picture; a right release chose the sill.
  QTest::mouseRelease(&handle(1), Qt::MiddleButton, {}, QPoint(2, 2));
  EXPECT_FALSE(session().dragsel[1]);
}

TEST_F(Handles, ADoubleClickLetsGoOfAHandleThatIsHeldWithoutAButton) {
  clickPicture();
  QTest::mouseRelease(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_TRUE(session().dragsel[1]);
  QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(2, 2),
                     handle(1).mapToGlobal(QPointF(2, 2)), Qt::LeftButton, Qt::LeftButton, {});
  QApplication::sendEvent(&handle(1), &second);
  QTest::mouseRelease(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  EXPECT_FALSE(session().dragsel[1]);
}

TEST_F(Handles, AnotherWindowActivatedInADragFreesTheHandle) {
  clickPicture();
  QTest::mousePress(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  Formod& first = plot();
  program_.control<QComboBox>("Combodirvar").setCurrentIndex(1);
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_FALSE(session().dragging);
  EXPECT_FALSE(session().dragsel[1]);
  QLabel& held = Program::find<QLabel>(first, "estru_1");
  const QPointF local(500, 500);
  QMouseEvent move(QEvent::MouseMove, local, held.mapToGlobal(local), Qt::NoButton, Qt::LeftButton,
                   {});
  QApplication::sendEvent(&held, &move);
  EXPECT_EQ(value(session().a1({1, 1})), 15);
  EXPECT_LE(value(session().a1({1, 2})), 1e-05);
}

TEST_F(Handles, ClosingTheWindowInADragIsHarmless) {
  clickPicture();
  QTest::mousePress(&handle(1), Qt::LeftButton, {}, QPoint(2, 2));
  plot().close();
  program_.window().plotvariogram();
  EXPECT_TRUE(plot().isVisible());
  EXPECT_TRUE(handle(1).isHidden());
  EXPECT_FALSE(session().dragsel[1]);
}

TEST_F(Handles, AClickInAFieldHidesThem) {
  clickPicture();
  picture().setFocus(Qt::MouseFocusReason);
  program_.control("Textc0").setFocus(Qt::MouseFocusReason);
  EXPECT_TRUE(handle(0).isHidden());
  EXPECT_TRUE(handle(1).isHidden());
}

TEST_F(Handles, AClickOnADataPointShowsItsPairs) {
  // Class 3: x 800 + 4868 * 30 / 30 = 5668, y 3120 - 2520 * 2 / 2.12 = 742.6 twips.
  clickPicture(QPoint(378, 49));
  auto& tag = Program::find<QLabel>(plot(), "Label1");
  EXPECT_TRUE(tag.isVisible());
  EXPECT_EQ(tag.text(), "7");
  QTest::mouseClick(&tag, Qt::LeftButton);
  EXPECT_TRUE(tag.isHidden());
  clickPicture(QPoint(300, 49));
  EXPECT_TRUE(tag.isHidden());
}

TEST_F(Handles, ZoomEnlargesByThreeInAHundredUpToTheScreen) {
  clickPicture();
  program_.trigger("kmais");
  EXPECT_NEAR(plot().width(), 6576 * 1.03, 1e-9);
  EXPECT_NEAR(plot().height(), 3852 * 1.03, 1e-9);
  EXPECT_NEAR(plot().pictureWidth(), 6576 * 1.03 - 108, 1e-9);
  EXPECT_TRUE(handle(0).isHidden());
  program_.dialogs().shown.clear();
  for (int i = 0; i < 200 && program_.dialogs().shown.empty(); ++i) program_.trigger("kmais");
  EXPECT_EQ(program_.dialogs().shown,
            std::vector<std::string>{"plain: Cannot enlarge variogram plot!"});
  EXPECT_GT(plot().width(), 0.9 * 15 * plot().screen()->size().width());
}

TEST_F(Handles, ZoomReducesDownTo4000) {
  program_.dialogs().shown.clear();
  for (int i = 0; i < 200 && program_.dialogs().shown.empty(); ++i) program_.trigger("kmenos");
  EXPECT_EQ(program_.dialogs().shown,
            std::vector<std::string>{"plain: Cannot reduce variogram plot!"});
  // 6576 / 1.03^17 = 3978.5 is the first below 4000.
  EXPECT_NEAR(plot().width(), 3978.5, 0.1);
}

TEST_F(Handles, CopyPutsThePictureOnTheClipboard) {
  program_.trigger("k8");
  EXPECT_EQ(QGuiApplication::clipboard()->image().size(), QSize(431, 248));
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  plot().close();
  program_.trigger("k8");
  EXPECT_EQ(program_.dialogs().shown.back(),
            "plain: Please Select Variogram Plot you want to copy to Clipboard!");
}

}  // namespace
}  // namespace zevfit::test
