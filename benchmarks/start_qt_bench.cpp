// From the start of the process to the first window shown, beside a minimal program with a main
// window: a menu bar and one line of text. At most 1.5 times as long.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProcess>

namespace {

void runProgram(benchmark::State& state, const char* name) {
  const QString path = QCoreApplication::applicationDirPath() + "/" + name;
  for (auto _ : state)
    if (QProcess::execute(path, {}) != 0) return state.SkipWithError("the program failed");
}

void BM_StartZevfit(benchmark::State& state) { runProgram(state, "start_zevfit"); }
BENCHMARK(BM_StartZevfit)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

/// The yardstick.
void BM_StartMinimal(benchmark::State& state) { runProgram(state, "start_minimal"); }
BENCHMARK(BM_StartMinimal)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
