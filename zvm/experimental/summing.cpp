#include "zvm/experimental/summing.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace zevfit::zvm {

namespace {

bool hasAll(const std::vector<double>& column) {
  return std::ranges::none_of(column, [](double value) { return std::isnan(value); });
}

bool takesAll(const Direction& direction) {
  return direction.tolerance >= 90 && !direction.band && !direction.vband;
}

}  // namespace

Summing::Summing(const SortedPoints& points, const Plan& plan, const LagRule& rule)
    : points_(points),
      plan_(plan),
      rule_(rule),
      isPlain_(rule.isUniform() && plan.directions.size() == 1 && takesAll(plan.directions[0])),
      isComplete_(std::ranges::all_of(points.values, hasAll)),
      slots_(static_cast<std::size_t>(rule.count()) + 2),
      block_(points, !isPlain_),
      places_(plan.pairings.size(), std::vector<Place>(plan.directions.size() * slots_ * kTurns)) {
  for (const Direction& direction : plan.directions) {
    if (plan.compat == Compat::gstat)
      gstat_.emplace_back(direction);
    else if (plan.compat == Compat::gamv)
      gamv_.emplace_back(direction);
    else if (points.z.empty())
      sectors_.emplace_back(direction);
    else
      cones_.emplace_back(direction);
  }
}

void Summing::classifyBlock() {
  if (rule_.isUniform())
    block_.classifyUniform(rule_);
  else
    block_.classify(rule_);
  if (isPlain_) return;
  block_.clearDirections();
  for (std::size_t d = 0; d < sectors_.size(); ++d) block_.addSector(sectors_[d], d);
  for (std::size_t d = 0; d < cones_.size(); ++d) block_.addCone(cones_[d], d);
  for (std::size_t d = 0; d < gstat_.size(); ++d) block_.addOrdered(gstat_[d], d);
  for (std::size_t d = 0; d < gamv_.size(); ++d) block_.addOrdered(gamv_[d], d);
  block_.settle(rule_.count());
}

void Summing::listPlaces() {
  const auto slots = static_cast<std::uint32_t>(slots_);
  const bool isUniform = rule_.isUniform();
  std::size_t most = block_.used() * plan_.directions.size();
  if (!isUniform) most *= block_.mostClasses();
  if (listed_.size() < most) {
    listed_.resize(most);
    pairOf_.resize(most);
  }
  std::uint32_t* const listed = listed_.data();
  std::uint32_t* const pairOf = pairOf_.data();
  std::size_t count = 0;
  for (std::uint32_t k = 0; k < block_.used(); ++k) {
    const std::int32_t first = block_.firstClasses()[k];
    const std::int32_t last = isUniform ? first : block_.lastClasses()[k];
    std::uint32_t in = block_.directions()[k];
    do {
      const std::uint32_t start = static_cast<std::uint32_t>(std::countr_zero(in)) * slots;
      for (std::int32_t lag = first; lag <= last; ++lag) {
        listed[count] = start + static_cast<std::uint32_t>(lag);
        pairOf[count] = k;
        ++count;
      }
      in &= in - 1;
    } while (in != 0);
  }
  count_ = count;
}

template <bool Listed>
void Summing::sumFirst() {
  Place* const places = places_[0].data();
  const double* const h = block_.distances().data();
  const double* const first = block_.differences(plan_.pairings[0].first).data();
  const double* const second = block_.differences(plan_.pairings[0].second).data();
  const std::int32_t* const classes = block_.firstClasses().data();
  const std::size_t count = Listed ? count_ : block_.used();
  for (std::size_t n = 0; n < count; ++n) {
    const std::size_t k = Listed ? pairOf_[n] : n;
    const std::size_t slot = Listed ? listed_[n] : static_cast<std::size_t>(classes[k]);
    Place& place = places[slot * kTurns + n % kTurns];
    place.distance += h[k];
    place.product += first[k] * second[k];
    ++place.pairs;
  }
}

void Summing::sumProducts(std::size_t pairing) {
  Place* const places = places_[pairing].data();
  const double* const first = block_.differences(plan_.pairings[pairing].first).data();
  const double* const second = block_.differences(plan_.pairings[pairing].second).data();
  for (std::size_t n = 0; n < count_; ++n) {
    const std::size_t k = pairOf_[n];
    places[listed_[n] * kTurns + n % kTurns].product += first[k] * second[k];
  }
}

void Summing::sumKnown(std::size_t pairing) {
  Place* const places = places_[pairing].data();
  const double* const h = block_.distances().data();
  const double* const first = block_.differences(plan_.pairings[pairing].first).data();
  const double* const second = block_.differences(plan_.pairings[pairing].second).data();
  for (std::size_t n = 0; n < count_; ++n) {
    const std::size_t k = pairOf_[n];
    const double product = first[k] * second[k];
    const bool isKnown = !std::isnan(product);
    Place& place = places[listed_[n] * kTurns + n % kTurns];
    place.distance += isKnown ? h[k] : 0;
    place.product += isKnown ? product : 0;
    place.pairs += isKnown ? 1 : 0;
  }
}

void Summing::sumBlock() {
  classifyBlock();
  if (isPlain_ && isComplete_ && plan_.pairings.size() == 1) {
    sumFirst<false>();
  } else {
    if (isPlain_) block_.takeAll();
    listPlaces();
    if (isComplete_) sumFirst<true>();
    for (std::size_t p = isComplete_ ? 1 : 0; p < plan_.pairings.size(); ++p)
      isComplete_ ? sumProducts(p) : sumKnown(p);
  }
  block_.clear();
}

SumTable Summing::finish() {
  sumBlock();
  const std::size_t classes = slots_ - 2;
  SumTable table(plan_.pairings.size(), plan_.directions.size(), classes);
  for (std::size_t p = 0; p < plan_.pairings.size(); ++p)
    for (std::size_t d = 0; d < plan_.directions.size(); ++d)
      for (std::size_t slot = 0; slot <= classes; ++slot) {
        const std::size_t place = (d * slots_ + slot) * kTurns;
        Sum& sum = table.at(p, d, slot);
        for (std::size_t turn = 0; turn < kTurns; ++turn) {
          const Place& own = places_[p][place + turn];
          const Place& counted = isComplete_ ? places_[0][place + turn] : own;
          sum.add({counted.distance, own.product, counted.pairs});
        }
      }
  for (auto& places : places_) std::ranges::fill(places, Place());
  return table;
}

}  // namespace zevfit::zvm
