#include "zvm/exchange/spatial_model.h"

#include <algorithm>
#include <cmath>

#include "model/nested_model.h"
#include "session/fault.h"
#include "zvm/exchange/texts.h"

namespace zevfit::exchange {
namespace {

constexpr double kLargestExponent = 2;
/// Ratios of ranges within this of each other are one ratio.
constexpr double kSameRatio = 1e-12;

/// The models of one variable along the axes, and what is said of them.
class Models {
 public:
  Models(const Session& session, std::int64_t variable, const Triad& triad, Warnings& warnings)
      : session_(session),
        triad_(triad),
        warnings_(warnings),
        variable_(variable),
        name_(variableName(session, variable)) {
    for (std::size_t at = 0; at < kAxes.size(); ++at) models_.at(at) = read(at);
  }

  SpatialModel inSpace(bool isCross) {
    SpatialModel result{name_, triad_, models_[0].nugget, {}};
    compareSills("the nugget", [](const NestedModel& model) { return model.nugget; });
    for (const Line which : kStructures) addStructure(which, isCross, result);
    if (!isCross && result.nugget < 0) warn("the nugget is negative");
    return result;
  }

 private:
  Pair pairAt(std::size_t at) const { return {variable_, triad_.directions.at(at)}; }
  /// The same direction is told of once.
  bool isRepeated(std::size_t at) const {
    const auto from = triad_.directions.begin();
    const auto here = from + static_cast<std::ptrdiff_t>(at);
    return std::find(from, here, *here) != here;
  }
  const std::string& direction(std::size_t at) const { return triad_.names.at(at); }
  void warn(const std::string& what) { warnings_.push_back(name_ + ": " + what); }
  [[noreturn]] void refuse(const std::string& why) const { throw Refusal(name_ + ": " + why); }

  NestedModel read(std::size_t at) {
    try {
      if (!hasModel(session_, pairAt(at))) refuse("no model along " + direction(at));
      if (!isRepeated(at)) warnOfCells(at);
      return modelOf(session_, pairAt(at));
    } catch (const Fault&) {
      refuse("a text stands in place of a number in the model along " + direction(at));
    }
  }

  void warnOfCells(std::size_t at) {
    for (const Line which : kStructures) {
      const ConstLineRef cells = line(session_, pairAt(at), which);
      if (!cells.isOn()) continue;
      const std::string name = structureName(which) + " along " + direction(at);
      if (!formOf(cells.letter()))
        warn(name + " has no form and is left out");
      else if (cells.range().number() <= 0)
        warn(name + " has no range above 0; " + shortest(kSmallestRange) + " is taken");
    }
  }

  static std::string structureName(Line which) {
    return "structure " + std::to_string(indexOf(which));
  }

  static const std::optional<Structure>& structure(const NestedModel& model, Line which) {
    return model.structures.at(indexOf(which) - 1);
  }

  void addStructure(Line which, bool isCross, SpatialModel& result) {
    refuseDifferent(which);
    const std::optional<Structure>& main = structure(models_[0], which);
    if (!main) return;
    SpatialStructure added{which, main->form, main->sill, {}};
    for (std::size_t at = 0; at < kAxes.size(); ++at)
      added.ranges.at(at) = structure(models_.at(at), which)->range;
    refuseRatios(added);
    if (added.form == Form::power) {
      refuseExponents(added);
      added.sill = 1;
    } else {
      compareSills("the sill of " + structureName(which),
                   [which](const NestedModel& model) { return structure(model, which)->sill; });
      if (!isCross && added.sill < 0) warn("the sill of " + structureName(which) + " is negative");
    }
    result.structures.push_back(added);
  }

  void refuseDifferent(Line which) const {
    const std::optional<Structure>& main = structure(models_[0], which);
    for (std::size_t at = 1; at < kAxes.size(); ++at) {
      const std::optional<Structure>& other = structure(models_.at(at), which);
      if (main.has_value() != other.has_value())
        refuse(structureName(which) + " is part of the model along " + direction(main ? 0 : at) +
               " and not along " + direction(main ? at : 0));
      if (main && main->form != other->form)
        refuse(structureName(which) + " is " + std::string(letterOf(main->form)) + " along " +
               direction(0) + " and " + std::string(letterOf(other->form)) + " along " +
               direction(at) + ": no geometric anisotropy");
    }
  }

  void refuseRatios(const SpatialStructure& added) const {
    for (std::size_t at = 1; at < kAxes.size(); ++at) {
      const double ratio = added.ranges.at(at) / added.ranges[0];
      if (!(ratio > 0 && std::isfinite(ratio)))
        refuse("the ranges of " + structureName(added.line) +
               " are too far apart: " + shortest(added.ranges[0]) + " along " + direction(0) +
               " and " + shortest(added.ranges.at(at)) + " along " + direction(at));
    }
  }

  void refuseExponents(const SpatialStructure& power) const {
    const double exponent = power.ranges[0];
    if (exponent > kLargestExponent)
      refuse("the exponent " + shortest(exponent) + " of " + structureName(power.line) +
             " is above 2");
    for (std::size_t at = 1; at < kAxes.size(); ++at)
      if (power.ranges.at(at) != exponent)
        refuse("the exponent of " + structureName(power.line) + " is " + shortest(exponent) +
               " along " + direction(0) + " and " + shortest(power.ranges.at(at)) + " along " +
               direction(at) + ": no geometric anisotropy");
  }

  template <class Sill>
  void compareSills(const std::string& what, const Sill& sill) {
    const double main = sill(models_[0]);
    for (std::size_t at = 1; at < kAxes.size(); ++at) {
      const double other = sill(models_.at(at));
      if (other == main || isRepeated(at)) continue;
      warn(what + " is " + shortest(main) + " along " + direction(0) + " and " + shortest(other) +
           " along " + direction(at) + "; that of Main is taken");
    }
  }

  const Session& session_;
  const Triad& triad_;
  Warnings& warnings_;
  std::int64_t variable_;
  std::string name_;
  std::array<NestedModel, kAxes.size()> models_;
};

}  // namespace

bool SpatialModel::hasOneAnisotropy() const {
  return std::ranges::all_of(structures, [this](const SpatialStructure& other) {
    const auto& one = structures.front().ranges;
    return std::ranges::all_of(std::array<std::size_t, 2>{1, 2}, [&](std::size_t at) {
      const double ratio = one.at(at) / one[0], same = other.ranges.at(at) / other.ranges[0];
      return std::abs(ratio - same) <= kSameRatio * ratio;
    });
  });
}

std::string variableName(const Session& session, std::int64_t variable) {
  if (variable < 1 || variable > session.nvar)
    throw Refusal("there is no variable " + std::to_string(variable) + "; the file has " +
                  std::to_string(session.nvar));
  return nameText(session.varname(variable));
}

SpatialModel modelAlong(const Session& session, std::int64_t variable, const Triad& triad,
                        Warnings& warnings, bool isCross) {
  return Models(session, variable, triad, warnings).inSpace(isCross);
}

}  // namespace zevfit::exchange
