// A drag of a thousand moves: each is on the picture, and nothing is left behind.
#include <gtest/gtest.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/picture_box.h"
#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

/// Twips of the box of the standard picture.
constexpr double kLeft = 800, kRight = 5668, kTop = 600, kBottom = 3120;
constexpr double kHighest = 2.12;  ///< of the axis

class LongDrag : public testing::Test {
 protected:
  LongDrag() : program_(folder_.path().toStdString()) {
    program_.openBytes(kOneDirection);
    setStructure(program_.session(), {1, 1}, Line::first, "S", 1, 15);
    program_.window().plotvariogram();
  }

  PictureBox& picture() { return program_.control<PictureBox>("Picture4"); }
  QPoint inWindow(QPoint at) { return picture().mapTo(&program_.window(), at); }
  QWindow* window() { return program_.window().windowHandle(); }

  /// The spherical curve of a sill of 1 is on the picture, in its colour, at a share of the axis
  /// where it lies alone.
  bool curveIsDrawn(double share, double range) {
    const double u = std::min(share * 30 / range, 1.0);
    const double x = kLeft + (kRight - kLeft) * share;
    const double y = kBottom - (kBottom - kTop) * (1.5 * u - 0.5 * u * u * u) / kHighest;
    // Curves are drawn smooth: the pixel or the one above or below is blue.
    for (const double off : {0.0, -10.0, 10.0}) {
      const QColor seen = picture().colourAt(x, y + off);
      if (seen.blue() > seen.red() + 60 && seen.blue() > seen.green() + 60) return true;
    }
    return false;
  }

  qsizetype widgets() { return QApplication::allWidgets().size(); }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(LongDrag, DrawsEveryStopAndLeavesNothingBehind) {
  QTest::mouseClick(window(), Qt::LeftButton, {}, inWindow({20, 20}));
  auto& handle = program_.control<QLabel>("estru_1");
  ASSERT_TRUE(handle.isVisible());
  QTest::mousePress(window(), Qt::LeftButton, {}, handle.mapTo(&program_.window(), QPoint(2, 2)));
  const qsizetype before = widgets();
  const auto children = program_.window().findChildren<QObject*>().size();
  for (int i = 0; i < 1000; ++i) {
    // To and fro between pixels 70 and 369 of the picture, and up and down, which means nothing.
    const int x = 70 + std::abs(i * 7 % 600 - 299);
    QTest::mouseMove(window(), inWindow({x, 60 + i % 100}));
    const double range = (x * 15 - kLeft) / (kRight - kLeft) * 30;
    ASSERT_NEAR(program_.session().a1({1, 1}).number(), range, 0.0006) << i;
    ASSERT_TRUE(curveIsDrawn(0.08, range)) << i << " at " << x;
    ASSERT_TRUE(curveIsDrawn(0.93, range)) << i << " at " << x;
    ASSERT_TRUE(program_.session().dragsel[1]) << i;
  }
  EXPECT_EQ(widgets(), before);
  EXPECT_EQ(program_.window().findChildren<QObject*>().size(), children);
  QTest::mouseRelease(window(), Qt::LeftButton, {}, inWindow({200, 100}));
  EXPECT_FALSE(program_.session().dragging);
  EXPECT_EQ(program_.session().c1({1, 1}).number(), 1);
}

}  // namespace
}  // namespace zevfit::test
