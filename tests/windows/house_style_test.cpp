// What the program's own style adds to that of the desktop.
#include "platform/house_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QPainter>
#include <QRadioButton>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <algorithm>

namespace zevfit {
namespace {

QPalette paletteOf(int ground, int letters, int base) {
  QPalette palette(QColor(ground, ground, ground));
  palette.setColor(QPalette::Window, QColor(ground, ground, ground));
  palette.setColor(QPalette::WindowText, QColor(letters, letters, letters));
  palette.setColor(QPalette::Base, QColor(base, base, base));
  return palette;
}

QImage drawn(const QStyle& style, QStyle::PrimitiveElement mark, const QPalette& palette) {
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(palette.color(QPalette::Window));
  QStyleOptionButton option;
  option.rect = QRect(3, 3, 14, 14);
  option.palette = palette;
  option.state = QStyle::State_Enabled | QStyle::State_Off;
  QPainter painter(&image);
  style.drawPrimitive(mark, &option, &painter);
  return image;
}

/// How far the lightest pixel of the upright middle stands out from the ground.
int outlineOf(const QImage& image, int ground) {
  int most = 0;
  for (int y = 0; y < image.height(); ++y)
    most = std::max(most, qGray(image.pixel(10, y)) - ground);
  return most;
}

constexpr QStyle::PrimitiveElement kMarks[] = {QStyle::PE_IndicatorRadioButton,
                                               QStyle::PE_IndicatorCheckBox};

TEST(HouseStyle, WhatIsNotTickedIsSeenOnDarkGrounds) {
  HouseStyle style;
  for (const auto mark : kMarks)
    for (const int ground : {20, 45, 60})
      EXPECT_GT(outlineOf(drawn(style, mark, paletteOf(ground, 240, ground - 15)), ground), 60)
          << mark << " on " << ground;
}

TEST(HouseStyle, LeavesLightGroundsAlone) {
  HouseStyle style;
  const QPalette light = paletteOf(239, 0, 255);
  for (const auto mark : kMarks)
    EXPECT_EQ(drawn(style, mark, light), drawn(*style.baseStyle(), mark, light)) << mark;
}

}  // namespace
}  // namespace zevfit
