#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "zvm/experimental/lag_rule.h"
#include "zvm/experimental/outcome.h"
#include "zvm/experimental/plan.h"
#include "zvm/experimental/strips.h"
#include "zvm/experimental/sums.h"
#include "zvm/points/point_set.h"

namespace zevfit::zvm {

/// A plan that can't be carried out, with the reason as planRefusal gives it.
class PlanError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Some of the points, drawn without return.
struct Sample {
  std::uint64_t count = 0, seed = 0;
};

/// A run of points whose pairs with later points are summed by themselves.
struct Task {
  std::size_t begin = 0, end = 0;
  std::uint64_t candidates = 0;  ///< pairs that are looked at, about
};

/// Points made ready for a plan, and the pairs divided into tasks. How they are divided depends on
/// the points and the plan alone, and sums of tasks are added in their order: so the result has the
/// same bytes whoever computes which of them.
struct Job {
  Plan plan;
  Frame frame;
  LagRule rule;
  SortedPoints points;
  std::vector<Task> tasks;

  /// Pairs that are looked at in a part, about: what the time is in proportion to.
  std::uint64_t candidates(std::uint64_t part = 1, std::uint64_t parts = 1) const;
};

/// Takes the points over. Throws PlanError for a plan that can't be carried out, DataError for
/// points that it can't be carried out with.
Job prepare(PointSet points, Plan plan, const std::optional<Sample>& sample = {});

/// Why the points of a job make no semivariogram, as in "one point"; nothing where they do.
std::optional<std::string> pointsRefusal(const Frame& frame);

/// How a job is run: by how many threads, which of how many parts of it, and a function that is
/// told what share is done, about ten times a second; false ends the run with Cancelled.
struct RunOptions {
  unsigned threads = 1;
  std::uint64_t part = 1, parts = 1;
  std::function<bool(double)> progress;
};

/// Part i of n has the tasks whose number leaves i - 1 when divided by n. Each is handed over with
/// its number, in their order, on the thread of the caller.
void runTasks(const Job& job, const RunOptions& options,
              const std::function<void(std::uint64_t, const SumTable&)>& take);

/// The sums of a whole job.
SumTable runWhole(const Job& job, const RunOptions& options);

/// An empty table for a job's sums.
SumTable emptyTable(const Frame& frame);

}  // namespace zevfit::zvm
