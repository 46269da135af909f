#include "plot/overlay/overlay.h"

#include <algorithm>
#include <string>
#include <vector>

#include "model/nested_model.h"
#include "plot/drawing/data_points.h"
#include "plot/drawing/geometry.h"
#include "plot/overlay/dashes.h"
#include "plot/overlay/overlay_frame.h"
#include "session/policy.h"

namespace zevfit {
namespace {

constexpr int kCurvePen = 2;
constexpr int kSillPen = 1;

/// The picture with its axes.
struct Overlay {
  const Session& session;
  Surface& surface;
  PlotMap map;

  Look look(std::int64_t direction) const { return lookOf(direction, session.style.cores.ink()); }
};

void drawVariance(const Overlay& overlay, double variance) {
  const double y = overlay.map.y(variance);
  overlay.surface.line(overlay.map.box.xright(), y, PlotBox::xleft, y,
                       {overlay.session.style.cores.sill(), kSillPen});
}

bool showsVariance(const Session& session, std::int64_t variable) {
  for (std::int64_t d = 1; d <= directionCount(session); ++d)
    if (session.showsill({variable, d})) return true;
  return false;
}

void drawPoint(const Overlay& overlay, const DataPoint& point, std::int64_t direction) {
  const PlotMap& map = overlay.map;
  drawMark(overlay.surface, overlay.look(direction), map.x(point.h), map.y(point.gamma));
}

void drawPoints(const Overlay& overlay, Pair pair) {
  const DataPoints points(overlay.session, pair, overlay.map.xmax, overlay.map.ymax);
  for (std::int64_t lag = 1, last = points.last(); lag <= last; ++lag)
    endSilently([&] {
      if (const auto point = points(lag)) drawPoint(overlay, *point, pair.direction);
    });
}

/// What leaves the axes is left out; behind the gap the line begins anew.
void drawCurve(const Overlay& overlay, Pair pair) {
  if (!hasModel(overlay.session, pair)) return;
  const NestedModel model = modelOf(overlay.session, pair);
  const PlotMap& map = overlay.map;
  const Look look = overlay.look(pair.direction);
  DashedLine line(overlay.surface, {look.colour, kCurvePen}, look.dash);
  bool isDown = false;
  for (int i = 1; i <= kCurvePoints; ++i) {
    const double h = map.xmax / kCurvePoints * i, gamma = semivariance(model, h);
    const bool inside = gamma >= map.ymin && gamma <= map.ymax;
    if (inside && isDown) line.lineTo(map.x(h), map.y(gamma));
    if (inside && !isDown) line.moveTo(map.x(h), map.y(gamma));
    isDown = inside;
  }
}

}  // namespace

std::int64_t directionCount(const Session& session) {
  return std::clamp<std::int64_t>(session.ndir, 0, kDirectionSlots - 1);
}

AxisRange axesOf(const AxisTables& tables, Pair pair) {
  const double xmax = tables.xmax(pair);
  return {xmax == 0 ? tables.hmax(pair) : xmax, tables.ymin(pair), tables.ymax(pair)};
}

std::optional<AxisRange> commonAxes(std::span<const AxisRange> axes) {
  if (axes.empty()) return std::nullopt;
  AxisRange common = axes.front();
  for (const AxisRange& one : axes)
    common = {std::max(common.xmax, one.xmax), std::min(common.ymin, one.ymin),
              std::max(common.ymax, one.ymax)};
  return common;
}

std::vector<std::int64_t> listed(const Session& session, const Directions& directions) {
  std::vector<std::int64_t> found;
  for (std::int64_t d = 1; d <= directionCount(session); ++d)
    if (directions.test(static_cast<std::size_t>(d))) found.push_back(d);
  return found;
}

AxisRange axesOf(const Session& session, const OverlayContent& content) {
  std::vector<AxisRange> axes;
  for (const std::int64_t d : listed(session, content.spanned))
    axes.push_back(axesOf(session, Pair{content.variable, d}));
  return commonAxes(axes).value_or(AxisRange{});
}

std::optional<double> shownVariance(const Session& session, const OverlayContent& content) {
  if (!showsVariance(session, content.variable)) return std::nullopt;
  const AxisRange axes = axesOf(session, content);
  std::optional<double> shown;
  endSilently([&] {
    const double variance = session.variance(content.variable).number();
    if (variance >= axes.ymin && variance <= axes.ymax) shown = variance;
  });
  return shown;
}

void drawOverlay(const Session& session, const OverlayContent& content, Surface& surface,
                 double width, double height) {
  const AxisRange common = axesOf(session, content);
  const Overlay overlay{session, surface, {{width, height}, common.xmax, common.ymin, common.ymax}};
  drawOverlayFrame(session, content.variable, overlay.map, surface);
  endSilently([&] {
    if (const auto variance = shownVariance(session, content)) drawVariance(overlay, *variance);
  });
  const std::vector<std::int64_t> directions = listed(session, content.shown);
  for (const std::int64_t d : directions)
    endSilently([&] { drawCurve(overlay, {content.variable, d}); });
  for (const std::int64_t d : directions) drawPoints(overlay, {content.variable, d});
}

}  // namespace zevfit
