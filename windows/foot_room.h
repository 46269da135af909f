#pragma once

#include <QWidget>

namespace zevfit {

class ElidedLabel;

/// The middle of the foot: hint and tip, one over the other, and the notes at their right. Their
/// texts change with every step of a slider, and none asks for a layout or makes the window wider.
class FootRoom : public QWidget {
 public:
  FootRoom(ElidedLabel& hint, ElidedLabel& tip, ElidedLabel& notes);
  /// Gives the notes what they need and the hint leaves them, and half the room at least.
  void share();

  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  ElidedLabel& hint_;
  ElidedLabel& tip_;
  ElidedLabel& notes_;
};

}  // namespace zevfit
