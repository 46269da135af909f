// Linear models of coregionalization: their sums, and that what is written passes the test.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "coreg/crosstest.h"
#include "fitting/coregionalization.h"
#include "fitting/elementary.h"
#include "fitting/sill_matrices.h"
#include "fitting/write.h"
#include "tests/support/fit_session.h"
#include "tests/support/jura_classes.h"
#include "tests/support/lag_classes.h"
#include "tests/support/writing.h"

namespace zevfit::fitting {
namespace {

using test::kJura;
using test::kJuraMetals;
using test::nested;

bool isCross(const test::JuraSemivariances& row) { return row.first != row.second; }

Classes classesOf(const test::JuraSemivariances& row) {
  Classes classes;
  for (std::size_t i = 0; i < row.values.size(); ++i)
    classes.push_back(
        {test::kJuraDistances[i], row.values[i], test::kJuraPairs[i] * (isCross(row) ? 2 : 1)});
  return classes;
}

/// Nugget and two spherical structures of 0.2 and 1.3 km, as gstat has fitted them.
class Jura : public testing::Test {
 protected:
  Jura() {
    for (const test::JuraSemivariances& row : kJura) {
      Options options;
      options.cross = isCross(row);
      problem.entries.push_back(entryOf({{{}, classesOf(row)}}, options));
      places.emplace_back(std::min(row.first, row.second), std::max(row.first, row.second));
    }
    shareUnits(problem.entries);
    problem.family = EllipseFamily::circle(1);
    problem.limits = limitsOf(problem.entries);
  }

  double unit() const { return problem.entries[0].sumUnit(); }

  const std::vector<Form> forms{Form::spherical, Form::spherical};
  const Theta theta{logarithmOf(0.2), logarithmOf(1.3)};
  Problem problem;
  Places places;
};

TEST_F(Jura, IsFourPercentAboveTheFreeSumAtMostWhereOneClipIsSixteen) {
  Projection projection(problem, forms);
  const double free = squaresOf(projection.residuals(theta)) * unit();
  const double fitted = GoulardVoltz(problem, places, forms).fit(theta).sum * unit();
  EXPECT_NEAR(free, 11836, 1);
  EXPECT_NEAR(fitted, 12246, 1);
  EXPECT_LT(fitted, 1.04 * free);
  EXPECT_GT(test::kJuraClipped, 1.16 * free);
}

TEST_F(Jura, HasPositiveMatrices) {
  for (const SymmetricMatrix& line : GoulardVoltz(problem, places, forms).fit(theta).lines) {
    EXPECT_GT(line.trace(), 0);
    EXPECT_GE(eigenvalues(line).front(), 0.999e-6 * line.trace());
  }
}

/// A session with the metals as variables 1 to 7 and their cross variables behind them.
struct Metals {
  Session session = test::emptyFile(static_cast<std::int64_t>(kJura.size()), {"0;0"}, 15);
  Coregion coregion;

  Metals() {
    auto next = static_cast<std::int64_t>(kJuraMetals);
    for (std::size_t i = 1; i <= kJuraMetals; ++i)
      coregion.variables.push_back(static_cast<std::int64_t>(i));
    for (const test::JuraSemivariances& row : kJura) {
      const auto first = static_cast<std::int64_t>(row.first) + 1,
                 second = static_cast<std::int64_t>(row.second) + 1;
      const std::int64_t variable = isCross(row) ? ++next : first;
      if (isCross(row)) coregion.crosses.push_back({variable, first, second});
      test::setClasses(session, {variable, 1}, classesOf(row));
    }
  }
};

/// The session as it comes back from its file.
Session readBack(Session session) { return test::sessionOf(test::written(session, session.nvar)); }

int position(std::int64_t subscript) { return static_cast<int>(subscript) - 1; }

/// Every cross variable with its two, in every direction by itself.
void expectPasses(const Session& session, const Coregion& coregion) {
  std::vector<std::int64_t> directions;
  for (std::int64_t d = 1; d <= session.ndir; ++d) {
    directions.push_back(d);
    for (const CrossVariable& cross : coregion.crosses) {
      const CrossChoice choice{position(cross.cross), position(cross.first), position(cross.second),
                               position(d),           position(d),           position(d)};
      EXPECT_EQ(crosstest(session, choice).size(), 4U) << cross.cross << ' ' << d;
    }
  }
  const auto verdicts = matrixTest(session, coregion, directions);
  EXPECT_FALSE(verdicts.empty());
  for (const MatrixVerdict& verdict : verdicts)
    EXPECT_TRUE(verdict.passed) << verdict.least << " of " << verdict.trace;
}

TEST(Coregion, OfTheMetalsPassesTheTestBehindAFile) {
  Metals metals;
  const CoregionFit fit = fitCoregion(metals.session, metals.coregion, {});
  ASSERT_TRUE(fit.isOffered()) << fit.refusal;
  EXPECT_EQ(fit.results.at(0).choice().forms.size(), 2U);
  EXPECT_LT(fit.results.at(0).choice().sum, 1.05 * fit.results.at(0).choice().free);
  EXPECT_EQ(fit.results.at(0).classes, 420U);
  writeCoregion(metals.session, metals.coregion, fit);
  expectPasses(readBack(metals.session), metals.coregion);
}

/// Sills of three variables and their crosses whose matrix has rank 1, which rounding breaks most
/// easily.
constexpr std::array<std::array<double, 3>, 3> kRankOne{
    {{0.09, 0.21, -0.3}, {0.21, 0.49, -0.7}, {-0.3, -0.7, 1}}};

struct Three {
  Session session = test::emptyFile(6, {"0;0", "90;0", "45;0"}, 15);
  Coregion coregion{{1, 2, 3}, {{4, 1, 2}, {5, 1, 3}, {6, 2, 3}}};
  static constexpr std::array<std::array<std::size_t, 2>, 6> kPlaces{
      {{0, 0}, {1, 1}, {2, 2}, {0, 1}, {0, 2}, {1, 2}}};

  explicit Three(double noise, double nugget = 0.3) {
    test::Noise dice(9);
    const std::array<double, 3> deviations{0.013, 7, 300};
    for (std::int64_t v = 1; v <= 6; ++v) {
      const auto [i, j] = kPlaces.at(static_cast<std::size_t>(v - 1));
      const double unit = deviations.at(i) * deviations.at(j);
      session.variance(v) = unit * (i == j ? 1 : 0.5);
      const NestedModel model =
          nested(i == j ? nugget * unit : 0, {{Form::spherical, kRankOne.at(i).at(j) * unit, 700}});
      const std::array scales{1.0, 2.0, std::sqrt(2.5)};
      for (std::int64_t d = 1; d <= 3; ++d) {
        Classes classes =
            test::classesOf(model, 15, 100, scales.at(static_cast<std::size_t>(d - 1)), 400);
        test::addNoise(classes, dice, noise);
        test::setClasses(session, {v, d}, classes);
      }
    }
  }
};

TEST(Coregion, SharesAnEllipseAndPassesTheTestOfThreeDirections) {
  Three three(0.3);
  const CoregionFit fit = fitCoregion(three.session, three.coregion, {});
  ASSERT_TRUE(fit.isOffered()) << fit.refusal;
  EXPECT_NEAR(std::remainder(fit.results.at(0).choice().anisotropy->angles.azimuth, 180), 0, 3);
  EXPECT_NEAR(fit.results.at(0).choice().anisotropy->minor1, 0.5, 0.05);
  writeCoregion(three.session, three.coregion, fit);
  const Session back = readBack(three.session);
  expectPasses(back, three.coregion);
  for (const CrossVariable& cross : three.coregion.crosses) {
    const CrossChoice choice{
        position(cross.cross), position(cross.first), position(cross.second), 0, 1, 2};
    EXPECT_EQ(crosstest(back, choice).size(), 4U);
  }
}

TEST(Coregion, FindsAnExactModelAgain) {
  Three three(0);
  Options options;
  options.forms = {Form::spherical};
  const CoregionFit fit = fitCoregion(three.session, three.coregion, options);
  ASSERT_TRUE(fit.isOffered()) << fit.refusal;
  ASSERT_EQ(fit.results.at(0).choice().forms.size(), 1U);
  EXPECT_NEAR(fit.results.at(0).choice().ranges[0] / 700, 1, 1e-3);
  EXPECT_NEAR(fit.models[1][0].structures[0]->sill / (0.49 * 49), 1, 1e-3);
  EXPECT_NEAR(fit.models[5][2].structures[0]->sill / (-0.7 * 7 * 300), 1, 1e-3);
  writeCoregion(three.session, three.coregion, fit);
  expectPasses(readBack(three.session), three.coregion);
}

TEST(Coregion, FitsEachDirectionByItselfOnWish) {
  Three three(0.3);
  Options options;
  options.directions = Directions::free;
  const CoregionFit fit = fitCoregion(three.session, three.coregion, options);
  ASSERT_TRUE(fit.isOffered()) << fit.refusal;
  EXPECT_EQ(fit.models.at(0).size(), 3U);
  EXPECT_FALSE(fit.results.at(0).choice().anisotropy);
  writeCoregion(three.session, three.coregion, fit);
  expectPasses(readBack(three.session), three.coregion);
}

TEST(Coregion, TellsOfEachDirectionWhatWasTried) {
  Three three(0.3);
  Options options;
  options.directions = Directions::free;
  options.forms = {Form::spherical};
  const CoregionFit fit = fitCoregion(three.session, three.coregion, options);
  ASSERT_EQ(fit.results.size(), 3U);
  for (const CoregionResult& one : fit.results) {
    EXPECT_EQ(one.ranking.size(), 3U);
    EXPECT_EQ(one.classes, 90U);  // six entries of 15
    EXPECT_TRUE(one.isOffered());
  }
  // A direction without a model ends the work, and is named.
  for (std::int64_t v = 1; v <= 6; ++v)
    for (int lag = 1; lag <= 15; ++lag) three.session.gam.set({v, 2}, lag, 0);
  const CoregionFit none = fitCoregion(three.session, three.coregion, options);
  EXPECT_EQ(none.refusal, "direction 90;0: all sills are 0");
  ASSERT_EQ(none.results.size(), 2U);
  EXPECT_EQ(none.results[1].refusal, "all sills are 0");
}

TEST(Coregion, TellsHowFarItIs) {
  Three three(0.3);
  Options options;
  options.forms = {Form::spherical};
  std::vector<double> shares;
  fitCoregion(three.session, three.coregion, options,
              [&](double share) { shares.push_back(share); });
  EXPECT_GT(shares.size(), 6U);
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  EXPECT_GT(shares.front(), 0);
  EXPECT_NEAR(shares.back(), 1, 1e-12);
}

class CoregionWeights : public testing::TestWithParam<Weights> {};

TEST_P(CoregionWeights, AllPassTheTest) {
  Three three(0.5);
  Options options;
  options.weights = GetParam();
  options.nugget = 0;
  const CoregionFit fit = fitCoregion(three.session, three.coregion, options);
  ASSERT_TRUE(fit.isOffered()) << fit.refusal;
  writeCoregion(three.session, three.coregion, fit);
  const Session back = readBack(three.session);
  expectPasses(back, three.coregion);
  EXPECT_EQ(line(back, {1, 1}, Line::nugget).used(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, CoregionWeights,
                         testing::Values(Weights::pairsOverDistance2, Weights::pairsOverModel2,
                                         Weights::pairs, Weights::equal));

TEST(Coregion, SaysWhyItRefuses) {
  Three three(0);
  const auto refusal = [&](const Options& options = {}) {
    return fitCoregion(three.session, three.coregion, options).refusal;
  };
  Options options;
  options.nugget = 0.5;
  EXPECT_EQ(refusal(options), "a nugget that is told can only be 0");
  options = {};
  options.forms = {Form::power};
  options.structures = 1;
  EXPECT_EQ(refusal(options), "a power form has no sills");
  const Coregion whole = three.coregion;
  three.coregion.crosses.pop_back();
  EXPECT_EQ(refusal(), "`v2` and `v3` have no cross variable");
  three.coregion = whole;
  three.coregion.crosses.push_back({4, 2, 3});
  EXPECT_EQ(refusal(), "`v2` and `v3` have more than one cross variable");
  three.coregion = whole;
  three.session.variance(2) = 0.0;
  EXPECT_EQ(refusal(), "`v2` has no variance above 0");
  three.session.variance(2) = Cell::ofText("x");
  EXPECT_EQ(refusal(), "a text stands in place of a number");
  three.session.variance(2) = 1.0;
  for (std::int64_t d = 1; d <= 3; ++d) three.session.npairs.clear({4, d});
  EXPECT_EQ(refusal(), "`v4` has no class with pairs");
}

}  // namespace
}  // namespace zevfit::fitting
