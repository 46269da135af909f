#pragma once

#include <QProxyStyle>

namespace zevfit {

/// The style of the desktop, with what it leaves unseen on dark palettes: boxes and options that
/// are not ticked, fields and buttons have an outline there that stands out from the ground, the
/// handles of sliders are light, and so are title and buttons of a plot's window, active or not.
class HouseStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget = nullptr) const override;
};

}  // namespace zevfit
