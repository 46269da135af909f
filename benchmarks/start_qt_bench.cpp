// From the start of the process to the first window shown, beside a minimal program with an empty
// main window. At most 1.2 times as long, on a display. The program's is blank then: how long
// it takes until the panel is there is measured, too.
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProcess>
#include <algorithm>
#include <array>
#include <chrono>
#include <limits>

namespace {

/// A program of `start/`, and the quickest of its starts.
struct Started {
  const char* program;
  const char* control;  ///< that is waited for; none for the first window
  const char* counter;
  double best = std::numeric_limits<double>::max();  // milliseconds
};

/// Whether it ended well, as it does once its window is painted.
bool start(Started& started) {
  const QString path = QCoreApplication::applicationDirPath() + "/" + started.program;
  const auto begin = std::chrono::steady_clock::now();
  const QStringList arguments = *started.control ? QStringList(started.control) : QStringList();
  if (QProcess::execute(path, arguments) != 0) return false;
  const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
  started.best = std::min(started.best, took.count());
  return true;
}

/// All in turn, so that what else the machine does is the same for each.
void BM_Start(benchmark::State& state) {
  std::array<Started, 4> all{{{"start_zevfit", "", "zevfit_ms"},
                              {"start_zevfit", "Picture1", "whole_ms"},
                              {"start_minimal", "", "empty_ms"},
                              {"start_text", "", "text_ms"}}};
  for (auto _ : state)
    for (Started& started : all)
      if (!start(started)) {
        const std::string name = started.program;
        return state.SkipWithError((name + " has failed").c_str());
      }
  for (const Started& started : all) state.counters[started.counter] = started.best;
}
BENCHMARK(BM_Start)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(100);

}  // namespace

int main(int argc, char** argv) {
  // Elsewhere than on the platform without a screen where the caller says so.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QCoreApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
