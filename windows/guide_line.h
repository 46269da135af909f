#pragma once

#include <QWidget>

#include "plot/drawing/surface.h"

namespace zevfit {

/// A line of one pixel over a picture, upright or lying as its shape says; the mouse passes it by.
class GuideLine : public QWidget {
 public:
  explicit GuideLine(QWidget* parent);

  void setStyle(LineStyle style);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  LineStyle style_ = LineStyle::dotted;
};

}  // namespace zevfit
