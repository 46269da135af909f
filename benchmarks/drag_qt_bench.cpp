// From a mouse move in the drag of a handle to the painted plot, with all that runs in between,
// beside QCustomPlot's replot of the same content. The median is to be at most 250 us and, in the
// quietest of ten rounds, 99 of 100 moves at most 350 us; the drawing within it at most 0.6 of the
// replot.

#include "benchmarks/sample_plot.h"

#include <QLabel>
#include <QTest>
#include <QWindow>

#include "benchmarks/rounds.h"

namespace {

using zevfit::bench::OpenPlot;
using zevfit::bench::Rounds;

/// A plot whose first structure is held by the mouse.
class Drag {
 public:
  Drag() {
    QTest::mouseClick(&window(), Qt::LeftButton, {}, placeOf(plot_.picture(), {20, 20}));
    auto& handle = plot_.program().control<QLabel>("estru_1");
    if (!handle.isVisible()) throw std::runtime_error("no handle");
    QTest::mousePress(&window(), Qt::LeftButton, {}, placeOf(handle, {2, 2}));
  }

  /// Moves to the next place and waits until the plot is painted.
  void move() {
    at_ = at_ == 0 ? 1 : at_ + 1;
    if (at_ > 300) at_ = 1;
    QTest::mouseMove(&window(), placeOf(plot_.picture(), {60 + at_, 100}));
    QApplication::processEvents();
  }
  bool holds() { return plot_.program().session().dragsel[1] == 1; }

 private:
  QWindow& window() { return *plot_.program().window().windowHandle(); }
  QPoint placeOf(QWidget& control, QPoint at) {
    return control.mapTo(&plot_.program().window(), at);
  }

  OpenPlot plot_;
  int at_ = 0;
};

void BM_DragMove(benchmark::State& state) {
  Drag drag;
  Rounds rounds(1000);
  for (auto _ : state) rounds.time([&] { drag.move(); });
  if (!drag.holds()) state.SkipWithError("the handle was lost");
  state.counters["median_us"] = rounds.quantile(0.5);
  state.counters["p99_us"] = rounds.quietest(0.99);
}
BENCHMARK(BM_DragMove)->Unit(benchmark::kMicrosecond)->Iterations(10000);

BENCHMARK(zevfit::bench::redraw)->Name("BM_DrawingWithin")->Unit(benchmark::kMicrosecond);

BENCHMARK(zevfit::bench::replotByLibrary)
    ->Name("BM_QCustomPlotReplot")
    ->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { return zevfit::bench::run(argc, argv); }
