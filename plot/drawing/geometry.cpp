#include "plot/drawing/geometry.h"

#include "session/fault.h"

namespace zevfit {

double PlotMap::x(double h) const {
  return finite(divide(box.xright() - PlotBox::xleft, xmax) * h + PlotBox::xleft);
}

double PlotMap::y(double g) const {
  const double bottom = box.ybottom();
  return finite(divide(PlotBox::ytop - bottom, finite(ymax - ymin)) * (g - ymin) + bottom);
}

}  // namespace zevfit
