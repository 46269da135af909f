#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QAbstractSlider;
class QWheelEvent;

namespace zevfit {

/// Keeps the wheel from changing a value that it merely passes over, in all windows: lists, sliders
/// and spin boxes take it only while they have a focus that the user gave them by a click or a key;
/// otherwise it goes on to what scrolls behind them. The wheel itself gives no focus. A notch over
/// a slider is one small step of it, and with Ctrl or Shift a large one.
class ChosenWheel : public QObject {
 public:
  /// Watches all of the application while it lives.
  ChosenWheel();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void noteFocus(QWidget& widget, Qt::FocusReason reason);
  bool wheel(QWidget& widget, QWheelEvent& event);
  void turn(QAbstractSlider& slider, const QWheelEvent& event);

  QPointer<QWidget> chosen_;  ///< was given the focus by the user
  QPointer<QWidget> turned_;
  int rest_ = 0;  ///< of the turn over that slider, less than a notch
};

}  // namespace zevfit
