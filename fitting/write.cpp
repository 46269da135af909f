#include "fitting/write.h"

#include <string>

#include "session/line.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit::fitting {
namespace {

/// What a load leaves in a range.
constexpr double kUnusedRange = 1e-05;

void writeStructure(const LineRef& cells, const std::optional<Structure>& structure) {
  cells.use(structure ? 1.0 : 0.0);
  cells.letter() = std::string(structure ? letterOf(structure->form) : kNoLetter);
  cells.sill() = structure ? structure->sill : 0;
  cells.range() = structure ? structure->range : kUnusedRange;
}

void write(FitTables& tables, Pair pair, const NestedModel& model, bool hasNugget) {
  const LineRef nugget = line(tables, pair, Line::nugget);
  nugget.use(hasNugget ? 1.0 : 0.0);
  nugget.sill() = model.nugget;
  for (const Line which : kStructures)
    writeStructure(line(tables, pair, which), model.structures.at(indexOf(which) - 1));
  tables.ctotal(pair) = totalSill(tables, pair);
}

Pair pairOf(std::int64_t variable, std::size_t direction) {
  return {variable, static_cast<std::int64_t>(direction) + 1};
}

/// What a fit has for a direction; a model of nothing where that is refused.
NestedModel modelFor(const VariableFit& fit, std::size_t direction) {
  const Result& result = fit.results.at(fit.ellipse ? 0 : direction);
  if (!result.isOffered()) return {};
  return result.models.at(fit.ellipse ? direction : 0);
}

}  // namespace

double asInFile(double value) { return leadingNumber(generalText(value)); }

void writeModel(FitTables& tables, Pair pair, const NestedModel& model) {
  write(tables, pair, model, model.nugget != 0);
}

void writeFit(Session& session, std::int64_t variable, const VariableFit& fit) {
  for (std::int64_t d = 1; d <= session.ndir; ++d)
    writeModel(session, {variable, d}, modelFor(fit, static_cast<std::size_t>(d - 1)));
}

void writeCoregion(FitTables& tables, const Coregion& coregion, const CoregionFit& fit) {
  std::vector<std::int64_t> entries = coregion.variables;
  for (const CrossVariable& cross : coregion.crosses) entries.push_back(cross.cross);
  for (std::size_t e = 0; e < fit.models.size(); ++e)
    for (std::size_t d = 0; d < fit.models[e].size(); ++d) {
      bool hasNugget = false;
      for (const auto& models : fit.models) hasNugget = hasNugget || models[d].nugget != 0;
      write(tables, pairOf(entries.at(e), d), fit.models[e][d], hasNugget);
    }
}

}  // namespace zevfit::fitting
