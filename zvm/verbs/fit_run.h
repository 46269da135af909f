#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "coreg/full_matrix.h"
#include "fitting/coregionalization.h"
#include "fitting/fit.h"
#include "session/session.h"

namespace zevfit::verbs {

/// A variable that is to be fitted by itself, from 1; of a cross variable sills of either sign.
struct FitTask {
  std::int64_t variable = 0;
  bool isCross = false;
};

/// All that is to be fitted of a file.
struct FitPlan {
  fitting::Options options;
  std::vector<FitTask> tasks;
  std::optional<Coregion> coregion;
};

struct Fits {
  std::vector<fitting::VariableFit> variables;  ///< by task
  std::optional<fitting::CoregionFit> coregion;
};

/// Fits all of the plan, in as many threads; each fit is by itself, so their number changes
/// nothing. `progress` is told the share that is done, in this thread.
Fits fitAll(const FileTables& data, const FitPlan& plan, unsigned threads,
            const std::function<void(double)>& progress);

/// The models of these variables pass the test of coregionalization: the tree of each cross
/// variable in each direction, and the matrix of all of them.
bool passesTest(const Session& session, const Coregion& coregion);

}  // namespace zevfit::verbs
