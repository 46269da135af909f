#include "session/structure_view.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/structure_sample.h"

namespace zevfit {
namespace {

const char kOneTicked[] = " Cannot Add same variable. ";
const char kNoneTicked[] = " Please select variables to add. ";
const char kNoName[] = "Please choose a name for this new variable!";
const char kLongName[] = "Name too long, choose another one!";

TEST(CreateVariable, NeedsMoreThanOneTick) {
  Session session = structureSample();
  tick(session, {2});
  expectRefused(createIn(session, "sum"), kOneTicked, true);
  tick(session, {});
  expectRefused(createIn(session, "sum"), kNoneTicked, true);
  EXPECT_EQ(session.nvar, 3);
}

TEST(CreateVariable, CountsTheTicksOfTheVariablesAlone) {
  Session session = structureSample();
  tick(session, {0, 3, 4, 41});
  expectRefused(createIn(session, "sum"), kOneTicked, true);
  tick(session, {0, 4, 41});
  expectRefused(createIn(session, "sum"), kNoneTicked, true);
}

TEST(CreateVariable, IsRefusedForAFileOfOneVariableWhateverIsTicked) {
  Session session = structureSample();
  for (const auto ticked : {std::initializer_list<int>{}, {1}, {1, 2}, {1, 2, 3}}) {
    tick(session, ticked);
    expectRefused(createVariable(session, "sum", 1), kOneTicked, true);
  }
}

TEST(CreateVariable, TestsTheTicksBeforeTheName) {
  Session session = structureSample();
  tick(session, {});
  expectRefused(createIn(session, ""), kNoneTicked, true);
  tick(session, {1});
  expectRefused(createIn(session, "a name too long"), kOneTicked, true);
}

TEST(CreateVariable, NeedsAName) {
  Session session = structureSample();
  tick(session, {1, 2});
  expectRefused(createIn(session, ""), kNoName, false);
  expectRefused(createIn(session, " "), kNoName, false);
  expectRefused(createIn(session, "      "), kNoName, false);
  EXPECT_EQ(session.nvar, 3);
}

TEST(CreateVariable, TakesNamesOfUpToTenCharacters) {
  Session session = structureSample();
  tick(session, {1, 2});
  expectRefused(createIn(session, "12345678901"), kLongName, true);
  // Blanks behind the name count.
  expectRefused(createIn(session, "1234567890 "), kLongName, true);
  EXPECT_EQ(session.nvar, 3);
  EXPECT_FALSE(createIn(session, "1234567890"));
  EXPECT_EQ(session.varname(4), "1234567890");
}

TEST(CreateVariable, RefusesWhatTheFileCannotHold) {
  const char* const kForeign =
      "Name has a character that the file cannot hold, choose another one!";
  Session session = structureSample();
  tick(session, {1, 2});
  for (const char* name : {"a,b", "a\"b", "\"a\"", "a\tb", "zinc,", " ,"})
    expectRefused(createIn(session, name), kForeign, true);
  // As a character beyond Latin-1 arrives here.
  expectRefused(createVariable(session, "?", 3, false), kForeign, true);
  expectRefused(createIn(session, "12345,67890"), kLongName, true);
  EXPECT_EQ(session.nvar, 3);
  EXPECT_FALSE(createIn(session, "S\xE3o 'x';?"));
}

TEST(CreateVariable, NeitherCountsNorKeepsLeadingBlanks) {
  Session session = structureSample();
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "    1234567890"));
  EXPECT_EQ(session.varname(4), "1234567890");
  EXPECT_FALSE(createIn(session, " a b "));
  EXPECT_EQ(session.varname(5), "a b ");
}

TEST(CreateVariable, RefusesANameThatExists) {
  Session session = structureSample();
  tick(session, {1, 2});
  expectRefused(createIn(session, "zinc"),
                " Name  (zinc)  already exists. Please choose another one.", true);
  expectRefused(createIn(session, "   copper"),
                " Name  (copper)  already exists. Please choose another one.", true);
  // The name in the file has a blank in front.
  expectRefused(createIn(session, "lead"),
                " Name  (lead)  already exists. Please choose another one.", true);
  EXPECT_EQ(session.nvar, 3);
}

TEST(CreateVariable, TellsNamesApartByCaseAndTrailingBlanks) {
  Session session = structureSample();
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "Zinc"));
  EXPECT_FALSE(createIn(session, "zinc "));
  expectRefused(createIn(session, "Zinc"),
                " Name  (Zinc)  already exists. Please choose another one.", true);
  EXPECT_EQ(session.nvar, 5);
}

}  // namespace
}  // namespace zevfit
