#pragma once

#include <optional>

#include "session/session.h"

namespace zevfit {

/// The misfit (model/misfit.h) of the curve that the session has for its plotted pair from the
/// classes that the pair's plot shows. To be asked behind a sampling, before any cell changes.
/// Nothing without a model or where the variance is a text, nor where the curve is not that of the
/// model: a structure was refused, or the row of a line without a form counts. Throws Fault for a
/// text in place of another number.
std::optional<double> drawnMisfit(const Session& session);

}  // namespace zevfit
