#include "model/nested_model.h"

#include <cstddef>

#include "session/fault.h"

namespace zevfit {
namespace {

using Formula = double (*)(double h, double sill, double range);

/// By Form.
constexpr std::array<Formula, kForms.size()> kFormulas{spherical, exponential, gaussian, power};

double valueOf(const Structure& structure, double h) {
  const Formula formula = kFormulas[static_cast<std::size_t>(structure.form)];
  return formula(h, structure.sill, structure.range);
}

std::optional<Structure> structureOf(const ConstLineRef& line) {
  if (!line.isOn()) return std::nullopt;
  const std::optional<Form> form = formOf(line.letter());
  if (!form) return std::nullopt;
  const double range = line.range().number();
  const double sill = *form == Form::power ? 0 : line.sill().number();
  return Structure{*form, sill, raisedRange(range)};
}

}  // namespace

NestedModel modelOf(const FitTables& tables, Pair pair) {
  NestedModel model;
  const ConstLineRef nugget = line(tables, pair, Line::nugget);
  if (nugget.isOn()) model.nugget = nugget.sill().number();
  for (const Line which : kStructures)
    model.structures.at(indexOf(which) - 1) = structureOf(line(tables, pair, which));
  return model;
}

double semivariance(const NestedModel& model, double h) {
  if (h == 0) return 0;
  double sum = model.nugget;
  for (const std::optional<Structure>& structure : model.structures)
    if (structure) sum += valueOf(*structure, h);
  return finite(sum);
}

}  // namespace zevfit
