#include "model/expressions.h"

#include <algorithm>
#include <array>

namespace zevfit {

namespace {

struct ExpressionRow {
  Line structure;
  std::string_view letter;
  std::string_view byEst;   ///< written by est2 to est4
  std::string_view byTipo;  ///< written by tipo1 to tipo4, which never choose "-"
};

// The two columns differ, blanks, squares and "(h3/a)" included: what is read tells how the line
// was reached. The curve never depends on them.
constexpr std::array<ExpressionRow, 15> kExpressions{{
    {Line::first, "-", "Model  expression", ""},
    {Line::first, "E", "C1*(1-exp(-3h/a1))", "C1*(1-exp(-3h/a1))"},
    {Line::first, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)"},
    {Line::first, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1*(1-exp(-3*(h/a1)^2) )"},
    {Line::first, "P", " h^a1  (0<a1<2)", "  h^a1  (0<a1<2)"},
    {Line::second, "-", "Model  expression", ""},
    {Line::second, "E", "C2*(1-exp(-3h/a2))", "C2*(1-exp(-3h/a2))"},
    {Line::second, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^2)", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)"},
    {Line::second, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2*(1-exp(-3*(h/a2)^2) )"},
    {Line::second, "P", " h^a2  (0<a2<2)", " h^a2  (0<a2<2)"},
    {Line::third, "-", "Model  expression", ""},
    {Line::third, "E", "C3*(1-exp(-3h/a3))", "C3*(1-exp(-3h/a3))"},
    {Line::third, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^2)", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)"},
    {Line::third, "G", "C3*(1-exp(-3*(h3/a)^2) )", "C3*(1-exp(-3*(h/a3)^2) )"},
    {Line::third, "P", " h^a3  (0<a3<2)", "  h^a3  (0<a3<2)"},
}};

}  // namespace

std::optional<std::string_view> modelExpression(Line structure, std::string_view letter,
                                                ExpressionBy by) {
  const auto* row = std::find_if(kExpressions.begin(), kExpressions.end(), [&](const auto& known) {
    return known.structure == structure && known.letter == letter;
  });
  if (row == kExpressions.end()) return std::nullopt;
  const std::string_view text = by == ExpressionBy::est ? row->byEst : row->byTipo;
  return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace zevfit
