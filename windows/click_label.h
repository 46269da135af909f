#pragma once

#include <QLabel>
#include <functional>

namespace zevfit {

/// A label that is clicked with the mouse, or with the blank key or Enter while it has the focus.
class ClickLabel : public QLabel {
 public:
  explicit ClickLabel(QWidget* parent = nullptr);

  /// Runs at each click.
  std::function<void()> clicked;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool pressed_ = false;
};

}  // namespace zevfit
