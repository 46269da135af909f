// The XML element of a model in SGeMS, whose ranges descend from max to min.
#include <array>

#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

/// By Form; there is no power type.
constexpr std::array<const char*, kForms.size()> kTypes{"Spherical", "Exponential", "Gaussian",
                                                        nullptr};

std::string attribute(const char* name, const std::string& value) {
  return " " + std::string(name) + "=\"" + value + "\"";
}

std::string structureElement(const Triad& triad, const SpatialStructure& structure,
                             std::size_t number) {
  const char* const type = kTypes.at(static_cast<std::size_t>(structure.form));
  if (type == nullptr) throw Refusal("SGeMS has no power model");
  const Ellipsoid sorted = descending({triad.axes, structure.ranges}, triad.isPlane());
  const Angles angles = anglesOf(sorted.axes);
  const std::string name = "structure_" + std::to_string(number);
  return "<" + name + attribute("contribution", shortest(structure.sill)) +
         attribute("type", type) + ">\n  <ranges" + attribute("max", shortest(sorted.ranges[0])) +
         attribute("medium", shortest(sorted.ranges[1])) +
         attribute("min", shortest(sorted.ranges[2])) + "/>\n  <angles" +
         attribute("x", shortest(angles.azimuth)) + attribute("y", shortest(-angles.dip + 0.0)) +
         attribute("z", shortest(angles.rotation)) + "/>\n</" + name + ">\n";
}

/// A comment can't hold two hyphens in a row.
std::string commentText(std::string text) {
  for (std::size_t at = text.find("--"); at != text.npos; at = text.find("--"))
    text.replace(at, 2, "- -");
  return text;
}

}  // namespace

std::string sgemsText(const SpatialModel& model) {
  std::string out = "<!-- Semivariogram model for SGeMS of " + commentText(model.variable) +
                    "\n     Exponential and Gaussian have practical ranges, 95 % of the sill.\n"
                    "     Angles in degrees: x azimuth clockwise from north, y dip negative "
                    "downward, z rotation.\n"
                    "     The root is Variogram inside the parameters of an algorithm, "
                    "variogram_model in files of\n"
                    "     the modeller. -->\n<Variogram" +
                    attribute("nugget", shortest(model.nugget)) +
                    attribute("structures_count", std::to_string(model.structures.size())) + ">\n";
  std::size_t number = 0;
  for (const SpatialStructure& structure : model.structures)
    out += structureElement(model.triad, structure, ++number);
  return out + "</Variogram>\n";
}

}  // namespace zevfit::exchange
