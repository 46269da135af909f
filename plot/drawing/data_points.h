#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "model/data_point.h"
#include "session/session.h"

namespace zevfit {

/// The classes of a pair as points within axes that end at `xmax` and `ymax`.
class DataPoints {
 public:
  DataPoints(const Session& session, Pair pair, double xmax, double ymax);
  /// Within the axes of the pair.
  DataPoints(const Session& session, Pair pair);

  /// The last class that can give a point or a fault: what no table holds is a class without pairs,
  /// however many classes a file has claimed.
  std::int64_t last() const;

  /// Of class `lag`, from 1 to the last one; nothing for a class without pairs, with a semivariance
  /// of 0 or above the axis, or with a distance beyond it. Throws Fault for a distance that is a
  /// text, in any class.
  std::optional<DataPoint> operator()(std::int64_t lag) const {
    const auto slot = static_cast<std::size_t>(lag);
    const DataPoint point{slot < distances_.size() ? distances_[slot].number() : 0,
                          slot < semivariances_.size() ? semivariances_[slot] : 0,
                          slot < pairs_.size() ? pairs_[slot] : 0};
    const bool inside = point.gamma <= ymax_ && point.h <= xmax_;
    const bool hasData = point.pairs != 0 && point.gamma != 0;
    return inside && hasData ? std::optional(point) : std::nullopt;
  }

 private:
  std::int64_t classes_;
  std::span<const Cell> distances_;
  std::span<const double> semivariances_;
  std::span<const float> pairs_;
  double xmax_, ymax_;
};

}  // namespace zevfit
