#include "plot/window/direction_events.h"

#include "plot/window/overlays.h"
#include "session/line.h"

namespace zevfit {

void Form_Load(DirectionWindow& window) {
  window.setCaption("");
  window.pen() = PenState{};
  window.dragState() = DragState{};
  window.setSize(kLoadWidth, kLoadHeight);
  window.setPictureSize(kLoadWidth - kFrameWidth, kLoadHeight - kFrameHeight);
  hideHandles(window);
  for (const Line handle : kLines) window.setHandleBorder(handle, true);
  window.hideGuides();
  for (const Guide guide : {Guide::Line1, Guide::Line2})
    window.setGuideStyle(guide, LineStyle::dotted);
  window.setTagCaption("");
  window.showTag(false);
}

void Form_Click(Session& session, DirectionWindow& window) {
  session.dragsel = {};
  session.dragging = false;
  for (const Line handle : kLines) {
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
