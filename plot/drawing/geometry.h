#pragma once

#include "session/fault.h"

namespace zevfit {

/// The plot box in a picture, twips. Margins are the same at all sizes; the box is split 5 by 5.
struct PlotBox {
  double pictureW = 0, pictureH = 0;

  /// What the box has beside it, and above and below it.
  static constexpr double xmargin = 800, ymargin = 600;
  static constexpr double xleft = xmargin;
  static constexpr double ytop = ymargin;
  constexpr double xright() const { return pictureW - xmargin; }
  constexpr double ybottom() const { return pictureH - ymargin; }
  /// k = 1 to 5.
  constexpr double xgrid(int k) const { return xleft + k * ((xright() - xleft) / 5); }
  /// k = 0 to 4.
  constexpr double ygrid(int k) const { return ytop + k * ((ybottom() - ytop) / 5); }
};

/// Distance and semivariance to picture; neither map clamps.
struct PlotMap {
  PlotBox box;
  double xmax = 0, ymin = 0, ymax = 0;

  /// ((xright - xleft) / xmax) h + xleft; throws Fault when xmax is 0.
  double x(double h) const {
    return finite(divide(box.xright() - PlotBox::xleft, xmax) * h + PlotBox::xleft);
  }
  /// ((ytop - ybottom) / (ymax - ymin)) (g - ymin) + ybottom; throws Fault when ymax equals ymin.
  double y(double g) const {
    const double bottom = box.ybottom();
    return finite(divide(PlotBox::ytop - bottom, finite(ymax - ymin)) * (g - ymin) + bottom);
  }
};

}  // namespace zevfit
