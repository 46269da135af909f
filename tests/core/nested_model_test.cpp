#include "model/nested_model.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>

#include "model/model_curve.h"
#include "session/fault.h"
#include "tests/support/fit_fixture.h"
#include "tests/support/model_lines.h"

namespace zevfit {
namespace {

struct ValueRow {
  Structure structure;
  double h, value;
};

constexpr ValueRow kValueRows[] = {
    {{Form::spherical, 2, 40}, 10, 0.734375},  // t = 1/4: 2 (0.375 - 0.0078125)
    {{Form::spherical, 2, 40}, 20, 1.375},     // t = 1/2: 2 (0.75 - 0.0625)
    {{Form::spherical, 2, 40}, 30, 1.828125},  // t = 3/4: 2 (1.125 - 0.2109375)
    {{Form::spherical, 2, 40}, 40, 2},         // t = 1: 2 (1.5 - 0.5)
    {{Form::spherical, 2, 40}, 40.001, 2},
    {{Form::spherical, 2, 40}, 1e+300, 2},
    {{Form::spherical, -2, 40}, 20, -1.375},
    {{Form::exponential, 2, 30}, 10, 1.2642411176571153},  // 2 (1 - 1/e)
    {{Form::exponential, 2, 30}, 30, 1.900425863264272},   // 2 (1 - 1/e^3): 95 % of the sill
    {{Form::exponential, 2, 30}, 60, 1.9950424956466672},  // 2 (1 - 1/e^6)
    {{Form::exponential, 2, 30}, 1e+300, 2},
    {{Form::gaussian, 2, 10}, 1, 0.05910893290298366},  // 2 (1 - e^-0.03)
    {{Form::gaussian, 2, 10}, 5, 1.0552668945179706},   // 2 (1 - e^-0.75)
    {{Form::gaussian, 2, 10}, 10, 1.900425863264272},   // 2 (1 - 1/e^3): 95 % of the sill
    {{Form::gaussian, 2, 10}, 1e+100, 2},
    {{Form::power, 0, 0.5}, 4, 2},
    {{Form::power, 0, 0.5}, 100, 10},
    {{Form::power, 0, 1}, 7, 7},
    {{Form::power, 0, 1.5}, 4, 8},
    {{Form::power, 0, 2}, 9, 81},
    {{Form::power, 0, 3}, 2, 8},
    {{Form::power, 7, 0.5}, 4, 2},  // the sill is no factor
};

std::string nameOf(const ValueRow& row) {
  return std::string(letterOf(row.structure.form)) + " at " + std::to_string(row.h);
}

TEST(Semivariance, FollowsTheFormInEveryStructure) {
  for (const ValueRow& row : kValueRows) {
    for (const Line which : kStructures) {
      NestedModel model;
      model.structures.at(indexOf(which) - 1) = row.structure;
      EXPECT_DOUBLE_EQ(semivariance(model, row.h), row.value) << nameOf(row);
    }
  }
}

TEST(Semivariance, ReachesTheSphericalSillExactlyAtTheRange) {
  const NestedModel model{0, {Structure{Form::spherical, 0.7, 40}}};
  EXPECT_EQ(semivariance(model, 40), 0.7);
  EXPECT_EQ(semivariance(model, 41), 0.7);
  EXPECT_LT(semivariance(model, 39.9), 0.7);
}

TEST(Semivariance, IsZeroAtDistanceZeroWhateverTheModel) {
  for (const FormRow& row : kForms) {
    const NestedModel model{0.5, {Structure{row.form, 2, 1.5}}};
    EXPECT_EQ(semivariance(model, 0), 0) << row.letter;
    EXPECT_GE(semivariance(model, 1e-300), 0.5) << row.letter;
  }
}

TEST(Semivariance, IsZeroWithoutLines) {
  for (const double h : {0.0, 1.0, 1e+300}) EXPECT_EQ(semivariance({}, h), 0) << h;
}

TEST(Semivariance, OfANuggetAloneIsTheNugget) {
  for (const double h : {1e-300, 1.0, 1e+300}) EXPECT_EQ(semivariance({1.25, {}}, h), 1.25) << h;
}

TEST(Semivariance, OfTheSmallestRangeIsASecondNugget) {
  for (const Form form : {Form::spherical, Form::exponential, Form::gaussian}) {
    const NestedModel model{0.5, {Structure{form, 2, kSmallestRange}}};
    EXPECT_EQ(semivariance(model, 1), 2.5) << letterOf(form);
  }
}

TEST(Semivariance, AddsNuggetAndStructures) {
  const Structure exponential{Form::exponential, 2, 30};
  const Structure spherical{Form::spherical, 3, 40};
  const Structure power{Form::power, 9, 0.5};
  // At 16: 2 (1 - e^-1.6), 3 (0.6 - 0.032), 4.
  const double first = 1.5962069640106892, second = 1.704, third = 4;
  const NestedModel whole{0.5, {exponential, spherical, power}};
  EXPECT_DOUBLE_EQ(semivariance(whole, 16), 0.5 + first + second + third);
  EXPECT_DOUBLE_EQ(semivariance({0.5, {std::nullopt, spherical, std::nullopt}}, 16), 0.5 + second);
  EXPECT_DOUBLE_EQ(semivariance({0, {exponential, std::nullopt, power}}, 16), first + third);
  // The same form twice, with the same parameters.
  EXPECT_DOUBLE_EQ(semivariance({0, {spherical, spherical, std::nullopt}}, 16), 2 * second);
}

TEST(Semivariance, BeyondTheNumbersIsAFault) {
  const NestedModel sum{1.7e+308, {Structure{Form::spherical, 1.7e+308, 1}}};
  EXPECT_THROW(semivariance(sum, 1), Fault);
  const NestedModel parabola{0, {Structure{Form::power, 0, 2}}};
  EXPECT_THROW(semivariance(parabola, 1e+300), Fault);
  EXPECT_EQ(semivariance(parabola, 0), 0);
}

/// The cells of a pair as a load resets them: no line is on.
class ModelOf : public testing::Test {
 protected:
  static constexpr Pair kPair{2, 3};

  ModelOf() { resetFitState(session_); }

  NestedModel model() const { return modelOf(session_, kPair); }
  std::optional<Structure> structure(Line which) const {
    return model().structures.at(indexOf(which) - 1);
  }
  LineRef at(Line which) { return line(session_, kPair, which); }

  Session session_;
};

TEST_F(ModelOf, AResetPairIsEmpty) {
  EXPECT_EQ(model().nugget, 0);
  for (const Line which : kStructures) EXPECT_FALSE(structure(which)) << indexOf(which);
}

TEST_F(ModelOf, TakesEachLetterFromEachLine) {
  constexpr struct {
    const char* letter;
    Form form;
    double sill;
  } rows[] = {{"S", Form::spherical, 2.5},
              {"E", Form::exponential, 2.5},
              {"G", Form::gaussian, 2.5},
              {"P", Form::power, 0}};  // its sill has no meaning
  for (const auto& row : rows) {
    for (const Line which : kStructures) {
      const std::string name = row.letter + std::to_string(indexOf(which));
      resetFitState(session_);
      setStructure(session_, kPair, which, row.letter, 2.5, 1.5);
      for (const Line other : kStructures)
        ASSERT_EQ(structure(other).has_value(), other == which) << name;
      EXPECT_EQ(structure(which)->form, row.form) << name;
      EXPECT_EQ(structure(which)->sill, row.sill) << name;
      EXPECT_EQ(structure(which)->range, 1.5) << name;
      EXPECT_EQ(model().nugget, 0) << name;
    }
  }
}

TEST_F(ModelOf, TakesTheNuggetWhateverItsLetter) {
  setNugget(session_, kPair, 0.5);
  for (const char* letter : {"", "-", "P", "X"}) {
    session_.model0(kPair) = letter;
    EXPECT_EQ(model().nugget, 0.5) << letter;
  }
}

TEST_F(ModelOf, LeavesOutAStructureWithoutAForm) {
  for (const Line which : kStructures) {
    for (const char* letter : {"-", "", "X", "s", " S", "S ", "SE"}) {
      setStructure(session_, kPair, which, letter, 2.5, 1.5);
      EXPECT_FALSE(structure(which)) << letter << indexOf(which);
    }
  }
}

TEST_F(ModelOf, LeavesOutALineWhoseFlagIsNotOne) {
  for (const double flag : {0.0, 2.0, -1.0}) {
    setNugget(session_, kPair, 0.5);
    for (const Line which : kStructures) setStructure(session_, kPair, which, "S", 2.5, 1.5);
    for (const Line which : kLines) at(which).use(flag);
    EXPECT_EQ(model().nugget, 0) << flag;
    for (const Line which : kStructures) EXPECT_FALSE(structure(which)) << flag;
  }
}

TEST_F(ModelOf, RaisesRangesOfNoughtAndBelow) {
  constexpr struct {
    double range, taken;
  } rows[] = {{0, 1e-05}, {-3, 1e-05}, {1e-06, 1e-06}, {3, 3}};
  for (const auto& row : rows) {
    for (const FormRow& form : kForms) {
      setStructure(session_, kPair, Line::second, form.letter, 2.5, row.range);
      ASSERT_TRUE(structure(Line::second)) << form.letter << row.range;
      EXPECT_EQ(structure(Line::second)->range, row.taken) << form.letter << row.range;
      EXPECT_EQ(at(Line::second).range().number(), row.range) << "the cell stays";
    }
  }
}

TEST_F(ModelOf, IsThatOfItsPairAlone) {
  setNugget(session_, kPair.exchanged(), 0.5);
  setStructure(session_, kPair.exchanged(), Line::first, "S", 2.5, 1.5);
  EXPECT_EQ(model().nugget, 0);
  EXPECT_FALSE(structure(Line::first));
}

TEST_F(ModelOf, APairOutsideTheTablesIsAFault) {
  for (const Pair pair : {Pair{42, 1}, Pair{1, 22}, Pair{-1, 1}, Pair{1, -1}})
    EXPECT_THROW(modelOf(session_, pair), Fault) << pair.variable << ", " << pair.direction;
}

TEST_F(ModelOf, ATextAsFlagIsAFault) {
  // The table of structure 3 takes none.
  for (const Line which : {Line::nugget, Line::first, Line::second}) {
    resetFitState(session_);
    at(which).use(Cell::ofText("yes"));
    EXPECT_THROW(model(), Fault) << indexOf(which);
  }
}

TEST_F(ModelOf, ATextAsNuggetIsAFaultOnceTheNuggetIsOn) {
  at(Line::nugget).sill() = Cell::ofText("n.a.");
  EXPECT_EQ(model().nugget, 0);
  at(Line::nugget).use(1);
  EXPECT_THROW(model(), Fault);
}

TEST_F(ModelOf, ATextInAStructureIsAFaultWhereTheFormNeedsANumber) {
  constexpr struct {
    const char* letter;
    double flag;
    bool sillFaults, rangeFaults;
  } rows[] = {{"S", 1, true, true},  {"E", 1, true, true},   {"G", 1, true, true},
              {"P", 1, false, true}, {"-", 1, false, false}, {"S", 0, false, false}};
  const Cell text = Cell::ofText("n.a.");
  for (const auto& row : rows) {
    for (const Line which : kStructures) {
      const std::string name = row.letter + std::to_string(indexOf(which));
      const auto faults = [&](const Cell& sill, const Cell& range) {
        resetFitState(session_);
        setStructure(session_, kPair, which, row.letter, sill, range);
        at(which).use(row.flag);
        try {
          model();
          return false;
        } catch (const Fault&) {
          return true;
        }
      };
      EXPECT_EQ(faults(text, 1.5), row.sillFaults) << name;
      EXPECT_EQ(faults(2.5, text), row.rangeFaults) << name;
    }
  }
}

/// The curve as it is sampled, up to distance 3, beside the model of its pair.
class SampledModel : public testing::Test, protected FitFixture {
 protected:
  void expectTheSame(const std::string& name) {
    modelcurve(fit, kPair, 3);
    const NestedModel model = modelOf(session, kPair);
    for (int i = 1; i <= kCurvePoints; ++i)
      ASSERT_EQ(session.curvegam(i), semivariance(model, session.curveh(i))) << name << ", " << i;
  }
};

// Ranges that lie between the samples, one of them an exponent at its limit.
constexpr std::array<double, 3> kRanges{1.501, 0.25, 2};

TEST_F(SampledModel, IsExactlyTheModelForAllFormsAndFlags) {
  for (const FormRow& first : kForms) {
    for (const FormRow& second : kForms) {
      for (const FormRow& third : kForms) {
        setNugget(session, kPair, 0.3);
        const std::array letters{first.letter, second.letter, third.letter};
        for (const Line which : kStructures) {
          const std::size_t at = indexOf(which) - 1;
          setStructure(session, kPair, which, letters.at(at), 0.7 * kRanges.at(at), kRanges.at(at));
        }
        for (unsigned flags = 0; flags < 16; ++flags) {
          for (const Line which : kLines)
            line(session, kPair, which).use((flags >> indexOf(which)) & 1U);
          expectTheSame(std::string(letters[0]) + std::string(letters[1]) +
                        std::string(letters[2]) + std::to_string(flags));
        }
      }
    }
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(SampledModel, IsExactlyTheModelForRangesThatAreRaised) {
  for (const FormRow& row : kForms) {
    for (const double range : {0.0, -3.0}) {
      setNugget(session, kPair, 0.3);
      setStructure(session, kPair, Line::second, row.letter, 0.7, range);
      const NestedModel before = modelOf(session, kPair);
      expectTheSame(std::string(row.letter));
      EXPECT_EQ(semivariance(before, 1), semivariance(modelOf(session, kPair), 1)) << row.letter;
    }
  }
}

}  // namespace
}  // namespace zevfit
