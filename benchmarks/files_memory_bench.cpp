// The memory of reading a full file, beside the file and twice the tables.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

#include "benchmarks/full_file.h"
#include "files/variogram_reader.h"

namespace {

/// Bytes on the heap, now and at the most.
struct Heap {
  std::size_t live = 0, peak = 0;
};

Heap& heap() {
  static Heap all;
  return all;
}

}  // namespace

void* operator new(std::size_t size) {
  void* const block = std::malloc(std::max<std::size_t>(size, 1));
  if (!block) throw std::bad_alloc();
  heap().live += malloc_usable_size(block);
  heap().peak = std::max(heap().peak, heap().live);
  return block;
}

void operator delete(void* block) noexcept {
  if (block) heap().live -= malloc_usable_size(block);
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

namespace zevfit {
namespace {

void BM_ReadMemory(benchmark::State& state) {
  const bench::ScratchFile file("zevfit-read-bench.zvm");
  {
    Session full = bench::fullSession();
    OutputFile out(file.path());
    out.write(bench::fileOf(full));
    out.close();
  }
  const auto fileBytes = static_cast<double>(std::filesystem::file_size(file.path()));
  const auto tables = static_cast<double>(bench::kTableBytes);
  Session session;
  for (auto _ : state) {
    const std::size_t before = heap().live;
    heap().peak = before;
    readVariogramFile(file.path(), session);
    const auto taken = static_cast<double>(heap().peak - before);
    state.counters["file_MB"] = fileBytes / 1e6;
    state.counters["tables_MB"] = tables / 1e6;
    state.counters["taken_MB"] = taken / 1e6;
    state.counters["of_file_and_twice_tables"] = taken / (fileBytes + 2 * tables);
  }
}
/// The second time the tables of the first are still held when the file is read.
BENCHMARK(BM_ReadMemory)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace zevfit
