// A complete redraw of a plot, the panel included, beside QCustomPlot's replot of the same content.
#include "benchmarks/sample_plot.h"

namespace {

using zevfit::bench::OpenPlot;

BENCHMARK(zevfit::bench::redraw)->Name("BM_Redraw")->Unit(benchmark::kMicrosecond);

void BM_SliderStep(benchmark::State& state) {
  OpenPlot plot;
  plot.selectStructure();
  for (auto _ : state) plot.step();
}
BENCHMARK(BM_SliderStep)->Unit(benchmark::kMicrosecond);

BENCHMARK(zevfit::bench::replotByLibrary)
    ->Name("BM_QCustomPlotReplot")
    ->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { return zevfit::bench::run(argc, argv); }
