// A stamp beside Qt's own painter.
#include "platform/stamp.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <random>

namespace zevfit {
namespace {

/// A picture of any colours, opaque or not.
QImage anyPicture(QSize size, QImage::Format format, std::mt19937& random) {
  QImage made(size, QImage::Format_ARGB32);
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x) made.setPixel(x, y, static_cast<QRgb>(random()));
  // As often as not all or nothing is seen through.
  for (int x = 0; x < size.width(); ++x) {
    made.setPixel(x, 0, made.pixel(x, 0) | 0xFF000000U);
    made.setPixel(x, 1, 0);
  }
  return made.convertToFormat(format);
}

TEST(Stamp, PutsItsColoursAsAPainterDoes) {
  std::mt19937 random(21);
  const QImage picture = anyPicture({7, 5}, QImage::Format_ARGB32_Premultiplied, random);
  const Stamp stamp(picture);
  for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
    const QImage ground = anyPicture({20, 12}, format, random);
    // In the middle, over each edge and corner, and outside.
    for (int top = -6; top <= 13; ++top)
      for (int left = -8; left <= 21; ++left) {
        QImage stamped = ground, painted = ground;
        stamp.putOn(stamped, left, top);
        QPainter(&painted).drawImage(left, top, picture);
        ASSERT_EQ(stamped, painted) << left << " " << top;
      }
  }
}

}  // namespace
}  // namespace zevfit
