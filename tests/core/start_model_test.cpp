// The start model of one direction: known optima, the choice of forms, and what is refused.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

#include "fitting/fit.h"
#include "fitting/write.h"
#include "session/numbers.h"
#include "tests/support/lag_classes.h"
#include "tests/support/meuse_classes.h"

namespace zevfit::fitting {
namespace {

using test::nested;

Options only(Form form, int structures = 1) {
  Options options;
  options.forms = {form};
  options.structures = structures;
  return options;
}

const Structure& first(const Result& result) { return *result.choice().model.structures[0]; }

std::string lettersOf(const Tried& tried) {
  std::string letters;
  for (const Form form : tried.forms) letters += letterOf(form);
  return letters;
}

const Candidate& candidate(const Result& result, std::string_view letters) {
  return *std::ranges::find(result.ranking, letters, lettersOf);
}

// The optima that gstat's fit.variogram finds from starts near them, method 7.
struct Optimum {
  const char* name;
  const Classes& classes;
  Form form;
  double range, sum;
};
void PrintTo(const Optimum& row, std::ostream* out) { *out << row.name; }

class KnownOptimum : public testing::TestWithParam<Optimum> {};

TEST_P(KnownOptimum, IsFoundWithoutStartValues) {
  const Result result = startModel(GetParam().classes, only(GetParam().form));
  ASSERT_TRUE(result.isOffered()) << result.refusal;
  EXPECT_NEAR(first(result).range / GetParam().range, 1, 1e-3);
  EXPECT_NEAR(result.choice().sum / GetParam().sum, 1, 1e-3);
}

INSTANTIATE_TEST_SUITE_P(
    Meuse, KnownOptimum,
    testing::Values(Optimum{"1500", test::kMeuse1500, Form::spherical, 942.520, 4.79159e-6},
                    Optimum{"default", test::kMeuseDefault, Form::spherical, 897.006, 9.01119e-6},
                    Optimum{"exponential", test::kMeuseDefault, Form::exponential, 1349.3,
                            1.62833e-5}));

TEST(StartModel, OfMeuseIsSphericalByTheCriterion) {
  const Result result = startModel(test::kMeuse1500, {});
  ASSERT_TRUE(result.isOffered());
  EXPECT_EQ(lettersOf(result.choice()), "S");
  EXPECT_EQ(result.ranking.size(), 10U);  // a nugget, three forms, six pairs of forms
  EXPECT_EQ(result.classes, 15U);
  // k = 4: nugget, sill, range and the deviation.
  const double n = 15, k = 4;
  EXPECT_NEAR(result.choice().aicc,
              n * std::log(result.choice().sum / n) + 2 * k + 2 * k * (k + 1) / (n - k - 1), 1e-9);
  EXPECT_TRUE(std::ranges::is_sorted(result.ranking, {}, [](const Candidate& one) {
    return std::pair(!one.refusal.empty(), one.aicc);
  }));
}

// The digits as they were first found, which every compiler and machine must find again.
TEST(StartModel, HasTheSameDigitsEverywhere) {
  const Result result = startModel(test::kMeuse1500, {});
  EXPECT_EQ(generalText(first(result).range), "942.521119227933");
  EXPECT_EQ(generalText(first(result).sill), "0.589815456032373");
  EXPECT_EQ(generalText(result.choice().model.nugget), "0.0615949326874038");
}

TEST(StartModel, HasDigitsThatAFileHolds) {
  const NestedModel model = startModel(test::kMeuse1500, {}).choice().model;
  EXPECT_EQ(model.nugget, asInFile(model.nugget));
  EXPECT_EQ(model.structures[0]->sill, asInFile(model.structures[0]->sill));
  EXPECT_EQ(model.structures[0]->range, asInFile(model.structures[0]->range));
}

struct Exact {
  const char* name;
  NestedModel model;
};
void PrintTo(const Exact& row, std::ostream* out) { *out << row.name; }

class ExactModel : public testing::TestWithParam<Exact> {};

// Without noise the simplest forms that explain the classes are found again.
TEST_P(ExactModel, IsFoundAgain) {
  const NestedModel& model = GetParam().model;
  const Result result = startModel(test::classesOf(model, 20, 100), {});
  ASSERT_TRUE(result.isOffered()) << result.refusal;
  const NestedModel& found = result.choice().model;
  EXPECT_NEAR(found.nugget, model.nugget, 1e-4);
  for (std::size_t s = 0; s < 3; ++s) {
    ASSERT_EQ(found.structures[s].has_value(), model.structures[s].has_value());
    if (!found.structures[s]) continue;
    EXPECT_EQ(found.structures[s]->form, model.structures[s]->form);
    EXPECT_NEAR(found.structures[s]->sill, model.structures[s]->sill, 1e-4);
    EXPECT_NEAR(found.structures[s]->range / model.structures[s]->range, 1, 1e-3);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ExactModel,
    testing::Values(
        Exact{"nugget", nested(2, {})},
        Exact{"spherical", nested(0.1, {{Form::spherical, 0.9, 800}})},
        Exact{"exponential", nested(0.1, {{Form::exponential, 0.9, 800}})},
        Exact{"gaussian", nested(0.1, {{Form::gaussian, 0.9, 800}})},
        Exact{"no nugget", nested(0, {{Form::spherical, 0.9, 800}})},
        Exact{"two", nested(0.1, {{Form::spherical, 0.4, 300}, {Form::spherical, 0.5, 1500}})},
        Exact{"mixed", nested(0.1, {{Form::exponential, 0.4, 400}, {Form::gaussian, 0.5, 1500}})}));

TEST(StartModel, OfUnitsFarFromOneIsTheSame) {
  Classes far = test::kMeuse1500;
  for (LagClass& one : far) {
    one.distance *= 1e-30;
    one.semivariance *= 1e40;
  }
  const Result near = startModel(test::kMeuse1500, {}), result = startModel(far, {});
  ASSERT_TRUE(result.isOffered());
  EXPECT_NEAR(first(result).range / first(near).range / 1e-30, 1, 1e-6);
  EXPECT_NEAR(first(result).sill / first(near).sill / 1e40, 1, 1e-6);
}

Classes straight() {
  Classes classes;
  for (int k = 1; k <= 15; ++k) classes.push_back({100.0 * k, 2.0 * k, 300});
  return classes;
}

TEST(StartModel, OfAStraightLineIsUnbounded) {
  const Result result = startModel(straight(), {});
  EXPECT_FALSE(result.isOffered());
  EXPECT_TRUE(result.unbounded);
  EXPECT_EQ(result.refusal,
            "unbounded: the best range is at the grid's end, 4 times the largest distance");
  EXPECT_TRUE(candidate(result, "S").unbounded);
  EXPECT_EQ(candidate(result, "S").refusal,
            "range at the grid's end, 4 times the largest distance: unbounded");
}

TEST(StartModel, OffersAPowerFormWhereItIsAskedFor) {
  Classes classes;
  for (int k = 1; k <= 15; ++k) classes.push_back({0.5 * k, 0.3 + std::pow(0.5 * k, 1.2), 300});
  Options options;
  options.forms.push_back(Form::power);
  const Result result = startModel(classes, options);
  ASSERT_TRUE(result.isOffered()) << result.refusal;
  EXPECT_EQ(lettersOf(result.choice()), "P");
  EXPECT_NEAR(first(result).range, 1.2, 1e-4);
  EXPECT_EQ(first(result).sill, 1);
  EXPECT_NEAR(result.choice().model.nugget, 0.3, 1e-4);
  EXPECT_EQ(result.choice().parameters, 2U);
}

TEST(StartModel, RefusesAnExponentAtItsEnd) {
  // h^a can't follow what rises with the cube of the distance.
  Classes steep = straight();
  for (LagClass& one : steep) one.semivariance *= one.distance * one.distance;
  EXPECT_EQ(startModel(steep, only(Form::power)).refusal, "the exponent runs to its end");
}

TEST(StartModel, OfNoiseIsFinite) {
  test::Noise noise(3);
  for (int trial = 0; trial < 30; ++trial) {
    Classes classes = test::classesOf(nested(1, {}), 12, 100, 1, 100);
    test::addNoise(classes, noise);
    const Result result = startModel(classes, {});
    for (const Candidate& one : result.ranking) {
      EXPECT_TRUE(std::isfinite(one.sum));
      EXPECT_TRUE(std::isfinite(one.model.nugget));
      EXPECT_GE(one.model.nugget, 0);
      for (const auto& structure : one.model.structures) {
        if (!structure) continue;
        EXPECT_GE(structure->sill, 0);
        EXPECT_GT(structure->range, 0);
        EXPECT_TRUE(std::isfinite(structure->range));
      }
    }
  }
}

TEST(StartModel, TakesAGaussianWithoutANuggetOnlyOnWish) {
  const Classes classes = test::classesOf(nested(0, {{Form::gaussian, 1, 800}}), 15, 100);
  Options options;
  EXPECT_EQ(candidate(startModel(classes, options), "G").refusal, "Gaussian without a nugget");
  EXPECT_NE(lettersOf(startModel(classes, options).choice()), "G");
  options.smoothGaussian = true;
  EXPECT_EQ(lettersOf(startModel(classes, options).choice()), "G");
  EXPECT_EQ(startModel(classes, options).choice().model.nugget, 0) << "rounding is no nugget";
}

TEST(StartModel, KeepsANuggetThatIsTold) {
  Options options;
  options.nugget = 0.15;
  const Result result = startModel(test::kMeuse1500, options);
  ASSERT_TRUE(result.isOffered());
  for (const Candidate& one : result.ranking) EXPECT_EQ(one.model.nugget, 0.15);
  EXPECT_EQ(candidate(result, "S").parameters, 2U);
  options.nugget = 0;
  EXPECT_EQ(startModel(test::kMeuse1500, options).choice().model.nugget, 0);
  EXPECT_EQ(candidate(startModel(test::kMeuse1500, options), "").refusal,
            "nothing is left without a nugget");
}

TEST(StartModel, HasExactlyTheStructuresThatAreAskedFor) {
  for (const int count : {1, 2, 3}) {
    Options options;
    options.structures = count;
    const Result result = startModel(test::kMeuse1500, options);
    ASSERT_TRUE(result.isOffered());
    for (const Candidate& one : result.ranking)
      EXPECT_EQ(one.forms.size(), static_cast<std::size_t>(count));
    EXPECT_EQ(result.ranking.size(),
              (std::array{3U, 6U, 10U}.at(static_cast<std::size_t>(count) - 1)));
    double before = 0;
    for (const auto& structure : result.choice().model.structures) {
      if (!structure) continue;
      EXPECT_GE(structure->range, before);
      before = structure->range;
    }
  }
}

// At the optimum by a weight of its own no neighbour is better.
double weightedSum(const NestedModel& model, const Classes& classes, Weights weights) {
  double sum = 0;
  for (const LagClass& one : classes) {
    const double value = semivariance(model, one.distance), off = one.semivariance - value;
    const std::array by{one.pairs / one.distance / one.distance, one.pairs / value / value,
                        one.pairs, 1.0};
    sum += by.at(static_cast<std::size_t>(weights)) * off * off;
  }
  return sum;
}

class EachWeight : public testing::TestWithParam<Weights> {};

TEST_P(EachWeight, IsThatOfTheSum) {
  Options options = only(Form::spherical);
  options.weights = GetParam();
  const Result result = startModel(test::kMeuse1500, options);
  ASSERT_TRUE(result.isOffered());
  const NestedModel& best = result.choice().model;
  const double sum = result.choice().sum;
  EXPECT_NEAR(weightedSum(best, test::kMeuse1500, GetParam()) / sum, 1, 1e-9);
  if (GetParam() == Weights::pairsOverModel2) return;
  for (const double factor : {0.999, 1.001}) {
    NestedModel beside = best;
    beside.nugget *= factor;
    EXPECT_GT(weightedSum(beside, test::kMeuse1500, GetParam()), sum);
    beside = best;
    beside.structures[0]->range *= factor;
    EXPECT_GT(weightedSum(beside, test::kMeuse1500, GetParam()), sum);
    beside = best;
    beside.structures[0]->sill *= factor;
    EXPECT_GT(weightedSum(beside, test::kMeuse1500, GetParam()), sum);
  }
}

INSTANTIATE_TEST_SUITE_P(All, EachWeight,
                         testing::Values(Weights::pairsOverDistance2, Weights::pairsOverModel2,
                                         Weights::pairs, Weights::equal));

// Renewed weights have settled: with those of the model found, the model is the best.
TEST(StartModel, RenewsWeightsOfTheModelUntilTheySettle) {
  Options options = only(Form::spherical);
  options.weights = Weights::pairsOverModel2;
  const NestedModel best = startModel(test::kMeuse1500, options).choice().model;
  Classes weighted = test::kMeuse1500;
  for (LagClass& one : weighted) {
    const double value = semivariance(best, one.distance);
    one.pairs /= value * value;
  }
  options.weights = Weights::pairs;
  const NestedModel again = startModel(weighted, options).choice().model;
  EXPECT_NEAR(again.structures[0]->range / best.structures[0]->range, 1, 1e-6);
  EXPECT_NEAR(again.nugget / best.nugget, 1, 1e-6);
}

TEST(StartModel, OfACrossVariableMayHaveSillsBelowZero) {
  Classes classes = test::classesOf(nested(0.2, {{Form::spherical, -0.8, 700}}), 15, 100);
  Options options;
  options.cross = true;
  const Result result = startModel(classes, options);
  ASSERT_TRUE(result.isOffered());
  EXPECT_NEAR(result.choice().model.nugget, 0.2, 1e-4);
  EXPECT_NEAR(first(result).sill, -0.8, 1e-4);
  for (LagClass& one : classes) one.semivariance = -one.semivariance;
  EXPECT_NEAR(first(startModel(classes, options)).sill, 0.8, 1e-4);
}

TEST(StartModel, OfACrossVariableHasNoSillsThatCancelEachOther) {
  test::Noise noise(5);
  Options options;
  options.cross = true;
  for (int trial = 0; trial < 12; ++trial) {
    Classes classes = test::classesOf(nested(0.1, {{Form::spherical, 0.6, 700}}), 15, 100, 1, 200);
    test::addNoise(classes, noise);
    const Result result = startModel(classes, options);
    ASSERT_TRUE(result.isOffered());
    double sum = 0;
    for (const auto& structure : result.choice().model.structures)
      if (structure) sum += std::abs(structure->sill);
    EXPECT_LT(sum, 4);
  }
}

// Where squares are beyond all numbers there is a refusal, and never a fault.
TEST(StartModel, OfNumbersAtTheEndsIsRefusedOrFinite) {
  for (const double distance : {1e-300, 1e-150, 1e150, 1e300})
    for (const double semivariance : {-1e300, 1e-300, 1e150, 1e300}) {
      Classes classes = test::kMeuse1500;
      for (LagClass& one : classes) {
        one.distance *= distance;
        one.semivariance *= semivariance;
      }
      Options options;
      options.forms.push_back(Form::power);
      for (const bool cross : {false, true}) {
        options.cross = cross;
        const Result result = startModel(classes, options);
        if (!result.isOffered()) continue;
        EXPECT_TRUE(std::isfinite(result.choice().sum));
        EXPECT_TRUE(std::isfinite(weightedSum(result.choice().model, {{1, 0, 0}}, Weights::pairs)));
      }
    }
}

TEST(StartModel, NeedsClasses) {
  EXPECT_EQ(startModel({}, {}).refusal, "no class has pairs");
  const Classes two{{100, 1, 10}, {200, 2, 10}};
  EXPECT_EQ(startModel(two, {}).refusal, "2 classes are too few for 1 parameter");
  const Classes zero = test::classesOf(nested(0, {}), 10, 100);
  EXPECT_EQ(startModel(zero, {}).refusal, "all sills are 0");
  // Six classes tell nugget, sill and range.
  const Classes six = test::classesOf(nested(0.1, {{Form::spherical, 0.9, 300}}), 6, 100);
  EXPECT_EQ(lettersOf(startModel(six, {}).choice()), "S");
}

}  // namespace
}  // namespace zevfit::fitting
