#include "zvm/verbs/fit_labels.h"

#include "zvm/verbs/text.h"

namespace zevfit::verbs {

std::string joined(const std::vector<Form>& forms, const char* between) {
  std::string text;
  for (const Form form : forms) text += (text.empty() ? "" : between) + std::string(letterOf(form));
  return text;
}

std::string labelOf(const std::vector<Form>& forms, const fitting::Options& options) {
  const bool hasNugget = options.nugget.value_or(1) != 0;
  if (forms.empty()) return "N";
  return (hasNugget ? "N+" : "") + joined(forms, "+");
}

std::string directionName(const FitReport& report, std::size_t direction) {
  return directionNames(report.loaded.session).at(direction);
}

std::string variableName(const FitReport& report, std::int64_t variable) {
  return variableNames(report.loaded.session).at(static_cast<std::size_t>(variable - 1));
}

bool isShared(const FitReport& report) {
  return report.plan.options.directions == fitting::Directions::ellipse &&
         report.loaded.session.ndir > 1;
}

std::vector<std::int64_t> entriesOf(const Coregion& coregion) {
  std::vector<std::int64_t> entries = coregion.variables;
  for (const CrossVariable& cross : coregion.crosses) entries.push_back(cross.cross);
  return entries;
}

}  // namespace zevfit::verbs
