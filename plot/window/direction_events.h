#pragma once

#include "plot/window/direction_window.h"
#include "session/session.h"

namespace zevfit {

// Handlers of a plot window, which is `window`. A fault passes to the caller.

/// The state of a window just loaded: size, picture, caption, pen, handles, guides, tag, no drag.
void Form_Load(DirectionWindow& window);
/// A click beside the picture frees and hides the handles.
void Form_Click(Session& session, DirectionWindow& window);
/// Handles and guides are hidden; what was held stays so.
void Picture4_LostFocus(DirectionWindow& window);
/// The size of the picture really changed.
void Picture4_Resize(DirectionWindow& window);
void Label1_Click(DirectionWindow& window);

}  // namespace zevfit
