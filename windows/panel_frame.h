#pragma once

#include <QFont>
#include <QGroupBox>
#include <QPixmap>
#include <QStyle>

class QStyleOptionGroupBox;

namespace zevfit {

/// A frame of the panel, shown from a picture that is kept as long as it looks the same: each step
/// of a drag draws a field in it anew, and with it the ground that it lies on.
class PanelFrame : public QGroupBox {
 public:
  explicit PanelFrame(const QString& title);

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// All that the picture depends on, but for the style.
  struct Look {
    QSize size;
    qreal ratio = 0;
    QString title;
    QStyle::State state;
    qint64 palette = 0;
    QFont font;
    bool operator==(const Look&) const = default;
  };
  Look lookOf(const QStyleOptionGroupBox& option) const;
  void renew(const QStyleOptionGroupBox& option);

  Look look_;
  QPixmap picture_;  ///< with the ground of the window
};

}  // namespace zevfit
