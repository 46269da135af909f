#pragma once

#include "platform/painter_surface.h"

namespace zevfit {

/// Draws on a bitmap, which must outlive it and be touched by nobody else before end().
class BitmapSurface : public PainterSurface {
 public:
  explicit BitmapSurface(QImage& image) : image_(image) {}
  ~BitmapSurface() override { end(); }
  BitmapSurface(const BitmapSurface&) = delete;
  BitmapSurface& operator=(const BitmapSurface&) = delete;

  void clear(Colour background) override;
  /// Copies a bitmap to a place in logical pixels, over what is there.
  void paste(const QImage& bitmap, QPoint place);
  /// All that was drawn stands in the bitmap, and no painter is open.
  void end();
  using PainterSurface::forget;

 private:
  QPainter& painter() override;
  QImage& bitmap() override { return image_; }

  QImage& image_;
  QPainter painter_;
};

}  // namespace zevfit
