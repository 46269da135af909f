#include "plot/drawing/drawn_misfit.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "model/misfit.h"
#include "plot/drawing/data_points.h"

namespace zevfit {
namespace {

/// Curve and model come from the same formulas, so that they only differ where the machine rounds
/// one of them another way.
constexpr double kRounding = 1e-9;

/// Another curve than the model's would have to end as that one does.
bool endsAs(const Session& session, const NestedModel& model) {
  const double drawn = session.curvegam(kCurvePoints);
  const double own = semivariance(model, session.curveh(kCurvePoints));
  return std::abs(drawn - own) <= kRounding * std::max(std::abs(drawn), std::abs(own));
}

std::vector<DataPoint> shownPoints(const Session& session, Pair pair) {
  const DataPoints points(session, pair);
  std::vector<DataPoint> shown;
  for (std::int64_t lag = 1, last = points.last(); lag <= last; ++lag)
    if (const auto point = points(lag)) shown.push_back(*point);
  return shown;
}

}  // namespace

std::optional<double> drawnMisfit(const Session& session) {
  const Pair pair = session.plotted();
  const Cell& variance = session.variance(pair.variable);
  if (variance.isText() || !hasModel(session, pair)) return std::nullopt;
  const NestedModel model = modelOf(session, pair);
  if (!endsAs(session, model)) return std::nullopt;
  return misfit(model, shownPoints(session, pair), variance.number());
}

}  // namespace zevfit
