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

/// The picture with nothing outside of a part.
QImage onlyWithin(const QImage& picture, const QRect& part) {
  QImage made(picture.size(), picture.format());
  made.fill(Qt::transparent);
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x) made.setPixel(x, y, picture.pixel(x, y));
  return made;
}

/// In the middle, over each edge and corner, and outside.
void expectAsPainted(const QImage& picture, const QImage& ground) {
  const Stamp stamp(picture);
  for (int top = -picture.height() - 1; top <= ground.height() + 1; ++top)
    for (int left = -picture.width() - 1; left <= ground.width() + 1; ++left) {
      QImage stamped = ground, painted = ground;
      stamp.putOn(stamped, left, top);
      QPainter(&painted).drawImage(left, top, picture);
      ASSERT_EQ(stamped, painted) << left << " " << top;
    }
}

constexpr auto kKept = QImage::Format_ARGB32_Premultiplied;

TEST(Stamp, PutsItsColoursAsAPainterDoes) {
  std::mt19937 random(21);
  const QImage picture = anyPicture({7, 5}, kKept, random);
  for (const auto format : {QImage::Format_RGB32, kKept})
    expectAsPainted(picture, anyPicture({20, 12}, format, random));
}

// What is empty at the edges is not kept; of each width some pixels go at once and some alone.
TEST(Stamp, PutsPicturesOfAnyWidthWithEmptyEdges) {
  std::mt19937 random(22);
  const QImage ground = anyPicture({13, 6}, QImage::Format_RGB32, random);
  for (int wide = 0; wide <= 10; ++wide) {
    const QImage picture = anyPicture({13, 4}, kKept, random);
    expectAsPainted(onlyWithin(picture, {wide % 4, 1, wide, 2}), ground);
  }
}

}  // namespace
}  // namespace zevfit
