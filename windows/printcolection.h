#pragma once

#include <QWidget>
#include <array>
#include <string>

#include "report/collection.h"
#include "windows/boundary.h"
#include "windows/wait_cursor.h"

class QBoxLayout;
class QCheckBox;
class QFrame;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QRubberBand;
class QSlider;
class QTabBar;

namespace zevfit {

class PictureBox;

/// The print collection: report pages that the user composes of plots. Made once and only hidden
/// when it is closed, so that its reports live as long as the program.
class printcolection : public QWidget, private ReportWindow {
 public:
  printcolection(Fit& fit, PlotWindows& plots, Printer& printer, const FaultReport& faults,
                 QWidget* mainWindow);

  /// The command that shows it; the first time at a place of the screen.
  void open(QPoint place);
  /// Unticks "Delete".
  void endDelete() { setDeleteTicked(false); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// Escape is the close box.
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int tab() const override;
  void setSlider(int columns) override;
  int slider() const override;
  int shownColumns() const override { return shown_; }
  void showColumns(int columns) override;
  int appliedColumns() const override;
  void applyColumns(int columns) override;
  bool deleteTicked() const override;
  void setDeleteTicked(bool ticked) override;
  void showPage(int slot, bool visible) override;
  Surface& page(int slot) override;
  void refreshPage(int slot) override;
  Surface& settings() override;
  Surface& thumbnail(double width, double height) override;
  void pasteThumbnail(int slot, double left, double top) override;
  void pasteBlank(int slot, double left, double top) override;
  void showLegend(std::string_view variable, std::string_view direction) override;
  void setBarMaximum(int maximum) override;
  void setBarValue(int value) override;
  void setBusy(bool busy) override;
  void showNormally() override;

  // Controls and their places (printcolection_layout.cpp).
  void makeControls();
  void layOut();
  QGroupBox* makeSettings();
  QGroupBox* makeImage();
  QGroupBox* makeLegend();
  void connectControls();

  // Events of a page, by the mouse and, for the cell that the arrow keys lead to, by keys.
  bool pageEvent(const QEvent& event);
  bool pageKey(int key);
  /// Calls the handler of a press or a move for the middle of the cell under the keys.
  void atKeyCell(void (*handler)(Collection&, double, double));
  void moveKeyCell(int rows, int columns);
  void markKeyCell(bool marked);

  Collection reports_;
  const FaultReport& faults_;
  int shown_ = 1;  ///< the number in Label5
  std::optional<WaitCursor> busy_;
  int keyRow_ = 1, keyColumn_ = 1;

  QTabBar* TabStrip1;
  QFrame* paper_;
  std::array<PictureBox*, kReports> Picture1{};
  QRubberBand* keyMark_;
  QSlider* HScroll1;
  QLabel *Label1, *Label3, *Label5;
  PictureBox* Picture2;
  QPushButton* Command1;
  QCheckBox* Check1;
  QLabel *Labelvar, *Labeldir;
  QPushButton* printar;
  QProgressBar* Bar1;
  PictureBox *Picture3, *apagar;
};

}  // namespace zevfit
