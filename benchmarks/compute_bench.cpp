// Experimental semivariograms of random points beside bare loops over the same pairs that only sum
// distances and squared differences: at most 1.5 of their time. Two threads beside one, and one
// million points beside a hundred thousand with as many pairs a point.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "zvm/experimental/job.h"
#include "zvm/experimental/sample.h"
#include "zvm/experimental/summing.h"
#include "zvm/experimental/walk.h"

namespace zevfit::zvm {
namespace {

PointSet randomPoints(std::size_t count) {
  PointSet points;
  SplitMix random(1);
  const auto next = [&random] { return static_cast<double>(random.next() >> 11U) * 0x1p-53; };
  points.values.resize(1);
  for (std::size_t i = 0; i < count; ++i) {
    points.x.push_back(next());
    points.y.push_back(next());
    points.values[0].push_back(next());
  }
  return points;
}

/// Fifteen classes up to `cutoff`, in none or four directions.
Plan planOf(double cutoff, bool directed) {
  Plan plan;
  plan.lags = {cutoff / 15, 15, {}};
  plan.pairings = {{0, 0, "v"}};
  for (const char* name : {"0;0", "45;0", "90;0", "135;0"})
    if (directed || plan.directions.empty()) plan.directions.push_back(directionOf(name).value());
  if (!directed) plan.directions[0].tolerance = 90;
  return plan;
}

double cutoffFor(std::size_t count) {
  return 0.1 * std::sqrt(50'000.0 / static_cast<double>(count));
}

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

std::uint64_t pairsOf(const SumTable& sums) {
  std::uint64_t pairs = 0;
  for (const Sum& sum : sums.all()) pairs += sum.pairs;
  return pairs;
}

/// The same candidates, with nothing but their distances and squared differences summed.
double bareSum(const Job& job) {
  const SortedPoints& points = job.points;
  const std::vector<double>& values = points.values[0];
  double distances = 0, squares = 0;
  Walk walk(points, job.rule.reach());
  walk.run(0, points.size(), [&](std::size_t i, std::size_t first, std::size_t last) {
    const double x = points.x[i], y = points.y[i], value = values[i];
    for (std::size_t j = first; j < last; ++j) {
      const double dx = points.x[j] - x, dy = points.y[j] - y, d = values[j] - value;
      distances += std::sqrt(dx * dx + dy * dy);
      squares += d * d;
    }
  });
  return distances + squares;
}

void compute(benchmark::State& state, bool directed) {
  const auto count = static_cast<std::size_t>(state.range(0));
  const Plan plan = planOf(cutoffFor(count), directed);
  const Job job = prepare(randomPoints(count), plan);
  double best = std::numeric_limits<double>::max(), bare = best;
  std::uint64_t pairs = 0;
  for (auto _ : state) {
    const double start = processorSeconds();
    const Job whole = prepare(randomPoints(count), plan);
    pairs = pairsOf(runWhole(whole, {}));
    best = std::min(best, processorSeconds() - start);
    state.PauseTiming();
    const double bareStart = processorSeconds();
    benchmark::DoNotOptimize(bareSum(job));
    bare = std::min(bare, processorSeconds() - bareStart);
    state.ResumeTiming();
  }
  state.counters["pairs"] = static_cast<double>(pairs);
  state.counters["best_ms"] = 1e3 * best;
  state.counters["yardstick_ms"] = 1e3 * bare;
  state.counters["ns_a_pair"] = 1e9 * best / static_cast<double>(pairs);
  state.counters["times_yardstick"] = best / bare;
}

void BM_Omnidirectional(benchmark::State& state) { compute(state, false); }
void BM_FourDirections(benchmark::State& state) { compute(state, true); }

BENCHMARK(BM_Omnidirectional)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Arg(500'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FourDirections)->Arg(50'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zevfit::zvm
