#include <algorithm>

#include "zvm/exchange/export.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/coregions.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/report.h"
#include "zvm/verbs/text.h"
#include "zvm/verbs/verb.h"

namespace zevfit::verbs {
namespace {

using exchange::TargetRow;

struct Options {
  std::string file, target, gaussian = "3";
  std::optional<std::string> main, minor1, minor2;
  std::string output{kStandardStream};
  std::vector<std::string> variables, crossOf;
};

std::vector<std::string> targetNames() {
  std::vector<std::string> names;
  names.reserve(exchange::kTargets.size());
  for (const TargetRow& row : exchange::kTargets) names.emplace_back(row.name);
  return names;
}

const TargetRow& targetRow(const std::string& name) {
  const auto found = std::ranges::find(exchange::kTargets, name, &TargetRow::name);
  if (found == exchange::kTargets.end())
    throw Failure(Exit::usage,
                  "no target `" + name + "`; there are " + nearestFirst(name, targetNames()));
  return *found;
}

/// What can be told without the file.
void refuseMixture(const Options& options, const TargetRow& target, const Context& context) {
  const std::string to = "--to " + std::string(target.name);
  if (options.variables.size() > 1 && !target.takesSeveral)
    throw Failure(Exit::usage, to + " takes one --var");
  if (!options.main && options.minor1) throw Failure(Exit::usage, "--minor1 takes --main");
  if (!options.minor1 && options.minor2) throw Failure(Exit::usage, "--minor2 takes --minor1");
  if (options.gaussian != "3" && options.gaussian != "9")
    throw Failure(Exit::usage, "--gslib-gaussian is 3 or 9, not `" + options.gaussian + "`");
  if (!options.crossOf.empty() && options.variables.size() < 2)
    throw Failure(Exit::usage, "--cross-of goes with several --var");
  if (options.gaussian != "3" && target.target != exchange::Target::gslib)
    throw Failure(Exit::usage, "--gslib-gaussian goes with --to gslib");
  if (context.common.json && isStandardOutput(options.output))
    throw Failure(Exit::usage, "--json reports on a file: it takes -o");
}

std::vector<std::int64_t> variablesOf(const Loaded& loaded, const Options& options) {
  if (options.variables.empty() && loaded.session.nvar > 1)
    throw Failure(Exit::usage, "--var is missing; there are the variables " +
                                   listed(variableNames(loaded.session)));
  if (options.variables.empty()) return {1};
  std::vector<std::int64_t> variables;
  for (const std::string& name : options.variables) {
    const std::int64_t variable = variableOf(loaded.session, loaded.path, name);
    if (std::ranges::count(variables, variable) > 0)
      throw Failure(Exit::usage, "--var " + name + " is there twice");
    variables.push_back(variable);
  }
  return variables;
}

std::optional<std::int64_t> directionNamed(const Loaded& loaded,
                                           const std::optional<std::string>& name) {
  if (!name) return std::nullopt;
  return directionOf(loaded.session, loaded.path, *name);
}

bool areOf(const std::vector<std::int64_t>& variables, std::int64_t first, std::int64_t second) {
  const auto has = [&](std::int64_t one) { return std::ranges::count(variables, one) > 0; };
  return has(first) && has(second);
}

/// Of two variables and more gstat takes a cross variable for each two.
void requireCrosses(const Loaded& loaded, const exchange::Request& request) {
  const auto& variables = request.variables;
  for (auto a = variables.begin(); a != variables.end(); ++a)
    for (auto b = std::next(a); b != variables.end(); ++b)
      if (std::ranges::none_of(request.crosses, [&](const exchange::CrossVariable& cross) {
            return areOf({*a, *b}, cross.first, cross.second);
          }))
        throw Failure(Exit::data, loaded.path + ": " + noCrossOf(loaded.session, *a, *b) +
                                      "; --cross-of \"NAME=A,B\" names one");
}

exchange::Request requestOf(const Loaded& loaded, const Options& options, const TargetRow& target,
                            Context& context) {
  exchange::Request request;
  request.target = target.target;
  request.variables = variablesOf(loaded, options);
  request.main = directionNamed(loaded, options.main);
  request.minor1 = directionNamed(loaded, options.minor1);
  request.minor2 = directionNamed(loaded, options.minor2);
  request.gslibGaussian9 = options.gaussian == "9";
  // Points and models side by side are there of every direction.
  if (!request.main && loaded.session.ndir > 1 && target.target != exchange::Target::csv)
    throw Failure(Exit::usage, "--main is missing; there are the directions " +
                                   listed(directionNames(loaded.session)));
  if (request.variables.size() > 1)
    for (const auto& [cross, first, second] : coregionOf(loaded, options.crossOf, context).crosses)
      if (areOf(request.variables, first, second))
        request.crosses.push_back({cross, first, second});
  if (target.target == exchange::Target::gstat) requireCrosses(loaded, request);
  return request;
}

exchange::Outcome outcomeOf(const Loaded& loaded, const exchange::Request& request) {
  try {
    return exchange::exportModel(loaded.session, request);
  } catch (const exchange::Refusal& refusal) {
    throw Failure(Exit::data, loaded.path + ": " + refusal.what());
  }
}

Json jsonReport(const Loaded& loaded, const Options& options, const exchange::Request& request,
                const exchange::Outcome& outcome) {
  Json variables = Json::array();
  const auto names = variableNames(loaded.session);
  for (const std::int64_t v : request.variables)
    variables.push_back(names.at(static_cast<std::size_t>(v - 1)));
  return {{"schema", "zvm.export/1"},    {"file", loaded.path},      {"target", options.target},
          {"variables", variables},      {"output", options.output}, {"bytes", outcome.text.size()},
          {"warnings", outcome.warnings}};
}

Exit runExport(const Options& options, Context& context) {
  const TargetRow& target = targetRow(options.target);
  refuseMixture(options, target, context);
  const auto loaded = loadInput(context, options.file);
  const exchange::Request request = requestOf(*loaded, options, target, context);
  const exchange::Outcome outcome = outcomeOf(*loaded, request);
  for (const std::string& warning : outcome.warnings)
    context.warning(loaded->path + ": " + warning);
  context.save(options.output, outcome.text);
  if (context.common.json) context.print(textOf(jsonReport(*loaded, options, request, outcome)));
  return Exit::done;
}

}  // namespace

Run declareExport(CLI::App& app) {
  const auto options = std::make_shared<Options>();
  const AddOption add{app};
  const AddEach addEach{app};
  std::string targets, meanings;
  for (const TargetRow& row : exchange::kTargets) {
    targets += (targets.empty() ? "" : "|") + std::string(row.name);
    meanings += "\n" + std::string(row.name) + ": " + std::string(row.what);
  }
  add("FILE", options->file, "A variogram file, - for stdin", "")->required();
  add("--to", options->target, ("What to write:" + meanings).c_str(), targets.c_str())->required();
  addEach("--var", options->variables,
          "The variable by its name or number; of gstat, json and csv several", "NAME");
  add("--main", options->main, "The direction of the main axis; default: the only one",
      "DIRECTION");
  add("--minor1", options->minor1, "That of minor axis 1; without one there is no anisotropy",
      "DIRECTION");
  add("--minor2", options->minor2, "That of minor axis 2; default: minor 1, a model in the plane",
      "DIRECTION");
  addEach("--cross-of", options->crossOf,
          "A cross variable that is not named A-B, as in \"NAME=A,B\"", "NAME=A,B");
  add("--gslib-gaussian", options->gaussian,
      "The Gaussian model of your copy of GSLIB: exp(-3(h/a)^2), the default, or exp(-(3h/a)^2)",
      "3|9");
  add("-o,--output", options->output, "The file to write; default: stdout", "OUT");
  return [options](Context& context) { return runExport(*options, context); };
}

}  // namespace zevfit::verbs
