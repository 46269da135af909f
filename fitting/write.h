#pragma once

#include <cstdint>

#include "fitting/coregionalization.h"
#include "fitting/fit.h"
#include "session/session.h"

namespace zevfit::fitting {

/// The number that a file brings back for this one: 15 significant digits.
double asInFile(double value);

/// Puts a model into the cells of a pair: nugget and structures of the model are ticked, with
/// letter, sill and range; of a line that it has not all cells have their values after a load. The
/// nugget is ticked where it is not 0. A power structure has sill 1.
void writeModel(FitTables& tables, Pair pair, const NestedModel& model);

/// Puts the models that are offered into the cells of a variable; a direction without one gets the
/// cells of a load, not ticked.
void writeFit(Session& session, std::int64_t variable, const VariableFit& fit);

/// Puts an offered coregionalization into the cells of its variables and cross variables. A line is
/// ticked in all of them or in none.
void writeCoregion(FitTables& tables, const Coregion& coregion, const CoregionFit& fit);

}  // namespace zevfit::fitting
