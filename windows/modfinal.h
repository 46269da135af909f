#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "files/kriging_file.h"
#include "model/axis_fields.h"
#include "model/result_sources.h"
#include "model/results.h"
#include "session/dialogs.h"
#include "session/file_chooser.h"
#include "session/messages.h"
#include "session/session.h"
#include "windows/boundary.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zevfit {

class ResultsGrid;

/// The results window: the fitted models of a variable in all directions, the choice of the three
/// axes, and the kriging parameter file. It is modal, and hidden rather than closed; the fields,
/// the options and the row of Main stay from one opening to the next.
class modfinal : public QDialog, private AxisFields {
 public:
  modfinal(Session& session, Messages& messages, FileChooser& chooser,
           const Orthogonality& orthogonality, const FaultReport& faults,
           QWidget* parent = nullptr);

  /// Fills the window anew with the first so many variables. Throws Fault for what the session's
  /// tables have no room for, and for models that can't be shown.
  void prepare(int variables);

  /// Shows the window in its normal size; returns when it is hidden again.
  void showModal();

  /// Escape is the button that goes back.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::string text(Axis axis, std::size_t entry) const override;
  void setText(Axis axis, std::size_t entry, std::string_view text) override;

  void makeControls();
  void makeFields();
  void layOut();
  QGridLayout* layOutFields();
  void orderTabs();
  void connectHandlers();
  void connectFields();

  void Combovarver_Click();
  void gridsairmod_Click(int row, int column);
  void Option_Click(Axis axis);
  void fields_Change(Axis axis);
  void Command2_Click();

  QLineEdit* field(Axis axis, std::size_t entry) const;
  AxisTexts textsOf(Axis axis) const;
  void showMarks();
  bool showOtherTotals();
  void showOtherFields();
  void showNote(bool otherTotals);
  ResultSource& sourceOfField(Axis axis, std::size_t entry);
  QString sourceText(const ResultSource& source) const;

  Session& session_;
  Messages& messages_;
  FileChooser& chooser_;
  const Orthogonality& orthogonality_;
  const FaultReport& faults_;
  std::vector<ResultRow> rows_;
  RowCells rowcells;
  ResultSource shown_;   ///< the variable of the table
  std::string illegal_;  ///< the warning of the variable that could not be shown last
  ResultSources sources_;

  QComboBox* Combovarver;
  QLabel* Label29;
  ResultsGrid* gridsairmod;
  QLabel* Labelnote;  ///< what the marks of table and fields mean, and a hint
  /// `main`, `minor1` and `minor2`.
  std::array<std::array<QLineEdit*, kAxisEntries>, kAxes.size()> fields_;
  /// `Option3d4`, `Option3d5` and `Option3d6`.
  std::array<QRadioButton*, kAxes.size()> options_;
  QPushButton* Command1;
  QPushButton* Command2;
};

}  // namespace zevfit
