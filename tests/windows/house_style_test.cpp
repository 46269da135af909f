// What the program's own style adds to that of the desktop.
#include "platform/house_style.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QPainter>
#include <QRadioButton>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QStyleOptionTitleBar>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <utility>

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

/// A slider with its handle in the middle.
QImage drawnSlider(const QStyle& style, const QPalette& palette, QStyle::State state) {
  QImage image(120, 24, QImage::Format_RGB32);
  image.fill(palette.color(QPalette::Window));
  QStyleOptionSlider option;
  option.rect = image.rect();
  option.palette = palette;
  option.state = state | QStyle::State_Horizontal;
  option.orientation = Qt::Horizontal;
  option.maximum = 100;
  option.sliderPosition = option.sliderValue = 50;
  option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
  QPainter painter(&image);
  style.drawComplexControl(QStyle::CC_Slider, &option, &painter);
  return image;
}

TEST(HouseStyle, HandlesOfSlidersStandOutFromDarkGrounds) {
  const HouseStyle style;
  for (const int ground : {20, 45, 60}) {
    const QPalette dark = paletteOf(ground, 240, ground - 15);
    const int on = qGray(drawnSlider(style, dark, QStyle::State_Enabled).pixel(60, 12));
    const int off = qGray(drawnSlider(style, dark, QStyle::State_None).pixel(60, 12));
    EXPECT_GT(on - ground, 100) << ground;
    EXPECT_GT(off - ground, 30) << ground;
    EXPECT_GT(on, off) << ground;
  }
}

/// A field or a button that fills its image but for a border.
template <class Option>
QImage drawnPart(const QStyle& style, QStyle::PrimitiveElement part, const QPalette& palette) {
  QImage image(20, 20, QImage::Format_RGB32);
  image.fill(palette.color(QPalette::Window));
  Option option;
  option.rect = image.rect().adjusted(3, 3, -3, -3);
  option.palette = palette;
  option.state = QStyle::State_Enabled;
  QPainter painter(&image);
  style.drawPrimitive(part, &option, &painter);
  return image;
}

TEST(HouseStyle, FieldsAndButtonsHaveOutlinesOnDarkGrounds) {
  const HouseStyle style;
  for (const int ground : {20, 45, 60}) {
    const QPalette dark = paletteOf(ground, 240, ground - 15);
    EXPECT_GT(
        outlineOf(drawnPart<QStyleOptionFrame>(style, QStyle::PE_FrameLineEdit, dark), ground), 60)
        << ground;
    EXPECT_GT(outlineOf(drawnPart<QStyleOptionButton>(style, QStyle::PE_PanelButtonCommand, dark),
                        ground),
              40)
        << ground;
  }
}

/// A title bar that fills its image.
QStyleOptionTitleBar titleBar(const QPalette& palette, QStyle::State state) {
  QStyleOptionTitleBar option;
  option.rect = QRect(0, 0, 260, 26);
  option.palette = palette;
  option.state = state | QStyle::State_Enabled;
  option.titleBarState = static_cast<int>(state.toInt());
  option.titleBarFlags = Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
  option.subControls = QStyle::SC_All;
  option.text = "01,01  Variable: zinc";
  return option;
}

QImage drawnTitle(const QStyle& style, const QStyleOptionTitleBar& option) {
  QImage image(option.rect.size(), QImage::Format_RGB32);
  image.fill(option.palette.color(QPalette::Window));
  QPainter painter(&image);
  style.drawComplexControl(QStyle::CC_TitleBar, &option, &painter);
  return image;
}

/// The darkest and the lightest grey of a part of a title bar.
std::pair<int, int> greysOf(const QStyle& style, const QStyleOptionTitleBar& option,
                            QStyle::SubControl part) {
  const QImage image = drawnTitle(style, option);
  const QRect place =
      style.subControlRect(QStyle::CC_TitleBar, &option, part).adjusted(3, 3, -3, -3);
  std::pair<int, int> greys(255, 0);
  for (int y = place.top(); y <= place.bottom(); ++y)
    for (int x = place.left(); x <= place.right(); ++x) {
      const int grey = qGray(image.pixel(x, y));
      greys = {std::min(greys.first, grey), std::max(greys.second, grey)};
    }
  return greys;
}

TEST(HouseStyle, TitlesOfPlotsAndTheirButtonsAreReadOnDarkGrounds) {
  const HouseStyle style;
  for (const int ground : {20, 45, 60})
    for (const auto state : {QStyle::State_None, QStyle::State_Active}) {
      QPalette dark = paletteOf(ground, 240, ground - 15);
      dark.setColor(QPalette::Text, QColor(240, 240, 240));
      dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
      const QStyleOptionTitleBar option = titleBar(dark, state);
      for (const auto button : {QStyle::SC_TitleBarMinButton, QStyle::SC_TitleBarMaxButton,
                                QStyle::SC_TitleBarCloseButton})
        EXPECT_GT(greysOf(style, option, button).second - ground, 150) << button << " " << ground;
      const auto [shadow, letters] = greysOf(style, option, QStyle::SC_TitleBarLabel);
      EXPECT_GT(letters, 220) << ground;
      EXPECT_LT(shadow, ground + 10) << "no second light title below the first: " << ground;
    }
}

TEST(HouseStyle, LeavesLightGroundsAlone) {
  HouseStyle style;
  const QPalette light = paletteOf(239, 0, 255);
  EXPECT_EQ(drawnSlider(style, light, QStyle::State_Enabled),
            drawnSlider(*style.baseStyle(), light, QStyle::State_Enabled));
  EXPECT_EQ(drawnPart<QStyleOptionFrame>(style, QStyle::PE_FrameLineEdit, light),
            drawnPart<QStyleOptionFrame>(*style.baseStyle(), QStyle::PE_FrameLineEdit, light));
  for (const auto mark : kMarks)
    EXPECT_EQ(drawn(style, mark, light), drawn(*style.baseStyle(), mark, light)) << mark;
  for (const auto state : {QStyle::State_None, QStyle::State_Active}) {
    const QStyleOptionTitleBar title = titleBar(light, state);
    EXPECT_EQ(drawnTitle(style, title), drawnTitle(*style.baseStyle(), title));
  }
}

/// A field of that size and state on a coloured ground.
QImage drawnField(const QStyle& style, const QPalette& palette, QSize size, QStyle::State state) {
  QImage image(80, 40, QImage::Format_RGB32);
  image.fill(QColor(200, 220, 240));
  QStyleOptionFrame option;
  option.rect = QRect(QPoint(3, 5), size);
  option.palette = palette;
  option.state = state;
  option.lineWidth = 1;
  QPainter painter(&image);
  style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter);
  return image;
}

TEST(HouseStyle, AFieldLooksAsInTheStyleThatQtBringsAlong) {
  const HouseStyle style("fusion");
  const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
  const QPalette light = paletteOf(239, 0, 255), blue(QColor(0, 0, 200));
  const QStyle::State focused = QStyle::State_Enabled | QStyle::State_HasFocus;
  for (const QPalette& palette : {light, blue, light})
    for (const QSize size : {QSize(30, 20), QSize(60, 24)})
      for (const QStyle::State state :
           {QStyle::State(QStyle::State_Enabled), focused, QStyle::State(QStyle::State_None)})
        EXPECT_EQ(drawnField(style, palette, size, state),
                  drawnField(*fusion, palette, size, state))
            << size.width() << " " << state.toInt();
}

/// The frame of that group on a ground of one grey.
QImage drawnGroup(const QStyle& style, const QGroupBox& group, int ground) {
  QImage image(80, 70, QImage::Format_RGB32);
  image.fill(QColor(ground, ground, ground));
  QStyleOptionFrame option;
  option.initFrom(&group);
  option.rect = QRect(3, 5, 70, 60);
  QPainter painter(&image);
  style.drawPrimitive(QStyle::PE_FrameGroupBox, &option, &painter, &group);
  return image;
}

/// The most that a pixel of one differs from that of the other, in levels of 255.
int mostDifferent(const QImage& one, const QImage& other) {
  int most = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      most = std::max(most, std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))));
  return most;
}

TEST(HouseStyle, AGroupLooksAsInTheStyleThatQtBringsAlong) {
  const HouseStyle style("fusion");
  const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
  const QGroupBox titled("Title"), untitled;
  QGroupBox ticked;
  ticked.setCheckable(true);
  for (const QGroupBox* group :
       std::initializer_list<const QGroupBox*>{&titled, &untitled, &ticked})
    for (const int ground : {239, 45}) {
      QImage bare(80, 70, QImage::Format_RGB32);
      bare.fill(QColor(ground, ground, ground));
      const QImage ours = drawnGroup(style, *group, ground);
      const QImage theirs = drawnGroup(*fusion, *group, ground);
      EXPECT_GT(mostDifferent(theirs, bare), 10) << "there is a frame";
      EXPECT_LE(mostDifferent(ours, theirs), 8) << group->title().toStdString() << " " << ground;
    }
}

TEST(HouseStyle, IconsOfLongBarsAreThoseOfTheDesktop) {
  const HouseStyle style("fusion");
  const std::unique_ptr<QStyle> fusion(QStyleFactory::create("fusion"));
  for (const auto which :
       {QStyle::SP_ToolBarHorizontalExtensionButton, QStyle::SP_ToolBarVerticalExtensionButton}) {
    const QIcon ours = style.standardIcon(which), theirs = fusion->standardIcon(which);
    EXPECT_FALSE(ours.isNull());
    EXPECT_EQ(ours.availableSizes(), theirs.availableSizes());
    EXPECT_EQ(ours.actualSize(QSize(64, 64)), theirs.actualSize(QSize(64, 64)));
    const QImage picture = ours.pixmap(QSize(16, 16), 2.0).toImage();
    EXPECT_EQ(picture, theirs.pixmap(QSize(16, 16), 2.0).toImage());
    EXPECT_FALSE(picture.isNull());
  }
}

}  // namespace
}  // namespace zevfit
