#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "session/session.h"
#include "session/style_chooser.h"
#include "windows/boundary.h"

class QLabel;
class QPushButton;
class QRadioButton;

namespace zevfit {

/// The window of the five colours. Its swatches are those of the style, which every drawing reads.
class cores : public QDialog {
 public:
  cores(Session& session, StyleChooser& chooser, const FaultReport& faults, QWidget* parent);

  void open() override;
  /// Runs when the window has gone.
  std::function<void()> closed;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// The close box: swatches, option and the colour of the dialog go with the window, and are next
  /// as at the start.
  void reject() override;

 private:
  void makeControls();
  void layOut();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void showSwatches();
  void leave();

  Session& session_;
  StyleChooser& chooser_;
  const FaultReport& faults_;
  Colour held_ = kBlack;  ///< what the colour dialog holds
  std::array<QRadioButton*, 5> Option;
  std::array<QLabel*, 5> Label;
  QPushButton* Command1;
  QPushButton* Command2;
  QPushButton* Command3;
};

}  // namespace zevfit
