#pragma once

#include <string>
#include <vector>

#include "zvm/verbs/fit_options.h"
#include "zvm/verbs/fit_run.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/report.h"

namespace zevfit::verbs {

/// What fit has to tell of.
struct FitReport {
  const Loaded& loaded;
  const FitPlan& plan;
  const Fits& fits;
  std::string title;  ///< of the file that is written, in Latin-1
};

/// What was not fitted: a variable, or one of its directions, and why.
struct NotFitted {
  std::string variable, direction;  ///< the direction is empty where it is all of them
  std::string reason;
};
std::vector<NotFitted> notFitted(const FitReport& report);
/// "`zinc` in 45;0 is not fitted: reason".
std::string textOf(const NotFitted& missing);

/// The models, the ellipses and the rankings; numbers with six digits.
std::string textOf(const FitReport& report);
/// The same, with all digits.
Json jsonOf(const FitReport& report);

}  // namespace zevfit::verbs
