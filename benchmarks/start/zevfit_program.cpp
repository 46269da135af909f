// The program as its own main makes it, ending once its main window is painted.

#include "benchmarks/start/first_paint.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "windows/greeting.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  zevfit::QtDialogs dialogs;
  zevfit::mdimod window(dialogs, zevfit::programFolder());
  const zevfit::Greeting greeting(window);
  const FirstPaint end(window);
  window.show();
  return QApplication::exec();
}
