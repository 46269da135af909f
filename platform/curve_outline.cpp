#include "platform/curve_outline.h"

#include <algorithm>
#include <cmath>

namespace zevfit {

namespace {

/// A mitre reaches at most twice as far as the side of a piece does.
constexpr double kLeastCosine = 0.5;

QPointF along(const QPointF& from, const QPointF& to) {
  const QPointF way = to - from;
  return way / std::hypot(way.x(), way.y());
}

QPointF across(const QPointF& direction) { return {-direction.y(), direction.x()}; }

/// From a point of the curve to its side, for a width of 2. With c the cosine of half the bend, the
/// sum of both normals is 2 c long, and the mitre 1 / c.
QPointF mitre(const QPointF& before, const QPointF& behind) {
  const QPointF sum = across(before) + across(behind);
  const double cosine = std::hypot(sum.x(), sum.y()) / 2;
  return sum / 2 / std::max(cosine * cosine, kLeastCosine * kLeastCosine);
}

/// What of a polygon lies on the side of an upright where `side` times x is at least `side` times
/// its place: Sutherland and Hodgman, Reentrant polygon clipping, 1974.
QPolygonF besideOf(const QPolygonF& polygon, double upright, double side) {
  QPolygonF kept;
  kept.reserve(polygon.size() + 4);
  QPointF before = polygon.constLast();
  bool wasIn = side * (before.x() - upright) >= 0;
  for (const QPointF& point : polygon) {
    const bool isIn = side * (point.x() - upright) >= 0;
    if (isIn != wasIn) {
      const double share = (upright - before.x()) / (point.x() - before.x());
      kept << QPointF(upright, before.y() + share * (point.y() - before.y()));
    }
    if (isIn) kept << point;
    before = point;
    wasIn = isIn;
  }
  return kept;
}

}  // namespace

QPolygonF columnOf(const QPolygonF& polygon, double left, double right) {
  const QPolygonF rightOf = besideOf(polygon, left, 1);
  return rightOf.isEmpty() ? rightOf : besideOf(rightOf, right, -1);
}

QPolygonF outlineOf(const QPolygonF& curve, double width) {
  const qsizetype count = curve.size();
  const double reach = width / 2;
  QPolygonF outline(2 * count);
  QPointF before = along(curve[0], curve[1]);
  for (qsizetype i = 0; i < count; ++i) {
    const QPointF behind = i + 1 < count ? along(curve[i], curve[i + 1]) : before;
    const QPointF side = mitre(before, behind) * reach;
    const QPointF cap = (i == 0 ? -before : i + 1 == count ? behind : QPointF()) * reach;
    outline[i] = curve[i] + side + cap;
    outline[2 * count - 1 - i] = curve[i] - side + cap;
    before = behind;
  }
  return outline;
}

}  // namespace zevfit
