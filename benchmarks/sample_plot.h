#pragma once

// In front of the toolkit, whose keywords the plotting library needs and the core does without.
#include "session/session.h"

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <cmath>
#include <fstream>
#include <sstream>

#include "platform/house_style.h"
#include "platform/picture_box.h"
#include "tests/support/program.h"

/// One plot of 20 classes and a full model at the standard size, in the program and, as the
/// yardstick, in a plotting library.
namespace zevfit::bench {

inline constexpr int kClasses = 20;
inline constexpr QSize kPicture(431, 248);
inline constexpr double kVariance = 1.0, kNugget = 0.2, kSill = 0.7, kRange = 700, kLast = 2000;

inline double distance(int lag, int classes = kClasses) { return kLast * lag / classes; }

inline double model(double h) { return kNugget + kSill * (1 - std::exp(-3 * h / kRange)); }

inline std::string fileText(int variables, int directions, int classes) {
  std::ostringstream out;
  out << "bench\nzevra1\n" << variables << "\n";
  for (int v = 1; v <= variables; ++v) out << "ln zinc " << v << "\n";
  out << directions << "\n" << classes << "\n";
  for (int d = 0; d < directions; ++d) out << 45 + d << ";0\n";
  for (int v = 0; v < variables; ++v) {
    out << kVariance << "\n";
    for (int d = 0; d < directions; ++d)
      for (int lag = 1; lag <= classes; ++lag)
        out << distance(lag, classes) << " " << model(distance(lag, classes)) << " 100\n";
  }
  for (int pair = 0; pair < variables * directions; ++pair)
    out << "1\n"
        << kNugget << "\n1\nE\n"
        << kSill << "\n"
        << kRange << "\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
  return out.str();
}

inline std::string writeFile(const QTemporaryDir& folder, int variables, int directions,
                             int classes) {
  std::string path = folder.filePath("bench.zvm").toStdString();
  std::ofstream(path) << fileText(variables, directions, classes);
  return path;
}

/// The program with plots of one variable in some directions at the standard size, the last of them
/// current.
class OpenPlot {
 public:
  explicit OpenPlot(int directions = 1, int classes = kClasses)
      : program_(folder_.path().toStdString()) {
    program_.open(writeFile(folder_, 1, directions, classes));
    for (int d = 1; d < directions; ++d) {
      program_.control<QComboBox>("Combodirvar").setCurrentIndex(d);
      program_.control<QPushButton>("Command5").click();
    }
    picture_ = &program_.control<QWidget>("Picture4");
  }

  /// Of other data on each call: points and curve are drawn anew.
  void redraw() {
    first_ = first_ == kNugget ? kNugget / 2 : kNugget;
    program_.session().gam.set({1, 1}, 1, first_);
    program_.window().plotvariogram();
    picture_->repaint();
  }

  /// One step of the range slider, the next of them on each call, with what is left for the end of
  /// its events.
  void step() {
    auto& slider = program_.control<QSlider>("HScrolla");
    position_ = position_ == 3000 ? 3001 : 3000;
    slider.setValue(position_);
    picture_->repaint();
    QApplication::processEvents();
  }

  test::Program& program() { return program_; }
  QWidget& picture() { return *picture_; }

  void selectStructure() {
    program_.control<QRadioButton>("est2").setChecked(true);
    program_.control<QSlider>("HScrolla").setFocus(Qt::TabFocusReason);
  }

 private:
  QTemporaryDir folder_;
  test::Program program_;
  QWidget* picture_ = nullptr;
  int position_ = 3000;
  double first_ = kNugget;
};

inline void setUpAxes(QCustomPlot& plot) {
  const QFont labels("Liberation Serif", 8);
  for (QCPAxis* axis : {plot.xAxis, plot.yAxis}) {
    axis->setTickLabelFont(labels);
    axis->ticker()->setTickCount(5);
    axis->grid()->setPen(QPen(Qt::black, 1, Qt::DotLine));
    axis->setLabelFont(labels);
  }
  plot.xAxis->setLabel("h( )");
  plot.yAxis->setLabel(QString(QChar(0x3B3)) + "(h)");
  plot.xAxis->setRange(0, kLast);
  plot.yAxis->setRange(0, 1.06);
}

inline void addSeries(QCustomPlot& plot) {
  QCPGraph* data = plot.addGraph();
  data->setName("Data");
  data->setLineStyle(QCPGraph::lsNone);
  data->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, QColor(0, 128, 0), 5));
  for (int lag = 1; lag <= kClasses; ++lag) data->addData(distance(lag), model(distance(lag)));
  QCPGraph* curve = plot.addGraph();
  curve->setName("Model");
  curve->setPen(QPen(Qt::blue, 2));
  for (int i = 1; i <= 100; ++i) curve->addData(kLast * i / 100, model(kLast * i / 100));
  QCPGraph* sill = plot.addGraph();
  sill->setName("Sill");
  sill->setPen(QPen(Qt::red, 2));
  sill->addData(0, kVariance);
  sill->addData(kLast, kVariance);
}

inline void setUp(QCustomPlot& plot) {
  plot.resize(kPicture);
  plot.plotLayout()->insertRow(0);
  plot.plotLayout()->addElement(
      0, 0, new QCPTextElement(&plot, "Semivariogram (45;0)", QFont("Liberation Serif", 10)));
  setUpAxes(plot);
  addSeries(plot);
  plot.legend->setVisible(true);
  plot.legend->setFont(QFont("Liberation Serif", 8));
  plot.setAntialiasedElements(QCP::aeAll);
  plot.show();
  QApplication::processEvents();
}

/// The yardstick of a drawing: the library's own immediate replot.
inline void replotByLibrary(benchmark::State& state) {
  QCustomPlot plot;
  setUp(plot);
  for (auto _ : state) plot.replot(QCustomPlot::rpImmediateRefresh);
}

inline void redraw(benchmark::State& state) {
  OpenPlot plot;
  for (auto _ : state) plot.redraw();
}

/// Runs all benchmarks of a program without a screen.
inline int run(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setStyle(new HouseStyle);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace zevfit::bench
