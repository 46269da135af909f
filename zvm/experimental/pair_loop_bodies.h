#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "zvm/experimental/pair_loops.h"

// What the loops do, for the file of each machine that compiles them.
namespace zevfit::zvm {

// Distances from the same operations in the same order wherever they are computed: a test of equal
// counts depends on it. The class is found in the same loop, in the time that the square root of
// the next pair takes.
template <bool Space, bool Steps>
void takePairs(const PairRun& run, const UniformClasses& given, PairRows& rows, std::size_t used) {
  const UniformClasses classes = given;
  const double *const xs = run.xs, *const ys = run.ys, *const zs = run.zs;
  const double x = run.x, y = run.y, z = run.z;
  const std::size_t count = run.count;
  for (std::size_t k = 0; k < count; ++k) {
    const double dx = xs[k] - x, dy = ys[k] - y;
    double square = dx * dx + dy * dy;
    if constexpr (Space) {
      const double dz = zs[k] - z;
      square += dz * dz;
      if constexpr (Steps) rows.dz[used + k] = dz;
    }
    if constexpr (Steps) {
      rows.dx[used + k] = dx;
      rows.dy[used + k] = dy;
    }
    const double h = std::sqrt(square);
    rows.h[used + k] = h;
    rows.firstClass[used + k] = classes.classOf(h);
  }
}

inline void takeDifferences(const double* values, double value, double* differences,
                            std::size_t count) {
  for (std::size_t k = 0; k < count; ++k) differences[k] = values[k] - value;
}

inline void addSector(const SectorTest& given, double bit, PairRows& rows, std::size_t used) {
  const SectorTest test = given;
  if (!test.isWhole)
    for (std::size_t k = 0; k < used; ++k)
      rows.directions[k] += test.hasAngle(rows.dx[k], rows.dy[k]) ? bit : 0.0;
  else
    for (std::size_t k = 0; k < used; ++k) rows.directions[k] += bit;
  if (std::isinf(test.band)) return;
  for (std::size_t k = 0; k < used; ++k) {
    const bool isOut = rows.directions[k] >= bit && !test.isInBand(rows.dx[k], rows.dy[k]);
    rows.directions[k] -= isOut ? bit : 0.0;
  }
}

inline void addCone(const ConeTest& given, double bit, PairRows& rows, std::size_t used) {
  const ConeTest test = given;
  for (std::size_t k = 0; k < used; ++k)
    rows.directions[k] += test.holds(rows.dx[k], rows.dy[k], rows.dz[k]) ? bit : 0.0;
}

inline void settlePairs(double beyond, double slots, PairRows& rows, std::size_t used) {
  // The exponent of a double is that of its highest bit, and a number in the last places of 2^52.
  constexpr std::uint64_t kExponent = 0x7FF0000000000000U, kTwo52 = 0x4330000000000000U;
  constexpr double kOffset = 0x1p52 + 1023;
  for (std::size_t k = 0; k < used; ++k) {
    const double lag = rows.firstClass[k];
    const double out = lag <= kZeroClass ? 1.0 : rows.directions[k];
    const double in = lag >= beyond ? 1.0 : out;
    const double settled = in > 0 ? in : 1.0;
    const double settledLag = in > 0 ? lag : beyond;
    const auto bits = std::bit_cast<std::uint64_t>(settled);
    const double last = std::bit_cast<double>(bits >> 52U | kTwo52) - kOffset;
    rows.directions[k] = settled;
    rows.firstClass[k] = settledLag;
    rows.slot[k] = last * slots + settledLag;
    rows.rest[k] = settled - std::bit_cast<double>(bits & kExponent);
  }
}

/// The loops as a machine runs them: On<loop>::run.
template <template <auto> class On>
inline constexpr PairLoops kLoopsOn{
    On<takePairs<false, false>>::run,
    On<takePairs<false, true>>::run,
    On<takePairs<true, false>>::run,
    On<takePairs<true, true>>::run,
    On<takeDifferences>::run,
    On<addSector>::run,
    On<addCone>::run,
    On<settlePairs>::run,
};

/// As the compiler makes it for any machine that the program is for.
template <auto Loop>
struct Plain;
template <class... Of, void (*Loop)(Of...)>
struct Plain<Loop> {
  [[gnu::flatten]] static void run(Of... of) { Loop(of...); }
};

}  // namespace zevfit::zvm
