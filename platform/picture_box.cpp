#include "platform/picture_box.h"

#include <QPaintEvent>
#include <algorithm>
#include <cmath>

namespace zevfit {

namespace {

/// Bitmaps have the resolution that the logic's points are made for: 96 to the inch.
constexpr int kDotsPerMetre = 3780;
/// No picture is larger than this many pixels a side, whatever size a window claims.
constexpr int kLargestSide = 16384;

/// No widget is placed farther out than this many pixels, whatever a cell holds.
constexpr double kFarthest = 30000;

}  // namespace

int toPixels(double twips) {
  return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -kFarthest, kFarthest)));
}

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

PictureBox::~PictureBox() { endPainting(); }

QImage PictureBox::blank(const QSize& size) const {
  const qreal ratio = devicePixelRatioF();
  QImage made((QSizeF(size) * ratio).toSize(), QImage::Format_RGB32);
  made.setDevicePixelRatio(ratio);
  made.setDotsPerMeterX(kDotsPerMetre);
  made.setDotsPerMeterY(kDotsPerMetre);
  made.fill(toQColor(background_));
  return made;
}

void PictureBox::setSizeTwips(double width, double height) {
  width_ = width;
  height_ = height;
  const QSize pixels = QSize(toPixels(width), toPixels(height))
                           .expandedTo({1, 1})
                           .boundedTo({kLargestSide, kLargestSide});
  if (pixels == size() && !image_.isNull()) return;
  endPainting();
  QImage grown = blank(pixels);
  if (!image_.isNull()) QPainter(&grown).drawImage(0, 0, image_);
  image_ = grown;
  resize(pixels);
  update();
}

void PictureBox::paste(const QImage& bitmap, double left, double top) {
  finish();
  painter().drawImage(QPoint(toPixels(left), toPixels(top)), bitmap);
}

const QImage& PictureBox::image() {
  endPainting();
  return image_;
}

QColor PictureBox::colourAt(double x, double y) {
  const QImage& bitmap = image();
  const qreal ratio = bitmap.devicePixelRatio();
  const QPoint at(static_cast<int>(std::floor(std::clamp(x, -1e6, 1e6) / kTwipsPerPixel * ratio)),
                  static_cast<int>(std::floor(std::clamp(y, -1e6, 1e6) / kTwipsPerPixel * ratio)));
  return bitmap.valid(at) ? bitmap.pixelColor(at) : QColor();
}

void PictureBox::clear(Colour background) {
  background_ = background;
  endPainting();
  if (image_.devicePixelRatio() != devicePixelRatioF()) {
    forget();
    image_ = blank(size());
  } else {
    image_.fill(toQColor(background));
  }
  update();
}

QPainter& PictureBox::painter() {
  if (!painter_.isActive()) {
    if (image_.isNull()) image_ = blank(size());
    painter_.begin(&image_);
    update();
  }
  return painter_;
}

void PictureBox::endPainting() {
  finish();
  if (painter_.isActive()) painter_.end();
}

void PictureBox::paintEvent(QPaintEvent* event) {
  QPainter to(this);
  to.setClipRegion(event->region());
  to.drawImage(0, 0, image());
}

}  // namespace zevfit
