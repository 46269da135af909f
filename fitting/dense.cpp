#include "fitting/dense.h"

namespace zevfit::fitting {
namespace {

/// The part of a column's square that the columns before it must leave: such as two spherical
/// structures whose ranges are some hundredths apart.
constexpr double kIndependent = 1e-7;

using Chosen = std::array<std::size_t, kMostColumns>;

/// The least squares of the chosen columns alone; false where they depend on each other, or have a
/// coefficient that is not allowed.
bool solveChosen(const Normal& normal, const Chosen& chosen, std::size_t count, bool nonNegative,
                 Coefficients& result) {
  Normal part;
  for (std::size_t i = 0; i < count; ++i) {
    part.right[i] = normal.right[chosen[i]];
    for (std::size_t j = 0; j <= i; ++j)
      part.products[i][j] = normal.products[chosen[i]][chosen[j]];
  }
  Vec<kMostColumns> solution;
  if (!solve(part.products, part.right, count, kIndependent, solution)) return false;
  result = {};
  for (std::size_t i = 0; i < count; ++i) {
    if (nonNegative && solution[i] < 0) return false;
    result.values[chosen[i]] = solution[i];
    result.explained += solution[i] * part.right[i];
  }
  return true;
}

}  // namespace

Coefficients leastSquares(const Normal& normal, std::size_t columns, bool nonNegative) {
  const std::size_t all = (std::size_t{1} << columns) - 1;
  Coefficients best;
  // Downward, so that all columns come first: where their solution is allowed there is no better.
  for (std::size_t choice = all; choice > 0; --choice) {
    Chosen chosen{};
    std::size_t count = 0;
    for (std::size_t i = 0; i < columns; ++i)
      if ((choice >> i & 1U) != 0) chosen[count++] = i;
    Coefficients tried;
    if (!solveChosen(normal, chosen, count, nonNegative, tried)) continue;
    if (tried.explained > best.explained) best = tried;
    if (choice == all) break;
  }
  return best;
}

}  // namespace zevfit::fitting
