#include "model/result_sources.h"

#include <algorithm>

namespace zevfit {
namespace {

constexpr std::array<const char*, kAxes.size()> kAxisParts{"Main", "Minor 1", "Minor 2"};
constexpr const char* kRowPart = "nugget, sills and models";

/// Adds a part to its source, once.
void add(std::vector<OtherSource>& others, const ResultSource& source, const char* part) {
  auto at = std::find_if(others.begin(), others.end(),
                         [&](const OtherSource& other) { return other.source == source; });
  if (at == others.end()) at = others.insert(at, {source, {}});
  if (at->parts.empty() || at->parts.back() != part) at->parts.emplace_back(part);
}

}  // namespace

ResultSource sourceOf(const Session& session, std::int64_t variable) {
  return {session.inputfile, variable, session.varname(variable)};
}

bool isOther(const ResultSource& source, const ResultSource& shown) {
  return source.variable != 0 && shown.variable != 0 && source != shown;
}

std::vector<OtherSource> otherSources(const ResultSources& sources, const ResultSource& shown) {
  std::vector<OtherSource> others;
  for (const Axis axis : kAxes) {
    const auto at = static_cast<std::size_t>(axis);
    for (const ResultSource& source : sources.fields.at(at))
      if (isOther(source, shown)) add(others, source, kAxisParts.at(at));
  }
  if (isOther(sources.row, shown)) add(others, sources.row, kRowPart);
  return others;
}

}  // namespace zevfit
