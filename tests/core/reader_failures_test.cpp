// Files that end early, and tokens that are no numbers.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "session/numbers.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

/// One variable, direction and class in eleven tokens, before each of which the end is tested.
const std::vector<std::string> kTokens = {"t",   "zevra1", "1",   "zinc", "1", "1",
                                          "0;0", "2.5",    "100", "3.5",  "9"};

std::string firstTokens(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) bytes += kTokens[i] + "\r\n";
  return bytes;
}

/// A session with a model from a file before.
Session loaded() {
  Session session = sessionOf(sampleFile("zevra"));
  acceptLoad(session, "before.zvm");
  session.c0({1, 1}) = 8;
  session.setPlotted({2, 2});
  session.datavar = 2;
  return session;
}

TEST(ReaderEnd, IsTestedBeforeEachToken) {
  for (std::size_t count = 0; count < kTokens.size(); ++count) {
    Session session;
    EXPECT_FALSE(readVariogramBytes(firstTokens(count), session)) << count << " tokens";
    // The last line end is no token of its own.
    std::string bytes = firstTokens(count);
    if (count > 0) bytes.resize(bytes.size() - 2);
    EXPECT_FALSE(readVariogramBytes(bytes, session)) << count << " tokens, no line end";
  }
  Session session;
  EXPECT_TRUE(readVariogramBytes(firstTokens(kTokens.size()), session));
}

TEST(ReaderEnd, KeepsWhatWasRead) {
  // From the tag to the class: what each further token leaves in a session loaded before.
  struct Row {
    std::size_t tokens;
    const char* filetag;
    bool hasmodel;
    std::int64_t nvar;
    const char* name;
    std::int64_t ndir, nclass;
    const char* direction;
    const char* model;
    const char* variance;
    const char* lag;  ///< class 1
    double hmax, gmax;
  };
  const char* const model = "8 0 - 0 1E-05 0 - 0 1E-05 0 - 0 1E-05";
  const Row rows[] = {
      {0, "zevra", false, 2, "zinc2", 2, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {1, "zevra", false, 2, "zinc2", 2, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {2, "zevra1", true, 2, "zinc2", 2, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {3, "zevra1", true, 1, "zinc2", 2, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {4, "zevra1", true, 1, "zinc", 2, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {5, "zevra1", true, 1, "zinc", 1, 2, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      {6, "zevra1", true, 1, "zinc", 1, 1, "0;0 ", model, "5.5", "10 1 100", 20, 7},
      // Behind the header the reset has run, and the lag tables are new.
      {7, "zevra1", true, 1, "zinc", 1, 1, "0;0", kResetModel + 2, "5.5", "0 0 0", 0, -1e-200},
      {8, "zevra1", true, 1, "zinc", 1, 1, "0;0", kResetModel + 2, "2.5", "0 0 0", 0, -1e-200},
      {9, "zevra1", true, 1, "zinc", 1, 1, "0;0", kResetModel + 2, "2.5", "100 0 0", 0, -1e-200},
      {10, "zevra1", true, 1, "zinc", 1, 1, "0;0", kResetModel + 2, "2.5", "100 3.5 0", 0, -1e-200},
  };
  for (const Row& row : rows) {
    Session session = loaded();
    session.varname(1) = "zinc2";
    session.dirname(1) = "0;0 ";
    EXPECT_FALSE(readVariogramBytes(firstTokens(row.tokens), session));
    EXPECT_EQ(session.filetag, row.filetag) << row.tokens;
    EXPECT_EQ(session.hasmodel, row.hasmodel) << row.tokens;
    EXPECT_EQ(session.nvar, row.nvar) << row.tokens;
    EXPECT_EQ(session.varname(1), row.name) << row.tokens;
    EXPECT_EQ(session.ndir, row.ndir) << row.tokens;
    EXPECT_EQ(session.nclass, row.nclass) << row.tokens;
    EXPECT_EQ(session.dirname(1), row.direction) << row.tokens;
    EXPECT_EQ(modelText(session, {1, 1}).substr(2), row.model) << row.tokens;
    EXPECT_EQ(session.variance(1).toText(), row.variance) << row.tokens;
    EXPECT_EQ(classText(session, {1, 1}, 1), row.lag) << row.tokens;
    EXPECT_EQ(session.hmax({1, 1}), row.hmax) << row.tokens;
    EXPECT_EQ(session.gmax({1, 1}), row.gmax) << row.tokens;
    // Set at the very first, before any token.
    EXPECT_EQ(session.plotted(), (Pair{1, 1})) << row.tokens;
    // The file before still seems to be loaded.
    EXPECT_EQ(session.inputfile, "before.zvm") << row.tokens;
    EXPECT_TRUE(session.loaded) << row.tokens;
    EXPECT_EQ(session.datavar, 2) << row.tokens;
    EXPECT_EQ(session.nvarfile, 2) << row.tokens;
  }
}

TEST(ReaderEnd, IsMetInTheSecondVariableToo) {
  const std::string whole = sampleFile("zevra");
  Session session;
  // Without the last pair count of variable 2; then without all of variable 2.
  EXPECT_FALSE(readVariogramBytes(whole.substr(0, whole.size() - 7), session));
  EXPECT_EQ(classText(session, {2, 2}, 2), "23 9 0");
  EXPECT_EQ(session.gmax({2, 2}), 8);
  EXPECT_FALSE(readVariogramBytes(whole.substr(0, whole.find(" 6.5")), session));
  EXPECT_EQ(classText(session, {1, 2}, 2), "21 2 400");
  EXPECT_EQ(classText(session, {2, 1}, 1), "0 0 0");
}

TEST(ReaderEnd, IsNotMetWhileABlankIsLeft) {
  // The blank lets each test pass and the read behind it fails: the last value stays as it was.
  Session session;
  EXPECT_TRUE(readVariogramBytes(firstTokens(10) + " ", session));
  EXPECT_EQ(classText(session, {1, 1}, 1), "100 3.5 0");
  EXPECT_EQ(session.gmax({1, 1}), 3.5);
  // Before any other token the next test fails.
  for (std::size_t count = 0; count < 10; ++count)
    EXPECT_FALSE(readVariogramBytes(firstTokens(count) + " ", session)) << count;
  Session before = loaded();
  EXPECT_FALSE(readVariogramBytes("t\r\n ", before));
  EXPECT_EQ(before.filetag, "zevra");
}

TEST(ReaderEnd, OfATitleWithCommas) {
  // The second field is the tag, and the third the count of variables, which takes far more names
  // than there are lines.
  const std::string rest = sampleFile("zevra").substr(std::string("Flood plain").size());
  Session session;
  EXPECT_FALSE(readVariogramBytes("Flood, plain, 1990 to 1995" + rest, session));
  EXPECT_EQ(session.filetag, "plain");
  EXPECT_EQ(session.nvar, 1990);
  EXPECT_EQ(session.varname(1), "to 1995");
  EXPECT_EQ(session.varname(2), "zevra");
}

TEST(ReaderText, ATitleWithACommaIsReadOutOfStep) {
  // The rest of the title is the tag; the tag is no count, which stays 0, so that no name follows;
  // the count of variables is that of directions, a name is no count of classes, and the other
  // name and the count of directions name the directions.
  const std::string rest = sampleFile("zevra1").substr(std::string("Flood plain").size());
  Session session;
  readVariogramBytes("Flood, plain" + rest, session);
  EXPECT_EQ(session.filetag, "plain");
  EXPECT_FALSE(session.hasmodel);
  EXPECT_EQ(session.nvar, 0);
  EXPECT_EQ(session.ndir, 2);
  EXPECT_EQ(session.nclass, 0);
  EXPECT_EQ(session.dirname(1), "lead");
  EXPECT_EQ(session.dirname(2), "2 ");
}

TEST(ReaderEnd, OfAFileThatCannotBeRead) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir());
  for (const auto& path : {folder / "zevfit-none.zvm", folder, std::filesystem::path()}) {
    Session session = loaded();
    EXPECT_FALSE(readVariogramFile(path, session)) << path;
    EXPECT_EQ(session.plotvar, 1) << path;
    EXPECT_FALSE(session.hasmodel) << path;
    EXPECT_EQ(session.nvar, 2) << path;
    EXPECT_EQ(session.c0({1, 1}).number(), 8) << path;
  }
}

TEST(ReaderText, InPlaceOfANumber) {
  struct Row {
    const char* name;
    const char* token;    ///< and what ends it
    const char* cell;     ///< in a number cell
    const char* ofGam;    ///< as a semivariance
    const char* ofPairs;  ///< as a number of pairs
  };
  const Row rows[] = {
      {"a word", "abc\n", "abc", "0", "0"},
      {"a number and more", "12abc\n", "12abc", "0", "0"},
      {"two points", "1.2.3\n", "1.2.3", "0", "0"},
      {"an exponent without digits", "1e\n", "1e", "0", "0"},
      {"too large", "1e999\n", "1e999", "0", "0"},
      {"too large for a float", "1e39\n", "1E+39", "1E+39", "0"},
      {"infinity", "inf\n", "inf", "0", "0"},
      {"not a number", "nan\n", "nan", "0", "0"},
      {"in quotes", "\"1\"\n", "\"1\"", "0", "0"},
      {"a plus sign", "+4\n", "4", "4", "4"},
      {"too small", "1e-999\n", "0", "0", "0"},
      {"nothing before a comma", ",", "0", "0", "0"},
      {"too large for a 16 bit number", "40000\n", "40000", "40000", "40000"},
  };
  for (const Row& row : rows) {
    std::string bytes = "t\nz\n1\nzinc\n1\n1\n0;0\n";
    for (int place = 0; place < 4; ++place) bytes += row.token;
    Session session;
    ASSERT_TRUE(readVariogramBytes(bytes, session)) << row.name;
    EXPECT_EQ(session.variance(1).toText(), row.cell) << row.name;
    EXPECT_EQ(session.hlag({1, 1}, 1).toText(), row.cell) << row.name;
    EXPECT_EQ(generalText(session.gam({1, 1}, 1)), row.ofGam) << row.name;
    EXPECT_EQ(generalText(session.npairs({1, 1}, 1)), row.ofPairs) << row.name;
  }
}

TEST(ReaderText, TakesNoPartInExtremesAndAxis) {
  Session session;
  ASSERT_TRUE(readVariogramBytes(
      lines({"t", "z", "1", "zinc", "1", "2", "0;0", "big", "far -1 1", "7 many some"}), session));
  EXPECT_EQ(session.hmax({1, 1}), 7);
  // A text leaves the semivariance 0, which takes part.
  EXPECT_EQ(session.gmax({1, 1}), 0);
  EXPECT_EQ(session.gmin({1, 1}), -1);
  // No limit follows from a variance that is a text.
  EXPECT_EQ(session.ymax({1, 1}), 0);
  EXPECT_EQ(session.ymin({1, 1}), 0);
}

TEST(ReaderText, InPlaceOfACountLeavesTheCount) {
  struct Row {
    const char* token;
    std::int64_t count;
  };
  const Row rows[] = {
      {"abc", 2}, {"1e999", 2}, {"1e300", 2}, {"nan", 2}, {"1.4", 1},
      {"1.5", 2}, {"2.5", 2},   {"0", 0},     {"-3", -3}, {",", 0},
  };
  for (const Row& row : rows) {
    Session session = loaded();
    readVariogramBytes(lines({"t", "zevra", row.token}), session);
    EXPECT_EQ(session.nvar, row.count) << row.token;
    session = loaded();
    readVariogramBytes(lines({"t", "zevra", "0", row.token}), session);
    EXPECT_EQ(session.ndir, row.count) << row.token;
    session = loaded();
    readVariogramBytes(lines({"t", "zevra", "0", "0", row.token}), session);
    EXPECT_EQ(session.nclass, row.count) << row.token;
  }
}

}  // namespace
}  // namespace zevfit::test
