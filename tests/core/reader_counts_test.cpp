// Counts at the edges of the tables, beyond them, and far beyond any file.
#include <gtest/gtest.h>

#include <string>

#include "files/variogram_reader.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

using test::classText;
using test::lines;
using test::modelText;

std::string line(const std::string& text) { return text + "\r\n"; }

std::string names(const std::string& word, int count) {
  std::string bytes;
  for (int i = 1; i <= count; ++i) bytes += line(word + std::to_string(i));
  return bytes;
}

TEST(ReaderCounts, FillTheLastSlots) {
  std::string bytes =
      lines({"t", "zevra", "41"}) + names("v", 41) + lines({"21", "1"}) + names("d", 21);
  for (int v = 1; v <= 41; ++v) {
    bytes += line(std::to_string(v));
    for (int d = 1; d <= 21; ++d)
      bytes += line("1 " + std::to_string(100 * v + d) + " " + std::to_string(v));
  }
  Session session;
  session.hmax({41, 1}) = 7;
  session.gmax({41, 21}) = 9999;
  session.c0({41, 21}) = 3;
  session.c0({1, 21}) = 4;
  ASSERT_TRUE(readVariogramBytes(bytes, session));
  EXPECT_EQ(session.varname(41), "v41");
  EXPECT_EQ(session.dirname(21), "d21");
  EXPECT_EQ(session.variance(41).number(), 41);
  EXPECT_EQ(classText(session, {41, 21}, 1), "1 4121 41");
  EXPECT_EQ(session.gmax({40, 20}), 4020);
  // No reset reaches slots 41 and 21: the extremes run on from what they held.
  EXPECT_EQ(session.hmax({41, 1}), 7);
  EXPECT_EQ(session.gmax({41, 21}), 9999);
  EXPECT_EQ(session.gmin({41, 21}), 0);
  EXPECT_EQ(session.c0({41, 21}).number(), 3);
  EXPECT_EQ(session.c0({1, 21}).number(), 4);
}

TEST(ReaderCounts, OneVariableTooMany) {
  // The name of variable 42 is not taken: it is the count of directions, and so on: 1 direction,
  // 0 classes, named "d". Of 42 variances the last one is not taken, but its test has to pass.
  const std::string bytes = lines({"t", "zevra", "42"}) + names("v", 41) + lines({"1", "0", "d"});
  std::string variances;
  for (int v = 1; v <= 41; ++v) variances += line(std::to_string(v));
  Session session;
  EXPECT_FALSE(readVariogramBytes(bytes + variances, session));
  ASSERT_TRUE(readVariogramBytes(bytes + variances + line("42"), session));
  EXPECT_EQ(session.nvar, 42);
  EXPECT_EQ(session.varname(41), "v41");
  EXPECT_EQ(session.ndir, 1);
  EXPECT_EQ(session.nclass, 0);
  EXPECT_EQ(session.dirname(1), "d");
  EXPECT_EQ(session.variance(41).number(), 41);
}

TEST(ReaderCounts, ModelBlockBeginsAtTheTokenThatWasNotTaken) {
  std::string bytes = lines({"t", "zevra1", "42"}) + names("v", 41) + lines({"1", "0", "d"});
  for (int v = 1; v <= 41; ++v) bytes += line(std::to_string(v));
  Session session;
  ASSERT_TRUE(readVariogramBytes(
      bytes + lines({"1", "0.5", "0", "-", "0", "2", "0", "-", "0", "2", "0", "-", "0", "2"}),
      session));
  EXPECT_EQ(modelText(session, {1, 1}), "1 0.5 0 - 0 2 0 - 0 2 0 - 0 2");
  EXPECT_EQ(modelText(session, {2, 1}), "2 2 2 - 2 2 2 - 2 2 2 - 2 2");
  EXPECT_EQ(modelText(session, {41, 1}), "2 2 2 - 2 2 2 - 2 2 2 - 2 2");
}

TEST(ReaderCounts, OneDirectionTooMany) {
  // The name of direction 22 is not taken: it is the variance of variable 1. The class of direction
  // 22 is not taken either: its first number is the variance of variable 2, and so on.
  std::string bytes = lines({"t", "zevra", "2", "a", "b", "22", "1"}) + names("d", 21) + line("7");
  for (int d = 1; d <= 21; ++d) bytes += line("1 " + std::to_string(d) + " 5");
  std::string second = line("8");
  for (int d = 1; d <= 21; ++d) second += line("2 " + std::to_string(10 * d) + " 6");
  Session session;
  EXPECT_FALSE(readVariogramBytes(bytes, session));
  EXPECT_FALSE(readVariogramBytes(bytes + second, session));
  ASSERT_TRUE(readVariogramBytes(bytes + second + line("9"), session));
  EXPECT_EQ(session.ndir, 22);
  EXPECT_EQ(session.dirname(21), "d21");
  EXPECT_EQ(session.variance(1).number(), 7);
  EXPECT_EQ(classText(session, {1, 21}, 1), "1 21 5");
  EXPECT_EQ(session.variance(2).number(), 8);
  EXPECT_EQ(classText(session, {2, 21}, 1), "2 210 6");
}

TEST(ReaderCounts, DirectionsBeyondTheTablesHaveNoTestWithoutClasses) {
  Session session;
  EXPECT_TRUE(readVariogramBytes(lines({"t", "zevra", "1", "a", "22", "0"}) + names("d", 21) + "7",
                                 session));
  EXPECT_EQ(session.variance(1).number(), 7);
}

TEST(ReaderCounts, NegativeOnesRunNoLoop) {
  Session session;
  ASSERT_TRUE(readVariogramBytes(lines({"t", "zevra", "-1", "-2", "-3"}), session));
  EXPECT_EQ(session.nvar, -1);
  EXPECT_EQ(session.ndir, -2);
  EXPECT_EQ(session.nclass, -3);
  ASSERT_TRUE(readVariogramBytes(lines({"t", "zevra", "1", "a", "-2", "4", "6"}), session));
  EXPECT_EQ(session.variance(1).number(), 6);
}

TEST(ReaderCounts, HugeNumberOfVariablesCostsNothing) {
  const std::string bytes =
      lines({"t", "zevra1", "2000000000"}) + names("v", 41) + lines({"1", "0", "d"});
  Session session;
  EXPECT_FALSE(readVariogramBytes(bytes, session));
  std::string variances;
  for (int v = 1; v <= 42; ++v) variances += line(std::to_string(v));
  EXPECT_TRUE(readVariogramBytes(bytes + variances, session));
  EXPECT_EQ(session.nvar, 2'000'000'000);
}

TEST(ReaderCounts, HugeNumberOfDirectionsCostsNothing) {
  std::string bytes =
      lines({"t", "zevra1", "1", "a", "2000000000", "1"}) + names("d", 21) + line("7");
  for (int d = 1; d <= 21; ++d) bytes += line("1 2 3");
  Session session;
  EXPECT_FALSE(readVariogramBytes(bytes, session));
  EXPECT_TRUE(readVariogramBytes(bytes + " ", session));
  EXPECT_EQ(session.ndir, 2'000'000'000);
  EXPECT_EQ(classText(session, {1, 21}, 1), "1 2 3");
}

TEST(ReaderCounts, HugeNumberOfClassesTakesRoomForThoseReadAlone) {
  for (const char* claim : {"2000000000", "9007199254740992"}) {
    Session session;
    EXPECT_FALSE(readVariogramBytes(lines({"t", "zevra1", "2", "a", "b", "2000000000", claim}) +
                                        names("d", 21) +
                                        lines({"7", "10 1 100", "20 2 200", "30 3 300", "40"}),
                                    session));
    // Slot 0 and the classes that the file holds; of the fourth the distance alone.
    EXPECT_EQ(session.hlag.written({1, 1}).size(), 5U) << claim;
    EXPECT_EQ(session.gam.written({1, 1}).size(), 4U) << claim;
    EXPECT_EQ(session.npairs.written({1, 1}).size(), 4U) << claim;
    EXPECT_EQ(classText(session, {1, 1}, 3), "30 3 300") << claim;
    EXPECT_EQ(classText(session, {1, 1}, 4), "40 0 0") << claim;
    EXPECT_EQ(classText(session, {1, 1}, session.nclass), "0 0 0") << claim;
    EXPECT_TRUE(session.gam.written({1, 2}).empty()) << claim;
    EXPECT_TRUE(session.gam.written({2, 1}).empty()) << claim;
  }
}

TEST(ReaderCounts, LagTablesHaveOneSlotMoreThanClasses) {
  Session session;
  ASSERT_TRUE(readVariogramBytes(
      lines({"t", "zevra", "1", "a", "1", "2", "d", "7", "10 1 100", "20 2 200"}), session));
  EXPECT_EQ(classText(session, {1, 1}, 0), "0 0 0");
  EXPECT_EQ(classText(session, {1, 1}, 3), "0 0 0");
  EXPECT_THROW(session.hlag({1, 1}, 4), Fault);
  EXPECT_THROW(session.gam({1, 1}, 4), Fault);
  EXPECT_THROW(session.npairs({1, 1}, 4), Fault);
}

}  // namespace
}  // namespace zevfit
