#pragma once

#include <QIconEngine>
#include <functional>
#include <optional>

namespace zevfit {

/// An icon that is read when it is first drawn: to make one of files is slow, since Qt asks all its
/// readers of pictures for each file.
class LateIcon : public QIconEngine {
 public:
  explicit LateIcon(std::function<QIcon()> read);

  void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override;
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
  QIconEngine* clone() const override;

 private:
  const QIcon& icon();

  std::function<QIcon()> read_;
  std::optional<QIcon> icon_;
};

}  // namespace zevfit
