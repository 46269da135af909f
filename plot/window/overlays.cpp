#include "plot/window/overlays.h"

#include "session/line.h"

namespace zevfit {

void hideHandles(DirectionWindow& window) {
  for (const Line handle : kLines) window.showHandle(handle, false);
}

}  // namespace zevfit
