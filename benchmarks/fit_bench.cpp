// Start models of a full file, 40 variables by 20 directions by 20 classes, with the defaults of
// the command: 2 s of it with two threads.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "benchmarks/full_file.h"
#include "fitting/fit.h"

namespace zevfit::fitting {
namespace {

constexpr int kClasses = 20;

/// Deviations of some percent, without a random number.
double deviation(int v, int d, int lag) {
  return 0.05 * std::sin(v * 12.9 + d * 78.2 + lag * 37.7);
}

/// A nugget and two spherical structures that are longer along one azimuth.
void fillClasses(Session& session, Pair pair) {
  const auto v = static_cast<int>(pair.variable), d = static_cast<int>(pair.direction);
  const double across = std::sin((9 * d - 4 * v) * 0.017453292519943295);
  const double scale = std::sqrt(1 + (1 + v % 5) * across * across);
  for (int lag = 1; lag <= kClasses; ++lag) {
    const double h = 100 * lag + 10 * std::sin(lag * 1.7 + d);
    const double model = 0.1 + spherical(h * scale, 0.3, 400) + spherical(h * scale, 0.6, 1500);
    session.hlag.set(pair, lag, h);
    session.gam.set(pair, lag, model * (1 + deviation(v, d, lag)));
    session.npairs.set(pair, lag, static_cast<float>(20 + (lag * 37 + d) % 900));
  }
}

/// Every variable of a thread's share.
void fitShare(const Session& session, std::int64_t first, std::int64_t step,
              std::vector<VariableFit>& fits) {
  for (std::int64_t v = first; v <= session.nvar; v += step)
    fits[static_cast<std::size_t>(v - 1)] = fitVariable(session, v, {});
}

void fitAll(benchmark::State& state) {
  const Session session = bench::fullSession(kClasses, fillClasses);
  const std::int64_t threads = state.range(0);
  for ([[maybe_unused]] const auto step : state) {
    std::vector<VariableFit> fits(bench::kVariables);
    std::vector<std::jthread> running;
    for (std::int64_t t = 1; t <= threads; ++t)
      running.emplace_back([&, t] { fitShare(session, t, threads, fits); });
    running.clear();
    benchmark::DoNotOptimize(fits);
  }
}
BENCHMARK(fitAll)->Arg(1)->Arg(2)->UseRealTime()->MeasureProcessCPUTime()->Unit(
    benchmark::kMillisecond);

}  // namespace
}  // namespace zevfit::fitting
