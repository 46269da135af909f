#include "model/misfit.h"

#include <cmath>
#include <cstdint>

#include "session/fault.h"
#include "session/line.h"

namespace zevfit {

std::optional<double> misfit(const NestedModel& model, const FileTables& data, Pair pair) {
  const Cell& variance = data.variance(pair.variable);
  if (variance.isText() || variance.number() == 0) return std::nullopt;
  const auto slots = static_cast<std::int64_t>(data.npairs.written(pair).size());
  double squares = 0, pairs = 0;
  for (std::int64_t lag = 1; lag < slots; ++lag) {
    const double weight = data.npairs(pair, lag);
    if (weight <= 0) continue;
    const double curve = semivariance(model, data.hlag(pair, lag).number());
    squares += weight * std::pow(curve - data.gam(pair, lag), 2);
    pairs += weight;
  }
  if (pairs == 0) return std::nullopt;
  return finite(std::sqrt(squares / pairs) / std::abs(variance.number()));
}

std::optional<double> misfit(const Session& session, Pair pair) {
  if (!hasModel(session, pair)) return std::nullopt;
  return misfit(modelOf(session, pair), session, pair);
}

}  // namespace zevfit
