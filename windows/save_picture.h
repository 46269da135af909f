#pragma once

#include <QString>
#include <cstddef>

#include "session/dialogs.h"
#include "session/session.h"

class QMainWindow;
class QMimeData;

namespace zevfit {

class Formod;

/// A name for the picture of a plot, without its ending: that of the variable and of the direction,
/// such as zinc_45_-30, in letters, digits and signs that every file system takes.
QString pictureName(const Session& session, Pair pair);

/// Asks where to save the picture of a plot, and as what, of which `kind` is offered first and
/// takes the choice; then writes the file in one step and says at the foot of the window where it
/// is. Tells of a failure; an old file is then as it was. The session stays as it is.
void savePicture(QMainWindow& window, Formod& plot, const Session& session, Dialogs& dialogs,
                 std::size_t& kind);

/// The picture of a plot as other programs take it from the clipboard: its bitmap, and where one
/// can be made a drawing in SVG.
QMimeData* clipboardPicture(Formod& plot, const Session& session);

}  // namespace zevfit
