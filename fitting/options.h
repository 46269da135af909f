#pragma once

#include <optional>
#include <vector>

#include "session/form.h"

namespace zevfit::fitting {

/// What a class counts, with N pairs at a distance h. That of the model is taken anew from each fit
/// until it settles; where it is below a hundredth of the largest semivariance, it counts as that.
enum class Weights {
  pairsOverDistance2,  ///< N / h^2
  pairsOverModel2,     ///< N / gamma^2, of the model
  pairs,               ///< N
  equal                ///< 1
};

/// Whether the directions share nugget, sills and letters, with ranges from one ellipse, or are
/// fitted each by itself.
enum class Directions { ellipse, free };

/// What a fit may choose from.
struct Options {
  std::vector<Form> forms{Form::spherical, Form::exponential, Form::gaussian};
  /// Exactly so many structures, 1 to 3; nothing: none to two, as AICc has it.
  std::optional<int> structures;
  /// The nugget as told, in squared units of the variable; nothing: fitted.
  std::optional<double> nugget;
  Weights weights = Weights::pairsOverDistance2;
  Directions directions = Directions::ellipse;
  /// Sills and a fitted nugget of either sign, as of a cross variable; otherwise none is below 0.
  bool cross = false;
  /// Gaussian structures alone, with a nugget below a thousandth of their sills, are no reason to
  /// refuse a model, though kriging with it is ill-conditioned.
  bool smoothGaussian = false;
};

}  // namespace zevfit::fitting
