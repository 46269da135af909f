#include "zvm/verbs/fit_options.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>

#include "session/form.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/option_values.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

using fitting::Weights;

constexpr std::array kWeights{
    WeightNames{Weights::pairsOverDistance2, "npairs-over-h2", "N/h^2"},
    WeightNames{Weights::pairsOverModel2, "npairs-over-gamma2",
                "N/gamma^2, gamma of the model, until they settle"},
    WeightNames{Weights::pairs, "npairs", "N"},
    WeightNames{Weights::equal, "equal", "1"},
};

constexpr int kMostStructures = 3;

std::vector<Form> formsOf(const std::string& letters) {
  std::vector<Form> forms;
  for (const char c : letters) {
    const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const auto form = formOf(std::string_view(&letter, 1));
    if (!form)
      throw Failure(Exit::usage, "--forms takes letters of S, E, G and P, not `" + letters + "`");
    if (std::ranges::count(forms, *form) == 0) forms.push_back(*form);
  }
  return forms;
}

Weights weightsOf(const std::string& name) {
  std::vector<std::string> names;
  for (const WeightNames& row : kWeights) {
    if (name == row.name) return row.weights;
    names.emplace_back(row.name);
  }
  throw Failure(Exit::usage, "no --weights `" + name + "`; there are " + nearestFirst(name, names));
}

}  // namespace

const WeightNames& namesOf(Weights weights) {
  return *std::ranges::find(kWeights, weights, &WeightNames::weights);
}

void declareOptions(CLI::App& app, FitOptions& options) {
  const AddOption add{app};
  const AddEach addEach{app};
  add("FILE", options.file, "A variogram file, - for stdin", "")->required();
  add("OUT", options.output, "The variogram file to write, - for stdout", "")->required();
  add("--forms", options.forms,
      "The forms of structures, letters of S, E, G and P; default: S, E, and G where there is a "
      "nugget",
      "SEGP");
  add("--structures", options.structures,
      "Exactly as many structures; default: up to two, as AICc has it", "1|2|3");
  add("--nugget", options.nugget, "The nugget effect; default: fitted", "free|VALUE");
  add("--weights", options.weights,
      "What a class of N pairs counts; default: npairs-over-h2, N/h^2",
      "npairs-over-h2|npairs-over-gamma2|npairs|equal");
  app.add_flag("--geometric", options.geometric,
               "One nugget, sills and letters in all directions, ranges from one ellipse or, where "
               "a direction dips, ellipsoid; this is the default");
  app.add_flag("--free", options.free, "Each direction by itself");
  addEach("--lmc", options.lmc,
          "A linear model of coregionalization of these variables and their cross variables",
          "A,B,...");
  addEach("--cross-of", options.crossOf,
          "A cross variable that is not named A-B, as in \"NAME=A,B\"", "NAME=A,B");
  addEach("--var", options.variables,
          "Fits this variable; others keep the models that they have. Default: all", "NAME");
  add("--title", options.title, "The title of the file; default: that of FILE", "TEXT");
}

fitting::Options fittingOptionsOf(const FitOptions& options) {
  fitting::Options fit;
  if (options.geometric && options.free)
    throw Failure(Exit::usage, "--geometric and --free exclude each other");
  if (options.free) fit.directions = fitting::Directions::free;
  if (!options.forms.empty()) {
    fit.forms = formsOf(options.forms);
    // Who asks for it by name has it without a nugget, too.
    fit.smoothGaussian = std::ranges::count(fit.forms, Form::gaussian) > 0;
  }
  if (!options.structures.empty()) {
    fit.structures = readNumber<int>(options.structures);
    if (fit.structures.value_or(0) < 1 || *fit.structures > kMostStructures)
      refuseValue("--structures", "1, 2 or 3", options.structures);
  }
  if (options.nugget != "free") {
    fit.nugget = readNumber<double>(options.nugget);
    if (!std::isfinite(fit.nugget.value_or(-INFINITY)) || *fit.nugget < 0)
      refuseValue("--nugget", "free or a number from 0", options.nugget);
  }
  fit.weights = weightsOf(options.weights);
  if (!options.lmc.empty() && fit.nugget.value_or(0) != 0)
    throw Failure(Exit::usage, "--nugget takes free or 0 with --lmc");
  if (!options.lmc.empty() && std::ranges::count(fit.forms, Form::power) > 0)
    throw Failure(Exit::usage,
                  "--forms takes letters of S, E and G with --lmc: a power structure has no sill");
  return fit;
}

}  // namespace zevfit::verbs
