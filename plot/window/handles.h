#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "model/fit_panel.h"
#include "plot/drawing/geometry.h"
#include "plot/window/direction_window.h"
#include "session/session.h"

namespace zevfit {

/// What the handles are labelled with, by their lines.
inline constexpr std::array<const char*, 4> kHandleCaptions{"Co", "S1", "S2", "S3"};

/// A place in a picture, twips.
struct Point {
  double x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

/// Within the plot box, its edges included.
bool contains(const PlotBox& box, Point at);
/// The mouse kept in the box. The lower and the right edge come first, so that in a box of no size
/// the upper and the left one win.
Point heldInside(const PlotBox& box, Point at);

/// The inverse maps: ((y - ybottom) / (ytop - ybottom)) (ymax - ymin) + ymin, and
/// ((x - xleft) / (xright - xleft)) xmax. At an edge the value is exactly the end of its axis.
/// Throw Fault for a box of no height, of no width.
double sillAt(const PlotMap& map, double y);
double rangeAt(const PlotMap& map, double x);

/// What a handle that is dragged writes: a sill or a range of its line.
struct DragTarget {
  Field field;
  const char* pattern;  ///< of the text that the field gets
  bool upright;         ///< a sill, from y by sillAt; otherwise a range, from x by rangeAt
};
/// Of the handle of a line, by the axis that its press chose; unset stands for a range.
DragTarget dragTarget(Line handle, DragAxis dragaxis);

/// How the handle of a line is placed: at the range and the sill of its line, with these
/// differences.
struct HandleForm {
  std::optional<double> fixedLeft;  ///< in place of the range
  double rightMargin = 0;           ///< from the picture's right side to where the axis ends
  bool leftOfPlace = false;         ///< moved to the left by its own width
};
const HandleForm& handleForm(Line handle);

/// Where a handle is to be shown, before its own width counts; nothing where it stays hidden. The
/// pair is that of the cells; `map` has the picture's own box. Throws Fault as the maps do, and
/// for a cell that holds a text.
std::optional<Point> handlePlace(const Session& session, const PlotMap& map, Line handle,
                                 Pair pair);

/// What is to be said of hidden handles: which of them belong to lines in use, with the range or
/// the sill that lies outside the axes of the map. Empty where there is none. Throws Fault for a
/// cell that holds a text.
std::string outOfView(const Session& session, const PlotMap& map, std::span<const Line> hidden,
                      Pair pair);

}  // namespace zevfit
