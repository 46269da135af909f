#include <QApplication>

#include "platform/orthogonality.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "windows/greeting.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("zevFIT");
  QLocale::setDefault(QLocale::c());

  zevfit::QtDialogs dialogs;
  zevfit::QtPrinter printer;
  const zevfit::AngleTest angleTest;
  zevfit::mdimod window(dialogs, printer, angleTest, zevfit::programFolder());
  const zevfit::Greeting greeting(window);
  window.show();
  return QApplication::exec();
}
