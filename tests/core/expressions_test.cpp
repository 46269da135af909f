#include "model/expressions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/line.h"

namespace zevfit {
namespace {

struct Row {
  Line structure;
  const char* letter;
  const char* byEst;
  const char* byTipo;
};

// Blanks, squares and "(h3/a)" to the letter: the two columns differ, so that what is read tells
// how the line was reached.
const std::vector<Row> kRows{
    {Line::first, "E", "C1*(1-exp(-3h/a1))", "C1*(1-exp(-3h/a1))"},
    {Line::first, "S", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)", "C1*(3/2*(h/a1) -1/2*(h/a1)^3)"},
    {Line::first, "G", "C1*(1-exp(-3*(h/a1)^2) )", "C1*(1-exp(-3*(h/a1)^2) )"},
    {Line::first, "P", " h^a1  (0<a1<2)", "  h^a1  (0<a1<2)"},
    {Line::second, "E", "C2*(1-exp(-3h/a2))", "C2*(1-exp(-3h/a2))"},
    {Line::second, "S", "C2*(3/2*(h/a2) -1/2*(h/a2)^2)", "C2*(3/2*(h/a2) -1/2*(h/a2)^3)"},
    {Line::second, "G", "C2*(1-exp(-3*(h/a2)^2) )", "C2*(1-exp(-3*(h/a2)^2) )"},
    {Line::second, "P", " h^a2  (0<a2<2)", " h^a2  (0<a2<2)"},
    {Line::third, "E", "C3*(1-exp(-3h/a3))", "C3*(1-exp(-3h/a3))"},
    {Line::third, "S", "C3*(3/2*(h/a3) -1/2*(h/a3)^2)", "C3*(3/2*(h/a3) -1/2*(h/a3)^3)"},
    {Line::third, "G", "C3*(1-exp(-3*(h3/a)^2) )", "C3*(1-exp(-3*(h/a3)^2) )"},
    {Line::third, "P", " h^a3  (0<a3<2)", "  h^a3  (0<a3<2)"},
};

TEST(ModelExpression, TellsTheFormulaAsTheLinesOptionWritesIt) {
  for (const Row& row : kRows)
    EXPECT_EQ(modelExpression(row.structure, row.letter, ExpressionBy::est), row.byEst)
        << indexOf(row.structure) << row.letter;
}

TEST(ModelExpression, TellsTheFormulaAsTheModelsOptionWritesIt) {
  for (const Row& row : kRows)
    EXPECT_EQ(modelExpression(row.structure, row.letter, ExpressionBy::tipo), row.byTipo)
        << indexOf(row.structure) << row.letter;
}

TEST(ModelExpression, OfNoModelIsTheLinesOptionsAlone) {
  for (const Line structure : kStructures) {
    EXPECT_EQ(modelExpression(structure, "-", ExpressionBy::est), "Model  expression");
    EXPECT_EQ(modelExpression(structure, "-", ExpressionBy::tipo), std::nullopt);
  }
}

TEST(ModelExpression, OfAnotherLetterIsNone) {
  for (const char* letter : {"", "s", "X", "SS", " S"})
    for (const ExpressionBy by : {ExpressionBy::est, ExpressionBy::tipo})
      EXPECT_EQ(modelExpression(Line::first, letter, by), std::nullopt) << '"' << letter << '"';
}

}  // namespace
}  // namespace zevfit
