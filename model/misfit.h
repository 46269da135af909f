#pragma once

#include <optional>

#include "model/nested_model.h"
#include "session/session.h"

namespace zevfit {

/// How far a model lies from the experimental points of a pair: the square root of the mean of the
/// squared differences of curve and point, each class weighted by its number of pairs, as a share
/// of the variance (of its magnitude: that of a cross variogram may be negative). Classes without
/// pairs are left out. Nothing where no class is left or the variance is 0 or a text. Throws Fault
/// for a distance that is a text, and for a pair outside the tables.
std::optional<double> misfit(const NestedModel& model, const FileTables& data, Pair pair);

/// The same of the model that a session has for the pair; nothing where it has none.
std::optional<double> misfit(const Session& session, Pair pair);

}  // namespace zevfit
