// Reading a table of a million points beside a bare loop that only takes its numbers: at least half
// of its speed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <sstream>
#include <string>

#include "benchmarks/random_points.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm::bench {
namespace {

constexpr std::size_t kRows = 1'000'000;

/// Coordinates and values with six and seven digits behind a header line.
std::string table() {
  const PointSet points = randomPoints(kRows);
  std::string text = "x,y,zinc\n";
  char field[32];
  const auto add = [&](double value, int decimals, char behind) {
    const auto written =
        std::to_chars(field, field + sizeof field, value, std::chars_format::fixed, decimals);
    text.append(field, written.ptr);
    text += behind;
  };
  for (std::size_t i = 0; i < kRows; ++i) {
    add(181'000 + 1000 * points.x[i], 2, ',');
    add(330'000 + 1000 * points.y[i], 2, ',');
    add(1000 * points.values[0][i], 4, '\n');
  }
  return text;
}

double bareSum(const std::string& text) {
  const char* at = text.data() + text.find('\n') + 1;
  const char* const end = text.data() + text.size();
  double sum = 0;
  while (at < end) {
    double value = 0;
    at = std::from_chars(at, end, value).ptr + 1;
    sum += value;
  }
  return sum;
}

void BM_ReadPoints(benchmark::State& state) {
  const std::string text = table();
  ReadOptions options;
  options.x = "x";
  options.y = "y";
  options.variables = {"zinc"};
  std::istringstream in(text);
  double best = std::numeric_limits<double>::max(), bare = best;
  for (auto _ : state) {
    in.clear();
    in.seekg(0);
    best = std::min(best, secondsOf([&] {
                      const PointSet points = readPoints(in, "points.csv", options);
                      if (points.size() != kRows) state.SkipWithError("not all rows are read");
                    }));
    bare = std::min(bare, secondsOf([&] { benchmark::DoNotOptimize(bareSum(text)); }));
  }
  state.counters["best_ms"] = 1e3 * best;
  state.counters["yardstick_ms"] = 1e3 * bare;
  state.counters["speed_of_yardstick"] = bare / best;
}

BENCHMARK(BM_ReadPoints)->Unit(benchmark::kMillisecond)->Iterations(8);

}  // namespace
}  // namespace zevfit::zvm::bench
