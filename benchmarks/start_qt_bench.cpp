// From the start of the process to the first window shown, beside a minimal program with a main
// window. At most 1.5 times as long, on a display: where there is none (Qt's offscreen platform) no
// window is shown, and what is left to compare is the loading of a font.
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

/// With a menu bar and one line of text.
void BM_StartText(benchmark::State& state) { runProgram(state, "start_text"); }
BENCHMARK(BM_StartText)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

/// The yardstick: an empty main window.
void BM_StartMinimal(benchmark::State& state) { runProgram(state, "start_minimal"); }
BENCHMARK(BM_StartMinimal)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

}  // namespace

int main(int argc, char** argv) {
  // Elsewhere than on the platform without a screen where the caller says so.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
