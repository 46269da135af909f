#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/form.h"
#include "zvm/verbs/fit_report.h"

// What the text and the JSON of a report of fits have in common.

namespace zevfit::verbs {

/// Letters of forms, as in "S+E".
std::string joined(const std::vector<Form>& forms, const char* between);
/// "N+S+E", of a candidate; without a nugget where that is told to be 0.
std::string labelOf(const std::vector<Form>& forms, const fitting::Options& options);

/// In UTF-8; a direction from 0, a variable from 1.
std::string directionName(const FitReport& report, std::size_t direction);
std::string variableName(const FitReport& report, std::int64_t variable);

/// The directions have one ellipse, or ellipsoid.
bool isShared(const FitReport& report);

/// The variables of a coregionalization and their cross variables behind them, as its models are.
std::vector<std::int64_t> entriesOf(const Coregion& coregion);

}  // namespace zevfit::verbs
