// A complete redraw of a plot, the panel included, beside QCustomPlot's replot of the same content.
#include "benchmarks/sample_plot.h"

namespace {

using zevfit::bench::OpenPlot;

void BM_Redraw(benchmark::State& state) {
  OpenPlot plot;
  for (auto _ : state) plot.redraw();
}
BENCHMARK(BM_Redraw)->Unit(benchmark::kMicrosecond);

void BM_SliderStep(benchmark::State& state) {
  OpenPlot plot;
  plot.selectStructure();
  for (auto _ : state) plot.step();
}
BENCHMARK(BM_SliderStep)->Unit(benchmark::kMicrosecond);

/// The yardstick: the library's own immediate replot.
void BM_QCustomPlotReplot(benchmark::State& state) {
  QCustomPlot plot;
  zevfit::bench::setUp(plot);
  for (auto _ : state) plot.replot(QCustomPlot::rpImmediateRefresh);
}
BENCHMARK(BM_QCustomPlotReplot)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
