#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "zvm/plotting/request.h"
#include "zvm/verbs/compute_options.h"

namespace zevfit::verbs {

/// The options of plot as they were given; the file and what is of points as compute has it.
struct PlotOptions {
  ComputeOptions points;
  std::string output, outputOption, format, size, font, style;
  std::vector<std::string> directions;
  bool overlay = false, map = false;
  int dots = 192;
};

void declareOptions(CLI::App& app, PlotOptions& options);

// What can be told without the file. All throw Failure for what is no such option.
std::string outputOf(const PlotOptions& options);
void refuseMixture(const PlotOptions& options);
/// Format, size and dots; `output` tells the format where no option does.
plotting::Request requestOf(const PlotOptions& options, const std::string& output);

/// The style of --style and --font, as a parameter file has it. Throws Failure for a file that
/// can't be read or is none.
std::string styleOf(const PlotOptions& options, Context& context);

}  // namespace zevfit::verbs
