// Python code for PyKrige: a function of its own for the nested model, since the built-in models
// are single, and one anisotropy.
#include <array>

#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

/// By Form, in the parameters %c (sill, of a power form without use) and %a (range) and distance h.
constexpr std::array<std::string_view, kForms.size()> kTerms{
    "%c * np.where(h < %a, 1.5 * h / %a - 0.5 * (h / %a)**3, 1)", "%c * (1 - np.exp(-3 * h / %a))",
    "%c * (1 - np.exp(-3 * (h / %a)**2))", "%c * h**%a"};

std::string parameter(std::size_t number) { return "p[" + std::to_string(number) + "]"; }

std::string replaced(std::string text, std::string_view mark, const std::string& by) {
  for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark))
    text.replace(at, mark.size(), by);
  return text;
}

std::string anisotropy(const SpatialModel& model) {
  if (model.structures.empty() || model.structures.front().isIsotropic()) return {};
  const auto& [main, minor1, minor2] = model.structures.front().ranges;
  const std::string indent = ",\n        ";
  if (model.triad.isPlane())
    return indent + "anisotropy_angle=" + shortest(90 - anglesOf(model.triad.axes).azimuth) +
           ", anisotropy_scaling=" + shortest(main / minor1);
  const Turns turns = turnsOf(model.triad.axes);
  return indent + "anisotropy_angle_x=" + shortest(turns.roll) +
         ", anisotropy_angle_y=" + shortest(turns.pitch) +
         ", anisotropy_angle_z=" + shortest(turns.yaw) + indent +
         "anisotropy_scaling_y=" + shortest(main / minor1) +
         ", anisotropy_scaling_z=" + shortest(main / minor2);
}

/// The class and what it takes before its options.
struct Kriging {
  const char* module;
  const char* name;
  const char* data;
};
constexpr Kriging kInPlane{"pykrige.ok", "OrdinaryKriging", "x, y, z"};
constexpr Kriging kInSpace{"pykrige.ok3d", "OrdinaryKriging3D", "x, y, z, value"};

}  // namespace

std::string pykrigeText(const SpatialModel& model) {
  if (!model.hasOneAnisotropy())
    throw Refusal("PyKrige has one anisotropy for all structures of a model, and these differ");
  const Kriging& kriging = model.triad.isPlane() ? kInPlane : kInSpace;
  std::string terms = parameter(0) + " + 0 * h", values = shortest(model.nugget);
  std::size_t number = 1;
  for (const SpatialStructure& structure : model.structures) {
    const std::string term(kTerms.at(static_cast<std::size_t>(structure.form)));
    terms += "\n        + " +
             replaced(replaced(term, "%c", parameter(number)), "%a", parameter(number + 1));
    values += ", " + listed({structure.sill, structure.ranges[0]});
    number += 2;
  }
  const std::string data = kriging.data;
  return "# Semivariogram model of " + model.variable +
         " for PyKrige. p: nugget, then sill and range of each structure along Main.\n"
         "# Exponential and Gaussian have practical ranges, 95 % of the sill.\n"
         "# Angles in degrees, counterclockwise from east; scaling: Main to minor range.\n"
         "import numpy as np\nfrom " +
         kriging.module + " import " + kriging.name +
         "\n\n\ndef semivariance(p, h):\n    return (\n        " + terms +
         "\n    )\n\n\ndef kriging(" + data + ", **options):\n    return " + kriging.name + "(\n" +
         "        " + data + ", variogram_model=\"custom\", variogram_function=semivariance,\n" +
         "        variogram_parameters=[" + values + "]" + anisotropy(model) + ", **options)\n";
}

}  // namespace zevfit::exchange
