// The program as its own main makes it, ending once its main window is painted.
#include <QIcon>

#include "benchmarks/start/first_paint.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "windows/mdimod.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(QIcon(":/icons/app.svg"));
  zevfit::QtDialogs dialogs;
  zevfit::mdimod window(dialogs, zevfit::programFolder());
  const FirstPaint end(window);
  window.show();
  QTimer::singleShot(0, &window, [&window] { window.showAbout(); });
  return QApplication::exec();
}
