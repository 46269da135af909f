#pragma once

#include <QProxyStyle>

class QStyleOptionFrame;

namespace zevfit {

/// The style of the desktop, with what it leaves unseen on dark palettes: boxes and options that
/// are not ticked, fields and buttons have an outline there that stands out from the ground, the
/// handles of sliders are light, and so are title and buttons of a plot's window, active or not.
/// The outline of a field, which takes long to stroke, is kept as a picture. No picture file is
/// read for what a start shows: for the first one Qt loads all its readers of pictures. So the
/// frames of groups are painted here, and the icons of bars that are too long for the window, which
/// are seldom on show, are read when they are.
class HouseStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget = nullptr) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option = nullptr,
                     const QWidget* widget = nullptr) const override;

 private:
  /// Whether painted here is what it would look like: of other styles only they themselves know.
  bool paintsItself(const QPainter& painter) const;
  void drawField(const QStyleOptionFrame& field, QPainter& painter, const QWidget* widget) const;
  void drawGroupFrame(const QStyleOption& option, QPainter& painter, const QWidget* widget) const;
};

}  // namespace zevfit
