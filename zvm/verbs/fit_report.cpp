#include "zvm/verbs/fit_report.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "session/numbers.h"
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

std::string joined(const std::vector<Form>& forms, const char* between) {
  std::string text;
  for (const Form form : forms) text += (text.empty() ? "" : between) + std::string(letterOf(form));
  return text;
}

/// "N+S+E", of a candidate; without a nugget where that is told to be 0.
std::string labelOf(const std::vector<Form>& forms, const fitting::Options& options) {
  const bool hasNugget = options.nugget.value_or(1) != 0;
  if (forms.empty()) return "N";
  return (hasNugget ? "N+" : "") + joined(forms, "+");
}

/// "N+S", the lines that a model has; "-" where it has none.
std::string linesOf(const NestedModel& model) {
  std::string lines = model.nugget != 0 ? "N" : "";
  for (const auto& structure : model.structures)
    if (structure) lines += (lines.empty() ? "" : "+") + std::string(letterOf(structure->form));
  return lines.empty() ? "-" : lines;
}

std::string directionName(const FitReport& report, std::size_t direction) {
  return directionNames(report.loaded.session).at(direction);
}

std::string variableName(const FitReport& report, std::int64_t variable) {
  return variableNames(report.loaded.session).at(static_cast<std::size_t>(variable - 1));
}

// ---- Texts.

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

/// What became of a candidate.
template <class Candidate>
std::string verdictOf(const Candidate& candidate, bool isChosen) {
  if (isChosen) return "taken";
  return candidate.refusal.empty() ? "" : "refused: " + candidate.refusal;
}

std::string rangesText(const NestedModel& model) {
  std::string text;
  for (const auto& structure : model.structures)
    if (structure) text += (text.empty() ? "" : ", ") + shortText(structure->range);
  return text;
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

std::string resultText(const FitReport& report, const fitting::Result& result,
                       const std::string& heading) {
  const std::string classes = heading + ", " + std::to_string(result.classes) + " classes";
  std::string text =
      lineOf(classes + (result.isOffered() ? "" : ": not fitted, " + result.refusal));
  if (!result.isOffered()) return text + rankingText(result, report.plan.options);
  if (const auto& anisotropy = result.choice().anisotropy) text += ellipseText(*anisotropy);
  return text + rankingText(result, report.plan.options);
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
    text += resultText(report, fit.results[r],
                       name + " in " + (fit.ellipse ? "all directions" : directionName(report, r)));
  return '\n' + text + modelsText(report, fit);
}

std::vector<std::int64_t> entriesOf(const Coregion& coregion) {
  std::vector<std::int64_t> entries = coregion.variables;
  for (const CrossVariable& cross : coregion.crosses) entries.push_back(cross.cross);
  return entries;
}

std::string coregionText(const FitReport& report) {
  if (!report.fits.coregion) return "";
  const fitting::CoregionFit& fit = *report.fits.coregion;
  const auto entries = entriesOf(*report.plan.coregion);
  std::string names;
  for (const std::int64_t v : report.plan.coregion->variables)
    names += (names.empty() ? "" : ", ") + variableName(report, v);
  std::string text =
      '\n' + lineOf("coregionalization of " + names + ", " + std::to_string(fit.classes) +
                    " classes" + (fit.isOffered() ? "" : ": not fitted, " + fit.refusal));
  if (fit.isOffered() && fit.choice().anisotropy) text += ellipseText(*fit.choice().anisotropy);
  Rows rows{{"candidate", "sum of squares", "of free sills", "AICc", ""}};
  for (std::size_t i = 0; i < fit.ranking.size(); ++i) {
    const fitting::CoregionCandidate& candidate = fit.ranking[i];
    rows.push_back({labelOf(candidate.forms, report.plan.options), shortText(candidate.sum),
                    shortText(candidate.free), shortText(candidate.aicc),
                    verdictOf(candidate, fit.isOffered() && i == fit.chosen)});
  }
  if (rows.size() > 1) text += table(rows);
  if (!fit.isOffered()) return text;
  std::size_t most = 0;
  for (const auto& models : fit.models) most = std::max(most, mostStructures(models));
  rows = {modelHeading(most)};
  rows.front().insert(rows.front().begin(), "variable");
  for (std::size_t e = 0; e < entries.size(); ++e)
    for (std::size_t d = 0; d < fit.models[e].size(); ++d) {
      rows.push_back(modelRow(directionName(report, d), fit.models[e][d], most));
      rows.back().insert(rows.back().begin(), variableName(report, entries[e]));
    }
  return text + table(rows) + "The test of coregionalization is passed.\n";
}

// ---- JSON.

Json jsonOf(const NestedModel& model) {
  Json structures = Json::array();
  for (const auto& structure : model.structures) {
    if (!structure) continue;
    const bool isPower = structure->form == Form::power;
    structures.push_back({{"form", letterOf(structure->form)},
                          {"sill", isPower ? 1.0 : structure->sill},
                          {isPower ? "exponent" : "range", structure->range}});
  }
  return {{"nugget", model.nugget}, {"structures", structures}};
}

Json jsonOf(const std::optional<fitting::Anisotropy>& anisotropy) {
  if (!anisotropy) return nullptr;
  Json object{{"azimuth", anisotropy->angles.azimuth}, {"minor1", anisotropy->minor1}};
  if (anisotropy->plane) return object;
  object.update({{"dip", anisotropy->angles.dip},
                 {"rotation", anisotropy->angles.rotation},
                 {"minor2", anisotropy->minor2}});
  return object;
}

/// What candidates of one variable and of several have in common.
template <class Candidate>
Json candidateJson(const Candidate& candidate, const fitting::Options& options, bool isChosen) {
  Json object{{"lines", labelOf(candidate.forms, options)},
              {"taken", isChosen},
              {"sum", candidate.sum},
              {"aicc", candidate.aicc},
              {"parameters", candidate.parameters},
              {"unbounded", candidate.unbounded},
              {"refusal", nullptr},
              {"ellipse", jsonOf(candidate.anisotropy)}};
  if (!candidate.refusal.empty()) object["refusal"] = candidate.refusal;
  return object;
}

Json jsonOf(const FitReport& report, const fitting::Result& result, std::size_t first) {
  Json ranking = Json::array(), models = Json::array();
  for (std::size_t i = 0; i < result.ranking.size(); ++i) {
    ranking.push_back(candidateJson(result.ranking[i], report.plan.options,
                                    result.isOffered() && i == result.chosen));
    ranking.back().update(jsonOf(result.ranking[i].model));
  }
  for (std::size_t d = 0; result.isOffered() && d < result.models.size(); ++d) {
    models.push_back({{"direction", directionName(report, first + d)}});
    models.back().update(jsonOf(result.models[d]));
  }
  return {{"fitted", result.isOffered()},
          {"refusal", result.isOffered() ? Json(nullptr) : Json(result.refusal)},
          {"unbounded", result.unbounded},
          {"classes", result.classes},
          {"ranking", ranking},
          {"models", models}};
}

Json variableJson(const FitReport& report, std::size_t task) {
  const fitting::VariableFit& fit = report.fits.variables[task];
  Json fits = Json::array();
  for (std::size_t r = 0; r < fit.results.size(); ++r) {
    fits.push_back({{"direction", fit.ellipse ? Json(nullptr) : Json(directionName(report, r))}});
    fits.back().update(jsonOf(report, fit.results[r], fit.ellipse ? 0 : r));
  }
  return {{"name", variableName(report, report.plan.tasks[task].variable)},
          {"cross", report.plan.tasks[task].isCross},
          {"fitted", fit.isWhole()},
          {"fits", fits}};
}

Json coregionJson(const FitReport& report) {
  if (!report.fits.coregion) return nullptr;
  const fitting::CoregionFit& fit = *report.fits.coregion;
  const auto entries = entriesOf(*report.plan.coregion);
  Json variables = Json::array(), ranking = Json::array(), models = Json::array();
  for (const std::int64_t v : report.plan.coregion->variables)
    variables.push_back(variableName(report, v));
  for (std::size_t i = 0; i < fit.ranking.size(); ++i) {
    ranking.push_back(
        candidateJson(fit.ranking[i], report.plan.options, fit.isOffered() && i == fit.chosen));
    ranking.back().update({{"freeSum", fit.ranking[i].free}, {"ranges", fit.ranking[i].ranges}});
  }
  for (std::size_t e = 0; fit.isOffered() && e < entries.size(); ++e)
    for (std::size_t d = 0; d < fit.models[e].size(); ++d) {
      models.push_back({{"variable", variableName(report, entries[e])},
                        {"direction", directionName(report, d)}});
      models.back().update(jsonOf(fit.models[e][d]));
    }
  return {{"variables", variables},
          {"fitted", fit.isOffered()},
          {"refusal", fit.isOffered() ? Json(nullptr) : Json(fit.refusal)},
          {"unbounded", fit.unbounded},
          {"classes", fit.classes},
          {"ranking", ranking},
          {"models", models}};
}

/// A range that runs away may be that of a power structure.
std::string reasonOf(const FitReport& report, const std::string& refusal, bool isUnbounded) {
  const bool isOffered = std::ranges::count(report.plan.options.forms, Form::power) > 0;
  return refusal + (isUnbounded && !isOffered ? "; --forms with P tries a power structure" : "");
}

}  // namespace

std::vector<NotFitted> notFitted(const FitReport& report) {
  std::vector<NotFitted> missing;
  if (report.fits.coregion && !report.fits.coregion->isOffered())
    for (const std::int64_t v : entriesOf(*report.plan.coregion))
      missing.push_back(
          {variableName(report, v), "",
           reasonOf(report, report.fits.coregion->refusal, report.fits.coregion->unbounded)});
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
  const bool isFree = options.directions == fitting::Directions::free;
  std::string text =
      table({{"title", utf8Of(report.title)},
             {"weights", namesOf(options.weights).formula},
             {"forms", joined(options.forms, ", ")},
             {"structures", options.structures ? std::to_string(*options.structures)
                                               : std::string("up to 2, by AICc")},
             {"nugget", options.nugget ? generalText(*options.nugget) : std::string("fitted")},
             {"directions", isFree ? "each by itself" : "one ellipse"}});
  text += coregionText(report);
  for (std::size_t task = 0; task < report.plan.tasks.size(); ++task)
    text += variableText(report, task);
  const std::vector<NotFitted> missing = notFitted(report);
  if (!missing.empty()) text += '\n';
  for (const NotFitted& one : missing) text += lineOf(textOf(one));
  return text;
}

Json jsonOf(const FitReport& report) {
  const fitting::Options& options = report.plan.options;
  Json forms = Json::array(), variables = Json::array(), missing = Json::array();
  for (const Form form : options.forms) forms.push_back(letterOf(form));
  for (std::size_t task = 0; task < report.plan.tasks.size(); ++task)
    variables.push_back(variableJson(report, task));
  for (const NotFitted& one : notFitted(report))
    missing.push_back({{"variable", one.variable},
                       {"direction", one.direction.empty() ? Json(nullptr) : Json(one.direction)},
                       {"reason", one.reason}});
  Json object{
      {"title", utf8Of(report.title)},
      {"weights", namesOf(options.weights).name},
      {"forms", forms},
      {"structures", nullptr},
      {"nugget", nullptr},
      {"directions", options.directions == fitting::Directions::free ? "free" : "geometric"},
      {"coregionalization", coregionJson(report)},
      {"variables", variables},
      {"notFitted", missing}};
  if (options.structures) object["structures"] = *options.structures;
  if (options.nugget) object["nugget"] = *options.nugget;
  return object;
}

}  // namespace zevfit::verbs
