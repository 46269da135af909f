#pragma once

#include <QDialog>

#include "model/axis_dialogs.h"
#include "windows/boundary.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zevfit {

/// The window for the legend of the distance axis. It is modal, and keeps its text while it is
/// hidden.
class legenda : public QDialog {
 public:
  legenda(Fit& fit, const FaultReport& faults, QWidget* parent);

  /// Shows the window for the pair of the lists; nothing when no file is loaded.
  void open() override;

 private:
  void layOut();
  void save();

  Fit& fit_;
  const FaultReport& faults_;
  QLabel* Label1;
  QLineEdit* Text1;
  QPushButton* Command1;
  QPushButton* Command2;
};

}  // namespace zevfit
