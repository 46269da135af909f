// Model blocks that are cut short or hold what is no flag, letter or number.
#include <gtest/gtest.h>

#include <string>

#include "files/variogram_reader.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

using test::kResetModel;
using test::lines;
using test::modelText;

/// A file of one variable, two directions and one class; the last number of the data is 9.
const std::string kData =
    lines({"t", "zevra1", "1", "zinc", "2", "1", "0;0", "45;0", "2.5", "10 3 7", "10 4 9"});

Session read(const std::string& models) {
  Session session;
  EXPECT_TRUE(readVariogramBytes(kData + models, session));
  return session;
}

TEST(CutModelBlock, GoesOnWithTheLastNumberAndLetter) {
  const std::string tokens[] = {"1", "0.5", "1",  "S", "2", "30", "0",
                                "E", "4",   "50", "1", "P", "6",  "70"};
  // In front of the first number the last one of the data stands; in front of the first letter the
  // one of the reset. The flag of structure 3 is the nearest whole number.
  const char* const rows[][2] = {
      {"9 9 9 - 9 9 9 - 9 9 9 - 9 9", "9 9 9 - 9 9 9 - 9 9 9 - 9 9"},
      {"1 1 1 - 1 1 1 - 1 1 1 - 1 1", "1 1 1 - 1 1 1 - 1 1 1 - 1 1"},
      {"1 0.5 0.5 - 0.5 0.5 0.5 - 0.5 0.5 0 - 0.5 0.5",
       "0.5 0.5 0.5 - 0.5 0.5 0.5 - 0.5 0.5 0 - 0.5 0.5"},
      {"1 0.5 1 - 1 1 1 - 1 1 1 - 1 1", "1 1 1 - 1 1 1 - 1 1 1 - 1 1"},
      {"1 0.5 1 S 1 1 1 S 1 1 1 S 1 1", "1 1 1 S 1 1 1 S 1 1 1 S 1 1"},
      {"1 0.5 1 S 2 2 2 S 2 2 2 S 2 2", "2 2 2 S 2 2 2 S 2 2 2 S 2 2"},
      {"1 0.5 1 S 2 30 30 S 30 30 30 S 30 30", "30 30 30 S 30 30 30 S 30 30 30 S 30 30"},
      {"1 0.5 1 S 2 30 0 S 0 0 0 S 0 0", "0 0 0 S 0 0 0 S 0 0 0 S 0 0"},
      {"1 0.5 1 S 2 30 0 E 0 0 0 E 0 0", "0 0 0 E 0 0 0 E 0 0 0 E 0 0"},
      {"1 0.5 1 S 2 30 0 E 4 4 4 E 4 4", "4 4 4 E 4 4 4 E 4 4 4 E 4 4"},
      {"1 0.5 1 S 2 30 0 E 4 50 50 E 50 50", "50 50 50 E 50 50 50 E 50 50 50 E 50 50"},
      {"1 0.5 1 S 2 30 0 E 4 50 1 E 1 1", "1 1 1 E 1 1 1 E 1 1 1 E 1 1"},
      {"1 0.5 1 S 2 30 0 E 4 50 1 P 1 1", "1 1 1 P 1 1 1 P 1 1 1 P 1 1"},
      {"1 0.5 1 S 2 30 0 E 4 50 1 P 6 6", "6 6 6 P 6 6 6 P 6 6 6 P 6 6"},
      {"1 0.5 1 S 2 30 0 E 4 50 1 P 6 70", "70 70 70 P 70 70 70 P 70 70 70 P 70 70"},
  };
  std::string models;
  for (std::size_t count = 0; count <= 14; ++count) {
    const Session session = read(models);
    EXPECT_EQ(modelText(session, {1, 1}), rows[count][0]) << count << " tokens";
    EXPECT_EQ(modelText(session, {1, 2}), rows[count][1]) << count << " tokens";
    EXPECT_FALSE(session.modelshown);
    if (count < 14) models += tokens[count] + "\r\n";
  }
}

TEST(CutModelBlock, LetterIsForgottenBetweenFiles) {
  Session session = read("1 0.5 1 S\r\n2 30");
  ASSERT_TRUE(readVariogramBytes(kData, session));
  EXPECT_EQ(modelText(session, {1, 1}), "9 9 9 - 9 9 9 - 9 9 9 - 9 9");
}

TEST(CutModelBlock, BehindATextGoesOnWithTheText) {
  // A text cell takes it; the flag of structure 3, which can't, stays as the reset left it.
  EXPECT_EQ(modelText(read("1 0.5 1 S\r\nmuch"), {1, 1}),
            "1 0.5 1 S much much much S much much 0 S much much");
}

/// A file of all variables and directions that the tables hold, and a text for its only class each.
std::string fullFile() {
  std::string bytes = lines({"t", "zevra1", "41"});
  for (int v = 1; v <= 41; ++v) bytes += "name\r\n";
  bytes += lines({"21", "0"});
  for (int d = 1; d <= 21; ++d) bytes += "0;0\r\n";
  for (int v = 1; v <= 41; ++v) bytes += "2.5\r\n";
  return bytes;
}

// One long text behind a cut block once took its length for each place of the model tables.
TEST(CutModelBlock, SharesALongTextAmongAllPlaces) {
  const std::string text(1'000'000, 'x');
  Session session;
  ASSERT_TRUE(readVariogramBytes(fullFile() + text, session));
  const std::string* shared = session.use0({1, 1}).text();
  ASSERT_NE(shared, nullptr);
  EXPECT_EQ(*shared, text);
  for (int v = 1; v <= 41; ++v)
    for (int d = 1; d <= 21; ++d)
      for (const auto table :
           {&Session::use0, &Session::c0, &Session::use1, &Session::c1, &Session::a1,
            &Session::use2, &Session::c2, &Session::a2, &Session::c3, &Session::a3})
        ASSERT_EQ((session.*table)({v, d}).text(), shared) << v << "," << d;
}

// The last letter of a cut block goes everywhere as well, so that no more than a line of it stays.
TEST(CutModelBlock, KeepsTheFrontOfALongLetter) {
  const std::string letter(1'000'000, 'x');
  Session session;
  ASSERT_TRUE(readVariogramBytes(fullFile() + "1\r\n2\r\n1\r\n" + letter, session));
  for (const auto table : {&Session::model1, &Session::model2, &Session::model3}) {
    EXPECT_EQ((session.*table)({1, 1}), std::string(255, 'x'));
    EXPECT_EQ((session.*table)({41, 21}), std::string(255, 'x'));
  }
}

TEST(CutModelBlock, NumberPlaceTakesTheTextOfAClass) {
  Session session;
  ASSERT_TRUE(readVariogramBytes(
      lines({"t", "zevra1", "1", "zinc", "1", "1", "0;0", "2.5", "10 3 some"}), session));
  EXPECT_EQ(modelText(session, {1, 1}),
            "some some some - some some some - some some 0 - some some");
}

TEST(ModelBlock, TakesWhateverStandsThere) {
  struct Row {
    const char* name;
    const char* models;
    const char* model;
  };
  const Row rows[] = {
      {"flags other than 0 and 1", "2 5 -1 S\n5 5 0.5 E\n5 5 7 G\n5 5",
       "2 5 -1 S 5 5 0.5 E 5 5 7 G 5 5"},
      {"texts as flags", "a 5 b S\n5 5 c E\n5 5 d G\n5 5", "a 5 b S 5 5 c E 5 5 0 G 5 5"},
      {"texts as sills and ranges", "1 a 1 S\nb c 1 E\nd e 1 G\nf g",
       "1 a 1 S b c 1 E d e 1 G f g"},
      {"a flag of structure 3 beyond 16 bits", "1 5 40000 S\n5 5 40000 E\n5 5 40000 G\n5 5",
       "1 5 40000 S 5 5 40000 E 5 5 0 G 5 5"},
      {"the largest flag of structure 3", "1 5 1 S\n5 5 1 E\n5 5 32767 G\n5 5",
       "1 5 1 S 5 5 1 E 5 5 32767 G 5 5"},
      {"a flag of structure 3 that is not whole", "1 5 1 S\n5 5 1 E\n5 5 1.5 G\n5 5",
       "1 5 1 S 5 5 1 E 5 5 2 G 5 5"},
      {"letters in blanks", "1 5 1    S  \n5 5 1 \" E \"\n5 5 1 ,G ,5 5",
       "1 5 1 S 5 5 1 E 5 5 1 G 5 5"},
      {"a letter that is a word", "1 5 1 spherical one\n5 5 1 \n5 5\n5 5 1\nx\n5 5",
       "1 5 1 spherical one 5 5 1 5 5 5 5 1 x 5 5"},
      {"numbers too large", "1 1e999 1 S\n5 5 1 E\n5 5 1 G\n5 5",
       "1 1e999 1 S 5 5 1 E 5 5 1 G 5 5"},
      {"empty fields", ",,,,,,,,,,,,,,", "0 0 0  0 0 0  0 0 0  0 0"},
  };
  for (const Row& row : rows) {
    Session session;
    ASSERT_TRUE(readVariogramBytes(
        lines({"t", "zevra1", "1", "zinc", "1", "1", "0;0", "2.5", "10 3 9"}) + row.models,
        session));
    EXPECT_EQ(modelText(session, {1, 1}), row.model) << row.name;
  }
}

TEST(SecondLoad, LeavesNoModelOfTheFirst) {
  const std::string model =
      lines({"1", "5", "1", "S", "5", "5", "1", "E", "5", "5", "1", "G", "5", "5"});
  Session session = read(model + model);
  for (int v = 1; v <= 40; ++v) {
    for (int d = 1; d <= 20; ++d) {
      session.use3({v, d}) = 1;
      session.c2({v, d}) = 4;
      session.model1({v, d}) = "P";
      session.a1({v, d}) = 3;
      session.showsill({v, d}) = false;
      session.xmax({v, d}) = 6;
      session.atyped({v, d}) = session.c0typed({v, d}) = true;
    }
  }
  ASSERT_TRUE(readVariogramBytes(
      lines({"t", "zevra", "1", "zinc", "1", "1", "0;0", "2.5", "10 3 9"}), session));
  for (int v = 1; v <= 40; ++v) {
    for (int d = 1; d <= 20; ++d) {
      EXPECT_EQ(modelText(session, {v, d}), kResetModel) << v << "," << d;
      EXPECT_TRUE(session.showsill({v, d}));
      EXPECT_EQ(session.xmax({v, d}), 0);
      EXPECT_TRUE(session.atyped({v, d}));
      EXPECT_TRUE(session.c0typed({v, d}));
    }
  }
  EXPECT_EQ(session.gmax({1, 2}), -1e-200);
}

}  // namespace
}  // namespace zevfit
