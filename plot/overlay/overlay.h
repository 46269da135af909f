#pragma once

#include <bitset>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "plot/drawing/surface.h"
#include "session/session.h"

namespace zevfit {

/// Both axes of a plot: distances from 0 on, semivariances.
struct AxisRange {
  double xmax = 0, ymin = 0, ymax = 0;
  bool operator==(const AxisRange&) const = default;
};

/// The axes of one direction; a distance axis that is not set yet ends at its last lag.
AxisRange axesOf(const AxisTables& tables, Pair pair);
/// The axes that all others lie within; nothing without any.
std::optional<AxisRange> commonAxes(std::span<const AxisRange> axes);

/// Directions by their subscripts.
using Directions = std::bitset<kDirectionSlots>;

/// The directions of the session that tables have room for: 1 to this.
std::int64_t directionCount(const Session& session);
/// Those of them that are asked for, in their order.
std::vector<std::int64_t> listed(const Session& session, const Directions& directions);

/// What a picture shows of a variable. Its axes hold those of the spanned directions, also where
/// they are not shown.
struct OverlayContent {
  std::int64_t variable = 0;
  Directions shown = ~Directions(), spanned = ~Directions();
};

/// The axes of a picture; without a length where it spans no direction.
AxisRange axesOf(const Session& session, const OverlayContent& content);

/// The variance where a picture has it as a line: a plot of the variable shows it, and it lies
/// within the axes.
std::optional<double> shownVariance(const Session& session, const OverlayContent& content);

/// Draws the experimental points and the model curves of directions of a variable over common axes,
/// each in the look of `lookOf`, without a legend, on a picture of that size in twips. The session
/// only gives: models as `modelOf` has them, style and patterns. A class or a model that has a text
/// in place of a number is left out; axes without a length leave the frame alone. Throws Fault for
/// a variable that no table has.
void drawOverlay(const Session& session, const OverlayContent& content, Surface& surface,
                 double width, double height);

}  // namespace zevfit
