#pragma once

#include "session/session.h"

namespace zevfit {

/// Gives the sills and ranges of a loaded file the values of the tables that show it where those
/// are what a shown line settles on, or what a drawing raises a range of 0 or below to: such a
/// value is no change of the user's.
void settleAsShown(const Session& shown, Session& file);

}  // namespace zevfit
