#include "plot/window/grip_events.h"

#include "plot/drawing/geometry.h"
#include "plot/drawing/window_key.h"
#include "session/line.h"

namespace zevfit {
namespace {

bool& held(Session& session, Line handle) { return session.dragsel.at(indexOf(handle)); }

void setFree(Session& session, DirectionWindow& window, Line handle) {
  held(session, handle) = false;
  window.setHandleBorder(handle, true);
  session.dragging = false;
}

void placeGuides(DirectionWindow& window, Line handle) {
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
void chooseAxis(DirectionWindow& window, Line handle, MouseButton button) {
  if (handle == Line::nugget) return showOneGuide(window, Guide::Line2);
  if (button == MouseButton::other) return;
  const bool range = button == MouseButton::left;
  showOneGuide(window, range ? Guide::Line1 : Guide::Line2);
  window.dragState().dragaxis = range ? DragAxis::range : DragAxis::sill;
}

void takeHold(Session& session, DirectionWindow& window, Line handle) {
  held(session, handle) = true;
  session.dragging = true;
  window.setHandleBorder(handle, false);
  placeGuides(window, handle);
}

}  // namespace

void estru_MouseDown(Session& session, FitPanel& panel, DirectionWindow& window, Line handle,
                     MouseButton button) {
  takeKey(session, window);
  if (session.curvar < 1 || session.curdir < 1) return;
  if (held(session, handle)) return setFree(session, window, handle);
  takeHold(session, window, handle);
  setGuideLengths(window);
  chooseAxis(window, handle, button);
  panel.selectLine(handle);
}

// A release of a handle that its press has freed takes it up again: so a handle can be held without
// a button down. The guides keep the lengths of the last press.
void estru_MouseUp(Session& session, FitPanel& panel, DirectionWindow& window, Line handle,
                   MouseButton button) {
  if (held(session, handle)) {
    setFree(session, window, handle);
    for (const Guide guide : {Guide::Line1, Guide::Line2})
      window.setGuideStyle(guide, LineStyle::solid);
    return;
  }
  takeHold(session, window, handle);
  chooseAxis(window, handle, button);
  panel.selectLine(handle);
}

void estru_Click(Fit& fit) { plotOrWarn(fit); }

}  // namespace zevfit
