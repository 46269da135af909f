#include <algorithm>
#include <cstddef>

#include "files/tokens.h"
#include "session/numbers.h"
#include "zvm/checking/checker.h"

// Variances and classes.

namespace zevfit::checking {
namespace {

/// Classes of fewer pairs tell little (Journel and Huijbregts, "Mining Geostatistics", III.41).
constexpr float kFewPairs = 30;

}  // namespace

void Checker::data() {
  for (std::int64_t v = 1; v <= file_.variables; ++v) {
    file_.variances.push_back(value({"variance", {v, 0}}));
    for (std::int64_t d = 1; d <= file_.directions; ++d) direction({v, d});
  }
}

void Checker::direction(Pair pair) {
  std::vector<ClassValues>& classes = file_.data.emplace_back();
  double& farthest = farthest_.emplace_back(0);
  hasPairsBefore_ = false;
  for (std::int64_t lag = 1; lag <= file_.classes; ++lag) {
    classes.push_back(oneClass(pair, lag));
    farthest = std::max(farthest, classes.back().distance);
  }
}

ClassValues Checker::oneClass(Pair pair, std::int64_t lag) {
  ClassValues values;
  const Item distanceItem{"distance", pair, lag}, semivarianceItem{"semivariance", pair, lag},
      pairsItem{"number of pairs", pair, lag};
  const Token distance = number(distanceItem);
  values.distance = valueOf(distance, distanceItem);
  const Token semivariance = number(semivarianceItem);
  values.semivariance = valueOf(semivariance, semivarianceItem);
  const bool isDirect = !isCross_.at(static_cast<std::size_t>(pair.variable - 1));
  if (isDirect && values.semivariance < 0)
    warning(semivariance.offset, "the " + words(semivarianceItem) + " is negative");
  const Token pairs = number(pairsItem);
  const auto count = floatOf(pairs.text);
  if (!count) error(pairs.offset, shown(pairs.text) + " in place of the " + words(pairsItem));
  values.pairs = count.value_or(0.0F);
  if (count) pairsOf(values.pairs, pairsItem, pairs.offset);
  if (values.pairs > 0) growth(values.distance, distanceItem, distance.offset);
  return values;
}

void Checker::pairsOf(float pairs, const Item& item, std::size_t offset) {
  if (pairs >= kFewPairs) return;
  const std::string where = "class " + std::to_string(item.lag) + words(item.pair);
  if (pairs <= 0)
    warning(offset, where + " has no pairs");
  else
    warning(offset, where + " has " + counted(generalText(pairs), "pair") + ", fewer than 30");
}

/// Classes without pairs, which have any distance, do not take part.
void Checker::growth(double distance, const Item& item, std::size_t offset) {
  if (hasPairsBefore_ && distance <= distanceBefore_)
    warning(offset, "the " + words(item) + " is not above the one before");
  hasPairsBefore_ = true;
  distanceBefore_ = distance;
}

}  // namespace zevfit::checking
