#pragma once

#include <QPolygonF>

namespace zevfit {

/// The outline of a curve stroked in that width, to be filled by winding: sides that stay parallel
/// to its pieces, mitred where these meet, and ends that reach half a width beyond its own. No two
/// points in a row may be the same, and there must be two at least. Filling it is far quicker than
/// a pen's own stroke.
QPolygonF outlineOf(const QPolygonF& curve, double width);

/// The part of a polygon between two uprights; empty where there is none.
QPolygonF columnOf(const QPolygonF& polygon, double left, double right);

}  // namespace zevfit
