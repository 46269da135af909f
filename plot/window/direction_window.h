#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "plot/drawing/plot_window.h"

namespace zevfit {

/// The two lines through a held handle: Line1 stands upright, Line2 lies.
enum class Guide { Line1, Line2 };

/// What the handle of a structure changes, by the button of its last press.
enum class DragAxis { unset, range, sill };

/// What a plot window keeps from one mouse event to the next, in picture coordinates.
struct DragState {
  double cursorx = 0;  ///< last place of the mouse, not clamped
  float cursory = 0;
  DragAxis dragaxis = DragAxis::unset;
};

/// A direction's plot window with what lies over its picture: the handles, one for each line, the
/// guides and the tag with a number of pairs (Label1). Places and lengths are in twips of the
/// picture.
class DirectionWindow : public PlotWindow {
 public:
  virtual DragState& dragState() = 0;

  /// What the picture offers inside its border; pictureWidth and pictureHeight are its outer size.
  virtual double scaleWidth() const = 0;
  virtual double scaleHeight() const = 0;
  /// The colour at a place of the picture; nothing outside.
  virtual std::optional<Colour> colourAt(double x, double y) = 0;

  virtual double handleLeft(Line handle) const = 0;
  virtual double handleTop(Line handle) const = 0;
  virtual double handleWidth(Line handle) const = 0;
  virtual void moveHandle(Line handle, double left, double top) = 0;
  virtual void showHandle(Line handle, bool visible) = 0;

  virtual void showGuide(Guide guide, bool visible) = 0;
  /// The x of Line1, the y of Line2.
  virtual void placeGuide(Guide guide, double at) = 0;
  /// From where to where it runs: y of Line1, x of Line2.
  virtual void setGuideEnds(Guide guide, double from, double to) = 0;
  virtual void setGuideStyle(Guide guide, LineStyle style) = 0;

  virtual void placeTag(double left, double top) = 0;
  virtual void setTagCaption(std::string_view text) = 0;
  virtual void showTag(bool visible) = 0;
};

/// The same table of windows, of which the handlers of events see more than a drawing does.
class DirectionWindows : public PlotWindows {
 public:
  DirectionWindow& plotwin(Pair pair) override = 0;
  /// The pair has a window that was shown and not closed since; loads none. Throws Fault outside 0
  /// to 41, 0 to 41.
  virtual bool isOpen(Pair pair) const = 0;
};

}  // namespace zevfit
