#pragma once

// In front of the toolkit, whose keywords the plotting library needs and the core does without.
#include "session/session.h"

#include <benchmark/benchmark.h>
#include <qcustomplot.h>

#include <QApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <cmath>
#include <fstream>

#include "platform/picture_box.h"
#include "tests/support/program.h"

/// One plot of 20 classes and a full model at the standard size, in the program and, as the
/// yardstick, in a plotting library.
namespace zevfit::bench {

inline constexpr int kClasses = 20;
inline constexpr QSize kPicture(431, 248);
inline constexpr double kVariance = 1.0, kNugget = 0.2, kSill = 0.7, kRange = 700, kLast = 2000;

inline double distance(int lag) { return kLast * lag / kClasses; }

inline double model(double h) { return kNugget + kSill * (1 - std::exp(-3 * h / kRange)); }

inline std::string writeFile(const QTemporaryDir& folder) {
  std::string path = folder.filePath("bench.zvm").toStdString();
  std::ofstream out(path);
  out << "bench\nzevra1\n1\nln zinc\n1\n" << kClasses << "\n45;0\n" << kVariance << "\n";
  for (int lag = 1; lag <= kClasses; ++lag)
    out << distance(lag) << " " << model(distance(lag)) << " 100\n";
  out << "1\n"
      << kNugget << "\n1\nE\n"
      << kSill << "\n"
      << kRange << "\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
  return path;
}

/// The program with one plot of 20 classes at the standard size.
class OpenPlot {
 public:
  OpenPlot() : program_(folder_.path().toStdString()) {
    program_.open(writeFile(folder_));
    picture_ = &program_.control<QWidget>("Picture4");
  }

  void redraw() {
    program_.window().plotvariogram();
    picture_->repaint();
  }

  /// One step of the range slider, the next of them on each call.
  void step() {
    auto& slider = program_.control<QSlider>("HScrolla");
    position_ = position_ == 3000 ? 3001 : 3000;
    slider.setValue(position_);
    picture_->repaint();
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

}  // namespace zevfit::bench
