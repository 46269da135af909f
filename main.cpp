#include <QApplication>
#include <QIcon>
#include <QTimer>

#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "windows/mdimod.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("zevFIT");
  QApplication::setWindowIcon(QIcon(":/icons/app.svg"));
  QLocale::setDefault(QLocale::c());

  zevfit::QtDialogs dialogs;
  zevfit::mdimod window(dialogs, zevfit::programFolder());
  window.show();
  // Over the main window once that has its place on the screen.
  QTimer::singleShot(0, &window, [&window] { window.showAbout(); });
  return QApplication::exec();
}
