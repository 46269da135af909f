#pragma once

#include <QDialog>
#include <QIcon>
#include <QPointer>
#include <array>

#include "coreg/crosstest.h"
#include "session/messages.h"
#include "session/session.h"
#include "windows/boundary.h"

class QComboBox;
class QGroupBox;
class QPushButton;
class QTreeWidget;

namespace zevfit {

/// The node's key in the tree, and its picture as a number.
inline constexpr int kNodeKeyRole = Qt::UserRole;
inline constexpr int kNodeImageRole = Qt::UserRole + 1;

/// The dialog of the test of coregionalization: three variables, three directions and the tree of
/// verdicts. It is not modal, but the main window is disabled while it is open, so that no model
/// changes under a result. It is hidden rather than closed.
class testcruz : public QDialog {
 public:
  /// `mainWindow` becomes the parent.
  testcruz(Session& session, Messages& messages, const FaultReport& faults, QWidget& mainWindow);

  /// Fills the lists, chooses what was chosen last, runs the test and shows the dialog. Throws
  /// Fault where there is nothing to choose from, as without a file; nothing is shown then.
  void start();

  /// Escape and the close box are "Exit".
  void reject() override;

 protected:
  bool event(QEvent* event) override;

 private:
  /// A list and the cell that keeps its position.
  struct Choice {
    QComboBox* testcruz::*list;
    int Session::*position;
  };
  static const std::array<Choice, 6>& choices();

  void makeControls();
  void layOut();
  void orderTabs();

  void Command1_Click();
  void leave();

  void fillLists();
  void choosePositions();
  /// True where the lists get entries; otherwise warns of a file that has none, or too many.
  bool requireEntries() const;
  void run(const CrossChoice& choice);
  void showTree(const std::vector<TestNode>& nodes);

  Session& session_;
  Messages& messages_;
  const FaultReport& faults_;
  QWidget& mainWindow_;
  QPointer<QWidget> focusBefore_;  ///< of the main window

  QGroupBox* Frame1;
  QGroupBox* Frame3;
  QGroupBox* Frame4;
  QGroupBox* Frame5;
  QGroupBox* Frame6;
  QGroupBox* Frame7;
  QGroupBox* Frame8;
  QComboBox* combovarp;
  QComboBox* combovarsec;
  QComboBox* Combovarcruz;
  QComboBox* Combodmain;
  QComboBox* Combodminor1;
  QComboBox* Combodminor2;
  QTreeWidget* TreeView1;
  std::array<QIcon, 4> listaviso;  ///< the pictures of nodes, in the order of NodeImage
  QPushButton* Command1;
  QPushButton* Command2;
};

}  // namespace zevfit
