// The model as JSON, with every convention by its name.
#include <nlohmann/json.hpp>

#include "model/axis_fields.h"
#include "session/number_reading.h"
#include "session/policy.h"
#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, kAxes.size()> kKeys{"main", "minor1", "minor2"};
/// By Form: the name, and what its range is.
struct FormNames {
  const char* name;
  const char* range;
};
constexpr std::array<FormNames, kForms.size()> kNames{
    {{"spherical", "range, where the sill is reached"},
     {"exponential", "practical, exp(-3h/a)"},
     {"gaussian", "practical, exp(-3(h/a)^2)"},
     {"power", "exponent, h^a"}}};

Json conventions() {
  return {{"azimuth", "degrees, clockwise from north"},
          {"dip", "degrees, positive downward"},
          {"rotation",
           "degrees, of Minor 1 about Main, from the horizontal at the left of Main upward"},
          {"vector", "east, north, up"},
          {"distance",
           "h of a structure is a |(h.main/a.main, h.minor1/a.minor1, "
           "h.minor2/a.minor2)| with any of its ranges as a"},
          {"origin", "the semivariance at distance 0 is 0; the nugget counts beyond"},
          {"power", "h^a without a sill as factor, written as sill 1"}};
}

/// Azimuth and dip of a direction's name; null where it has none.
Json namedAngles(const Session& session, std::int64_t direction) {
  return attempt(
      [&]() -> Json {
        const DirectionAngles angles = directionAngles(session.dirname(direction));
        return {{"azimuth", leadingNumber(angles.azimuth)}, {"dip", leadingNumber(angles.dip)}};
      },
      []() -> Json { return nullptr; });
}

Json axesOf(const Session& session, const Triad& triad) {
  Json out;
  for (std::size_t at = 0; at < kAxes.size(); ++at) {
    const Vector& v = triad.axes.at(at);
    out[kKeys.at(at)] = {{"direction", triad.names.at(at)},
                         {"named", namedAngles(session, triad.directions.at(at))},
                         {"vector", {v.east + 0.0, v.north + 0.0, v.up + 0.0}}};
  }
  const Angles angles = anglesOf(triad.axes);
  out["angles"] = {{"azimuth", angles.azimuth}, {"dip", angles.dip}, {"rotation", angles.rotation}};
  return out;
}

Json structureJson(const SpatialStructure& structure) {
  const auto at = static_cast<std::size_t>(structure.form);
  Json out{{"line", indexOf(structure.line)},
           {"form", kNames.at(at).name},
           {"letter", letterOf(structure.form)},
           {"formula", kFormulas.at(at)},
           {"sill", structure.sill}};
  if (structure.form == Form::power) {
    out["exponent"] = structure.ranges[0];
    return out;
  }
  Json range{{"convention", kNames.at(at).range}};
  for (std::size_t axis = 0; axis < kAxes.size(); ++axis)
    range[kKeys.at(axis)] = structure.ranges.at(axis);
  out["range"] = range;
  return out;
}

Json numberOf(const Cell& cell) {
  return attempt([&] { return Json(cell.number()); }, [] { return Json(nullptr); });
}

Json modelJson(const Session& session, std::int64_t variable, const SpatialModel& model) {
  Json structures = Json::array();
  for (const SpatialStructure& structure : model.structures)
    structures.push_back(structureJson(structure));
  return {{"variable", model.variable},
          {"variance", numberOf(session.variance(variable))},
          {"nugget", model.nugget},
          {"structures", structures}};
}

}  // namespace

std::string jsonText(const Session& session, const Request& request, Warnings& warnings) {
  const Triad triad = triadOf(session, pickedOf(session, request), warnings);
  Json models = Json::array();
  for (const std::int64_t variable : request.variables)
    models.push_back(modelJson(session, variable, modelAlong(session, variable, triad, warnings)));
  for (const CrossVariable& cross : request.crosses) {
    Json model = modelJson(session, cross.variable,
                           modelAlong(session, cross.variable, triad, warnings, true));
    model["crossOf"] = {variableName(session, cross.first), variableName(session, cross.second)};
    models.push_back(model);
  }
  const Json all{{"schema", "zvm.model/1"},        {"conventions", conventions()},
                 {"dimensions", triad.dimensions}, {"isotropic", triad.isotropic},
                 {"axes", axesOf(session, triad)}, {"models", models}};
  return all.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace zevfit::exchange
