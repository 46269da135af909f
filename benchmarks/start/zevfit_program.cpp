// The program as its own main makes it, ending once its main window is painted.

#include "benchmarks/start/first_paint.h"
#include "files/orthogonality.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "windows/greeting.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  zevfit::QtDialogs dialogs;
  zevfit::QtPrinter printer;
  const zevfit::AngleTest angleTest;
  zevfit::mdimod window(dialogs, printer, angleTest, zevfit::programFolder());
  const zevfit::Greeting greeting(window);
  const FirstPaint end(window);
  window.show();
  return QApplication::exec();
}
