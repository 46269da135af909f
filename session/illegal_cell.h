#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/line.h"

namespace zevfit {

/// The warning of a text in a cell of a line, as of the "flag" of the nugget; nothing for a number.
std::optional<std::string> illegalCell(const Session& session, Pair pair, Line which,
                                       std::string_view what, const Cell& cell);
/// That of the first flag of the pair's model that is a text; nothing where all are numbers. Throws
/// Fault for a pair outside the tables.
std::optional<std::string> illegalFlag(const Session& session, Pair pair);

}  // namespace zevfit
