#pragma once

#include "report/collection.h"

namespace zevfit {

/// Draws the thumbnail of the current plot with the curve as it was last sampled, on Picture3 of
/// that size. Sets a distance axis that is not set yet for good. A fault ends it silently.
void variog(Collection& reports, double width, double height);

}  // namespace zevfit
