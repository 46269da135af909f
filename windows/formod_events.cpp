// Mouse and focus events of a plot window, turned into the handlers of the core; and the overlays
// that these move.
#include <QLabel>
#include <QMouseEvent>
#include <algorithm>

#include "plot/window/direction_events.h"
#include "plot/window/drag_events.h"
#include "plot/window/grip_events.h"
#include "plot/window/handles.h"
#include "plot/window/pair_count.h"
#include "plot/window/placing.h"
#include "session/line.h"
#include "windows/formod.h"
#include "windows/guide_line.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

MouseButton toButton(const QMouseEvent& mouse) {
  if (mouse.button() == Qt::LeftButton) return MouseButton::left;
  if (mouse.button() == Qt::RightButton) return MouseButton::right;
  return MouseButton::other;
}

/// The mouse came up where it went down: a click.
bool endsClick(const QMouseEvent& mouse, const QWidget& on, const QWidget* pressed) {
  return pressed == &on && on.rect().contains(mouse.position().toPoint());
}

/// Events of the content end there: those of a handle that its own move has shifted would reach the
/// frame at a wrong place, and a drag would go on over the edge. The frame alone sees the mouse
/// pass over the rest, at which its buttons lose their look.
bool endsInContent(const QEvent& event, bool onHandle) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      return true;
    case QEvent::MouseMove:
      return onHandle || static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
    default:
      return false;
  }
}

}  // namespace

bool Formod::eventFilter(QObject* watched, QEvent* event) {
  const auto handle = std::find(estru.begin(), estru.end(), watched);
  guarded(faults_, [&] {
    if (watched == Picture4) pictureEvent(*event);
    if (handle != estru.end()) handleEvent(static_cast<Line>(handle - estru.begin()), *event);
    if (watched == Label1 && event->type() == QEvent::MouseButtonRelease) Label1_Click(*this);
    if (watched == form_ && event->type() == QEvent::MouseButtonRelease)
      Form_Click(fit_.session, *this);
  });
  if (endsInContent(*event, handle != estru.end())) return true;
  return QMdiSubWindow::eventFilter(watched, event);
}

void Formod::pictureEvent(const QEvent& event) {
  switch (event.type()) {
    case QEvent::Resize:
      return Picture4_Resize(*this);
    case QEvent::FocusOut:
      if (isRealFocus(static_cast<const QFocusEvent&>(event).reason())) Picture4_LostFocus(*this);
      return;
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
      return pictureMouse(static_cast<const QMouseEvent&>(event));
    default:
      return;
  }
}

void Formod::pictureMouse(const QMouseEvent& mouse) {
  const QPointF at = mouse.position() * kTwipsPerPixel;
  if (mouse.type() == QEvent::MouseMove)
    return Picture4_MouseMove(fit_, windows_, *this, at.x(), at.y());
  if (mouse.type() == QEvent::MouseButtonDblClick)
    return Picture4_MouseUp(fit_.session, fit_.plotter, fit_.hints, *this);
  if (mouse.type() == QEvent::MouseButtonPress) {
    pressed_ = Picture4;
    // A touch comes down without a move before it.
    drag_.cursorx = at.x();
    drag_.cursory = static_cast<float>(at.y());
    return;
  }
  const bool click = endsClick(mouse, *Picture4, std::exchange(pressed_, nullptr));
  Picture4_MouseUp(fit_.session, fit_.plotter, fit_.hints, *this);
  if (click) Picture4_Click(fit_, *this);
}

void Formod::handleEvent(Line handle, const QEvent& event) {
  const bool ofMouse =
      event.type() == QEvent::MouseMove || event.type() == QEvent::MouseButtonPress ||
      event.type() == QEvent::MouseButtonDblClick || event.type() == QEvent::MouseButtonRelease;
  if (!ofMouse) return;
  handleMouse(handle, static_cast<const QMouseEvent&>(event));
  showDragCursor(handle);
}

void Formod::showDragCursor(Line handle) {
  const bool held = fit_.session.dragsel.at(indexOf(handle));
  const bool upright = dragTarget(handle, drag_.dragaxis).upright;
  Qt::CursorShape shape = upright ? Qt::SizeVerCursor : Qt::SizeHorCursor;
  if (!held && handle != Line::nugget) shape = Qt::SizeAllCursor;
  QLabel& label = *estru.at(indexOf(handle));
  if (label.cursor().shape() != shape) label.setCursor(shape);
}

// Qt sends no press for the second click of a double click; only its release is handled, and lets
// go of a handle that a click has left held.
void Formod::handleMouse(Line handle, const QMouseEvent& mouse) {
  QWidget& label = *estru.at(indexOf(handle));
  if (mouse.type() == QEvent::MouseMove) {
    const QPointF at = mouse.position() * kTwipsPerPixel;
    return estru_MouseMove(fit_, windows_, *this, handle, at.x(), at.y());
  }
  if (mouse.type() != QEvent::MouseButtonRelease) {
    down_ = &label;
    cut_ = nullptr;
  }
  if (mouse.type() == QEvent::MouseButtonDblClick) return;
  if (mouse.type() == QEvent::MouseButtonPress) {
    pressed_ = &label;
    return estru_MouseDown(fit_.session, fit_.panel, *this, handle, toButton(mouse));
  }
  if (mouse.buttons() == Qt::NoButton) down_ = nullptr;
  // The press has ended when another window came up; its release would take the handle up again.
  if (std::exchange(cut_, nullptr) == &label) return;
  const bool click = std::exchange(pressed_, nullptr) == &label;
  estru_MouseUp(fit_.session, fit_.panel, *this, handle, toButton(mouse));
  if (click) estru_Click(fit_);
}

std::optional<Colour> Formod::colourAt(double x, double y) {
  const QColor colour = Picture4->colourAt(x, y);
  return colour.isValid() ? std::optional(toColour(colour)) : std::nullopt;
}

double Formod::handleLeft(Line handle) const {
  return estru.at(indexOf(handle))->x() * kTwipsPerPixel;
}

double Formod::handleTop(Line handle) const {
  return estru.at(indexOf(handle))->y() * kTwipsPerPixel;
}

double Formod::handleWidth(Line handle) const {
  return estru.at(indexOf(handle))->width() * kTwipsPerPixel;
}

void Formod::moveHandle(Line handle, double left, double top) {
  estru.at(indexOf(handle))->move(toPixels(left), toPixels(top));
}

void Formod::showHandle(Line handle, bool visible) {
  estru.at(indexOf(handle))->setVisible(visible);
  if (visible) estru.at(indexOf(handle))->raise();
}

void Formod::setHandleBorder(Line handle, bool border) {
  estru.at(indexOf(handle))
      ->setFrameStyle(border ? int{QFrame::Box} | int{QFrame::Plain} : int{QFrame::NoFrame});
}

void Formod::showGuide(Guide which, bool visible) { guide(which)->setVisible(visible); }

void Formod::hideGuides() {
  for (const Guide each : {Guide::Line1, Guide::Line2}) showGuide(each, false);
}

void Formod::placeGuide(Guide which, double at) {
  guideAt_.at(static_cast<std::size_t>(which)) = at;
  layGuide(which);
}

void Formod::setGuideEnds(Guide which, double from, double to) {
  guideFrom_.at(static_cast<std::size_t>(which)) = from;
  guideTo_.at(static_cast<std::size_t>(which)) = to;
  layGuide(which);
}

void Formod::layGuide(Guide which) {
  const auto index = static_cast<std::size_t>(which);
  const int at = toPixels(guideAt_.at(index)), from = toPixels(guideFrom_.at(index));
  const int length = std::max(1, toPixels(guideTo_.at(index)) - from);
  guide(which)->setGeometry(which == Guide::Line1 ? QRect(at, from, 1, length)
                                                  : QRect(from, at, length, 1));
}

void Formod::setGuideStyle(Guide which, LineStyle style) { guide(which)->setStyle(style); }

void Formod::placeTag(double left, double top) { Label1->move(toPixels(left), toPixels(top)); }

void Formod::setTagCaption(std::string_view text) {
  Label1->setText(toQString(text));
  Label1->adjustSize();
}

void Formod::showTag(bool visible) {
  Label1->setVisible(visible);
  if (visible) Label1->raise();
}

QImage Formod::clipboardImage() {
  QImage image = Picture4->image();
  image.setDevicePixelRatio(1);
  return image;
}

}  // namespace zevfit
