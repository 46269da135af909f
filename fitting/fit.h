#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fitting/classes.h"
#include "fitting/options.h"
#include "fitting/tell.h"
#include "model/nested_model.h"

namespace zevfit::fitting {

/// The one ellipse (in the plane) or ellipsoid of all structures but those of a power form, by
/// descending ranges.
struct Anisotropy {
  Axes axes{};        ///< Main, Minor 1, Minor 2
  Angles angles;      ///< the same in degrees; in the plane azimuth alone
  double minor1 = 1;  ///< the range along Minor 1 by that along Main, above 0 up to 1
  double minor2 = 1;  ///< the same of Minor 2; in the plane as Minor 1
  bool plane = true;
};

/// What was tried: a nugget with structures of these forms; none is a nugget alone.
struct Tried {
  std::vector<Form> forms;  ///< by rising range, a power form last
  std::optional<Anisotropy> anisotropy;
  std::size_t parameters = 0;  ///< fitted ones
  double sum = 0;              ///< of weighted squared differences
  /// n ln(sum / n) + 2k + 2k(k + 1) / (n - k - 1), of n classes and k = parameters + 1 (Hurvich and
  /// Tsai 1989); the smaller the better, infinite for too few classes.
  double aicc = 0;
  /// A range has run into the end of the grid, 4 times the largest distance.
  bool unbounded = false;
  /// Why it is not taken, in English without a point; empty where it could be.
  std::string refusal;
};

/// The same of one variable.
struct Candidate : Tried {
  NestedModel model;                ///< along Main where there is an ellipse
  std::vector<NestedModel> models;  ///< by direction, from 0
};

/// What a fit offers.
struct Result {
  /// Why there is nothing to offer, in English without a point; empty where there is.
  std::string refusal;
  bool unbounded = false;  ///< that is the reason: the semivariance rises beyond the classes
  /// All candidates: those that could be taken by rising AICc, then the refused ones by theirs.
  std::vector<Candidate> ranking;
  std::size_t chosen = 0;  ///< its place in the ranking; without meaning where nothing is offered
  std::vector<NestedModel> models;  ///< of the chosen one, by direction, from 0
  std::size_t classes = 0;          ///< that counted

  bool isOffered() const { return refusal.empty(); }
  const Candidate& choice() const { return ranking.at(chosen); }
};

/// The model of one direction, by weighted least squares: sills and nugget by non-negative least
/// squares for given ranges (variable projection, Golub and Pereyra 1973), ranges from a
/// logarithmic grid of 60 between half the smallest and 4 times the largest distance, refined. No
/// start values: the same classes give the same bits on every machine. Ranges and sills have the
/// digits that a file holds.
Result startModel(const Classes& classes, const Options& options);

/// One model for all directions, with ranges from an ellipse (or an ellipsoid, where a direction
/// dips); options.directions is not asked. A direction without classes has its model, too. Two
/// directions in the plane tell no azimuth: one of them is Main then. One direction alone is
/// startModel. Refused where a direction has no angles.
Result ellipseModel(const std::vector<DirectionClasses>& directions, const Options& options,
                    const Tell& whole = {});

/// The fit of a variable: one result, or as options.directions says one for each direction.
struct VariableFit {
  bool ellipse = false;         ///< one result for all directions
  std::vector<Result> results;  ///< otherwise by direction, from 0

  bool isWhole() const;  ///< every direction has a model
};

/// Fits a variable of a file, from 1. Nothing is thrown for what the file holds: texts in place of
/// numbers are reasons to refuse.
VariableFit fitVariable(const FileTables& data, std::int64_t variable, const Options& options,
                        const Tell& whole = {});

}  // namespace zevfit::fitting
