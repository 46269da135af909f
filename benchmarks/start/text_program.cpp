// A Qt program with a main window that has a menu bar and one line of text.
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

#include "benchmarks/start/first_paint.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.menuBar()->addMenu("File");
  window.setCentralWidget(new QLabel("Ready"));
  const FirstPaint end;
  window.resize(1240, 760);
  window.show();
  return QApplication::exec();
}
