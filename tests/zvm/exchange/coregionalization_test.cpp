// Several variables for gstat.

#include <gtest/gtest.h>

#include <string>

#include "tests/zvm/exchange/exchange_sample.h"

namespace zevfit::exchange {
namespace {

/// Zinc, lead and their cross variable, of which lead has no nugget and the cross variable a
/// negative sill.
Session pair() {
  Session session = emptyFile({"zinc", "lead \"top\"", "zinc-lead"}, {"45;0", "135;0"});
  for (const std::int64_t direction : {1, 2}) {
    const double range = direction == 1 ? 1000 : 400;
    setNugget(session, {1, direction}, 0.1);
    setStructure(session, {1, direction}, Line::first, "S", 0.5, range);
    setStructure(session, {1, direction}, Line::second, "E", 0.25, 300);
    setStructure(session, {2, direction}, Line::first, "S", 0.75, range);
    setStructure(session, {3, direction}, Line::first, "S", -0.5, range);
  }
  return session;
}

Request bothVariables() {
  Request request = requestFor(Target::gstat);
  request.variables = {1, 2};
  request.crosses = {{3, 2, 1}};
  return request;
}

TEST(Coregionalization, HasTheSameStructuresInAllModels) {
  const Session session = pair();
  const Outcome outcome = exportModel(session, bothVariables());
  EXPECT_EQ(outcome.warnings, Warnings{});
  EXPECT_EQ(
      codeOf(outcome.text),
      "library(gstat)\n"
      "coregionalization <- function(formulas, data) {\n"
      "  m <- vgm(0.5, \"Sph\", 1000, nugget = 0.1, anis = c(45, 0.4))\n"
      "  m <- vgm(0.25, \"Exp\", 300/3, add.to = m)\n"
      "  g <- gstat(NULL, id = \"zinc\", formula = formulas[[\"zinc\"]], data = data, model = m)\n"
      "  m <- vgm(0.75, \"Sph\", 1000, nugget = 0, anis = c(45, 0.4))\n"
      "  m <- vgm(0, \"Exp\", 300/3, add.to = m)\n"
      "  g <- gstat(g, id = \"lead \\\"top\\\"\", formula = formulas[[\"lead \\\"top\\\"\"]], data "
      "= "
      "data, model = m)\n"
      "  m <- vgm(-0.5, \"Sph\", 1000, nugget = 0, anis = c(45, 0.4))\n"
      "  m <- vgm(0, \"Exp\", 300/3, add.to = m)\n"
      "  g <- gstat(g, id = c(\"zinc\", \"lead \\\"top\\\"\"), model = m)\n"
      "  g\n}\n");
}

TEST(Coregionalization, NeedsTheCrossVariables) {
  Request request = bothVariables();
  request.crosses.clear();
  EXPECT_EQ(refusalOf(pair(), request), "no cross semivariogram of zinc and lead \"top\"");
}

TEST(Coregionalization, NeedsNamesThatDiffer) {
  Session session = pair();
  session.varname(2) = " zinc";
  EXPECT_EQ(refusalOf(session, bothVariables()), "two variables are named zinc");
}

TEST(Coregionalization, NeedsTheSameFormsAndRanges) {
  const std::string reason =
      "structure 1 of zinc and of lead \"top\" differ in form or range: no linear model of "
      "coregionalization";
  Session session = pair();
  session.a1({2, 2}) = 399;
  EXPECT_EQ(refusalOf(session, bothVariables()), reason);
  session = pair();
  for (const std::int64_t direction : {1, 2}) session.model1({2, direction}) = "G";
  EXPECT_EQ(refusalOf(session, bothVariables()), reason);
}

TEST(Coregionalization, NamesTheCrossVariablesInJson) {
  Request request = bothVariables();
  request.target = Target::json;
  const std::string text = exportModel(pair(), request).text;
  EXPECT_NE(text.find("\"crossOf\": [\n        \"lead \\\"top\\\"\",\n        \"zinc\"\n"),
            std::string::npos)
      << text;
}

}  // namespace
}  // namespace zevfit::exchange
