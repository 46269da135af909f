// R code for gstat: angles and ratios as vgm() has them, which takes ratios of at most 1.
#include <algorithm>
#include <cmath>

#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

constexpr FormTable kNames{{{"Sph"}, {"Exp", "/3"}, {"Gau", "/sqrt(3)"}, {"Pow"}}};
constexpr const char* kConventions =
    "# Exp and Gau have practical ranges a, 95 % of the sill: gstat takes a/3 and a/sqrt(3).\n"
    "# anis: azimuth of the largest range clockwise from north and the ratio to it; in space also\n"
    "# dip (positive upward) and rotation, then two ratios. All angles in degrees.\n";

/// gstat has angles from 0 to below 360.
double turned(double angle) { return angle < 0 ? angle + 360 : angle + 0.0; }

std::string anisotropy(const Triad& triad, const SpatialStructure& structure) {
  if (structure.isIsotropic()) return {};
  const Ellipsoid sorted = descending({triad.axes, structure.ranges}, triad.isPlane());
  const auto& [first, second, third] = sorted.ranges;
  const Angles angles = anglesOf(sorted.axes);
  const std::string values = triad.isPlane()
                                 ? listed({angles.azimuth, second / first})
                                 : listed({angles.azimuth, turned(-angles.dip),
                                           turned(angles.rotation), second / first, third / first});
  return ", anis = c(" + values + ")";
}

/// `options`: further arguments, each behind a comma.
std::string structureCode(const Triad& triad, const SpatialStructure& structure,
                          const std::string& options) {
  const double largest = std::ranges::max(structure.ranges);
  return "m <- vgm(" + shortest(structure.sill) + ", \"" + wordsOf(kNames, structure.form).name +
         "\", " + rangeCode(kNames, structure.form, largest) + options +
         anisotropy(triad, structure) + ")\n";
}

/// Assigns the model to m; with a nugget of 0 where `hasNugget` asks for one.
std::string modelCode(const SpatialModel& model, bool hasNugget, const std::string& indent) {
  if (model.structures.empty())
    return indent + "m <- vgm(" + shortest(model.nugget) + ", \"Nug\", 0)\n";
  std::string options = hasNugget ? ", nugget = " + shortest(model.nugget) : "", out;
  for (const SpatialStructure& structure : model.structures) {
    out += indent + structureCode(model.triad, structure, options);
    options = ", add.to = m";
  }
  return out;
}

const SpatialStructure* find(const SpatialModel& model, Line which) {
  const auto found = std::ranges::find(model.structures, which, &SpatialStructure::line);
  return found == model.structures.end() ? nullptr : &*found;
}

/// Adds what the others have, with a sill of 0: gstat asks for the same structures in all models.
void complete(SpatialModel& model, const std::vector<const SpatialModel*>& all) {
  std::vector<SpatialStructure> structures;
  for (const Line which : kStructures) {
    const SpatialStructure* own = find(model, which);
    for (const SpatialModel* other : all) {
      const SpatialStructure* theirs = find(*other, which);
      if (theirs == nullptr) continue;
      if (own != nullptr && (own->form != theirs->form || own->ranges != theirs->ranges))
        throw Refusal("structure " + std::to_string(indexOf(which)) + " of " + model.variable +
                      " and of " + other->variable +
                      " differ in form or range: no linear model of coregionalization");
      if (structures.empty() || structures.back().line != which) {
        structures.push_back(own != nullptr ? *own : *theirs);
        if (own == nullptr) structures.back().sill = 0;
      }
    }
  }
  model.structures = structures;
}

std::string nameList(const std::vector<SpatialModel>& models) {
  std::string out;
  for (const SpatialModel& model : models) out += (out.empty() ? "" : ", ") + model.variable;
  return out;
}

std::string usage(const std::vector<SpatialModel>& direct) {
  std::string formulas;
  for (const SpatialModel& model : direct)
    formulas += (formulas.empty() ? "" : ", ") + quoted(model.variable) + " = COLUMN ~ 1";
  return "# coregionalization(formulas, data) makes the gstat object, as in\n"
         "#   coregionalization(list(" +
         formulas + "), data)\n";
}

std::string directCode(const SpatialModel& model, bool isFirst, bool hasNugget) {
  const std::string name = quoted(model.variable);
  return modelCode(model, hasNugget, "  ") + "  g <- gstat(" + (isFirst ? "NULL" : "g") +
         ", id = " + name + ", formula = formulas[[" + name + "]], data = data, model = m)\n";
}

}  // namespace

std::string gstatText(const SpatialModel& model) {
  return "# Semivariogram model of " + model.variable + " for gstat.\n" + kConventions +
         "library(gstat)\n" + modelCode(model, model.nugget != 0, "");
}

std::string gstatText(const std::vector<SpatialModel>& direct,
                      const std::vector<CrossModel>& crosses) {
  std::vector<const SpatialModel*> all;
  all.reserve(direct.size() + crosses.size());
  for (const SpatialModel& model : direct) all.push_back(&model);
  for (const CrossModel& cross : crosses) all.push_back(&cross.model);
  const bool hasNugget =
      std::ranges::any_of(all, [](const SpatialModel* model) { return model->nugget != 0; });
  std::string out = "# Linear model of coregionalization of " + nameList(direct) + " for gstat.\n" +
                    kConventions + usage(direct) + "library(gstat)\n" +
                    "coregionalization <- function(formulas, data) {\n";
  for (std::size_t at = 0; at < direct.size(); ++at) {
    SpatialModel model = direct[at];
    complete(model, all);
    out += directCode(model, at == 0, hasNugget);
  }
  for (const CrossModel& cross : crosses) {
    SpatialModel model = cross.model;
    complete(model, all);
    out += modelCode(model, hasNugget, "  ") + "  g <- gstat(g, id = c(" +
           quoted(direct.at(cross.first).variable) + ", " +
           quoted(direct.at(cross.second).variable) + "), model = m)\n";
  }
  return out + "  g\n}\n";
}

}  // namespace zevfit::exchange
