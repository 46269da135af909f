#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/axes.h"
#include "session/axis.h"
#include "session/form.h"
#include "session/line.h"
#include "session/pair.h"
#include "session/session.h"
#include "zvm/exchange/refusal.h"

namespace zevfit::exchange {

/// The directions of a file that stand for the axes, from 1. Without minor directions the model is
/// that of Main whatever the direction; Minor 2 without one of its own is Minor 1.
struct Picked {
  std::int64_t main = 0;
  std::optional<std::int64_t> minor1, minor2;
};

/// What directions make of the axes.
struct Triad {
  std::array<std::int64_t, kAxes.size()> directions{};
  std::array<std::string, kAxes.size()> names;  ///< of the directions, in UTF-8
  Axes axes{};
  int dimensions = 2;
  /// The three are one direction: there is no anisotropy, and the axes are east and north.
  bool isotropic = false;

  bool isPlane() const { return dimensions == 2; }
};

/// Throws Refusal for directions that are not in the file, without azimuth and dip, or not at right
/// angles within the tolerance of the kriging file.
Triad triadOf(const Session& session, const Picked& picked, Warnings& warnings);

/// A structure of which distances count as h' = |(h.e1/a1, h.e2/a2, h.e3/a3)|.
struct SpatialStructure {
  Line line = Line::first;
  Form form = Form::spherical;
  double sill = 0;  ///< 1 for a power form, which is h^a
  /// Along Main, Minor 1 and Minor 2; of a power form the exponent three times.
  std::array<double, kAxes.size()> ranges{};

  bool isIsotropic() const { return ranges[0] == ranges[1] && ranges[0] == ranges[2]; }
};

/// The nested model of a variable in space: sills, forms and nugget of Main, ranges of all axes.
struct SpatialModel {
  std::string variable;  ///< its name in UTF-8
  Triad triad;
  double nugget = 0;
  std::vector<SpatialStructure> structures;

  /// All structures have the same ratios between their ranges.
  bool hasOneAnisotropy() const;
};

/// The model of a variable along the axes. Warns of sills that differ by direction, where those of
/// Main are taken, of lines without a form, of ranges of 0 and of negative sills, which a cross
/// variable may have. Throws Refusal where there is no model, for a text in place of a number, for
/// letters or exponents that differ by direction, for structures that only some directions have,
/// and for exponents above 2.
SpatialModel modelAlong(const Session& session, std::int64_t variable, const Triad& triad,
                        Warnings& warnings, bool isCross = false);

/// A variable's name as messages tell it; throws Refusal for one that is not in the file.
std::string variableName(const Session& session, std::int64_t variable);

inline constexpr std::array<std::string_view, kAxes.size()> kAxisNames{"Main", "Minor 1",
                                                                       "Minor 2"};

}  // namespace zevfit::exchange
