#pragma once

#include <QProxyStyle>

namespace zevfit {

/// The style of the desktop, with what it leaves unseen on dark palettes: boxes and options that
/// are not ticked, fields and buttons have an outline there that stands out from the ground, and
/// the handles of sliders are light.
class HouseStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget = nullptr) const override;
};

}  // namespace zevfit
