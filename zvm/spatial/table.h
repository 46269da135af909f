#pragma once

#include <iosfwd>

#include "zvm/spatial/source.h"

namespace zevfit::spatial {

/// Writes the features of a layer as CSV: their attributes, and behind them the coordinates of
/// their points. Where the coordinates are attributes, the system of the geometries plays no part.
/// Throws Refusal, also behind a table whose points lack heights.
void writeTable(const Request& request, Errors& errors, std::ostream& out);

}  // namespace zevfit::spatial
