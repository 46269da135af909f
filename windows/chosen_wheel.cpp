#include "windows/chosen_wheel.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "windows/quiet_focus.h"

namespace zevfit {

namespace {

/// What a notch turns a wheel by, in eighths of a degree.
constexpr int kNotch = QWheelEvent::DefaultDeltasPerStep;

QAbstractSlider* toSlider(QWidget& widget) {
  return qobject_cast<QScrollBar*>(&widget) ? nullptr : qobject_cast<QAbstractSlider*>(&widget);
}

bool holdsValue(QWidget& widget) {
  return toSlider(widget) || qobject_cast<QComboBox*>(&widget) ||
         qobject_cast<QAbstractSpinBox*>(&widget);
}

bool isOfUser(Qt::FocusReason reason) { return reason != Qt::OtherFocusReason; }

/// Up, and to the right, is more.
int turnOf(const QWheelEvent& event) {
  const QPoint angle = event.angleDelta();
  const int turn = angle.y() != 0 ? angle.y() : -angle.x();
  return event.inverted() ? -turn : turn;
}

}  // namespace

ChosenWheel::ChosenWheel() { qApp->installEventFilter(this); }

bool ChosenWheel::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  auto& widget = static_cast<QWidget&>(*watched);
  switch (event->type()) {
    case QEvent::Polish:
      if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
      return false;
    case QEvent::FocusIn:
      noteFocus(widget, static_cast<QFocusEvent*>(event)->reason());
      return false;
    case QEvent::MouseButtonPress:
      if (widget.hasFocus()) chosen_ = QApplication::focusWidget();
      return false;
    case QEvent::Wheel:
      return wheel(widget, static_cast<QWheelEvent&>(*event));
    default:
      return false;
  }
}

// A focus that is only put back is whoever's it was, and a list that has dropped down gives it
// back. A dialog tells its first control of the focus before it has it.
void ChosenWheel::noteFocus(QWidget& widget, Qt::FocusReason reason) {
  if (!widget.hasFocus() || widget.window()->windowType() == Qt::Popup) return;
  if (isRealFocus(reason)) chosen_ = isOfUser(reason) ? &widget : nullptr;
}

bool ChosenWheel::wheel(QWidget& widget, QWheelEvent& event) {
  if (!holdsValue(widget)) return false;
  if (!widget.hasFocus() || chosen_ != &widget) {
    event.ignore();
    return true;
  }
  QAbstractSlider* slider = toSlider(widget);
  if (!slider) return false;
  turn(*slider, event);
  event.accept();
  return true;
}

// Fine wheels tell of less than a notch at a time.
void ChosenWheel::turn(QAbstractSlider& slider, const QWheelEvent& event) {
  const int by = turnOf(event);
  const bool goesBack = (rest_ < 0) != (by < 0);
  if (turned_ != &slider || goesBack) rest_ = 0;
  turned_ = &slider;
  rest_ += by;
  const bool large = event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  const int step = large ? slider.pageStep() : slider.singleStep();
  const int notches = rest_ / kNotch;
  rest_ -= notches * kNotch;
  slider.setValue(slider.value() + notches * step);
}

}  // namespace zevfit
