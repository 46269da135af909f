#pragma once

#include <cstdint>
#include <vector>

#include "coreg/eigenvalues.h"
#include "session/pair.h"
#include "session/session.h"

namespace zevfit {

/// A cross variable and the two variables that it is of, by their subscripts.
struct CrossVariable {
  std::int64_t cross = 0, first = 0, second = 0;
};

/// Variables with the cross variables of their pairs. A pair without one counts as uncorrelated.
struct Coregion {
  std::vector<std::int64_t> variables;
  std::vector<CrossVariable> crosses;
};

/// The least eigenvalue may be below 0 by this part of the trace, for the rounding of sills.
inline constexpr double kEigenvalueTolerance = 1e-9;

/// What the sills of one line in one direction come to.
struct MatrixVerdict {
  Line line = Line::nugget;
  std::int64_t direction = 0;
  double least = 0;  ///< the least eigenvalue of the matrix of sills
  double trace = 0;
  bool passed = false;
};

/// The sills of a line in a direction, sills of variables on the diagonal and those of cross
/// variables beside it, as the semivariance of a model has them: 1 for a power structure, which is
/// h^a without a factor, 0 for a line that is off or without a form. Throws Fault for a text in
/// place of a number.
SymmetricMatrix sillMatrix(const Session& session, const Coregion& coregion, Line line,
                           std::int64_t direction);

/// Whether the matrix of sills is positive semidefinite, as a linear model of coregionalization
/// asks for (Goovaerts, "Geostatistics for Natural Resources Evaluation", 4.2.3), for each line
/// that is on in some model of that direction. Pairs of variables that each pass do not make it
/// so. Throws Fault as sillMatrix does, and where sums overflow.
std::vector<MatrixVerdict> matrixTest(const Session& session, const Coregion& coregion,
                                      const std::vector<std::int64_t>& directions);

}  // namespace zevfit
