// The program as its own main makes it, ending once its main window is painted; called with the
// name of a control, once that one is.
#include <QScreen>

#include "benchmarks/start/first_paint.h"
#include "files/orthogonality.h"
#include "platform/early_fonts.h"
#include "platform/house_style.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "windows/greeting.h"

int main(int argc, char** argv) {
  std::jthread fonts = zevfit::readFontsEarly();
  QApplication application(argc, argv);
  const std::jthread font = zevfit::loadFontEarly(QApplication::font(), std::move(fonts));
  QApplication::setApplicationName("zevFIT");
  QApplication::setStyle(new zevfit::HouseStyle);
  QLocale::setDefault(QLocale::c());
  zevfit::QtDialogs dialogs;
  zevfit::QtPrinter printer;
  const zevfit::AngleTest angleTest;
  zevfit::mdimod window(dialogs, printer, angleTest, zevfit::programFolder());
  window.resize(window.size().boundedTo(window.screen()->availableSize() - QSize(16, 48)));
  zevfit::Greeting greeting(window);
  const FirstPaint end(argc > 1 ? argv[1] : "");
  window.show();
  return QApplication::exec();
}
