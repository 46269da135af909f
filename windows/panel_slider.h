#pragma once

#include <QSlider>

namespace zevfit {

/// A slider whose moves may bring up a modal box, which then takes the release of the mouse: it
/// does not go on stepping by itself once no button is down.
class PanelSlider : public QSlider {
 public:
  PanelSlider() : QSlider(Qt::Horizontal) {}

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Lets go when a box has taken the mouse meanwhile.
  void settle();

  bool boxCame_ = false;  ///< since the button went down
};

}  // namespace zevfit
