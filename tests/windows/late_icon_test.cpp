// Icons that are read when they are first drawn.
#include "platform/late_icon.h"

#include <gtest/gtest.h>

#include <QIcon>
#include <QPainter>
#include <QPixmap>

namespace zevfit {
namespace {

QIcon redIcon() {
  QPixmap picture(8, 8);
  picture.fill(Qt::red);
  return QIcon(picture);
}

TEST(LateIcon, IsReadOnceAndNotBeforeItIsDrawn) {
  int reads = 0;
  const QIcon icon(new LateIcon([&reads] {
    ++reads;
    return redIcon();
  }));
  EXPECT_FALSE(icon.isNull());
  EXPECT_EQ(reads, 0);
  EXPECT_EQ(icon.pixmap(8, 8).toImage().pixelColor(3, 3), QColor(Qt::red));
  QImage sheet(16, 16, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  icon.paint(&painter, QRect(0, 0, 16, 16));
  painter.end();
  EXPECT_EQ(sheet.pixelColor(8, 8), QColor(Qt::red)) << "in the middle of its place";
  EXPECT_EQ(sheet.pixelColor(1, 1), QColor(Qt::white)) << "no larger than it is";
  EXPECT_EQ(icon.actualSize(QSize(16, 16)), QSize(8, 8));
  EXPECT_EQ(icon.availableSizes(), QList<QSize>{QSize(8, 8)});
  EXPECT_EQ(reads, 1);
}

}  // namespace
}  // namespace zevfit
