#pragma once

#include <QDialog>
#include <functional>

namespace zevfit {

/// The help window with the language of the number patterns.
class Frame2 : public QDialog {
 public:
  explicit Frame2(QWidget* parent);

  /// Runs when the window has been closed.
  std::function<void()> closed;

 protected:
  void hideEvent(QHideEvent* event) override;
};

}  // namespace zevfit
