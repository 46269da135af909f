#include "plot/window/grip_events.h"

#include "plot/drawing/geometry.h"
#include "plot/drawing/window_key.h"

namespace zevfit {
namespace {

/// Values of the axis of a drag.
constexpr std::int16_t kRangeAxis = 1, kSillAxis = 2;

int& held(Session& session, int handle) {
  return session.dragsel.at(static_cast<std::size_t>(handle));
}

void setFree(Fit& fit, DirectionWindow& window, int handle) {
  held(fit.session, handle) = 0;
  window.setHandleBorder(handle, true);
  fit.session.dragging = 0;
}

void placeGuides(DirectionWindow& window, int handle) {
  window.placeGuide(Guide::Line1, window.handleLeft(handle));
  window.placeGuide(Guide::Line2, window.handleTop(handle));
}

void setGuideLengths(DirectionWindow& window) {
  const PlotBox box{window.pictureWidth(), window.pictureHeight()};
  window.setGuideEnds(Guide::Line1, PlotBox::ytop, box.ybottom());
  window.setGuideEnds(Guide::Line2, PlotBox::xleft, box.xright());
}

void showOneGuide(DirectionWindow& window, Guide shown) {
  window.showGuide(Guide::Line1, shown == Guide::Line1);
  window.showGuide(Guide::Line2, shown == Guide::Line2);
}

/// The nugget has no other axis; any other button changes nothing.
void chooseAxis(DirectionWindow& window, int handle, MouseButton button) {
  if (handle == 0) return showOneGuide(window, Guide::Line2);
  if (button == MouseButton::other) return;
  const bool range = button == MouseButton::left;
  showOneGuide(window, range ? Guide::Line1 : Guide::Line2);
  window.dragState().dragaxis = range ? kRangeAxis : kSillAxis;
}

void takeHold(Fit& fit, DirectionWindow& window, int handle) {
  held(fit.session, handle) = 1;
  fit.session.dragging = 1;
  window.setHandleBorder(handle, false);
  placeGuides(window, handle);
}

}  // namespace

void estru_MouseDown(Fit& fit, DirectionWindow& window, int handle, MouseButton button) {
  Session& session = fit.session;
  takeKey(session, window);
  if (session.curvar < 1 || session.curdir < 1) return;
  if (held(session, handle) == 1) return setFree(fit, window, handle);
  takeHold(fit, window, handle);
  setGuideLengths(window);
  chooseAxis(window, handle, button);
  fit.panel.selectLine(handle);
}

// A release of a handle that its press has freed takes it up again, on purpose: so a handle can be
// held without a button down. The guides keep the lengths of the last press.
void estru_MouseUp(Fit& fit, DirectionWindow& window, int handle, MouseButton button) {
  if (held(fit.session, handle) == 1) {
    setFree(fit, window, handle);
    for (const Guide guide : {Guide::Line1, Guide::Line2})
      window.setGuideStyle(guide, LineStyle::solid);
    return;
  }
  takeHold(fit, window, handle);
  chooseAxis(window, handle, button);
  fit.panel.selectLine(handle);
}

void estru_Click(Fit& fit) { fit.plotter.plotvariogram(); }

}  // namespace zevfit
