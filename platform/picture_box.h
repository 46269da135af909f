#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <memory>

#include "platform/painter_surface.h"

namespace zevfit {

/// The whole logical pixels nearest to a length in twips, held to what a widget can be placed at.
int toPixels(double twips);

/// A picture with a persistent bitmap at the resolution of its screen: what is drawn stays, and is
/// what the widget shows. Its size is kept in twips.
class PictureBox : public QWidget, private PainterSurface {
 public:
  explicit PictureBox(QWidget* parent = nullptr);
  ~PictureBox() override;

  Surface& surface() { return *this; }

  double widthTwips() const { return width_; }
  double heightTwips() const { return height_; }
  /// What was drawn stays; new parts show the background of the last clearing.
  void setSizeTwips(double width, double height);

  /// Copies a bitmap to a place in twips, over what is there.
  void paste(const QImage& bitmap, double left, double top);

  /// The bitmap as it stands.
  const QImage& image();
  /// Colour of the picture at a place in twips; nothing outside. Bitmap pixels, not the screen's.
  QColor colourAt(double x, double y);

  void clear(Colour background) override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPainter& painter() override;
  void endPainting();
  QImage blank(const QSize& size) const;

  double width_ = 0, height_ = 0;
  Colour background_ = kWhite;
  QImage image_;
  QPainter painter_;
};

}  // namespace zevfit
