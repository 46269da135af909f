#include "platform/picture_box.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <functional>
#include <random>
#include <vector>

namespace zevfit {
namespace {

using Deed = std::function<void(Surface&)>;
using Drawing = std::vector<Deed>;

constexpr Stroke kCurve{kBlue, 2, LineStyle::solid};

Deed lineOf(double x1, double y1, double x2, double y2, Stroke stroke = kCurve) {
  return [=](Surface& to) { to.line(x1, y1, x2, y2, stroke); };
}

Deed boxOf(double left, double top, Colour fill) {
  return [=](Surface& to) { to.box(left, top, 300, 300, fill); };
}

void draw(Surface& to, const Drawing& drawing) {
  for (const Deed& deed : drawing) deed(to);
}

/// A picture of 200 by 100 pixels that counts how often it is asked to be painted.
class CountingBox : public PictureBox {
 public:
  CountingBox() { setSizeTwips(3000, 1500); }
  int paints = 0;

 protected:
  void paintEvent(QPaintEvent* event) override {
    ++paints;
    PictureBox::paintEvent(event);
  }
};

/// What a picture that was never drawn on before shows.
QImage drawnOnce(const Drawing& drawing, Colour background = kWhite) {
  CountingBox fresh;
  fresh.surface().clear(background);
  draw(fresh.surface(), drawing);
  return fresh.image().copy();
}

class PictureBoxTest : public testing::Test {
 protected:
  void redraw(const Drawing& drawing, Colour background = kWhite) {
    box_.surface().clear(background);
    draw(box_.surface(), drawing);
  }
  CountingBox box_;
};

TEST_F(PictureBoxTest, OfADrawingThatBeginsAsTheOneBeforeTheRestIsNew) {
  const Drawing frame{boxOf(0, 0, kRed), boxOf(600, 0, kGreen)};
  for (const double place : {300.0, 600.0, 900.0}) {
    Drawing drawing = frame;
    drawing.push_back(boxOf(place, 750, kBlue));
    redraw(drawing);
    EXPECT_EQ(box_.image(), drawnOnce(drawing)) << place;
  }
}

TEST_F(PictureBoxTest, ADrawingThatEndsEarlierLosesTheRest) {
  redraw({boxOf(0, 0, kRed), boxOf(600, 0, kGreen)});
  EXPECT_EQ(box_.colourAt(700, 100), toQColor(kGreen));
  redraw({boxOf(0, 0, kRed)});
  EXPECT_EQ(box_.colourAt(700, 100), toQColor(kWhite));
  EXPECT_EQ(box_.colourAt(100, 100), toQColor(kRed));
  redraw({});
  EXPECT_EQ(box_.colourAt(100, 100), toQColor(kWhite));
}

// Nobody has looked at the drawing between, so the picture still shows the first.
TEST_F(PictureBoxTest, ADrawingThatNobodySawLeavesNoTrace) {
  redraw({boxOf(0, 0, kRed), boxOf(600, 0, kGreen)});
  box_.image();
  redraw({boxOf(0, 0, kBlue), boxOf(600, 0, kGreen)});
  redraw({boxOf(0, 0, kBlue), boxOf(600, 0, kGreen)});
  EXPECT_EQ(box_.colourAt(100, 100), toQColor(kBlue));
  redraw({boxOf(0, 0, kRed)});
  redraw({boxOf(0, 0, kBlue), boxOf(600, 0, kGreen), boxOf(900, 0, kRed)});
  EXPECT_EQ(box_.colourAt(1000, 100), toQColor(kRed));
  EXPECT_EQ(box_.colourAt(700, 100), toQColor(kGreen));
}

TEST_F(PictureBoxTest, AnotherBackgroundIsFilledIn) {
  redraw({boxOf(0, 0, kRed)});
  box_.image();
  redraw({boxOf(0, 0, kRed)}, kLightGrey);
  EXPECT_EQ(box_.image(), drawnOnce({boxOf(0, 0, kRed)}, kLightGrey));
}

// Both pieces meet in one mitre only where they are one curve.
TEST_F(PictureBoxTest, ACurveIsNotCutWhereItsEndIsNew) {
  const Drawing before{boxOf(0, 0, kRed), lineOf(300, 300, 1500, 1200),
                       lineOf(1500, 1200, 2700, 600)};
  Drawing behind = before;
  behind.back() = lineOf(1500, 1200, 2700, 1500);
  for (const Drawing& drawing : {before, behind, before, behind}) {
    redraw(drawing);
    EXPECT_EQ(box_.image(), drawnOnce(drawing));
  }
}

TEST_F(PictureBoxTest, WhatIsPastedIsGoneWithTheNextDrawing) {
  redraw({boxOf(0, 0, kRed)});
  QImage bitmap(10, 10, QImage::Format_RGB32);
  bitmap.fill(Qt::blue);
  box_.paste(bitmap, 0, 0);
  EXPECT_EQ(box_.colourAt(50, 50), QColor(Qt::blue));
  redraw({boxOf(0, 0, kRed)});
  EXPECT_EQ(box_.colourAt(50, 50), toQColor(kRed));
}

TEST_F(PictureBoxTest, WhatGoesOnBehindALookIsDrawnToo) {
  redraw({boxOf(0, 0, kRed)});
  box_.image();
  draw(box_.surface(), {boxOf(600, 0, kGreen)});
  EXPECT_EQ(box_.colourAt(700, 100), toQColor(kGreen));
  EXPECT_EQ(box_.colourAt(100, 100), toQColor(kRed));
  redraw({boxOf(0, 0, kRed)});
  EXPECT_EQ(box_.colourAt(700, 100), toQColor(kWhite));
}

TEST_F(PictureBoxTest, AGrownPictureIsDrawnWhole) {
  const Drawing drawing{boxOf(0, 0, kRed), boxOf(2400, 0, kGreen)};
  redraw(drawing);
  box_.image();
  box_.setSizeTwips(6000, 3000);
  redraw(drawing);
  EXPECT_EQ(box_.colourAt(2500, 100), toQColor(kGreen));
  EXPECT_EQ(box_.colourAt(5900, 2900), toQColor(kWhite));
}

// The one drawn before may have come from elsewhere, changed in any place, or not been looked at.
TEST_F(PictureBoxTest, AnyRowOfDrawingsLooksAsEachDrawnAlone) {
  std::mt19937 random(7);
  const auto upTo = [&](int last) { return std::uniform_int_distribution<>(0, last)(random); };
  const auto any = [&]() -> Deed {
    const double x = 15 * upTo(150), y = 15 * upTo(80);
    switch (upTo(4)) {
      case 0:
        return boxOf(x, y, kGreen);
      case 1:
        return lineOf(x, y, x + 300, y, {kBlack, 1, LineStyle::dotted});
      case 2:
        return [=](Surface& to) { to.text(x, y, "1.25", {kPlotFont, 8}, kBlack); };
      case 3:
        return [=](Surface& to) { to.disc(x, y, 27, kCurve, kRed); };
      default:
        return lineOf(x, y, x + 600, y + 150);
    }
  };
  Drawing drawing;
  for (int round = 0; round < 300; ++round) {
    const auto kept = static_cast<std::size_t>(upTo(static_cast<int>(drawing.size())));
    drawing.resize(kept);
    for (int more = upTo(6); more > 0; --more) drawing.push_back(any());
    redraw(drawing);
    if (upTo(3) == 0) continue;
    if (upTo(9) == 0) {
      QEvent hidden(QEvent::Hide);
      QCoreApplication::sendEvent(&box_, &hidden);
    }
    ASSERT_EQ(box_.image(), drawnOnce(drawing)) << "round " << round;
  }
}

TEST_F(PictureBoxTest, PaintsTheAskedForPartsAlone) {
  redraw({boxOf(0, 0, kRed), boxOf(600, 300, kBlue)});
  const QRegion parts = QRegion(5, 5, 40, 10) + QRegion(30, 25, 60, 30);
  QImage shown(200, 100, QImage::Format_RGB32);
  shown.fill(Qt::yellow);
  {
    QPainter painter(&shown);
    painter.setClipRegion(parts);
    box_.render(&painter, parts.boundingRect().topLeft(), parts);
  }
  for (int y = 0; y < 100; ++y)
    for (int x = 0; x < 200; ++x) {
      const bool isAsked = parts.contains(QPoint(x, y));
      ASSERT_EQ(shown.pixelColor(x, y), isAsked ? box_.image().pixelColor(x, y) : Qt::yellow)
          << x << " " << y;
    }
}

TEST_F(PictureBoxTest, IsPaintedOncePerLook) {
  box_.show();
  QCoreApplication::processEvents();
  const int before = box_.paints;
  redraw({boxOf(0, 0, kRed)});
  redraw({boxOf(0, 0, kBlue), boxOf(600, 0, kGreen)});
  QCoreApplication::processEvents();
  EXPECT_EQ(box_.paints, before + 1);
  redraw({boxOf(0, 0, kGreen)});
  QCoreApplication::processEvents();
  EXPECT_EQ(box_.paints, before + 2);
}

}  // namespace
}  // namespace zevfit
