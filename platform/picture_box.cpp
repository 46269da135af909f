#include "platform/picture_box.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

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
  QImage grown = blank(pixels);
  if (!image_.isNull()) QPainter(&grown).drawImage(0, 0, image());
  image_ = grown;
  forgetDrawn();
  resize(pixels);
  changed();
}

void PictureBox::paste(const QImage& bitmap, double left, double top) {
  image();
  bitmap_.paste(bitmap, {toPixels(left), toPixels(top)});
  forgetDrawn();
  changed();
}

void PictureBox::needBitmap() {
  if (image_.isNull()) image_ = blank(size());
}

const QImage& PictureBox::image() {
  needBitmap();
  if (cleared_) {
    if (!drawn_.isShown()) drawAnew();
  } else if (!drawn_.isShown()) {
    // A curve that goes on behind a look at it is two, and so is not what it is in one go.
    comparable_ = false;
    drawn_.draw(drawn_.same(), drawn_.size(), bitmap_);
  }
  bitmap_.end();
  drawn_.shown();
  cleared_ = false;
  return image_;
}

void PictureBox::drawAnew() {
  const std::size_t cut = drawn_.cut(drawn_.same());
  bitmap_.end();
  if (begun_ == 0 || begun_ > cut || drawn_.cut(begun_) != begun_) {
    forgetBeginning();
    bitmap_.clear(background_);
  } else {
    std::memcpy(image_.bits(), beginning_.constBits(),
                static_cast<std::size_t>(image_.sizeInBytes()));
  }
  const std::size_t from = begun_;
  if (cut > from) {
    drawn_.draw(from, cut, bitmap_);
    bitmap_.end();
    beginning_ = image_.copy();
    begun_ = cut;
  }
  drawn_.draw(begun_, drawn_.size(), bitmap_);
}

void PictureBox::forgetBeginning() {
  beginning_ = {};
  begun_ = 0;
}

void PictureBox::forgetDrawn() {
  drawn_.forget();
  forgetBeginning();
  cleared_ = comparable_ = false;
}

QColor PictureBox::colourAt(double x, double y) {
  const QImage& bitmap = image();
  const qreal ratio = bitmap.devicePixelRatio();
  const QPoint at(static_cast<int>(std::floor(std::clamp(x, -1e6, 1e6) / kTwipsPerPixel * ratio)),
                  static_cast<int>(std::floor(std::clamp(y, -1e6, 1e6) / kTwipsPerPixel * ratio)));
  return bitmap.valid(at) ? bitmap.pixelColor(at) : QColor();
}

void PictureBox::clear(Colour background) {
  const bool isOtherScreen = image_.devicePixelRatio() != devicePixelRatioF();
  if (!comparable_ || background != background_ || isOtherScreen) forgetDrawn();
  background_ = background;
  if (isOtherScreen) {
    bitmap_.end();
    bitmap_.forget();
    image_ = blank(size());
  }
  drawn_.restart();
  cleared_ = comparable_ = true;
  changed();
}

void PictureBox::changed() {
  if (isToPaint_) return;
  isToPaint_ = true;
  update();
}

template <class T>
void PictureBox::add(const T& item) {
  drawn_.add(item);
  changed();
}

void PictureBox::text(double x, double y, std::string_view text, const Font& font, Colour colour) {
  add(DrawnList::Text{x, y, std::string(text), font, colour});
}

void PictureBox::line(double x1, double y1, double x2, double y2, const Stroke& stroke) {
  add(DrawnList::Line{x1, y1, x2, y2, stroke});
}

void PictureBox::disc(double x, double y, double radius, const Stroke& outline, Colour fill) {
  add(DrawnList::Disc{x, y, radius, outline, fill});
}

void PictureBox::box(double left, double top, double width, double height, Colour fill) {
  add(DrawnList::Box{left, top, width, height, fill});
}

double PictureBox::textWidth(std::string_view text, const Font& font) {
  needBitmap();
  return bitmap_.textWidth(text, font);
}

// Of a picture that nobody changes the beginning need not be kept.
bool PictureBox::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate || event->type() == QEvent::Hide) forgetBeginning();
  return QWidget::event(event);
}

void PictureBox::paintEvent(QPaintEvent* event) {
  isToPaint_ = false;
  const QImage& shown = image();
  QPainter to(this);
  // A clip of one rectangle is quick, one of several is not.
  for (const QRect& part : event->region()) {
    to.setClipRect(part);
    to.drawImage(0, 0, shown);
  }
}

}  // namespace zevfit
