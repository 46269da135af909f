#include "zvm/exchange/export.h"

#include <algorithm>

#include "session/fault.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

constexpr const char* kGslibPower =
    "GSLIB kriges with PMX - h^a: its constant PMX must stay above h^a";

SpatialModel singleModel(const Session& session, const Request& request, Warnings& warnings) {
  const Triad triad = triadOf(session, pickedOf(session, request), warnings);
  return modelAlong(session, request.variables.front(), triad, warnings);
}

template <std::string (*text)(const SpatialModel&)>
std::string single(const Session& session, const Request& request, Warnings& warnings) {
  return text(singleModel(session, request, warnings));
}

std::string gslib(const Session& session, const Request& request, Warnings& warnings) {
  const SpatialModel model = singleModel(session, request, warnings);
  if (std::ranges::count(model.structures, Form::power, &SpatialStructure::form) > 0)
    warnings.emplace_back(kGslibPower);
  return gslibText(model, request.gslibGaussian9);
}

std::size_t placeOf(const Request& request, std::int64_t variable) {
  const auto found = std::ranges::find(request.variables, variable);
  return static_cast<std::size_t>(found - request.variables.begin());
}

bool isOf(const CrossVariable& cross, std::int64_t a, std::int64_t b) {
  return (cross.first == a && cross.second == b) || (cross.first == b && cross.second == a);
}

const CrossVariable& crossOf(const Session& session, const Request& request, std::int64_t a,
                             std::int64_t b) {
  const auto found = std::ranges::find_if(
      request.crosses, [a, b](const CrossVariable& cross) { return isOf(cross, a, b); });
  if (found == request.crosses.end())
    throw Refusal("no cross semivariogram of " + variableName(session, a) + " and " +
                  variableName(session, b));
  return *found;
}

/// gstat knows its variables by their names.
void refuseEqualNames(const std::vector<SpatialModel>& direct) {
  for (const SpatialModel& model : direct)
    if (std::ranges::count(direct, model.variable, &SpatialModel::variable) > 1)
      throw Refusal("two variables are named " + model.variable);
}

std::string gstat(const Session& session, const Request& request, Warnings& warnings) {
  const Triad triad = triadOf(session, pickedOf(session, request), warnings);
  std::vector<SpatialModel> direct;
  for (const std::int64_t variable : request.variables)
    direct.push_back(modelAlong(session, variable, triad, warnings));
  if (direct.size() == 1) return gstatText(direct.front());
  refuseEqualNames(direct);
  std::vector<CrossModel> crosses;
  for (auto first = request.variables.begin(); first != request.variables.end(); ++first) {
    for (auto second = first + 1; second != request.variables.end(); ++second) {
      const CrossVariable& cross = crossOf(session, request, *first, *second);
      crosses.push_back({modelAlong(session, cross.variable, triad, warnings, true),
                         placeOf(request, *first), placeOf(request, *second)});
    }
  }
  return gstatText(direct, crosses);
}

std::string csv(const Session& session, const Request& request, Warnings& /*warnings*/) {
  return csvText(session, request);
}

using Writer = std::string (*)(const Session&, const Request&, Warnings&);
/// In the order of kTargets.
constexpr std::array<Writer, kTargets.size()> kWriters{krigingFileText,
                                                       gstat,
                                                       gslib,
                                                       single<sgemsText>,
                                                       single<gstoolsText>,
                                                       single<pykrigeText>,
                                                       single<gstlearnText>,
                                                       jsonText,
                                                       csv};

}  // namespace

std::optional<Target> targetOf(std::string_view name) {
  const auto row = std::ranges::find(kTargets, name, &TargetRow::name);
  return row == kTargets.end() ? std::nullopt : std::optional(row->target);
}

Picked pickedOf(const Session& session, const Request& request) {
  if (request.main) return {*request.main, request.minor1, request.minor2};
  if (session.ndir != 1) throw Refusal("no direction is chosen as Main");
  return {1, std::nullopt, std::nullopt};
}

Outcome exportModel(const Session& session, const Request& request) {
  const TargetRow& row = kTargets.at(static_cast<std::size_t>(request.target));
  if (request.variables.empty()) throw Refusal("no variable is chosen");
  if (request.variables.size() > 1 && !row.takesSeveral)
    throw Refusal(std::string(row.name) + " takes one variable at a time");
  Outcome outcome;
  try {
    outcome.text =
        kWriters.at(static_cast<std::size_t>(request.target))(session, request, outcome.warnings);
  } catch (const Fault& fault) {
    throw Refusal(std::string("the model can't be evaluated: ") + fault.what());
  }
  return outcome;
}

}  // namespace zevfit::exchange
