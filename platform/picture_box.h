#pragma once

#include <QImage>
#include <QWidget>

#include "platform/bitmap_surface.h"
#include "platform/drawn_list.h"

namespace zevfit {

/// The whole logical pixels nearest to a length in twips, held to what a widget can be placed at.
int toPixels(double twips);

/// A picture with a persistent bitmap at the resolution of its screen: what is drawn stays, and is
/// what the widget shows. Its size is kept in twips. What is drawn reaches the bitmap when somebody
/// looks at it, and a drawing that begins as the one before goes on from there: a step of a slider
/// changes a curve and not the frame.
class PictureBox : public QWidget, private Surface {
 public:
  explicit PictureBox(QWidget* parent = nullptr);

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
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override;
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override;
  void box(double left, double top, double width, double height, Colour fill) override;
  double textWidth(std::string_view text, const Font& font) override;

  template <class T>
  void add(const T& item);
  void changed();
  void needBitmap();
  void drawAnew();
  /// What is drawn is no longer all that the bitmap shows.
  void forgetDrawn();
  void forgetBeginning();
  QImage blank(const QSize& size) const;

  double width_ = 0, height_ = 0;
  Colour background_ = kWhite;
  QImage image_;
  BitmapSurface bitmap_{image_};
  DrawnList drawn_;
  bool cleared_ = false;     ///< the bitmap shows a drawing of before
  bool comparable_ = false;  ///< the bitmap shows drawn_ alone, drawn in one go
  bool isToPaint_ = false;
  QImage beginning_;       ///< the bitmap with the first items, where these are kept
  std::size_t begun_ = 0;  ///< how many
};

}  // namespace zevfit
