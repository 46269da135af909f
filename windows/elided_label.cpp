#include "windows/elided_label.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>

namespace zevfit {

ElidedLabel::ElidedLabel(const QString& name, Qt::TextElideMode mode) : mode_(mode) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* copy = new QAction("&Copy", this);
  connect(copy, &QAction::triggered, this,
          [this] { QGuiApplication::clipboard()->setText(text()); });
  addAction(copy);
}

void ElidedLabel::tell(const QString& text, const QString& tip) {
  if (text != this->text()) setText(text);
  if (tip != toolTip()) setToolTip(tip);
}

QString ElidedLabel::onOneLine() const { return text().replace('\n', " | "); }

QSize ElidedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(onOneLine()) + 1, fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(onOneLine(), mode_, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                        isEnabled(), shown, foregroundRole());
}

}  // namespace zevfit
