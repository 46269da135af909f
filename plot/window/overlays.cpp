#include "plot/window/overlays.h"

namespace zevfit {

void hideHandles(DirectionWindow& window) {
  for (int handle = 0; handle < kHandles; ++handle) window.showHandle(handle, false);
}

}  // namespace zevfit
