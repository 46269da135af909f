#include "plot/drawing/drawing_depth.h"

#include "session/fault.h"

namespace zevfit {

DrawingDepth::Level::Level(DrawingDepth& depth) : depth_(depth) {
  if (depth.levels_ == kDeepest) throw Fault("Drawings do not settle");
  ++depth.levels_;
}

}  // namespace zevfit
