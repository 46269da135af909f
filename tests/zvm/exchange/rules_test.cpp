// What is refused, and what is warned of.

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/zvm/exchange/exchange_sample.h"

namespace zevfit::exchange {
namespace {

/// Spherical 0.5 along both directions, 1000 and 400.
Session twoDirections() {
  Session session = emptyFile({"zinc"}, {"45;0", "135;0"});
  setStructure(session, {1, 1}, Line::first, "S", 0.5, 1000);
  setStructure(session, {1, 2}, Line::first, "S", 0.5, 400);
  return session;
}

struct RefusalRow {
  const char* name;
  void (*change)(Session&, Request&);
  const char* reason;
};
void PrintTo(const RefusalRow& row, std::ostream* out) { *out << row.name; }

constexpr RefusalRow kRefusals[] = {
    {"NoVariable", [](Session&, Request& r) { r.variables.clear(); }, "no variable is chosen"},
    {"UnknownVariable", [](Session&, Request& r) { r.variables = {2}; },
     "there is no variable 2; the file has 1"},
    {"UnknownDirection", [](Session&, Request& r) { r.minor1 = 3; },
     "there is no direction 3; the file has 2"},
    {"NoMain", [](Session&, Request& r) { r.main.reset(); }, "no direction is chosen as Main"},
    {"NoAngles", [](Session& s, Request&) { s.dirname(2) = "across"; },
     "direction across has no azimuth and dip, as in 45;0"},
    {"NotRightAngled", [](Session& s, Request&) { s.dirname(2) = "133;0"; },
     "the directions are not at right angles within 1.5 degrees: Main 45;0, Minor 1 133;0, "
     "Minor 2 133;0"},
    {"NoModel",
     [](Session& s, Request&) {
       s.use1({1, 2}) = 0;
     },
     "zinc: no model along 135;0"},
    {"OtherLetter",
     [](Session& s, Request&) {
       s.model1({1, 2}) = "E";
     },
     "zinc: structure 1 is S along 45;0 and E along 135;0: no geometric anisotropy"},
    {"MainAlone",
     [](Session& s, Request&) {
       setStructure(s, {1, 1}, Line::third, "E", 1, 10);
     },
     "zinc: structure 3 is part of the model along 45;0 and not along 135;0"},
    {"MinorAlone",
     [](Session& s, Request&) {
       setStructure(s, {1, 2}, Line::second, "E", 1, 10);
     },
     "zinc: structure 2 is part of the model along 135;0 and not along 45;0"},
    {"Exponents",
     [](Session& s, Request&) {
       setStructure(s, {1, 1}, Line::second, "P", 1, 0.5);
       setStructure(s, {1, 2}, Line::second, "P", 1, 0.75);
     },
     "zinc: the exponent of structure 2 is 0.5 along 45;0 and 0.75 along 135;0: no geometric "
     "anisotropy"},
    {"LargeExponent",
     [](Session& s, Request&) {
       for (const std::int64_t direction : {1, 2})
         setStructure(s, {1, direction}, Line::second, "P", 1, 2.001);
     },
     "zinc: the exponent 2.001 of structure 2 is above 2"},
    {"RangesTooFarApart",
     [](Session& s, Request&) {
       s.a1({1, 1}) = 1e-320;
     },
     "zinc: the ranges of structure 1 are too far apart: 1e-320 along 45;0 and 400 along 135;0"},
    {"TextAsRange",
     [](Session& s, Request&) {
       s.a1({1, 2}) = Cell::ofText("abc");
     },
     "zinc: a text stands in place of a number in the model along 135;0"},
    {"TextAsFlag",
     [](Session& s, Request&) {
       s.use0({1, 1}) = Cell::ofText("abc");
     },
     "zinc: a text stands in place of a number in the model along 45;0"},
};

class Refused : public testing::TestWithParam<RefusalRow> {};

TEST_P(Refused, ByEveryTargetButTheTable) {
  for (const TargetRow& target : kTargets) {
    if (target.target == Target::csv) continue;
    Session session = twoDirections();
    Request request = requestFor(target.target);
    GetParam().change(session, request);
    EXPECT_EQ(refusalOf(session, request), GetParam().reason) << target.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Rules, Refused, testing::ValuesIn(kRefusals),
                         [](const auto& row) { return row.param.name; });

TEST(Refusals, OfPowerAndOfSeveralVariables) {
  Session session = emptyFile({"zinc", "lead"}, {"45;0", "135;0"});
  for (const std::int64_t direction : {1, 2})
    setStructure(session, {1, direction}, Line::first, "P", 1, 1.5);
  EXPECT_EQ(refusalOf(session, requestFor(Target::sgems)), "SGeMS has no power model");
  EXPECT_EQ(refusalOf(session, requestFor(Target::gstools)), "GSTools has no power model");
  for (const TargetRow& target : kTargets) {
    Request request = requestFor(target.target);
    request.variables = {1, 2};
    if (!target.takesSeveral) {
      EXPECT_EQ(refusalOf(session, request),
                std::string(target.name) + " takes one variable at a time");
    }
  }
}

struct WarningRow {
  const char* name;
  void (*change)(Session&);
  const char* warning;
};
void PrintTo(const WarningRow& row, std::ostream* out) { *out << row.name; }

constexpr WarningRow kWarnings[] = {
    {"Sill",
     [](Session& s) {
       s.c1({1, 2}) = 0.75;
     },
     "zinc: the sill of structure 1 is 0.5 along 45;0 and 0.75 along 135;0; that of Main is taken"},
    {"Nugget",
     [](Session& s) {
       setNugget(s, {1, 2}, 0.25);
     },
     "zinc: the nugget is 0 along 45;0 and 0.25 along 135;0; that of Main is taken"},
    {"NoForm",
     [](Session& s) {
       setNugget(s, {1, 1}, 0);
       s.use2({1, 2}) = 1;
     },
     "zinc: structure 2 along 135;0 has no form and is left out"},
    {"NoRange",
     [](Session& s) {
       s.a1({1, 2}) = 0;
     },
     "zinc: structure 1 along 135;0 has no range above 0; 1e-05 is taken"},
    {"NegativeSill",
     [](Session& s) {
       s.c1({1, 1}) = s.c1({1, 2}) = -0.5;
     },
     "zinc: the sill of structure 1 is negative"},
};

class Warned : public testing::TestWithParam<WarningRow> {};

TEST_P(Warned, Once) {
  Session session = twoDirections();
  GetParam().change(session);
  for (const Target target : {Target::gstat, Target::gslib, Target::json}) {
    const Outcome outcome = exportModel(session, requestFor(target));
    EXPECT_EQ(outcome.warnings, Warnings{GetParam().warning});
  }
}

INSTANTIATE_TEST_SUITE_P(Rules, Warned, testing::ValuesIn(kWarnings),
                         [](const auto& row) { return row.param.name; });

// Main's sills, the ranges of both.
TEST(Warnings, LeaveTheModelOfMain) {
  Session session = twoDirections();
  session.c1({1, 2}) = 0.75;
  EXPECT_EQ(codeOf(exported(session, Target::gstat)),
            "library(gstat)\nm <- vgm(0.5, \"Sph\", 1000, anis = c(45, 0.4))\n");
}

TEST(Directions, OfOneAloneAreNoAnisotropyWhateverItsName) {
  Session session = twoDirections();
  session.dirname(1) = "omnidirectional";
  Request request = requestFor(Target::gstat);
  request.minor1.reset();
  EXPECT_EQ(codeOf(exportModel(session, request).text),
            "library(gstat)\nm <- vgm(0.5, \"Sph\", 1000)\n");
}

TEST(Directions, OfAnUprightPlaneAreToldOf) {
  Session session = twoDirections();
  session.dirname(2) = "0;90";
  const Outcome outcome = exportModel(session, requestFor(Target::gstat));
  EXPECT_EQ(outcome.warnings,
            Warnings{"Minor 2 is Minor 1: across their plane the ranges of Minor 1 are taken"});
  EXPECT_EQ(codeOf(outcome.text),
            "library(gstat)\nm <- vgm(0.5, \"Sph\", 1000, anis = c(45, 0, 90, 0.4, 0.4))\n");
}

// Names that hold no line break, quote or hyphens where these would end a comment or a text.
TEST(Names, StayInsideTheirComments) {
  Session session = twoDirections();
  session.varname(1) = " zinc -- top\n\x85soil\xb5 ";
  const std::string text = exported(session, Target::sgems);
  EXPECT_TRUE(
      text.starts_with("<!-- Semivariogram model for SGeMS of zinc - - top  soil\xc2\xb5\n"))
      << text;
}

}  // namespace
}  // namespace zevfit::exchange
