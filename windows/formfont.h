#pragma once

#include <QDialog>
#include <QPointer>
#include <array>

#include "model/fit.h"
#include "platform/picture_box.h"
#include "plot/drawing/preview.h"
#include "session/style_chooser.h"
#include "windows/boundary.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace zevfit {

class ClickLabel;
class Frame2;
class cores;

/// The window for fonts and number patterns, with a preview of the current plot. It is the only one
/// to take input while it is up; its close box is a Cancel.
class Formfont : public QDialog, private PreviewPicture {
 public:
  Formfont(Fit& fit, PlotWindows& windows, StyleChooser& chooser, const FaultReport& faults,
           QWidget* parent);
  ~Formfont() override;

  /// Keeps the format for Cancel and shows the window.
  void open() override;
  /// Hides the window and those over it while the main window is minimised, and brings them back.
  void setAside();
  void bringBack();

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void reject() override;

 private:
  double pictureWidth() const override { return Picture1->widthTwips(); }
  double pictureHeight() const override { return Picture1->heightTwips(); }
  Surface& picture() override { return Picture1->surface(); }
  PenState& pen() override { return pen_; }
  void setPictureSize(double width, double height) override;
  bool bold() const override { return bold_; }

  void makeControls();
  void layOut();
  void connectHandlers();
  void activated();
  void preview();
  void Label2_Click(std::size_t row);
  void Command1_Click();
  void Command2_Click();
  void Command3_Click();
  void Command4_Click();
  void Command5_Click();
  void showFormat();
  void showFont(std::size_t row);
  void leave();
  /// The window takes input again, without an activation of its own.
  void comeBack();

  Fit& fit_;
  StyleChooser& chooser_;
  const FaultReport& faults_;
  PlotWindows& windows_;
  PenState pen_;
  bool bold_ = false;
  bool previewrunning = false;
  /// A dialog or a box of a handler is up.
  bool asking_ = false;
  /// The window lost its activation to one of its own, whose end is no activation of this one.
  bool ownAbove_ = false;
  /// Hidden with the main window, the one of the colours over it too.
  bool aside_ = false, coloursAside_ = false;
  QPointer<QWidget> before_;

  PictureBox* Picture1;
  std::array<QLabel*, 3> Label1;
  std::array<ClickLabel*, 3> Label2;
  std::array<QLabel*, 3> Label3;
  std::array<QLineEdit*, 2> formato;
  QPushButton* Command1;
  QPushButton* Command2;
  QPushButton* Command3;
  QPushButton* Command4;
  QPushButton* Command5;
  Frame2* help_;
  cores* colours_;
};

}  // namespace zevfit
