#include <QApplication>
#include <QScreen>

#include "files/orthogonality.h"
#include "platform/early_fonts.h"
#include "platform/end_signals.h"
#include "platform/house_style.h"
#include "platform/page_opener.h"
#include "platform/program_folder.h"
#include "platform/qt_dialogs.h"
#include "platform/qt_printer.h"
#include "windows/greeting.h"
#include "windows/manual.h"

int main(int argc, char** argv) {
  const zevfit::EndSignals signals;
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
  window.manual().setOpener(zevfit::openPage);
  const auto delivery = signals.deliverTo([&window](int signal) { window.endBySignal(signal); });
  // A small screen shows the whole window with the frame that a desktop puts around it.
  window.resize(window.size().boundedTo(window.screen()->availableSize() - QSize(16, 48)));
  zevfit::Greeting greeting(window);
  window.show();
  return QApplication::exec();
}
