#include "platform/page_opener.h"

#include <QDesktopServices>
#include <QUrl>

namespace zevfit {

bool openPage(const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }

}  // namespace zevfit
