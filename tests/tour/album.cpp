#include "tests/tour/album.h"

#include <QApplication>
#include <QPixmap>
#include <QWidget>

#include "tests/tour/hand.h"

namespace zevfit::tour {

void Album::keep(QWidget& window, const char* name) {
  QApplication::processEvents();
  if (!window.isVisible()) fail("no picture of a hidden window", window);
  if (!window.grab().save(QString("%1/%2.png").arg(folder_, name))) fail("no picture", window);
}

}  // namespace zevfit::tour
