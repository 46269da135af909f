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

/// The variable is the cross variable of these two, in either order.
bool isOf(const CrossVariable& cross, std::int64_t first, std::int64_t second);

/// The cross variables that are told as "NAME=A,B", and those by their names; of several for two
/// variables the first counts, and the others are warned of. The variables are those that have
/// one. Throws Failure for a text of another form and for a name that is not in the file.
Coregion coregionOf(const Loaded& loaded, const std::vector<std::string>& told, Context& context);

/// Two variables each that have no cross variable, cross variables apart.
std::vector<std::pair<std::int64_t, std::int64_t>> pairsWithoutCross(const Session& session,
                                                                     const Coregion& coregion);

}  // namespace zevfit::verbs
