#pragma once

#include <string>

class QMainWindow;

namespace zevfit {

/// Adds a line to what stands at the foot of a window; a line that stands there already stays one.
void tellAtFoot(QMainWindow& window, const std::string& note);
/// Shows a hint at the foot of a window in place of the one before; an empty one takes it away.
void hintAtFoot(QMainWindow& window, const std::string& hint);
/// Takes away the foot of a window with all that it tells.
void clearFoot(QMainWindow& window);

}  // namespace zevfit
