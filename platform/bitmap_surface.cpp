#include "platform/bitmap_surface.h"

namespace zevfit {

void BitmapSurface::clear(Colour background) {
  end();
  image_.fill(toQColor(background));
}

void BitmapSurface::paste(const QImage& bitmap, QPoint place) {
  finish();
  painter().drawImage(place, bitmap);
}

void BitmapSurface::end() {
  finish();
  if (painter_.isActive()) painter_.end();
}

QPainter& BitmapSurface::painter() {
  if (!painter_.isActive()) painter_.begin(&image_);
  return painter_;
}

}  // namespace zevfit
