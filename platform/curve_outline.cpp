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

}  // namespace

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
