// How far a model lies from its points, by numbers worked out by hand.

#include "model/misfit.h"

#include <gtest/gtest.h>

#include <cmath>

#include "session/fault.h"

namespace zevfit {
namespace {

constexpr Pair kPair{2, 3};

/// Three classes of distances 10, 20, 40 with semivariances 2, 3, 6 and 4, 12, 0 pairs.
class Misfit : public testing::Test {
 protected:
  Misfit() {
    session_.hlag.create(3);
    session_.gam.create(3);
    session_.npairs.create(3);
    put(1, 10, 2, 4);
    put(2, 20, 3, 12);
    put(3, 40, 6, 0);
    session_.variance(2) = 8;
  }
  void put(std::int64_t lag, double h, double gamma, float pairs) {
    session_.hlag.set(kPair, lag, h);
    session_.gam.set(kPair, lag, gamma);
    session_.npairs.set(kPair, lag, pairs);
  }
  static NestedModel nugget(double value) {
    NestedModel model;
    model.nugget = value;
    return model;
  }

  Session session_;
};

// Differences 1 and 0: sqrt((4 * 1 + 12 * 0) / 16) = 0.5, over 8.
TEST_F(Misfit, WeightsTheClassesByTheirPairs) {
  EXPECT_DOUBLE_EQ(misfit(nugget(3), session_, kPair).value(), 0.0625);
}

// Spherical, sill 16, range 20: at 10 the curve is 16 (0.75 - 0.0625) = 11, at 20 it is 16.
// Differences 9 and 13: sqrt((4 * 81 + 12 * 169) / 16) = sqrt(147), over 8.
TEST_F(Misfit, TakesTheCurveOfTheModel) {
  NestedModel model;
  model.structures[0] = Structure{Form::spherical, 16, 20};
  EXPECT_DOUBLE_EQ(misfit(model, session_, kPair).value(), std::sqrt(147.0) / 8);
}

TEST_F(Misfit, LeavesOutClassesWithoutPairs) {
  put(1, 10, 100, 0);
  put(2, 20, -100, -1);
  put(3, 40, 6, 1);
  EXPECT_DOUBLE_EQ(misfit(nugget(4), session_, kPair).value(), 0.25);
  put(3, 40, 6, 0);
  EXPECT_EQ(misfit(nugget(4), session_, kPair), std::nullopt);
}

TEST_F(Misfit, IsAShareOfTheMagnitudeOfTheVariance) {
  session_.variance(2) = -2;
  EXPECT_DOUBLE_EQ(misfit(nugget(3), session_, kPair).value(), 0.25);
  session_.variance(2) = 0;
  EXPECT_EQ(misfit(nugget(3), session_, kPair), std::nullopt);
  session_.variance(2) = Cell::ofText("none");
  EXPECT_EQ(misfit(nugget(3), session_, kPair), std::nullopt);
}

TEST_F(Misfit, OfASessionIsThatOfItsLinesInUse) {
  EXPECT_EQ(misfit(session_, kPair), std::nullopt) << "no model";
  session_.use0(kPair) = 1;
  session_.c0(kPair) = 3;
  session_.c1(kPair) = 5;
  EXPECT_DOUBLE_EQ(misfit(session_, kPair).value(), 0.0625);
  EXPECT_EQ(misfit(session_, {2, 4}), std::nullopt);
}

TEST_F(Misfit, OfADistanceThatIsATextIsAFault) {
  session_.hlag.set(kPair, 1, Cell::ofText("far"));
  EXPECT_THROW(misfit(nugget(3), session_, kPair), Fault);
}

}  // namespace
}  // namespace zevfit
