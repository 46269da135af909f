// Python code for gstlearn, by the parameters of its forms: its practical ranges have factors that
// are not ours (2.995732 and 1.730818 for 3 and the root of 3).
#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

constexpr FormTable kTypes{
    {{"SPHERICAL"}, {"EXPONENTIAL", "/3"}, {"GAUSSIAN", "/np.sqrt(3)"}, {"POWER"}}};
constexpr double kLargestExponent = 1.99;

std::string rangeList(const Triad& triad, const SpatialStructure& structure) {
  std::string out;
  for (const double range : structure.ranges)
    out += (out.empty() ? "" : ", ") + rangeCode(kTypes, structure.form, range);
  if (triad.isPlane()) out.resize(out.rfind(','));
  return out;
}

std::string powerCode(const SpatialStructure& structure) {
  const double exponent = structure.ranges[0];
  if (exponent > kLargestExponent)
    throw Refusal("gstlearn takes exponents up to 1.99, not " + shortest(exponent));
  return "range=1, param=" + shortest(exponent);
}

std::string anisotropy(const Triad& triad, const SpatialStructure& structure) {
  std::string ranges = "ranges=[" + rangeList(triad, structure) + "]";
  if (structure.isIsotropic()) return ranges;
  const Angles angles = anglesOf(triad.axes);
  const double first = 90 - angles.azimuth;
  return ranges + ", angles=[" +
         (triad.isPlane() ? listed({first, 0}) : listed({first, angles.dip, angles.rotation})) +
         "]";
}

}  // namespace

std::string gstlearnText(const SpatialModel& model) {
  std::string out =
      "# Semivariogram model of " + model.variable +
      " for gstlearn.\n"
      "# Exponential and Gaussian have practical ranges a, 95 % of the sill: their parameters are "
      "a/3\n"
      "# and a/sqrt(3). Angles in degrees: counterclockwise from east, dip positive downward,\n"
      "# rotation; ranges along the turned axes.\n"
      "import gstlearn as gl\nimport numpy as np\n\n"
      "m = gl.Model.createFromParam(gl.ECov.NUGGET, sill=" +
      shortest(model.nugget) + ", space=gl.SpaceRN.create(" +
      std::to_string(model.triad.dimensions) + "))\n";
  for (const SpatialStructure& structure : model.structures)
    out += "m.addCovFromParam(gl.ECov." + std::string(wordsOf(kTypes, structure.form).name) +
           ", sill=" + shortest(structure.sill) + ", " +
           (structure.form == Form::power ? powerCode(structure)
                                          : anisotropy(model.triad, structure)) +
           ", flagRange=False)\n";
  return out;
}

}  // namespace zevfit::exchange
