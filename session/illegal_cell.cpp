#include "session/illegal_cell.h"

#include "session/illegal_value.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

/// A line in words, as the results name it.
std::string nameOf(Line which) {
  return which == Line::nugget ? "Nugget Effect" : "Structure " + std::to_string(indexOf(which));
}

}  // namespace

std::optional<std::string> illegalCell(const Session& session, Pair pair, Line which,
                                       std::string_view what, const Cell& cell) {
  if (!cell.isText()) return std::nullopt;
  return illegalValue(std::string(what) + " of " + nameOf(which) + " in Direction (" +
                          std::string(trimmed(session.dirname(pair.direction))) + ") of " +
                          std::string(trimmed(session.varname(pair.variable))),
                      cell.toText());
}

std::optional<std::string> illegalFlag(const Session& session, Pair pair) {
  for (const Line which : kLines)
    if (auto illegal = illegalCell(session, pair, which, "flag", line(session, pair, which).flag()))
      return illegal;
  return std::nullopt;
}

}  // namespace zevfit
