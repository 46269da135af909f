#include "model/expressions.h"

#include <algorithm>
#include <array>

namespace zevfit {

namespace {

struct ExpressionRow {
  int structure;
  std::string_view letter;
  std::string_view byEst;   ///< written by est2 to est4
  std::string_view byTipo;  ///< written by tipo1 to tipo4, which never choose "-"
};

// The two columns differ on purpose, blanks, squares and "(h3/a)" included: what is read tells how
// the line was reached. The curve never depends on them.
constexpr std::array<ExpressionRow, 15> kExpressions{{
    {1, "-", "Model  expression", ""},
    {1, "E", "C1*(1-exp(-3h/a1))", "C1*(1-exp(-3h/a1))"},
    {1, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)"},
    {1, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1*(1-exp(-3*(h/a1)^2) )"},
    {1, "P", " h^a1  (0<a1<2)", "  h^a1  (0<a1<2)"},
    {2, "-", "Model  expression", ""},
    {2, "E", "C2*(1-exp(-3h/a2))", "C2*(1-exp(-3h/a2))"},
    {2, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^2)", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)"},
    {2, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2*(1-exp(-3*(h/a2)^2) )"},
    {2, "P", " h^a2  (0<a2<2)", " h^a2  (0<a2<2)"},
    {3, "-", "Model  expression", ""},
    {3, "E", "C3*(1-exp(-3h/a3))", "C3*(1-exp(-3h/a3))"},
    {3, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^2)", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)"},
    {3, "G", "C3*(1-exp(-3*(h3/a)^2) )", "C3*(1-exp(-3*(h/a3)^2) )"},
    {3, "P", " h^a3  (0<a3<2)", "  h^a3  (0<a3<2)"},
}};

}  // namespace

std::optional<std::string_view> modelExpression(int structure, std::string_view letter,
                                                ExpressionBy by) {
  const auto* row = std::find_if(kExpressions.begin(), kExpressions.end(), [&](const auto& known) {
    return known.structure == structure && known.letter == letter;
  });
  if (row == kExpressions.end()) return std::nullopt;
  const std::string_view text = by == ExpressionBy::est ? row->byEst : row->byTipo;
  return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace zevfit
