// What examples/README.md says of meuse.zvm: how it comes from meuse.csv, and where another rule
// was taken for it.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "files/variogram_reader.h"
#include "session/session.h"
#include "tests/zvm/compute/samples.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm::test {
namespace {

const std::string kExamples = ZEVFIT_SOURCE_DIR "/examples/";

/// The points whose organic matter is known.
PointSet completePoints() {
  std::ifstream file(kExamples + "meuse.csv");
  std::string table;
  for (std::string line; std::getline(file, line);)
    if (line.find("NA") == std::string::npos) table += line + '\n';
  ReadOptions options;
  options.x = "x";
  options.y = "y";
  options.variables = options.logs = {"zinc", "lead", "copper", "cadmium"};
  std::istringstream in(table);
  return readPoints(in, "meuse.csv", options);
}

/// A pair to the north-east that is exactly 480 m apart: at the end of class 4, not in class 5.
bool isEdge(std::int64_t direction, std::int64_t k) { return direction == 2 && (k == 4 || k == 5); }

TEST(MeuseFile, HasTheClassesOfTheCompletePoints) {
  Plan plan = planOf(
      120, 14,
      {toward("0;0", 22.5), toward("45;0", 22.5), toward("90;0", 22.5), toward("135;0", 22.5)});
  plan.pairings = {{0, 0, "zinc"},       {1, 1, "lead"},      {2, 2, "copper"},
                   {3, 3, "cadmium"},    {0, 1, "zinc-lead"}, {0, 2, "zinc-copper"},
                   {1, 2, "lead-copper"}};
  const Experimental result = computed(completePoints(), plan);
  Session session;
  ASSERT_TRUE(readVariogramFile(kExamples + "meuse.zvm", session));
  ASSERT_EQ(session.nvar, 7);
  EXPECT_EQ(result.frame.counts.used, 153U);
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    const auto variable = static_cast<std::size_t>(v - 1);
    EXPECT_NEAR(session.variance(v).number(), result.frame.variables[variable].variance * 152 / 153,
                1e-13);
    for (std::int64_t d = 1; d <= session.ndir; ++d)
      for (std::int64_t k = 1; k <= session.nclass; ++k) {
        const auto where = testing::Message() << v << ' ' << d << ' ' << k;
        const LagClass& lag = result.classes[variable][static_cast<std::size_t>(d - 1)]
                                            [static_cast<std::size_t>(k - 1)];
        const auto pairs = static_cast<float>(lag.pairs);
        const float moved = isEdge(d, k) ? (k == 4 ? -1.0F : 1.0F) : 0.0F;
        EXPECT_EQ(session.npairs({v, d}, k), pairs + moved) << where;
        if (isEdge(d, k)) continue;
        EXPECT_NEAR(session.hlag({v, d}, k).number(), lag.distance, 1e-10) << where;
        EXPECT_NEAR(session.gam({v, d}, k), lag.semivariance, 1e-13) << where;
      }
  }
}

}  // namespace
}  // namespace zevfit::zvm::test
