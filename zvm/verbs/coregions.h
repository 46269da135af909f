#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "coreg/full_matrix.h"
#include "zvm/verbs/context.h"
#include "zvm/verbs/input.h"

namespace zevfit::verbs {

/// The variables named A-B, where A and B are variables.
std::vector<CrossVariable> crossesByName(const Session& session);

/// It is another variable than the two that it is of, and these differ.
bool isOfThree(const CrossVariable& cross);

/// The variable is the cross variable of these two, in either order.
bool isOf(const CrossVariable& cross, std::int64_t first, std::int64_t second);

/// The cross variables that are told as "NAME=A,B", and those by their names; of several for two
/// variables the first counts, and the others are warned of. The variables are those that have
/// one. Throws Failure for a text of another form, for a name that is not in the file and
/// for a variable that is there twice.
Coregion coregionOf(const Loaded& loaded, const std::vector<std::string>& told, Context& context);

/// That no variable is named A-B for these two, and what there is, nearest first.
std::string noCrossOf(const Session& session, std::int64_t first, std::int64_t second);

/// Two variables each that have no cross variable, cross variables apart.
std::vector<std::pair<std::int64_t, std::int64_t>> pairsWithoutCross(const Session& session,
                                                                     const Coregion& coregion);

}  // namespace zevfit::verbs
