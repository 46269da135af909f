#include "model/expressions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zevfit {
namespace {

struct Row {
  int structure;
  const char* letter;
  const char* byEst;
  const char* byTipo;
};

// Blanks, squares and "(h3/a)" to the letter: the two columns differ on purpose.
const std::vector<Row> kRows{
    {1, "E", "C1*(1-exp(-3h/a1))", "C1*(1-exp(-3h/a1))"},
    {1, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)"},
    {1, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1*(1-exp(-3*(h/a1)^2) )"},
    {1, "P", " h^a1  (0<a1<2)", "  h^a1  (0<a1<2)"},
    {2, "E", "C2*(1-exp(-3h/a2))", "C2*(1-exp(-3h/a2))"},
    {2, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^2)", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)"},
    {2, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2*(1-exp(-3*(h/a2)^2) )"},
    {2, "P", " h^a2  (0<a2<2)", " h^a2  (0<a2<2)"},
    {3, "E", "C3*(1-exp(-3h/a3))", "C3*(1-exp(-3h/a3))"},
    {3, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^2)", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)"},
    {3, "G", "C3*(1-exp(-3*(h3/a)^2) )", "C3*(1-exp(-3*(h/a3)^2) )"},
    {3, "P", " h^a3  (0<a3<2)", "  h^a3  (0<a3<2)"},
};

TEST(ModelExpression, TellsTheFormulaAsTheLinesOptionWritesIt) {
  for (const Row& row : kRows)
    EXPECT_EQ(modelExpression(row.structure, row.letter, ExpressionBy::est), row.byEst)
        << row.structure << row.letter;
}

TEST(ModelExpression, TellsTheFormulaAsTheModelsOptionWritesIt) {
  for (const Row& row : kRows)
    EXPECT_EQ(modelExpression(row.structure, row.letter, ExpressionBy::tipo), row.byTipo)
        << row.structure << row.letter;
}

TEST(ModelExpression, OfNoModelIsTheLinesOptionsAlone) {
  for (int structure = 1; structure <= 3; ++structure) {
    EXPECT_EQ(modelExpression(structure, "-", ExpressionBy::est), "Model  expression");
    EXPECT_EQ(modelExpression(structure, "-", ExpressionBy::tipo), std::nullopt);
  }
}

TEST(ModelExpression, OfAnotherLetterIsNone) {
  for (const char* letter : {"", "s", "X", "SS", " S"})
    for (const ExpressionBy by : {ExpressionBy::est, ExpressionBy::tipo})
      EXPECT_EQ(modelExpression(1, letter, by), std::nullopt) << '"' << letter << '"';
}

}  // namespace
}  // namespace zevfit
