// The yardstick of a start: a Qt program with an empty main window, which never needs a font.
#include <QMainWindow>

#include "benchmarks/start/first_paint.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  const FirstPaint end;
  window.resize(1240, 760);
  window.show();
  return QApplication::exec();
}
