#pragma once

#include <QProxyStyle>

namespace zevfit {

/// The style of the desktop, with what it leaves unseen on dark palettes: boxes and options that
/// are not ticked have an outline there that stands out from the ground.
class HouseStyle : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
};

}  // namespace zevfit
