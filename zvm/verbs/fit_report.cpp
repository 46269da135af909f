#include "zvm/verbs/fit_report.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "model/axes.h"
#include "session/numbers.h"
#include "zvm/verbs/fit_labels.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

constexpr int kDigits = 6;

/// A number with six digits.
std::string shortText(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::general, kDigits);
  return {text.data(), end.ptr};
}

using Rows = std::vector<std::vector<std::string>>;

/// "N+S", the lines that a model has; "-" where it has none.
std::string linesOf(const NestedModel& model) {
  std::string lines = model.nugget != 0 ? "N" : "";
  for (const auto& structure : model.structures)
    if (structure) lines += (lines.empty() ? "" : "+") + std::string(letterOf(structure->form));
  return lines.empty() ? "-" : lines;
}

/// A line that is no table has names as a table prints them.
std::string lineOf(const std::string& text) { return table({{text}}); }

std::size_t mostStructures(const std::vector<NestedModel>& models) {
  std::size_t most = 0;
  for (const NestedModel& model : models)
    for (std::size_t i = 0; i < model.structures.size(); ++i)
      if (model.structures.at(i)) most = std::max(most, i + 1);
  return most;
}

std::vector<std::string> modelHeading(std::size_t structures) {
  std::vector<std::string> row{"direction", "model", "nugget"};
  for (std::size_t i = 1; i <= structures; ++i) {
    row.push_back("C" + std::to_string(i));
    row.push_back("a" + std::to_string(i));
  }
  return row;
}

std::vector<std::string> modelRow(const std::string& direction, const NestedModel& model,
                                  std::size_t structures) {
  std::vector<std::string> row{direction, linesOf(model), shortText(model.nugget)};
  for (std::size_t i = 0; i < structures; ++i) {
    const auto& structure = model.structures.at(i);
    const bool isPower = structure && structure->form == Form::power;
    row.push_back(!structure ? "" : isPower ? "1" : shortText(structure->sill));
    row.push_back(structure ? shortText(structure->range) : "");
  }
  return row;
}

std::string ellipseText(const fitting::Anisotropy& anisotropy) {
  const std::string azimuth = "azimuth " + shortText(anisotropy.angles.azimuth);
  if (anisotropy.plane)
    return "ellipse: " + azimuth + ", ratio " + shortText(anisotropy.minor1) + '\n';
  return "ellipsoid: " + azimuth + ", dip " + shortText(anisotropy.angles.dip) + ", rotation " +
         shortText(anisotropy.angles.rotation) + ", ratios " + shortText(anisotropy.minor1) +
         " and " + shortText(anisotropy.minor2) + '\n';
}

/// What all directions share; in space where one of them dips.
std::string oneEllipse(const FitReport& report) {
  const bool inSpace =
      std::ranges::any_of(directionNames(report.loaded.session), [](const std::string& name) {
        const auto direction = directionNamed(name);
        return direction && direction->dip != 0;
      });
  return inSpace ? "one ellipsoid" : "one ellipse";
}

/// What became of a candidate.
template <class Candidate>
std::string verdictOf(const Candidate& candidate, bool isChosen) {
  if (isChosen) return "taken";
  return candidate.refusal.empty() ? "" : "refused: " + candidate.refusal;
}

std::string rangesText(const std::vector<double>& ranges) {
  std::string text;
  for (const double range : ranges) text += (text.empty() ? "" : ", ") + shortText(range);
  return text;
}

std::string rangesText(const NestedModel& model) {
  std::vector<double> ranges;
  for (const auto& structure : model.structures)
    if (structure) ranges.push_back(structure->range);
  return rangesText(ranges);
}

std::string rankingText(const fitting::Result& result, const fitting::Options& options) {
  Rows rows{{"candidate", "sum of squares", "AICc", "ranges", ""}};
  for (std::size_t i = 0; i < result.ranking.size(); ++i) {
    const fitting::Candidate& candidate = result.ranking[i];
    rows.push_back({labelOf(candidate.forms, options), shortText(candidate.sum),
                    shortText(candidate.aicc), rangesText(candidate.model),
                    verdictOf(candidate, result.isOffered() && i == result.chosen)});
  }
  return rows.size() > 1 ? table(rows) : "";
}

/// What was fitted and to how many classes, or why it was not; an ellipse below.
template <class Result>
std::string headOf(const Result& result, const std::string& what) {
  std::string text = what;
  if (!result.ranking.empty())
    text += ", " + std::to_string(result.classes) + (result.classes == 1 ? " class" : " classes");
  if (!result.isOffered()) return lineOf(text + ": not fitted, " + result.refusal);
  const auto& anisotropy = result.choice().anisotropy;
  return lineOf(text) + (anisotropy ? ellipseText(*anisotropy) : "");
}

std::string whereOf(const FitReport& report, bool isShared, std::size_t direction) {
  return " in " + (isShared ? "all directions" : directionName(report, direction));
}

std::string modelsText(const FitReport& report, const fitting::VariableFit& fit) {
  std::vector<std::pair<std::size_t, NestedModel>> models;
  for (std::size_t r = 0; r < fit.results.size(); ++r)
    for (std::size_t d = 0; d < fit.results[r].models.size(); ++d)
      if (fit.results[r].isOffered())
        models.emplace_back(fit.ellipse ? d : r, fit.results[r].models[d]);
  std::size_t most = 0;
  for (const auto& [direction, model] : models) most = std::max(most, mostStructures({model}));
  Rows rows{modelHeading(most)};
  for (const auto& [direction, model] : models)
    rows.push_back(modelRow(directionName(report, direction), model, most));
  return rows.size() > 1 ? table(rows) : "";
}

std::string variableText(const FitReport& report, std::size_t task) {
  const fitting::VariableFit& fit = report.fits.variables[task];
  const std::string name = variableName(report, report.plan.tasks[task].variable);
  std::string text;
  for (std::size_t r = 0; r < fit.results.size(); ++r)
    text += headOf(fit.results[r], name + whereOf(report, fit.ellipse, r)) +
            rankingText(fit.results[r], report.plan.options);
  return '\n' + text + modelsText(report, fit);
}

std::string rankingText(const fitting::CoregionResult& result, const fitting::Options& options) {
  Rows rows{{"candidate", "sum of squares", "with free sills", "AICc", "ranges", ""}};
  for (std::size_t i = 0; i < result.ranking.size(); ++i) {
    const fitting::CoregionCandidate& candidate = result.ranking[i];
    rows.push_back({labelOf(candidate.forms, options), shortText(candidate.sum),
                    shortText(candidate.free), shortText(candidate.aicc),
                    rangesText(candidate.ranges),
                    verdictOf(candidate, result.isOffered() && i == result.chosen)});
  }
  return table(rows);
}

std::string modelsText(const FitReport& report, const fitting::CoregionFit& fit) {
  const auto entries = entriesOf(*report.plan.coregion);
  std::size_t most = 0;
  for (const auto& models : fit.models) most = std::max(most, mostStructures(models));
  Rows rows{modelHeading(most)};
  rows.front().insert(rows.front().begin(), "variable");
  for (std::size_t e = 0; e < entries.size(); ++e)
    for (std::size_t d = 0; d < fit.models[e].size(); ++d) {
      rows.push_back(modelRow(directionName(report, d), fit.models[e][d], most));
      rows.back().insert(rows.back().begin(), variableName(report, entries[e]));
    }
  return table(rows);
}

std::string coregionText(const FitReport& report) {
  if (!report.fits.coregion) return "";
  const fitting::CoregionFit& fit = *report.fits.coregion;
  std::string names;
  for (const std::int64_t v : report.plan.coregion->variables)
    names += (names.empty() ? "" : ", ") + variableName(report, v);
  const std::string what = "coregionalization of " + names;
  std::string text;
  for (std::size_t r = 0; r < fit.results.size(); ++r)
    text += headOf(fit.results[r], what + whereOf(report, isShared(report), r)) +
            rankingText(fit.results[r], report.plan.options);
  if (fit.results.empty()) text = lineOf(what + ": not fitted, " + utf8Of(fit.refusal));
  if (!fit.isOffered()) return '\n' + text;
  return '\n' + text + modelsText(report, fit) + "The test of coregionalization is passed.\n";
}

/// The reason, and the option that may help.
std::string reasonOf(const FitReport& report, const std::string& refusal, bool isUnbounded) {
  const bool hasPower = std::ranges::count(report.plan.options.forms, Form::power) > 0;
  if (isUnbounded && !hasPower) return refusal + "; --forms with P tries a power structure";
  const auto names = directionNames(report.loaded.session);
  const bool lacksAngles = std::ranges::any_of(
      names, [](const std::string& name) { return !directionNamed(name).has_value(); });
  if (isShared(report) && lacksAngles) return refusal + "; --free fits each direction by itself";
  return refusal;
}

}  // namespace

std::vector<NotFitted> notFitted(const FitReport& report) {
  std::vector<NotFitted> missing;
  if (report.fits.coregion && !report.fits.coregion->isOffered())
    for (const std::int64_t v : entriesOf(*report.plan.coregion))
      missing.push_back({variableName(report, v), "",
                         reasonOf(report, utf8Of(report.fits.coregion->refusal), false)});
  for (std::size_t task = 0; task < report.plan.tasks.size(); ++task) {
    const fitting::VariableFit& fit = report.fits.variables[task];
    for (std::size_t r = 0; r < fit.results.size(); ++r)
      if (const fitting::Result& result = fit.results[r]; !result.isOffered())
        missing.push_back({variableName(report, report.plan.tasks[task].variable),
                           fit.ellipse ? "" : directionName(report, r),
                           reasonOf(report, result.refusal, result.unbounded)});
  }
  return missing;
}

std::string textOf(const NotFitted& missing) {
  return '`' + missing.variable + '`' +
         (missing.direction.empty() ? "" : " in " + missing.direction) +
         " is not fitted: " + missing.reason;
}

std::string textOf(const FitReport& report) {
  const fitting::Options& options = report.plan.options;
  const std::string directions = isShared(report)                  ? oneEllipse(report)
                                 : report.loaded.session.ndir == 1 ? "one"
                                                                   : "each by itself";
  std::string text =
      table({{"title", utf8Of(report.title)},
             {"weights", namesOf(options.weights).formula},
             {"forms", joined(options.forms, ", ")},
             {"structures", options.structures ? std::to_string(*options.structures)
                                               : std::string("up to 2, by AICc")},
             {"nugget", options.nugget ? generalText(*options.nugget) : std::string("fitted")},
             {"directions", directions}});
  text += coregionText(report);
  for (std::size_t task = 0; task < report.plan.tasks.size(); ++task)
    text += variableText(report, task);
  const std::vector<NotFitted> missing = notFitted(report);
  if (!missing.empty()) text += '\n';
  for (const NotFitted& one : missing) text += lineOf(textOf(one));
  return text;
}

}  // namespace zevfit::verbs
