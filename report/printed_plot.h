#pragma once

#include <cstdint>

#include "report/collection.h"

namespace zevfit {

/// Draws a plot on the sheet from (left, top) on. A fault in its frame is thrown on; from the
/// sampling of the model on it ends the plot silently with what stands. Makes the pair the current
/// one, as each sampling does, and shows its variance on the panel.
void imprimirvariograma(Collection& reports, double width, double left, double top, Pair pair);

}  // namespace zevfit
