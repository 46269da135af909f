#pragma once

#include <QString>

namespace zevfit {

/// Shows a page that lies on this machine in the browser of the desktop; false where nothing could
/// be started for it.
bool openPage(const QString& path);

}  // namespace zevfit
