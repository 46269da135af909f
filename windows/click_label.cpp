#include "windows/click_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <utility>

#include "windows/keys.h"

namespace zevfit {

ClickLabel::ClickLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setFrameStyle(int{QFrame::Panel} | int{QFrame::Raised});
  setMargin(3);
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
}

void ClickLabel::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton;
}

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
  const bool click = std::exchange(pressed_, false) && rect().contains(event->position().toPoint());
  if (click && clicked) clicked();
}

void ClickLabel::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (!isPress(key)) return QLabel::keyPressEvent(event);
  if (clicked) clicked();
}

void ClickLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QPainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  option.rect = rect().adjusted(2, 2, -2, -2);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

}  // namespace zevfit
