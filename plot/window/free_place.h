#pragma once

#include <span>

namespace zevfit {

/// A window in the area of the plots, in pixels from its corner; the title is the topmost part.
struct WindowPlace {
  int left = 0, top = 0, width = 0, height = 0;
  int title = 0;  ///< height of the title
};

struct AreaSize {
  int width = 0, height = 0;
};

/// Where a window that comes up goes: wholly into the area, as far as it fits; over as little as
/// can be of the titles of those that are there, then of these themselves; then as far up and to
/// the left as it gets. Takes the size of `window` and moves it.
WindowPlace freePlace(const AreaSize& area, WindowPlace window,
                      std::span<const WindowPlace> others);

}  // namespace zevfit
