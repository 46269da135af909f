#pragma once

#include <QMdiSubWindow>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "model/fit.h"
#include "platform/picture_box.h"
#include "plot/window/direction_window.h"
#include "windows/boundary.h"

class QLabel;

namespace zevfit {

class GuideLine;

/// The plot window of one direction of one variable, a child of the main window. Over the picture
/// lie the handles, the guides and the tag with a number of pairs. Its nominal size is that of its
/// content plus kFrameWidth and kFrameHeight, whatever the frame of the desktop's style.
class Formod : public QMdiSubWindow, public DirectionWindow {
 public:
  /// The handlers of its events work on `fit` and, for the window of the current pair, on
  /// `windows`; `endDelete` is what the interface of that name asks for.
  Formod(Fit& fit, DirectionWindows& windows, const FaultReport& faults,
         std::function<void()> endDelete);

  /// The state of a window just loaded: nominal size, picture, pen and overlays as at the start.
  void load();
  /// Loaded and not closed since.
  bool loaded() const { return loaded_; }

  /// Shows a loaded window in its nominal size.
  void appear();
  /// Has appeared and was not closed since.
  bool appeared() const { return loaded_ && appeared_; }

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
  std::optional<double>& misfit() override { return misfit_; }
  void setHandleBorder(Line handle, bool border) override;
  void hideGuides() override;
  void toFront() override;
  void endDelete() override { endDelete_(); }

  DragState& dragState() override { return drag_; }
  double scaleWidth() const override { return pictureWidth(); }
  double scaleHeight() const override { return pictureHeight(); }
  std::optional<Colour> colourAt(double x, double y) override;
  double handleLeft(Line handle) const override;
  double handleTop(Line handle) const override;
  double handleWidth(Line handle) const override;
  void moveHandle(Line handle, double left, double top) override;
  void showHandle(Line handle, bool visible) override;
  void showGuide(Guide guide, bool visible) override;
  void placeGuide(Guide guide, double at) override;
  void setGuideEnds(Guide guide, double from, double to) override;
  void setGuideStyle(Guide guide, LineStyle style) override;
  void placeTag(double left, double top) override;
  void setTagCaption(std::string_view text) override;
  void showTag(bool visible) override;

  /// The picture as other programs take it: its own pixels, whatever the scale of the screen.
  QImage clipboardImage();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// The plot window that was active before this one takes its place.
  void activateFormer();
  QLabel* makeOverlay(const QString& name, const QString& text, bool bold);
  GuideLine* makeGuide(const QString& name);
  void keepFocusOnPicture();
  void leaveKeysToTheMainWindow();
  void layGuide(Guide which);
  GuideLine* guide(Guide which) const { return which == Guide::Line1 ? Line1 : Line2; }

  // Events of the mouse and the focus on the picture, the handles, the tag and the ground.
  void pictureEvent(const QEvent& event);
  void handleEvent(Line handle, const QEvent& event);
  void pictureMouse(const QMouseEvent& mouse);
  void handleMouse(Line handle, const QMouseEvent& mouse);
  /// The pointer over a handle tells what a drag changes: the sill up and down, the range to the
  /// sides, or either as long as no button has chosen.
  void showDragCursor(Line handle);
  /// Gives the window the frame that leaves the content its nominal size.
  void fitFrame();
  QSize nominalContent() const;
  /// Another size of the content, of whatever cause, becomes the nominal one.
  void takeSize();
  /// The same, and the picture of the current window follows; that of another one does so when it
  /// is activated.
  void follow();

  Fit& fit_;
  DirectionWindows& windows_;
  const FaultReport& faults_;
  std::function<void()> endDelete_;
  QWidget* form_;
  // Events of the content come while the rest is being made.
  PictureBox* Picture4 = nullptr;
  QLabel* Label6;
  GuideLine* Line1;
  GuideLine* Line2;
  std::array<QLabel*, 4> estru{};
  QLabel* Label1 = nullptr;

  double width_ = 0, height_ = 0;
  bool loaded_ = false;
  bool appeared_ = false;
  bool fitting_ = false;  ///< the frame follows the nominal size, not the other way round
  PenState pen_;
  std::optional<double> misfit_;
  DragState drag_;
  std::array<double, 2> guideAt_{}, guideFrom_{}, guideTo_{};
  QWidget* pressed_ = nullptr;  ///< where the mouse went down for a click
  QWidget* down_ = nullptr;     ///< the handle on which a button is down
  QWidget* cut_ = nullptr;      ///< the one on which it was when another window came up
  std::string caption_;
  Font titleFont_;
  std::optional<std::pair<Colour, Colour>> overlayColours_;
};

}  // namespace zevfit
