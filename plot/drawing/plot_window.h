#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "plot/drawing/surface.h"
#include "session/session.h"

namespace zevfit {

/// What persists on a picture from step to step and from one drawing to the next.
struct PenState {
  int width = 1;
  LineStyle style = LineStyle::solid;
  /// Counts the clears, by which a drawing sees that another one has run inside it.
  std::uint32_t clears = 0;
};

/// What a plot is drawn on: the picture of a window, or a part of a sheet. Sizes in twips.
class PlotPicture {
 public:
  virtual ~PlotPicture() = default;

  virtual double pictureWidth() const = 0;
  virtual double pictureHeight() const = 0;
  virtual Surface& picture() = 0;
  virtual PenState& pen() = 0;
  /// Gives a text to the hidden label Label6 of the pair's plot window, which takes the font and
  /// sizes itself: its width.
  virtual double measureTitle(std::string_view text, const Font& font) = 0;
};

/// A direction's plot window as the drawing routine sees it. Sizes in twips; the outer size is that
/// of the picture plus a frame of 108 across and 132 down.
class PlotWindow : public PlotPicture {
 public:
  virtual bool visible() const = 0;
  virtual bool minimised() const = 0;
  virtual void restore() = 0;

  virtual double width() const = 0;
  virtual double height() const = 0;
  virtual void setSize(double width, double height) = 0;

  virtual std::string caption() const = 0;
  virtual void setCaption(std::string_view caption) = 0;
  /// Colours of the pair count tag, the handles and the guides.
  virtual void setOverlayColours(Colour foreground, Colour background) = 0;

  /// Keeps what is drawn; new parts show the background of the last clear.
  virtual void setPictureSize(double width, double height) = 0;

  /// How far the curve on the picture lies from the points on it, as the last drawing has found;
  /// nothing where a model, points or the variance are missing.
  virtual std::optional<double>& misfit() = 0;

  /// The border of the handle of a line, which tells a free one from a held one.
  virtual void setHandleBorder(Line handle, bool border) = 0;
  /// The two lines through a held handle.
  virtual void hideGuides() = 0;

  /// In front of its siblings.
  virtual void toFront() = 0;
  /// Unticks "Delete" of the print collection: it does not outlive a change of plot.
  virtual void endDelete() = 0;
};

/// The windows by pair.
class PlotWindows {
 public:
  virtual ~PlotWindows() = default;
  /// The window of the pair, loaded anew where there is none or where it was closed. Throws Fault
  /// outside 0 to 41, 0 to 41.
  virtual PlotWindow& plotwin(Pair pair) = 0;
};

/// Outer size of a plot window at its first drawing, and at its load.
inline constexpr double kStandardWidth = 6576, kStandardHeight = 3852;
inline constexpr double kLoadWidth = 5544, kLoadHeight = 3300;
/// What the frame of a window takes from its size to leave that of the picture.
inline constexpr double kFrameWidth = 108, kFrameHeight = 132;

}  // namespace zevfit
