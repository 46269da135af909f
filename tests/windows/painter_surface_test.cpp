#include "platform/painter_surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "platform/curve_outline.h"
#include "platform/picture_box.h"

namespace zevfit {
namespace {

/// A white picture of 400 by 200 pixels.
class PainterSurfaceTest : public testing::Test {
 protected:
  PainterSurfaceTest() {
    box_.setSizeTwips(6000, 3000);
    surface().clear(kWhite);
  }
  Surface& surface() { return box_.surface(); }
  /// The colour at a place in pixels.
  Colour at(double x, double y) {
    return toColour(box_.colourAt(x * kTwipsPerPixel, y * kTwipsPerPixel));
  }
  int pixelsOf(Colour colour) {
    int count = 0;
    for (int y = 0; y < 200; ++y)
      for (int x = 0; x < 400; ++x) count += at(x + 0.5, y + 0.5) == colour ? 1 : 0;
    return count;
  }

  PictureBox box_;
};

TEST(Colours, GoToTheToolkitAndBack) {
  for (const Colour colour : {kBlack, kGreen, kBlue, kRed, kWhite, kLightGrey, 0x123456})
    EXPECT_EQ(toColour(toQColor(colour)), colour);
  EXPECT_EQ(toQColor(kBlue), QColor(0, 0, 255));
  EXPECT_EQ(toQColor(kGreen), QColor(0, 128, 0));
}

TEST(DrawnText, ShowsGreekLettersInTheSymbolFontAlone) {
  EXPECT_EQ(toDrawnText("g", "Symbol"), QString(QChar(0x3B3)));
  EXPECT_EQ(toDrawnText("G", "Symbol"), QString(QChar(0x393)));
  EXPECT_EQ(toDrawnText("(h1)", "Symbol"), "(" + QString(QChar(0x3B7)) + "1)");
  EXPECT_EQ(toDrawnText("g", "Times New Roman"), "g");
  EXPECT_EQ(toDrawnText("\xE9", "Times New Roman"), QString(QChar(0xE9)));
}

TEST_F(PainterSurfaceTest, LineAlongAnAxisIsCrisp) {
  // From pixel 10 to pixel 20 inclusive, one pixel high.
  surface().line(150, 450, 300, 450, {kBlack, 1, LineStyle::solid});
  EXPECT_EQ(pixelsOf(kBlack), 11);
  EXPECT_EQ(at(10.5, 30.5), kBlack);
  EXPECT_EQ(at(20.5, 30.5), kBlack);
  EXPECT_EQ(at(21.5, 30.5), kWhite);
}

TEST_F(PainterSurfaceTest, LineOfWidth2CoversTwoRows) {
  surface().line(150, 450, 300, 450, {kRed, 2, LineStyle::solid});
  EXPECT_EQ(pixelsOf(kRed), 22);
}

TEST_F(PainterSurfaceTest, DottedLineLeavesGaps) {
  surface().line(0, 450, 1500, 450, {kBlack, 1, LineStyle::dotted});
  const int dots = pixelsOf(kBlack);
  EXPECT_GT(dots, 20);
  EXPECT_LT(dots, 60);
}

TEST_F(PainterSurfaceTest, InsideOfADiscIsExactlyItsColour) {
  for (int place = 0; place < 15; ++place) {
    surface().clear(kWhite);
    const double x = 1500 + place, y = 1500 + 2 * place;
    surface().disc(x, y, 27, {kGreen, 2, LineStyle::solid}, kGreen);
    EXPECT_EQ(at(x / kTwipsPerPixel, y / kTwipsPerPixel), kGreen) << place;
    EXPECT_EQ(at(x / kTwipsPerPixel + 4, y / kTwipsPerPixel), kWhite) << place;
  }
}

TEST_F(PainterSurfaceTest, TextStandsBelowItsPlace) {
  surface().text(1500, 750, "Data", {kPlotFont, 10}, kBlack);
  int above = 0;
  for (int y = 0; y < 50; ++y)
    for (int x = 0; x < 400; ++x) above += at(x + 0.5, y + 0.5) == kWhite ? 0 : 1;
  EXPECT_EQ(above, 0);
  EXPECT_GT(200 * 400 - pixelsOf(kWhite), 30);
}

TEST_F(PainterSurfaceTest, SlantedLinesAreDrawnBeforeWhatFollows) {
  surface().line(0, 0, 6000, 3000, {kBlue, 2, LineStyle::solid});
  surface().disc(3000, 1500, 100, {kGreen, 2, LineStyle::solid}, kGreen);
  EXPECT_EQ(at(200, 100), kGreen);
}

// What is cut up into short pieces looks like what is not: no piece shows its ends.
TEST_F(PainterSurfaceTest, PiecesFromEndToEndAreOneLine) {
  const Stroke stroke{kBlue, 2, LineStyle::solid};
  surface().line(300, 300, 5700, 1200, stroke);
  const QImage whole = box_.image().copy();
  surface().clear(kWhite);
  // The first piece of a curve has no length.
  double x = 300, y = 300;
  for (int i = 0; i <= 100; ++i) {
    surface().line(x, y, 300 + i * 54, 300 + i * 9, stroke);
    x = 300 + i * 54;
    y = 300 + i * 9;
  }
  const QImage pieces = box_.image();
  int largest = 0;
  for (int row = 0; row < whole.height(); ++row)
    for (int column = 0; column < whole.width(); ++column)
      largest = std::max(
          largest, std::abs(qRed(whole.pixel(column, row)) - qRed(pieces.pixel(column, row))));
  EXPECT_LE(largest, 4) << "of 255";
}

// A level run within a curve, here at pixel 100.5, is as thick as the rest: three rows share the
// ink of two.
TEST_F(PainterSurfaceTest, ALevelRunOfACurveJoinsIt) {
  const Stroke stroke{kBlue, 2, LineStyle::solid};
  surface().line(300, 2100, 1500, 1507.5, stroke);
  surface().line(1500, 1507.5, 3000, 1507.5, stroke);
  for (int column = 99; column < 200; ++column) {
    int ink = 0;
    for (int row = 90; row < 112; ++row) ink += 255 - (at(column + 0.5, row + 0.5) & 255);
    EXPECT_NEAR(ink, 2 * 255, 60) << column;
  }
  EXPECT_EQ(at(150.5, 100.5), kBlue);
  EXPECT_NE(at(150.5, 99.5), kBlue);
}

TEST_F(PainterSurfaceTest, ACurveThatIsLevelThroughoutIsCrisp) {
  const Stroke stroke{kBlue, 2, LineStyle::solid};
  surface().line(150, 457.5, 150, 457.5, stroke);
  surface().line(150, 457.5, 225, 457.5, stroke);
  surface().line(225, 457.5, 300, 457.5, stroke);
  surface().text(3000, 1500, "", {kPlotFont, 10}, kBlack);
  EXPECT_EQ(pixelsOf(kBlue), 22) << "pixels 10 to 20 in two rows";
  EXPECT_EQ(pixelsOf(kWhite), 400 * 200 - 22);
}

// Two pieces of 10 at a right angle in a width of 2: the mitre of the corner is the corner of the
// outline, and the ends reach 1 beyond.
TEST(CurveOutline, IsMitredAndCapped) {
  const QPolygonF outline = outlineOf({{0, 0}, {10, 0}, {10, 10}}, 2);
  const QPolygonF expected({{-1, 1}, {9, 1}, {9, 11}, {11, 11}, {11, -1}, {-1, -1}});
  ASSERT_EQ(outline.size(), expected.size());
  for (int i = 0; i < 6; ++i) {
    EXPECT_NEAR(outline[i].x(), expected[i].x(), 1e-9) << i;
    EXPECT_NEAR(outline[i].y(), expected[i].y(), 1e-9) << i;
  }
}

// Of a rhombus around (5, 0) the column from 3 to 6 has the corners at 5, which lie within, and
// those where its sides, which rise by 1 in 2.5, meet the uprights.
TEST(CurveOutline, ColumnIsWhatLiesBetweenTheUprights) {
  const QPolygonF rhombus({{0, 0}, {5, 2}, {10, 0}, {5, -2}});
  const QPolygonF column = columnOf(rhombus, 3, 6);
  const QPolygonF expected({{3, -1.2}, {3, 1.2}, {5, 2}, {6, 1.6}, {6, -1.6}, {5, -2}});
  ASSERT_EQ(column.size(), expected.size());
  for (const QPointF& corner : expected) {
    const bool isThere = std::any_of(column.begin(), column.end(), [&](const QPointF& place) {
      return std::hypot(place.x() - corner.x(), place.y() - corner.y()) < 1e-9;
    });
    EXPECT_TRUE(isThere) << corner.x() << " " << corner.y();
  }
  EXPECT_TRUE(columnOf(rhombus, 11, 12).isEmpty());
  EXPECT_TRUE(columnOf(rhombus, -2, -1).isEmpty());
  EXPECT_EQ(columnOf(rhombus, -1, 11), rhombus);
}

// The bitmap is filled in columns of 64 pixels: none of their edges at 64, 128, ... shows.
TEST_F(PainterSurfaceTest, ColumnsOfACurveHaveNoSeams) {
  surface().line(300, 600, 5700, 1500, {kBlue, 2, LineStyle::solid});
  for (int column = 30; column < 370; ++column) {
    int ink = 0;
    for (int row = 30; row < 110; ++row) ink += 255 - (at(column + 0.5, row + 0.5) & 255);
    // The width of 2 across a slope of 1 in 6.
    EXPECT_NEAR(ink, 2 * 255 * std::hypot(1, 1 / 6.0), 12) << column;
  }
}

// Back the way it came there is no mitre to take; at 120 degrees it is as long as it gets.
TEST(CurveOutline, KeepsItsMitresShort) {
  const double sixty = std::sqrt(0.75);
  const QPointF tip(10, 0);
  for (const QPointF end : {QPointF(0, 0), QPointF(5, 10 * sixty), QPointF(0.1, 0.1)}) {
    const QPolygonF outline = outlineOf({{0, 0}, tip, end}, 2);
    for (const QPointF corner : {outline[1], outline[4]})
      EXPECT_LE(std::hypot(corner.x() - tip.x(), corner.y() - tip.y()), 2 + 1e-9) << end.x();
  }
}

// An axis of next to no length puts points where no painter can follow.
TEST_F(PainterSurfaceTest, PlacesOutOfReachAreHarmless) {
  for (const double far : {1e7, 1e12, 1e300, 1.7e308}) {
    surface().line(-far, -far, far, far, {kBlue, 2, LineStyle::solid});
    surface().line(0, far, 6000, far, {kBlue, 2, LineStyle::solid});
    surface().line(100, -far, 100, far, {kBlue, 1, LineStyle::dotted});
    surface().disc(far, -far, 27, {kGreen, 2, LineStyle::solid}, kGreen);
    surface().text(-far, far, "far", {kPlotFont, 10}, kBlack);
  }
  // The diagonal through the corner keeps its slope.
  EXPECT_EQ(at(100.5, 100.5), kBlue);
  EXPECT_EQ(pixelsOf(kGreen), 0);
}

TEST_F(PainterSurfaceTest, BoxIsFilledWithoutAnOutline) {
  surface().line(0, 0, 6000, 3000, {kBlue, 2, LineStyle::solid});
  surface().box(150, 300, 450, 150, kRed);
  // 30 by 10 pixels from (10, 20), over what was there before.
  EXPECT_EQ(pixelsOf(kRed), 300);
  EXPECT_EQ(at(10.5, 20.5), kRed);
  EXPECT_EQ(at(39.5, 29.5), kRed);
  EXPECT_EQ(at(40.5, 30.5), kWhite);
}

TEST_F(PainterSurfaceTest, BoxReachesToThePicturesEndsFromAfar) {
  surface().box(-1e300, -1e300, 2e300, 2e300, kRed);
  EXPECT_EQ(pixelsOf(kRed), 400 * 200);
}

TEST_F(PainterSurfaceTest, TextsAreMeasuredInTheirFont) {
  const Font plain{kPlotFont, 8}, bold{kPlotFont, 8, true}, large{kPlotFont, 16};
  const double width = surface().textWidth("zinc", plain);
  EXPECT_GT(width, 150);
  EXPECT_LT(width, 600);
  EXPECT_GT(surface().textWidth("zinc", bold), width);
  EXPECT_NEAR(surface().textWidth("zinc", large), 2 * width, 0.1 * width);
  EXPECT_EQ(surface().textWidth("", plain), 0);
}

TEST_F(PainterSurfaceTest, BitmapIsPastedOverWhatIsThere) {
  surface().line(0, 0, 6000, 3000, {kBlue, 2, LineStyle::solid});
  QImage bitmap(30, 10, QImage::Format_RGB32);
  bitmap.fill(Qt::red);
  // The nearest whole pixel to 150 by 307 twips is (10, 20).
  box_.paste(bitmap, 150, 307);
  EXPECT_EQ(pixelsOf(kRed), 300);
  EXPECT_EQ(at(10.5, 20.5), kRed);
  EXPECT_EQ(at(39.5, 29.5), kRed);
}

TEST_F(PainterSurfaceTest, PictureKeepsWhatIsDrawnWhenItGrows) {
  surface().line(150, 450, 300, 450, {kBlack, 1, LineStyle::solid});
  box_.setSizeTwips(9000, 4500);
  EXPECT_EQ(at(15.5, 30.5), kBlack);
  EXPECT_EQ(at(550, 250), kWhite);
}

TEST_F(PainterSurfaceTest, NoColourOutsideThePicture) {
  EXPECT_FALSE(box_.colourAt(-1, 0).isValid());
  EXPECT_FALSE(box_.colourAt(6001, 10).isValid());
}

}  // namespace
}  // namespace zevfit
