// The surface of a sheet, on a bitmap that counts as 100 by 50 units of 4 dots.

#include "platform/sheet_surface.h"

#include <gtest/gtest.h>

#include <QImage>

#include "platform/painter_surface.h"

namespace zevfit {
namespace {

class SheetSurfaceTest : public testing::Test {
 protected:
  ~SheetSurfaceTest() override { painter_.end(); }

  /// The colour in the middle of a dot.
  Colour at(int x, int y) {
    surface_.finish();
    return toColour(image_.pixelColor(x, y));
  }

  QImage image_{400, 200, QImage::Format_RGB32};
  QPainter painter_;
  SheetSurface surface_{onWhite(), {100, 50}};

 private:
  QPainter& onWhite() {
    image_.fill(Qt::white);
    painter_.begin(&image_);
    return painter_;
  }
};

TEST_F(SheetSurfaceTest, ABoxIsWhereItsUnitsAre) {
  surface_.box(10, 20, 30, 5, kRed);
  EXPECT_EQ(at(40, 80), kRed);
  EXPECT_EQ(at(159, 99), kRed);
  EXPECT_EQ(at(39, 80), kWhite);
  EXPECT_EQ(at(160, 99), kWhite);
  EXPECT_EQ(at(40, 100), kWhite);
}

TEST_F(SheetSurfaceTest, AClearFillsTheSheet) {
  surface_.clear(kBlue);
  for (const QPoint corner : {QPoint(0, 0), QPoint(399, 0), QPoint(0, 199), QPoint(399, 199)})
    EXPECT_EQ(at(corner.x(), corner.y()), kBlue);
}

TEST_F(SheetSurfaceTest, LinesOfOneCurveAreOneAndOthersFollow) {
  surface_.line(10, 10, 50, 10, {kBlue, 1, LineStyle::solid});
  surface_.line(50, 10, 90, 10, {kBlue, 1, LineStyle::solid});
  // Over the curve, of another colour.
  surface_.line(50, 10, 90, 10, {kRed, 1, LineStyle::solid});
  EXPECT_EQ(at(100, 40), kBlue);
  EXPECT_EQ(at(300, 40), kRed);
}

TEST_F(SheetSurfaceTest, ALineIsDrawnBeforeWhatFollows) {
  surface_.line(0, 25, 100, 25, {kBlue, 1, LineStyle::solid});
  surface_.box(40, 0, 20, 50, kGreen);
  EXPECT_EQ(at(200, 100), kGreen);
  EXPECT_EQ(at(20, 100), kBlue);
}

TEST_F(SheetSurfaceTest, ADiscHasItsColourWithin) {
  surface_.disc(50, 25, 10, {kRed, 0, LineStyle::solid}, kGreen);
  EXPECT_EQ(at(200, 100), kGreen);
  EXPECT_EQ(at(232, 100), kGreen);
  EXPECT_EQ(at(245, 100), kWhite);
}

TEST_F(SheetSurfaceTest, ATextStandsBelowItsPlace) {
  surface_.text(10, 25, "Data", {kPlotFont, 30}, kBlack);
  int above = 0, below = 0;
  for (int y = 0; y < 200; ++y)
    for (int x = 0; x < 400; ++x) (y < 100 ? above : below) += at(x, y) == kWhite ? 0 : 1;
  EXPECT_EQ(above, 0);
  EXPECT_GT(below, 100);
}

}  // namespace
}  // namespace zevfit
