#pragma once

#include <string_view>

#include "session/line.h"

namespace zevfit {

/// Makes the nugget part of the model of a pair.
inline void setNugget(Session& session, Pair pair, const Cell& nugget) {
  const LineRef at = line(session, pair, Line::nugget);
  at.use(1);
  at.sill() = nugget;
}

/// Makes a structure part of the model of a pair.
inline void setStructure(Session& session, Pair pair, Line structure, std::string_view letter,
                         const Cell& sill, const Cell& range) {
  const LineRef at = line(session, pair, structure);
  at.use(1);
  at.letter() = letter;
  at.sill() = sill;
  at.range() = range;
}

}  // namespace zevfit
