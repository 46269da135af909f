#pragma once

#include <QMdiSubWindow>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "platform/picture_box.h"
#include "plot/plot_window.h"

class QFrame;
class QLabel;

namespace zevfit {

/// The plot window of one direction of one variable, a child of the main window. Over the picture
/// lie the handles, the guides and the tag with a number of pairs. Its nominal size is that of its
/// content plus kFrameWidth and kFrameHeight, whatever the frame of the desktop's style.
class Formod : public QMdiSubWindow, public PlotWindow {
 public:
  Formod();

  /// The state of a window just loaded: nominal size, picture, pen and overlays as at the start.
  void load();
  /// Loaded and not closed since; such a window is to be on show.
  bool loaded() const { return loaded_; }

  /// Shows a loaded window in its nominal size.
  void appear();

  bool visible() const override { return isVisible(); }
  bool minimised() const override { return isMinimized(); }
  void restore() override;
  double width() const override { return width_; }
  double height() const override { return height_; }
  void setSize(double width, double height) override;
  std::string caption() const override;
  void setCaption(std::string_view caption) override;
  void setOverlayColours(Colour foreground, Colour background) override;
  double measureTitle(std::string_view text, const Font& font) override;
  double pictureWidth() const override { return Picture4->widthTwips(); }
  double pictureHeight() const override { return Picture4->heightTwips(); }
  void setPictureSize(double width, double height) override;
  Surface& picture() override { return Picture4->surface(); }
  PenState& pen() override { return pen_; }
  void setHandleBorder(int handle, bool border) override;
  void hideGuides() override;
  void toFront() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The plot window that was active before this one takes its place.
  void activateFormer();
  QLabel* makeOverlay(const QString& name, const QString& text, bool bold);
  QFrame* makeGuide(const QString& name);
  /// Gives the window the frame that leaves the content its nominal size.
  void fitFrame();
  QSize nominalContent() const;

  QWidget* form_;
  PictureBox* Picture4;
  QLabel* Label6;
  QFrame* Line1;
  QFrame* Line2;
  std::array<QLabel*, 4> estru;
  QLabel* Label1;

  double width_ = 0, height_ = 0;
  bool loaded_ = false;
  bool fitting_ = false;
  PenState pen_;
  std::string caption_;
  Font titleFont_;
  std::optional<std::pair<Colour, Colour>> overlayColours_;
};

}  // namespace zevfit
