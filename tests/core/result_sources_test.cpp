// Where the texts of the results window come from.
#include "model/result_sources.h"

#include <gtest/gtest.h>

namespace zevfit {
namespace {

using Parts = std::vector<std::string>;

const ResultSource kZinc{"/data/a.zvm", 1, "zinc"};
const ResultSource kLead{"/data/a.zvm", 2, "lead"};
const ResultSource kOtherZinc{"/data/b.zvm", 1, "zinc"};

void fill(ResultSources& sources, Axis axis, const ResultSource& source) {
  sources.fields.at(static_cast<std::size_t>(axis)).fill(source);
}

TEST(ResultSources, AVariableHasItsFileItsPlaceAndItsName) {
  Session session;
  session.inputfile = "/data/a.zvm";
  session.varname(2) = "lead";
  EXPECT_EQ(sourceOf(session, 2), kLead);
}

TEST(ResultSources, AnotherVariableOrFileIsAnotherSource) {
  EXPECT_FALSE(isOther(kZinc, kZinc));
  EXPECT_TRUE(isOther(kZinc, kLead));
  EXPECT_TRUE(isOther(kZinc, kOtherZinc));
  EXPECT_FALSE(isOther({}, kZinc)) << "nothing has filled it";
  EXPECT_FALSE(isOther(kZinc, {})) << "nothing is on show";
}

TEST(ResultSources, EachOtherSourceIsToldOnceWithItsParts) {
  ResultSources sources;
  EXPECT_TRUE(otherSources(sources, kLead).empty());
  fill(sources, Axis::main, kZinc);
  fill(sources, Axis::minor1, kOtherZinc);
  fill(sources, Axis::minor2, kZinc);
  sources.fields[1][0] = kLead;
  sources.row = kZinc;
  const std::vector<OtherSource> others = otherSources(sources, kLead);
  ASSERT_EQ(others.size(), 2U);
  EXPECT_EQ(others[0].source, kZinc);
  EXPECT_EQ(others[0].parts, (Parts{"Main", "Minor 2", "nugget, sills and models"}));
  EXPECT_EQ(others[1].source, kOtherZinc);
  EXPECT_EQ(others[1].parts, Parts{"Minor 1"});
  EXPECT_EQ(otherSources(sources, kZinc).size(), 2U) << "lead in one field, the other file";
}

}  // namespace
}  // namespace zevfit
