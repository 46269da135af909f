#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "zvm/experimental/job.h"
#include "zvm/points/points_reader.h"
#include "zvm/verbs/context.h"
#include "zvm/verbs/spatial_input.h"

namespace zevfit::verbs {

/// The options of compute as they were given.
struct ComputeOptions {
  std::string points, output, outputOption;
  std::string format, x, y, z;
  std::vector<std::string> variables, logs, crosses, missing, names, directions;
  std::string trim, part, title, compat, zero, sample, seed;
  double lag = 0;
  std::int64_t lags = 0;
  std::optional<double> lagTolerance, tolerance, band, vband;
  SpatialOptions spatial;
};

void declareOptions(CLI::App& app, ComputeOptions& options);

/// A part of a computation, from 1.
struct Part {
  std::uint64_t number = 1, count = 1;
};

/// What can be told without the points. All throw Failure for what is no such option.
std::string outputOf(const ComputeOptions& options);
std::optional<Part> partOf(const ComputeOptions& options);
std::optional<zvm::Sample> sampleOf(const ComputeOptions& options);
zvm::ReadOptions readOptionsOf(const ComputeOptions& options);
/// Without title and pairings.
zvm::Plan planOf(const ComputeOptions& options);

/// The variables of the plan: those of the points under their names or those that --name gives
/// them, and the crosses that were asked for. `names`: the columns of the variables. Throws Failure
/// for a name that a file can't hold, and for a cross of a variable that isn't there.
std::vector<zvm::Pairing> pairingsOf(const ComputeOptions& options,
                                     const std::vector<std::string>& names);

/// In Latin-1; where none is given, of the name of the file, which a pipe has none of.
std::string titleOf(const ComputeOptions& options);

}  // namespace zevfit::verbs
