#pragma once

#include <QDialog>
#include <QIcon>
#include <array>
#include <string>
#include <vector>

#include "session/file_chooser.h"
#include "session/messages.h"
#include "session/session.h"
#include "session/structure_view.h"
#include "windows/boundary.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zevfit {

class Grid;

/// What the data structure window asks of the main window. The test of coregionalization fills its
/// own lists each time it opens. Positions count from 0; a list that can't do as it is asked throws
/// Fault.
class StructureHost {
 public:
  virtual ~StructureHost() = default;

  /// Empties the list of variables of the main window.
  virtual void clearVariables() = 0;
  /// The main window takes input again.
  virtual void enableMain() = 0;
  /// Shows the main window and makes it the active one.
  virtual void focusMain() = 0;
  /// Gives the list of directions of the main window these entries, in place of what it had.
  virtual void fillDirections(const std::vector<std::string>& names) = 0;
  /// The same with the list of variables.
  virtual void fillVariables(const std::vector<std::string>& names) = 0;
  /// Takes the entry of a variable that is removed out of the list, if it is there. The list stays
  /// on its variable, or chooses the first where that is the one; its handler runs where its
  /// position changes.
  virtual void removeVariable(int position) = 0;
  /// Chooses an entry in the main window's lists, as a user would: their handlers run.
  virtual void selectDirection(int position) = 0;
  virtual void selectVariable(int position) = 0;
  /// The fit controls of the main window can be used.
  virtual void enableFitControls() = 0;
  /// A minimised main window is maximised; it is shown, and its plot button takes the focus.
  virtual void startFit() = 0;
};

/// The file dialog for variogram files.
inline constexpr const char* kOpenTitle = "Input Data File (*.ZVM)";
inline constexpr const char* kOpenPattern = "*.ZVM";

/// The data structure window: shows what the file holds, makes and removes derived variables, and
/// starts the fit. It is modal, and hidden rather than closed.
class frmzevfit : public QDialog {
 public:
  frmzevfit(Session& session, Messages& messages, FileChooser& chooser, StructureHost& host,
            const FaultReport& faults, QWidget* parent = nullptr);

  /// Takes up a file that was just read into the session, without showing the window. A statement
  /// that fails is dropped and the next one runs, so counts beyond the tables end with the tables.
  void fill(const std::string& path);

  /// Shows the window in its normal size; returns when it is hidden again.
  void showModal();
  /// The same for a file that was taken up before. A save may have left another count in `nvar`; it
  /// becomes that of the listed variables again, but for a file that claims more than can be
  /// listed.
  void reopen();
  /// The variables of the file and those derived from them.
  std::int64_t listed() const;

  /// Escape is the close button.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void makeControls();
  void layOut();
  void orderTabs();
  void connectHandlers();

  void fillNames();
  void fillDirections();
  void fillVariableRows();
  void selectFirstEntries();
  void fillHeadings();

  void Combovar_Click();
  void Combodirvalues_Click();
  void grid1_Click(int row);
  void adicionar_Click();
  void remove_Click();
  void Command1_Click();
  void Command2_Click();

  void showClasses(Pair pair);
  void setTick(int row, bool ticked);
  void refuse(const Refusal& refusal);
  void fillHostLists();
  void chooseFirstSubject();
  void leave();

  Session& session_;
  Messages& messages_;
  FileChooser& chooser_;
  StructureHost& host_;
  const FaultReport& faults_;

  QGroupBox* gridcabeca;
  QLabel* Labelnumerovar;
  QLabel* Labelnumerodir;
  QComboBox* Combovar;
  QComboBox* Combodirvalues;
  std::array<QLabel*, 2> Label5;
  Grid* gridresults;
  Grid* grid1;
  QIcon Picturegrid;
  QIcon Picturegrid2;
  QLineEdit* Text2;
  QPushButton* adicionar;
  QPushButton* remove;
  QPushButton* Command1;
  QPushButton* Command2;
};

}  // namespace zevfit
