// The memory of `zvm compute` for a million points with one variable in the plane, pages of its
// files included: at most 64 bytes a point and 16 MB.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "benchmarks/full_file.h"
#include "benchmarks/random_points.h"

namespace zevfit::zvm::bench {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr double kAllowed = 64.0 * kPoints + 16e6;

/// Row by row, so that this program stays small: what it holds counts as its child's at first.
void writePoints(const std::filesystem::path& path) {
  std::ofstream out(path);
  SplitMix random(1);
  const auto next = [&random] { return static_cast<double>(random.next() >> 11U) * 0x1p-53; };
  out << "x,y,v\n";
  for (std::size_t i = 0; i < kPoints; ++i) out << next() << ',' << next() << ',' << next() << '\n';
}

/// The most memory of a run, in bytes; 0 where it fails.
double memoryOf(const std::filesystem::path& points) {
  const std::string width = std::to_string(cutoffFor(kPoints) / kClasses);
  const std::string classes = std::to_string(kClasses);
  const pid_t child = ::fork();
  if (child == 0) {
    std::freopen("/dev/null", "w", stdout);  // where its report goes
    ::execl(ZEVFIT_ZVM, "zvm", "compute", points.c_str(), "/dev/null", "-q", "--x", "x", "--y", "y",
            "--var", "v", "--lag", width.c_str(), "--lags", classes.c_str(), nullptr);
    ::_exit(1);
  }
  int status = 0;
  rusage used{};
  const bool ended = child > 0 && ::wait4(child, &status, 0, &used) == child;
  return ended && status == 0 ? 1024.0 * static_cast<double>(used.ru_maxrss) : 0;
}

void BM_ComputeMemory(benchmark::State& state) {
  const ::zevfit::bench::ScratchFile file("zevfit-memory-bench.csv");
  writePoints(file.path());
  double taken = 0;
  for (auto _ : state) taken = memoryOf(file.path());
  if (taken == 0) return state.SkipWithError("the run has failed");
  state.counters["taken_MB"] = taken / 1e6;
  state.counters["allowed_MB"] = kAllowed / 1e6;
}

BENCHMARK(BM_ComputeMemory)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace zevfit::zvm::bench
