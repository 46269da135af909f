// How the cost grows with classes, variables and open windows, and where the time of one redraw
// goes. A redraw is to take at most 0.1 us more with each class.
#include "benchmarks/rounds.h"
#include "benchmarks/sample_plot.h"
#include "files/variogram_reader.h"

namespace {

using zevfit::bench::OpenPlot;
using zevfit::bench::Rounds;

void BM_RedrawByClasses(benchmark::State& state) {
  OpenPlot plot(1, static_cast<int>(state.range(0)));
  Rounds rounds(500);
  for (auto _ : state) rounds.time([&] { plot.redraw(); });
  state.counters["quietest_us"] = rounds.quietest(0.5);
}
BENCHMARK(BM_RedrawByClasses)
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(10000)
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000);

void BM_RedrawByOpenWindows(benchmark::State& state) {
  OpenPlot plot(static_cast<int>(state.range(0)));
  for (auto _ : state) plot.redraw();
}
BENCHMARK(BM_RedrawByOpenWindows)->Unit(benchmark::kMicrosecond)->Arg(1)->Arg(5)->Arg(20);

void BM_ReadByVariables(benchmark::State& state) {
  const std::string bytes =
      zevfit::bench::fileText(static_cast<int>(state.range(0)), 4, zevfit::bench::kClasses);
  zevfit::Session session;
  for (auto _ : state) benchmark::DoNotOptimize(readVariogramBytes(bytes, session));
}
BENCHMARK(BM_ReadByVariables)->Unit(benchmark::kMicrosecond)->Arg(1)->Arg(10)->Arg(40);

/// Of a redraw: the finished picture brought to the window.
void BM_PartPicture(benchmark::State& state) {
  OpenPlot plot;
  for (auto _ : state) plot.picture().repaint();
}
BENCHMARK(BM_PartPicture)->Unit(benchmark::kMicrosecond);

/// Of a redraw: the controls of the panel, the curve and the picture's lines, discs and texts.
void BM_PartDrawing(benchmark::State& state) {
  OpenPlot plot;
  for (auto _ : state) plot.program().window().plotvariogram();
}
BENCHMARK(BM_PartDrawing)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { return zevfit::bench::run(argc, argv); }
