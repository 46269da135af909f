#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "zvm/exchange/refusal.h"

/// Fitted models in the words of other systems.
namespace zevfit::exchange {

enum class Target { zvp, gstat, gslib, sgems, gstools, pykrige, gstlearn, json, csv };

/// A target by its name in commands, what the output is, and whether it takes several variables.
struct TargetRow {
  Target target;
  std::string_view name;
  std::string_view what;
  bool takesSeveral;
};
inline constexpr std::array<TargetRow, 9> kTargets{{
    {Target::zvp, "zvp", "the kriging parameter file of the family", false},
    {Target::gstat, "gstat", "R code for gstat; of several variables a coregionalization", true},
    {Target::gslib, "gslib", "the lines of a model in a GSLIB parameter file", false},
    {Target::sgems, "sgems", "an XML element for SGeMS", false},
    {Target::gstools, "gstools", "Python code for GSTools", false},
    {Target::pykrige, "pykrige", "Python code for PyKrige", false},
    {Target::gstlearn, "gstlearn", "Python code for gstlearn", false},
    {Target::json, "json", "the model with its conventions by name", true},
    {Target::csv, "csv", "experimental points and model side by side", true},
}};
/// The target of a name; nothing for any other text.
std::optional<Target> targetOf(std::string_view name);

/// The variable that holds the cross semivariogram of two others; all from 1.
struct CrossVariable {
  std::int64_t variable = 0, first = 0, second = 0;
};

/// What is exported. Variables and directions are subscripts from 1.
struct Request {
  Target target = Target::json;
  std::vector<std::int64_t> variables;  ///< one; several where the target takes them
  /// Of several variables for gstat: one for each two of them.
  std::vector<CrossVariable> crosses;
  /// The directions of the axes. No Main: the only direction, of `csv` every one. No Minor 1: the
  /// model is that of Main whatever the direction. No Minor 2: Minor 1, a model in the plane.
  std::optional<std::int64_t> main, minor1, minor2;
  /// GSLIB's Gaussian model is exp(-(3h/a)^2), as some copies of it have it, not exp(-3(h/a)^2).
  bool gslibGaussian9 = false;
};

struct Outcome {
  std::string text;   ///< in UTF-8; of `zvp` the bytes of the file
  Warnings warnings;  ///< in UTF-8, one a line
};

/// Throws Refusal with the reason for what the target can't express.
Outcome exportModel(const Session& session, const Request& request);

}  // namespace zevfit::exchange
