#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "fitting/options.h"
#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// The options of fit as they were given.
struct FitOptions {
  std::string file, output;
  std::string forms, structures, nugget = "free", weights = "npairs-over-h2", title;
  bool geometric = false, free = false;
  std::vector<std::string> variables, lmc, crossOf;
};

void declareOptions(CLI::App& app, FitOptions& options);

/// What a fit may choose from. Throws Failure for what is no such option.
fitting::Options fittingOptionsOf(const FitOptions& options);

/// The name of a weight, as in "npairs-over-h2", and its formula, as in "N/h^2".
struct WeightNames {
  fitting::Weights weights;
  const char* name;
  const char* formula;
};
const WeightNames& namesOf(fitting::Weights weights);

}  // namespace zevfit::verbs
