#pragma once

#include "plot/drawing/surface.h"
#include "plot/overlay/looks.h"

namespace zevfit {

/// A line from place to place whose dashes go on around its corners. Places in twips.
class DashedLine {
 public:
  DashedLine(Surface& surface, const Stroke& stroke, Dash dash)
      : surface_(surface), stroke_(stroke), dash_(dash) {}

  /// Begins a line, with a whole dash.
  void moveTo(double x, double y);
  void lineTo(double x, double y);

 private:
  Surface& surface_;
  Stroke stroke_;
  Dash dash_;
  double x_ = 0, y_ = 0;
  double done_ = 0;  ///< how far into dash and gap the line has come
};

}  // namespace zevfit
