#include "coreg/full_matrix.h"

#include <algorithm>

#include "session/fault.h"
#include "session/form.h"
#include "session/line.h"

namespace zevfit {
namespace {

double sillOf(const Session& session, Pair pair, Line which) {
  const ConstLineRef at = line(session, pair, which);
  if (!at.isOn()) return 0;
  if (which == Line::nugget) return at.sill().number();
  const auto form = formOf(at.letter());
  if (!form) return 0;
  return *form == Form::power ? 1 : at.sill().number();
}

bool isOnSomewhere(const Session& session, const Coregion& coregion, Line which,
                   std::int64_t direction) {
  const auto on = [&](std::int64_t variable) {
    return line(session, {variable, direction}, which).isOn();
  };
  return std::ranges::any_of(coregion.variables, on) ||
         std::ranges::any_of(coregion.crosses, on, &CrossVariable::cross);
}

MatrixVerdict verdictOf(const Session& session, const Coregion& coregion, Line which,
                        std::int64_t direction) {
  const SymmetricMatrix sills = sillMatrix(session, coregion, which, direction);
  const double trace = finite(sills.trace());
  const double least = finite(eigenvalues(sills).front());
  return {which, direction, least, trace, least >= -kEigenvalueTolerance * trace};
}

}  // namespace

SymmetricMatrix sillMatrix(const Session& session, const Coregion& coregion, Line which,
                           std::int64_t direction) {
  const std::vector<std::int64_t>& variables = coregion.variables;
  const auto place = [&](std::int64_t variable) {
    return static_cast<std::size_t>(std::ranges::find(variables, variable) - variables.begin());
  };
  SymmetricMatrix sills(variables.size());
  for (const std::int64_t variable : variables)
    sills.set(place(variable), place(variable), sillOf(session, {variable, direction}, which));
  for (const CrossVariable& cross : coregion.crosses)
    sills.set(place(cross.first), place(cross.second),
              sillOf(session, {cross.cross, direction}, which));
  return sills;
}

std::vector<MatrixVerdict> matrixTest(const Session& session, const Coregion& coregion,
                                      const std::vector<std::int64_t>& directions) {
  std::vector<MatrixVerdict> verdicts;
  if (coregion.variables.empty()) return verdicts;
  for (const std::int64_t direction : directions)
    for (const Line which : kLines)
      if (isOnSomewhere(session, coregion, which, direction))
        verdicts.push_back(verdictOf(session, coregion, which, direction));
  return verdicts;
}

}  // namespace zevfit
