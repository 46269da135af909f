#include "plot/window/drag_events.h"

#include <string>

#include "plot/window/handles.h"
#include "session/line.h"
#include "session/number_pattern.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

void moveMouse(DirectionWindow& window, double x, double y) {
  window.dragState().cursorx = x;
  window.dragState().cursory = toSingle(y);
}

/// The maps of a drag take what the picture offers inside its border, unlike the drawing.
PlotMap dragMap(const Session& session, DirectionWindows& windows) {
  const Pair pair = session.current();
  const DirectionWindow& current = windows.plotwin(pair);
  return {{current.scaleWidth(), current.scaleHeight()},
          session.xmax(pair),
          session.ymin(pair),
          session.ymax(pair)};
}

/// The cell takes the value itself; the field's handler then stores what its text reads as, for the
/// selected line, and redraws. After a sill was typed it would wait for Enter, but a drag is seen
/// at once.
void writeParameter(Fit& fit, Line handle, const DragTarget& target, double value) {
  Session& session = fit.session;
  const LineRef held = line(session, session.current(), handle);
  (target.upright ? held.sill() : held.range()) = value;
  const std::string text = formatNumber(value, target.pattern);
  const bool waits =
      target.upright && session.c0typed(session.current()) && fit.panel.text(target.field) != text;
  fit.panel.setText(target.field, text);
  if (waits) plotOrWarn(fit);
}

/// A handle that stays in view is not hidden for a moment: it would lose the mouse that drags it.
void showHeld(DirectionWindow& window, Line handle, const PlotBox& box, Point at) {
  if (!contains(box, at)) return window.showHandle(handle, false);
  window.placeGuide(Guide::Line1, at.x);
  window.placeGuide(Guide::Line2, at.y);
  window.showHandle(handle, true);
}

void dragHandle(Fit& fit, DirectionWindows& windows, DirectionWindow& window, Line handle) {
  Session& session = fit.session;
  session.dragging = true;
  const PlotMap map = dragMap(session, windows);
  const DragState& mouse = window.dragState();
  const Point at = heldInside(map.box, {mouse.cursorx, double{mouse.cursory}});
  window.moveHandle(handle, at.x, at.y);
  session.atyped(session.current()) = false;
  const DragTarget target = dragTarget(handle, mouse.dragaxis);
  writeParameter(fit, handle, target, target.upright ? sillAt(map, at.y) : rangeAt(map, at.x));
  showHeld(window, handle, map.box, at);
}

}  // namespace

void direct(Fit& fit, DirectionWindows& windows, DirectionWindow& window) {
  for (const Line handle : kLines)
    if (fit.session.dragsel.at(indexOf(handle))) dragHandle(fit, windows, window, handle);
}

void Picture4_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, double x,
                        double y) {
  moveMouse(window, x, y);
  direct(fit, windows, window);
}

void estru_MouseMove(Fit& fit, DirectionWindows& windows, DirectionWindow& window, Line handle,
                     double x, double y) {
  moveMouse(window, window.handleLeft(handle) + x, window.handleTop(handle) + y);
  direct(fit, windows, window);
}

}  // namespace zevfit
