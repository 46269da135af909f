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
/// All of a request but its pages and their data; `output` tells the format where no option does.
/// Throws Failure for a style that can't be read or is none. Warns where the size has no room for
/// the font.
plotting::Request requestOf(const PlotOptions& options, const std::string& output,
                            Context& context);

}  // namespace zevfit::verbs
