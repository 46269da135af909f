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
    : plan_(plan),
      rule_(rule),
      isPlain_(rule.isUniform() && plan.directions.size() == 1 && takesAll(plan.directions[0])),
      isComplete_(std::ranges::all_of(points.values, hasAll)),
      slots_(static_cast<std::size_t>(rule.count()) + 3),
      directions_(summedDirections(plan.compat, plan.directions.size())),
      block_(points, rule, !isPlain_),
      places_(plan.pairings.size(), std::vector<Place>(directions_ * slots_ * kTurns)) {
  for (std::size_t d = 0; d < directions_; ++d) starts_[d] = static_cast<std::uint32_t>(d * slots_);
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
  if (!rule_.isUniform()) block_.classify();
  if (isPlain_) return;
  block_.clearDirections();
  for (std::size_t d = 0; d < sectors_.size(); ++d) block_.addSector(sectors_[d], d);
  for (std::size_t d = 0; d < cones_.size(); ++d) block_.addCone(cones_[d], d);
  for (std::size_t d = 0; d < gstat_.size(); ++d) {
    block_.addOrdered(gstat_[d], d);
    block_.addOrdered(gstat_[d], gstat_.size() + d, true);
  }
  for (std::size_t d = 0; d < gamv_.size(); ++d) block_.addOrdered(gamv_[d], d);
  block_.settle(slots_);
}

void Summing::listPlaces() {
  std::size_t most = block_.used() * directions_;
  if (!rule_.isUniform()) most *= block_.mostClasses();
  if (listed_.size() < most) {
    listed_.resize(most);
    pairOf_.resize(most);
  }
  count_ = 0;
  rule_.isUniform() ? listEach<false>() : listEach<true>();
}

template <bool Several>
void Summing::listEach() {
  std::uint32_t* const listed = listed_.data();
  std::uint32_t* const pairOf = pairOf_.data();
  const std::size_t used = block_.used();
  std::size_t count = 0;
  const auto list = [&](std::uint32_t slot, std::uint32_t k) {
    listed[count] = slot;
    pairOf[count] = k;
    ++count;
  };
  for (std::uint32_t k = 0; k < used; ++k) {
    const auto first = static_cast<std::uint32_t>(block_.firstClass(k));
    std::uint64_t in = block_.directions(k);
    do {
      const std::uint32_t start = starts_[static_cast<std::size_t>(std::countr_zero(in))];
      list(start + first, k);
      if constexpr (Several)
        for (auto lag = block_.firstClass(k) + 1; lag <= block_.lastClass(k); ++lag)
          list(start + static_cast<std::uint32_t>(lag), k);
      in &= in - 1;
    } while (in != 0);
  }
  count_ = count;
}

void Summing::Place::add(double h, double product) {
  const std::array<double, 2> terms{h, product};
  for (std::size_t i = 0; i < 2; ++i) sums[i] += terms[i];
  ++pairs;
}

/// One variable, known everywhere, in one direction that takes all.
void Summing::sumPlain() {
  Place* const places = places_[0].data();
  const double* const h = block_.distances().data();
  const double* const first = block_.differences(plan_.pairings[0].first).data();
  const double* const second = block_.differences(plan_.pairings[0].second).data();
  const std::size_t used = block_.used();
  for (std::size_t k = 0; k < used; ++k) {
    const auto slot = static_cast<std::size_t>(block_.firstClass(k));
    places[slot * kTurns + k % kTurns].add(h[k], first[k] * second[k]);
  }
}

/// One variable, known everywhere, in any directions.
void Summing::sumDirected() {
  Place* const places = places_[0].data();
  const double* const h = block_.distances().data();
  const double* const first = block_.differences(plan_.pairings[0].first).data();
  const double* const second = block_.differences(plan_.pairings[0].second).data();
  const std::size_t used = block_.used();
  for (std::size_t k = 0; k < used; ++k) {
    const double product = first[k] * second[k];
    places[block_.slot(k) * kTurns + k % kTurns].add(h[k], product);
    for (std::uint64_t in = block_.otherDirections(k); in != 0; in &= in - 1) {
      const auto direction = static_cast<std::size_t>(std::countr_zero(in));
      const auto lag = static_cast<std::size_t>(block_.firstClass(k));
      places[(starts_[direction] + lag) * kTurns + k % kTurns].add(h[k], product);
    }
  }
}

/// The first variable, with the pairs that count for all.
void Summing::sumFirst() {
  Place* const places = places_[0].data();
  const double* const h = block_.distances().data();
  const double* const first = block_.differences(plan_.pairings[0].first).data();
  const double* const second = block_.differences(plan_.pairings[0].second).data();
  for (std::size_t n = 0; n < count_; ++n) {
    const std::size_t k = pairOf_[n];
    places[listed_[n] * kTurns + n % kTurns].add(h[k], first[k] * second[k]);
  }
}

void Summing::sumProducts(std::size_t pairing) {
  Place* const places = places_[pairing].data();
  const double* const first = block_.differences(plan_.pairings[pairing].first).data();
  const double* const second = block_.differences(plan_.pairings[pairing].second).data();
  for (std::size_t n = 0; n < count_; ++n) {
    const std::size_t k = pairOf_[n];
    places[listed_[n] * kTurns + n % kTurns].sums[1] += first[k] * second[k];
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
    place.sums[0] += isKnown ? h[k] : 0;
    place.sums[1] += isKnown ? product : 0;
    place.pairs += isKnown ? 1 : 0;
  }
}

void Summing::sumBlock() {
  classifyBlock();
  const bool isOne = isComplete_ && plan_.pairings.size() == 1 && rule_.isUniform();
  if (isOne) {
    isPlain_ ? sumPlain() : sumDirected();
  } else {
    if (isPlain_) block_.takeAll();
    listPlaces();
    if (isComplete_) sumFirst();
    for (std::size_t p = isComplete_ ? 1 : 0; p < plan_.pairings.size(); ++p)
      isComplete_ ? sumProducts(p) : sumKnown(p);
  }
  block_.clear();
}

SumTable Summing::finish() {
  sumBlock();
  const auto classes = static_cast<std::size_t>(rule_.count());
  SumTable table(plan_.pairings.size(), directions_, classes);
  for (std::size_t p = 0; p < plan_.pairings.size(); ++p)
    for (std::size_t d = 0; d < directions_; ++d)
      for (std::size_t slot = 0; slot <= classes; ++slot) {
        const std::size_t place = (d * slots_ + slot) * kTurns;
        Sum& sum = table.at(p, d, slot);
        for (std::size_t turn = 0; turn < kTurns; ++turn) {
          const Place& own = places_[p][place + turn];
          const Place& counted = isComplete_ ? places_[0][place + turn] : own;
          sum.add({counted.sums[0], own.sums[1], counted.pairs});
        }
      }
  for (auto& places : places_) std::ranges::fill(places, Place());
  return table;
}

}  // namespace zevfit::zvm
