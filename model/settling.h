#pragma once

#include "session/session.h"

namespace zevfit {

/// Gives the sills and ranges of a loaded file the values of the tables that show it where those
/// are what a shown line settles on: such a value is no change of the user's.
void settleAsShown(const Session& shown, Session& file);

}  // namespace zevfit
