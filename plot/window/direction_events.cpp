#include "plot/window/direction_events.h"

#include "plot/window/overlays.h"

namespace zevfit {

void Form_Load(DirectionWindow& window) {
  window.setCaption("");
  window.pen() = PenState{};
  window.dragState() = DragState{};
  window.setSize(kLoadWidth, kLoadHeight);
  window.setPictureSize(kLoadWidth - kFrameWidth, kLoadHeight - kFrameHeight);
  hideHandles(window);
  for (int handle = 0; handle < kHandles; ++handle) window.setHandleBorder(handle, true);
  window.hideGuides();
  for (const Guide guide : {Guide::Line1, Guide::Line2})
    window.setGuideStyle(guide, LineStyle::dotted);
  window.setTagCaption("");
  window.showTag(false);
}

void Form_Click(Fit& fit, DirectionWindow& window) {
  for (int handle = 0; handle < kHandles; ++handle) {
    fit.session.dragsel.at(static_cast<std::size_t>(handle)) = 0;
    fit.session.dragging = 0;
    window.showHandle(handle, false);
    window.setHandleBorder(handle, true);
  }
  window.hideGuides();
}

void Picture4_LostFocus(DirectionWindow& window) {
  hideHandles(window);
  window.hideGuides();
}

void Picture4_Resize(DirectionWindow& window) { window.showTag(false); }

void Label1_Click(DirectionWindow& window) { window.showTag(false); }

}  // namespace zevfit
