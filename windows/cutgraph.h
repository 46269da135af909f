#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>

#include "model/axis_dialogs.h"
#include "windows/boundary.h"
#include "windows/outside_click.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zevfit {

class ClickLabel;

/// The window for the scales of the axes. It is the only one to take input while it is up, and a
/// click anywhere else closes it without saving, and does nothing else. It keeps its texts while it
/// is hidden.
class cutgraph : public QDialog {
 public:
  /// `activatePlot` makes the active plot window so once more, at which it is drawn.
  cutgraph(Fit& fit, const FaultReport& faults, std::function<void()> activatePlot,
           QWidget* parent);

  /// Fills and shows the window for the pair of the lists; nothing when no file is loaded.
  void open() override;

 protected:
  bool event(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void makeControls();
  void layOut();
  void orderTabs();
  void activated();
  void deactivated();
  void save();
  void showTexts();
  void takeTexts();

  Fit& fit_;
  const FaultReport& faults_;
  const std::function<void()> activatePlot_;
  OutsideClick outside_;
  ScaleTexts texts_;
  /// A box of its own has the focus, which is not lost then.
  bool telling_ = false;
  /// What had the focus in the main window.
  QPointer<QWidget> before_;

  QLabel* Label3_0;
  QLineEdit* novoxmax;
  ClickLabel* Labelxm;
  QLabel* Label3_1;
  QLineEdit* novoymax;
  ClickLabel* Labelym;
  QPushButton* Command1;
  QPushButton* Command2;
};

}  // namespace zevfit
