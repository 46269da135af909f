// 20 plots open: a switch to another variable and its plot, another plot made the active one, and
// the two arrangements side by side and one below the other. Each is to take less than a frame at
// 120 Hz, 8,333 us, up to what is painted.
#include "benchmarks/sample_plot.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace {

using zevfit::bench::kClasses;

constexpr int kVariables = 2, kDirections = 10, kPlots = kVariables * kDirections;

/// Two variables with plots of ten directions each.
class ManyPlots {
 public:
  ManyPlots() : program_(folder_.path().toStdString()) {
    program_.open(zevfit::bench::writeFile(folder_, kVariables, kDirections, kClasses));
    for (int v = 0; v < kVariables; ++v) {
      variables().setCurrentIndex(v);
      for (int d = 0; d < kDirections; ++d) openPlot(d);
    }
    if (area().subWindowList().size() != kPlots) throw std::runtime_error("not all plots are open");
  }

  /// Chosen in the list and plotted.
  void switchVariable() {
    variables().setCurrentIndex(1 - variables().currentIndex());
    plotButton().click();
    QApplication::processEvents();
  }

  /// The one that was active longest ago comes to the front.
  void activateNext() {
    area().activateNextSubWindow();
    QApplication::processEvents();
  }

  void arrange() {
    isUpright_ = !isUpright_;
    program_.trigger(isUpright_ ? "mnuvertical" : "mnuhorizontal");
    QApplication::processEvents();
  }

 private:
  QComboBox& variables() { return program_.control<QComboBox>("Combo2"); }
  QPushButton& plotButton() { return program_.control<QPushButton>("Command5"); }
  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }

  void openPlot(int direction) {
    program_.control<QComboBox>("Combodirvar").setCurrentIndex(direction);
    plotButton().click();
    QApplication::processEvents();
  }

  QTemporaryDir folder_;
  zevfit::test::Program program_;
  bool isUpright_ = false;
};

void BM_SwitchOfVariable(benchmark::State& state) {
  ManyPlots plots;
  for (auto _ : state) plots.switchVariable();
}
BENCHMARK(BM_SwitchOfVariable)->Unit(benchmark::kMicrosecond);

void BM_AnotherPlot(benchmark::State& state) {
  ManyPlots plots;
  for (auto _ : state) plots.activateNext();
}
BENCHMARK(BM_AnotherPlot)->Unit(benchmark::kMicrosecond);

void BM_Tiling(benchmark::State& state) {
  ManyPlots plots;
  for (auto _ : state) plots.arrange();
}
BENCHMARK(BM_Tiling)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { return zevfit::bench::run(argc, argv); }
