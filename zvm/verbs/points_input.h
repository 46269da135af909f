#pragma once

#include <string>

#include "zvm/experimental/job.h"
#include "zvm/points/data_error.h"
#include "zvm/points/points_reader.h"
#include "zvm/verbs/compute_options.h"

namespace zevfit::verbs {

/// Has the exceptions of a computation end the run with their exit codes.
template <class Work>
auto guarded(Work&& work) {
  try {
    return work();
  } catch (const zvm::DataError& error) {
    throw Failure(Exit::data, error.what());
  } catch (const zvm::ReadError& error) {
    throw Failure(Exit::file, error.what());
  } catch (const zvm::OptionError& error) {
    throw Failure(Exit::usage, error.what());
  } catch (const zvm::PlanError& error) {
    throw Failure(Exit::usage, error.what());
  }
}

/// What messages call the points.
std::string pointsName(const ComputeOptions& options);
/// The same; stdin is "-".
std::string shownPoints(const ComputeOptions& options);

/// What is there as points is a spatial source, or begins as a table of points.
bool looksLikePoints(const ComputeOptions& options);

/// The points that the options name: of a table, of "-" that of stdin, or of a spatial source.
/// Throws Failure and what readPoints throws.
zvm::PointSet pointsOf(const ComputeOptions& options, const zvm::ReadOptions& read,
                       Context& context);

}  // namespace zevfit::verbs
