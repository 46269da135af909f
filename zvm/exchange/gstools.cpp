// Python code for GSTools, whose sums have the same angles and ratios in all their parts.
#include <array>

#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

/// By Form, with the rescaling that makes of our range its length scale; there is no power class.
struct ClassRow {
  const char* name;
  const char* rescale;
};
constexpr std::array<ClassRow, kForms.size()> kClasses{{{"Spherical", ""},
                                                        {"Exponential", ", rescale=3"},
                                                        {"Gaussian", ", rescale=np.sqrt(3)"},
                                                        {nullptr, nullptr}}};

std::string part(const SpatialStructure& structure) {
  const ClassRow& row = kClasses.at(static_cast<std::size_t>(structure.form));
  if (row.name == nullptr) throw Refusal("GSTools has no power model");
  return "gs." + std::string(row.name) + "(var=" + shortest(structure.sill) +
         ", len_scale=" + shortest(structure.ranges[0]) + row.rescale + ", **k)";
}

std::string anisotropy(const SpatialModel& model) {
  if (model.structures.empty() || model.structures.front().isIsotropic()) return {};
  const auto& [main, minor1, minor2] = model.structures.front().ranges;
  if (model.triad.isPlane())
    return ", angles=np.deg2rad(" + shortest(90 - anglesOf(model.triad.axes).azimuth) +
           "), anis=" + shortest(minor1 / main);
  const Turns turns = turnsOf(model.triad.axes);
  return ", angles=np.deg2rad([" + listed({turns.yaw, turns.pitch, turns.roll}) + "]), anis=[" +
         listed({minor1 / main, minor2 / main}) + "]";
}

}  // namespace

std::string gstoolsText(const SpatialModel& model) {
  if (!model.hasOneAnisotropy())
    throw Refusal("GSTools has one anisotropy for all structures of a model, and these differ");
  std::vector<std::string> parts;
  if (model.nugget != 0 || model.structures.empty())
    parts.push_back("gs.Nugget(nugget=" + shortest(model.nugget) + ", **k)");
  for (const SpatialStructure& structure : model.structures) parts.push_back(part(structure));
  std::string out =
      "# Semivariogram model of " + model.variable +
      " for GSTools (1.7 or later).\n"
      "# Exponential and Gaussian have practical ranges, 95 % of the sill, by way of rescale.\n"
      "# Angles are counterclockwise from east in the plane; in space yaw, pitch and roll.\n"
      "import gstools as gs\nimport numpy as np\n\nk = dict(dim=" +
      std::to_string(model.triad.dimensions) + anisotropy(model) + ")\nm = ";
  for (const std::string& one : parts) out += (&one == &parts.front() ? "" : " \\\n  + ") + one;
  return out + "\n";
}

}  // namespace zevfit::exchange
