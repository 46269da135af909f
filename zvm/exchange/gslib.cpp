// The lines of a model in GSLIB's parameter files. Whatever stands behind the numbers of a line is
// a comment there; lines of their own are none.
#include <algorithm>
#include <array>
#include <cmath>

#include "session/fault.h"
#include "zvm/exchange/forms.h"
#include "zvm/exchange/targets.h"

namespace zevfit::exchange {
namespace {

constexpr std::string_view kAngleComment =
    "-it,cc,ang1,ang2,ang3: azimuth clockwise from north, dip negative downward, rotation";
/// By Form, as cova3 has them.
constexpr std::array<std::string_view, kForms.size()> kRangeComments{
    "spherical", "exp(-3h/a)", "exp(-3(h/a)^2)",
    "h^a, the exponent thrice; kriging takes PMX - h^a"};
constexpr std::string_view kGaussian9Comment = "exp(-(3h/a)^2)";
constexpr std::size_t kNumbersWidth = 28;

std::string codeLine(std::string numbers, std::string_view comment) {
  numbers.resize(std::max(numbers.size() + 2, kNumbersWidth), ' ');
  return numbers + std::string(comment) + "\n";
}

std::string blanked(std::initializer_list<double> values) {
  std::string out;
  for (const double value : values) out += (out.empty() ? "" : " ") + shortest(value);
  return out;
}

std::string structureLines(const Triad& triad, const SpatialStructure& structure, bool gaussian9) {
  const Angles angles = anglesOf(triad.axes);
  const bool widened = gaussian9 && structure.form == Form::gaussian;
  const double factor = widened ? std::sqrt(3.0) : 1;
  const auto& [main, minor1, minor2] = structure.ranges;
  const std::string_view form =
      widened ? kGaussian9Comment : kRangeComments.at(static_cast<std::size_t>(structure.form));
  return codeLine(codeOf(structure.form) + (" " + blanked({structure.sill, angles.azimuth,
                                                           -angles.dip + 0.0, angles.rotation})),
                  kAngleComment) +
         codeLine("  " + blanked({finite(main * factor), finite(minor1 * factor),
                                  finite(minor2 * factor)}),
                  "-a_hmax,a_hmin,a_vert: " + std::string(form));
}

}  // namespace

std::string gslibText(const SpatialModel& model, bool gaussian9) {
  // Its programs stop where there is no structure.
  const SpatialStructure none{Line::first, Form::spherical, 0, {1, 1, 1}};
  std::vector<SpatialStructure> structures = model.structures;
  if (structures.empty()) structures.push_back(none);
  std::string out = codeLine(std::to_string(structures.size()) + " " + shortest(model.nugget),
                             "-nst, nugget effect: " + model.variable);
  for (const SpatialStructure& structure : structures)
    out += structureLines(model.triad, structure, gaussian9);
  return out;
}

}  // namespace zevfit::exchange
