// Reading and saving a full file, 40 variables by 20 directions by 1000 classes, beside bare loops
// of number conversions over the same bytes and numbers.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "benchmarks/full_file.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"

namespace zevfit {
namespace {

using namespace bench;

/// All numbers of the classes in the order of the file.
std::vector<double> numbersOf(const Session& session) {
  std::vector<double> numbers;
  for (int v = 1; v <= kVariables; ++v)
    for (int d = 1; d <= kDirections; ++d)
      for (int lag = 1; lag <= kClasses; ++lag)
        numbers.insert(numbers.end(), {session.hlag({v, d}, lag).number(), session.gam({v, d}, lag),
                                       static_cast<double>(session.npairs({v, d}, lag))});
  return numbers;
}

/// Processor time, which other programs on the machine leave alone.
template <class Work>
double milliseconds(Work&& work) {
  const std::clock_t start = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Runs the work and its yardstick in turn; the best time of each counts.
template <class Work, class Yardstick>
void compare(benchmark::State& state, Work&& work, Yardstick&& yardstick) {
  double worked = std::numeric_limits<double>::max(), bare = worked;
  for (auto _ : state) {
    worked = std::min(worked, milliseconds(work));
    state.PauseTiming();
    bare = std::min(bare, milliseconds(yardstick));
    state.ResumeTiming();
  }
  state.counters["best_ms"] = worked;
  state.counters["yardstick_ms"] = bare;
  state.counters["speed_of_yardstick"] = bare / worked;
}

double bareRead(const std::string& bytes) {
  const char* at = bytes.data();
  const char* const last = at + bytes.size();
  double sum = 0;
  while (at != last) {
    if (*at <= ' ') {
      ++at;
      continue;
    }
    double value = 0;
    const auto read = std::from_chars(at, last, value);
    sum += value;
    at = read.ptr == at ? at + 1 : read.ptr;
  }
  return sum;
}

void bareWrite(const std::vector<double>& numbers) {
  std::array<char, 40> text{};
  for (const double number : numbers)
    benchmark::DoNotOptimize(std::to_chars(text.data(), text.data() + text.size(), number).ptr);
}

void BM_Read(benchmark::State& state) {
  Session full = fullSession();
  const std::string bytes = fileOf(full);
  Session session;
  compare(
      state, [&] { benchmark::DoNotOptimize(readVariogramBytes(bytes, session)); },
      [&] { benchmark::DoNotOptimize(bareRead(bytes)); });
}

void BM_Compose(benchmark::State& state) {
  Session session = fullSession();
  const std::vector<double> numbers = numbersOf(session);
  MemorySink memory;
  memory.bytes = fileOf(session);
  compare(
      state,
      [&] {
        memory.bytes.clear();
        composeVariogramFile(session, kVariables, kOldFile, memory);
      },
      [&] { bareWrite(numbers); });
}

/// Into a file, with or without waiting for the disk.
void write(benchmark::State& state, bool flushed) {
  Session session = fullSession();
  const std::vector<double> numbers = numbersOf(session);
  const ScratchFile file("zevfit-write-bench.zvm");
  compare(
      state,
      [&] {
        OutputFile out(file.path());
        composeVariogramFile(session, kVariables, kOldFile, out);
        if (flushed) out.close();
      },
      [&] { bareWrite(numbers); });
}

void BM_Write(benchmark::State& state) { write(state, false); }
void BM_WriteAndFlushToDisk(benchmark::State& state) { write(state, true); }

BENCHMARK(BM_Read)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(BM_Compose)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(BM_Write)->Unit(benchmark::kMillisecond)->MinTime(2);
BENCHMARK(BM_WriteAndFlushToDisk)->Unit(benchmark::kMillisecond)->MinTime(2);

}  // namespace
}  // namespace zevfit
