#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"

namespace zevfit {

/// Why a variable can't be made or removed: the warning, and whether the window then takes the
/// focus.
struct Refusal {
  std::string warning;
  bool focus = false;
};

/// Makes a new variable, the sum of the ticked ones, named by the typed text without its leading
/// blanks. `shownVariables` is the number that the window shows as that of the file. `isLatin1`
/// tells whether all that was typed is in `typedName`, since a file has no other characters.
/// A variance that is a text and a sum beyond all numbers are refused, too. Changes nothing on a
/// refusal. Throws Fault when the tables are full.
std::optional<Refusal> createVariable(Session& session, std::string_view typedName,
                                      double shownVariables, bool isLatin1 = true);

/// Removes the variable on show (`datavar`), if it is not one of the file; those above move down by
/// one, but for the axis limits and the fit state, which stay with their slots. `shownName` is the
/// name that the window shows for it. Changes nothing on a refusal.
std::optional<Refusal> removeVariable(Session& session, std::string_view shownName);

/// The pair that the fit starts with when the data structure window is accepted: without a model
/// block `selvar` and `seldir` become 1 and nothing is returned; with one the first variable whose
/// structure 1 is used in direction 1 becomes current, and is returned.
std::optional<std::int64_t> startPair(Session& session);

/// What a row of the class list shows.
struct ClassRow {
  std::string caption, h, gamma, pairs;
};
ClassRow classRow(const Session& session, Pair pair, std::int64_t lag);
/// An entry of the list of directions: "Direction ", the number, two blanks and the name.
std::string directionEntry(const Session& session, std::int64_t direction);

}  // namespace zevfit
