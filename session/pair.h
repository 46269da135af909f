#pragma once

#include <cstdint>

namespace zevfit {

/// A variable and one of its directions, both from 1: what a plot shows and a model belongs to.
/// List position p stands for subscript p + 1.
struct Pair {
  std::int64_t variable = 0, direction = 0;

  /// The two subscripts the other way round, for reads that look at the cell of another pair.
  constexpr Pair exchanged() const { return {direction, variable}; }
  constexpr bool operator==(const Pair&) const = default;
};

}  // namespace zevfit
