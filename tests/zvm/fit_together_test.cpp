// The verb fit of several variables together: linear models of coregionalization.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/zvm/fit_sample.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;
using FitTogether = FitVerb;

/// Sills that make no model together: a cross sill above the root of the product.
const std::vector<Truth> kThree{{"zinc", 0.1, 0.5}, {"lead", 0.2, 0.8}, {"zinc-lead", 0.2, 0.7}};

TEST_F(FitTogether, FitsACoregionalizationThatPassesTheTest) {
  const std::string file = fileOf(kThree, {0, 90});
  ASSERT_EQ(fitted(file, {"--structures", "1", "--forms", "S"}).code, 0);
  EXPECT_EQ(ran({"test", path("out.zvm"), "--all"}).code, 1) << "each by itself they are none";
  const Ran run = fitted(file, {"--structures", "1", "--forms", "S", "--lmc", "zinc,lead"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  const Ran tested = ran({"test", path("out.zvm"), "--all"});
  EXPECT_EQ(tested.code, 0) << tested.out;
  EXPECT_NE(run.out.find("\ncoregionalization of zinc, lead in all directions, 72 classes\n"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("The test of coregionalization is passed.\n"), std::string::npos);
  // One range for all; the three of them have the same digits.
  for (std::int64_t v = 2; v <= 3; ++v)
    for (std::int64_t d = 1; d <= 2; ++d)
      EXPECT_EQ(modelAt(v, d).structures[0]->range, modelAt(1, d).structures[0]->range);
}

TEST_F(FitTogether, FitsTheOtherVariablesBesideACoregionalization) {
  std::vector<Truth> truths = kThree;
  truths.push_back({"copper"});
  truths[2].name = "cov";
  const Ran run = fitted(fileOf(truths, {0}), {"--structures", "1", "--forms", "S", "--lmc",
                                               "lead,1", "--cross-of", "cov=zinc,lead", "--json"});
  EXPECT_EQ(run.code, 0) << run.err;
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("coregionalization").at("variables"), Json({"lead", "zinc"}));
  EXPECT_EQ(report.at("coregionalization").at("fitted"), true);
  EXPECT_EQ(report.at("coregionalization").at("models").size(), 3U);
  ASSERT_EQ(report.at("variables").size(), 1U);
  EXPECT_EQ(report.at("variables").at(0).at("name"), "copper");
  EXPECT_EQ(ran({"test", path("out.zvm"), "--all", "--cross-of", "cov=lead,zinc"}).code, 0);
}

/// The sum of squares of a candidate by its lines, as in "N+S".
double sumOf(const Json& ranking, const std::string& lines) {
  for (const Json& candidate : ranking)
    if (candidate.at("lines") == lines) return candidate.at("sum").get<double>();
  ADD_FAILURE() << "no " << lines << " in " << ranking;
  return 0;
}

TEST_F(FitTogether, AFurtherStructureFitsACoregionalizationNoWorse) {
  const std::string meuse = std::string(ZEVFIT_SOURCE_DIR) + "/examples/meuse.zvm";
  const Ran run = ran({"fit", meuse, path("out.zvm"), "--lmc", "ln zinc,ln lead", "--cross-of",
                       "zinc-lead=ln zinc,ln lead", "--var", "ln zinc", "--json"});
  EXPECT_EQ(run.code, 0) << run.err;
  const Json report = Json::parse(run.out);
  const Json& fits = report.at("coregionalization").at("fits");
  ASSERT_EQ(fits.size(), 1U);
  EXPECT_TRUE(fits.at(0).at("direction").is_null());
  EXPECT_EQ(fits.at(0).at("classes"), 168);
  const Json& ranking = fits.at(0).at("ranking");
  ASSERT_EQ(ranking.size(), 10U);
  for (const Json& candidate : ranking) {
    EXPECT_GE(candidate.at("sum"), candidate.at("freeSum"));
    const auto lines = candidate.at("lines").get<std::string>();
    for (std::size_t plus = lines.find('+'); plus != lines.npos; plus = lines.find('+', plus + 1))
      EXPECT_LT(candidate.at("sum").get<double>(),
                1.001 * sumOf(ranking, lines.substr(0, plus) + lines.substr(plus + 2)))
          << lines;
  }
}

TEST_F(FitTogether, TellsTheRankingOfEachDirectionOfACoregionalization) {
  const Arguments more{"--lmc", "zinc,lead", "--free", "--forms", "S"};
  const Ran run = fitted(fileOf(kThree, {0, 90}), more);
  EXPECT_EQ(run.code, 0) << run.err;
  for (const char* direction : {"0;0", "90;0"})
    EXPECT_NE(run.out.find("coregionalization of zinc, lead in " + std::string(direction) +
                           ", 36 classes\ncandidate  sum of squares  with free sills  AICc"),
              std::string::npos)
        << run.out;
  Arguments json = more;
  json.emplace_back("--json");
  const Json report = Json::parse(fitted(fileOf(kThree, {0, 90}), json).out);
  const Json& fits = report.at("coregionalization").at("fits");
  ASSERT_EQ(fits.size(), 2U);
  EXPECT_EQ(fits.at(1).at("direction"), "90;0");
  EXPECT_EQ(fits.at(1).at("ranking").size(), 3U);
}

TEST_F(FitTogether, UnticksVariablesWithoutACoregionalization) {
  std::vector<Truth> truths = kThree;
  truths[2].pairs = 0;
  ASSERT_EQ(fitted(fileOf(kThree, {0}), {"--structures", "1"}).code, 0);
  const Ran run = fitted(fileOf(truths, {0}), {"--lmc", "zinc,lead"});
  EXPECT_EQ(run.code, 1);
  for (const char* name : {"zinc", "lead", "zinc-lead"})
    EXPECT_NE(run.err.find("zvm: warning: `" + std::string(name) +
                           "` is not fitted: `zinc-lead` has no class with pairs\n"),
              std::string::npos)
        << run.err;
  for (std::int64_t v = 1; v <= 3; ++v) EXPECT_FALSE(modelAt(v, 1).structures[0]);
}

}  // namespace
}  // namespace zevfit::test
