#pragma once

#include <optional>
#include <string>

#include "zvm/experimental/outcome.h"
#include "zvm/verbs/compute_options.h"
#include "zvm/verbs/report.h"

namespace zevfit::verbs {

/// How fast a computation was.
struct Pace {
  double seconds = 0;
  double pairsASecond = 0;  ///< of those looked at
};

/// What one part of a computation knows of the whole: all but what takes the other parts, too.
struct Share {
  const zvm::Frame& frame;
  Part part;
};

/// A table of the classes with few pairs, by direction and variable.
std::string fewPairsText(const zvm::Experimental& experimental);
/// Every class, by variable and direction.
Json semivariogramsOf(const zvm::Experimental& experimental);

/// What became of the points, and the classes with few pairs.
std::string textOf(const zvm::Experimental& experimental, const std::optional<Pace>& pace);
/// Which part it is, and what became of the points.
std::string textOf(const Share& share, const Pace& pace);

/// All of it, with every class.
Json jsonOf(const zvm::Experimental& experimental, const std::optional<Pace>& pace);
Json jsonOf(const Share& share, const Pace& pace);

}  // namespace zevfit::verbs
