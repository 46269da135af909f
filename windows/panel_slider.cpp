#include "windows/panel_slider.h"

#include <QMouseEvent>

namespace zevfit {

void PanelSlider::mousePressEvent(QMouseEvent* event) {
  boxCame_ = false;
  window()->installEventFilter(this);
  QSlider::mousePressEvent(event);
  settle();
}

void PanelSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!boxCame_) QSlider::mouseMoveEvent(event);
  settle();
}

void PanelSlider::timerEvent(QTimerEvent* event) {
  settle();
  if (repeatAction() != SliderNoAction) QSlider::timerEvent(event);
  settle();
}

bool PanelSlider::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) boxCame_ = true;
  return QSlider::eventFilter(watched, event);
}

void PanelSlider::settle() {
  if (!boxCame_) return;
  setRepeatAction(SliderNoAction);
  setSliderDown(false);
}

}  // namespace zevfit
