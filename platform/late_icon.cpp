#include "platform/late_icon.h"

#include <QPainter>
#include <QPixmap>
#include <utility>

namespace zevfit {

LateIcon::LateIcon(std::function<QIcon()> read) : read_(std::move(read)) {}

const QIcon& LateIcon::icon() {
  if (!icon_) icon_ = read_();
  return *icon_;
}

void LateIcon::paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) {
  icon().paint(painter, place, Qt::AlignCenter, mode, state);
}

QPixmap LateIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  return icon().pixmap(size, 1, mode, state);
}

QSize LateIcon::actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  return icon().actualSize(size, mode, state);
}

QList<QSize> LateIcon::availableSizes(QIcon::Mode mode, QIcon::State state) {
  return icon().availableSizes(mode, state);
}

QIconEngine* LateIcon::clone() const { return new LateIcon(*this); }

}  // namespace zevfit
