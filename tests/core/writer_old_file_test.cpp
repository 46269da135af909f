// What a save takes from the old file, and its ends and counts.
#include "files/variogram_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "session/fault.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

TEST(WriterOldFile, TagBecomesThatOfModelsWhereItIsKnown) {
  struct Row {
    const char* old;
    const char* tag;  ///< as read
    const char* line;
  };
  const Row rows[] = {
      {"zevra", "zevra", "zevRA1"},
      {"zevlag", "zevlag", "zevRA1"},
      {"ZevRA", "ZevRA", "zevRA1"},
      {"ZEVLAG", "ZEVLAG", "zevRA1"},
      {"  zevra  ", "zevra  ", "zevRA1"},
      {"\" zevlag \"", " zevlag ", "zevRA1"},
      {"zevRA1", "zevRA1", "zevRA1"},
      {"ZEVRA1 ", "ZEVRA1 ", "ZEVRA1 "},
      {"other tag", "other tag", "other tag"},
      {"zevra2", "zevra2", "zevra2"},
      {"\"\"", "", "\"\""},
      {"\"other, tag\"", "other, tag", "\"other, tag\""},
      {"\"quoted\"", "quoted", "quoted"},
  };
  for (const Row& row : rows) {
    Session from = oneClass();
    const std::string bytes = written(from, 1, lines({"t", row.old, "1", "zinc"}));
    EXPECT_EQ(from.filetag, row.tag) << row.old;
    EXPECT_EQ(bytes.substr(0, bytes.find(" 1 ")), lines({"t", row.line})) << row.old;
  }
}

TEST(WriterOldFile, TakesTheFirstTokenAsTitle) {
  struct Row {
    const char* name;
    const char* old;
    const char* header;
  };
  const Row rows[] = {
      {"blanks", "  A title  \r\nzevra\r\n1\r\n.", "A title  \r\nzevRA1\r\n"},
      {"a comma cuts it", "A title, cut\r\n1\r\n.", "A title\r\ncut\r\n"},
      {"quotes are lost", "\"A title\"\r\nzevra\r\n1\r\n.", "A title\r\nzevRA1\r\n"},
      {"but with a comma", "\"A, title\"\r\nzevra\r\n1\r\n.", "\"A, title\"\r\nzevRA1\r\n"},
      {"and empty", "\"\"\nzevra\n1\n.", "\"\"\r\nzevRA1\r\n"},
      {"bytes above 127", "S\xE3o\nzevra\n1\n.", "S\xE3o\r\nzevRA1\r\n"},
  };
  for (const Row& row : rows) {
    Session from = oneClass();
    const std::string bytes = written(from, 1, row.old);
    EXPECT_EQ(bytes.substr(0, bytes.find(" 1 \r\n")), row.header) << row.name;
  }
}

TEST(WriterOldFile, TakesTheOldCountIntoTheSession) {
  struct Row {
    const char* old;
    std::int64_t nvar;
  };
  const Row rows[] = {{"7", 7},   {" 3 ", 3}, {"0", 0},
                      {"-2", -2}, {"2.5", 2}, {"2000000000", 2'000'000'000},
                      {",", 0}};
  for (const Row& row : rows) {
    Session from = sessionOf(sampleFile("zevra"));
    const std::string bytes = written(from, 2, lines({"t", "zevra", row.old, "zinc"}));
    EXPECT_EQ(from.nvar, row.nvar) << row.old;
    // What is written is another number.
    EXPECT_TRUE(bytes.starts_with(lines({"t", "zevRA1", " 2 ", "zinc", "lead"}))) << row.old;
  }
  for (const char* text : {"many", "1e999", "1e300", "\"1\""}) {
    Session from = sessionOf(sampleFile("zevra"));
    MemorySink sink;
    EXPECT_THROW(composeVariogramFile(from, 2, lines({"t", "zevra", text, "zinc"}), sink), Fault)
        << text;
    EXPECT_EQ(from.nvar, 2) << text;
  }
}

TEST(WriterOldFile, WritesTheVariablesListed) {
  // A derived third variable, and a list that holds only the first.
  Session from = sessionOf(sampleFile("zevra"));
  from.nvar = 3;
  from.varname(3) = "sum, of both";
  from.variance(3) = 12;
  from.hlag.copy({1, 1}, {3, 1});
  from.gam.set({3, 1}, 1, 6);
  from.gam.set({3, 1}, 2, 13);
  from.npairs.copy({1, 1}, {3, 1});
  const std::string three = written(from, 3);
  EXPECT_EQ(from.nvar, 2);
  EXPECT_EQ(three.substr(0, three.find(" 5.5 ")),
            lines({"Flood plain", "zevRA1", " 3 ", "zinc", "lead", "\"sum, of both\"", " 2 ", " 2 ",
                   "0;0", "45;0"}));
  // Classes that were never filled are zeros.
  EXPECT_NE(three.find(lines(
                {" 12 ", " 10            6             100 ", " 20            13            200 ",
                 " 0             0             0 ", " 0             0             0 ", " 0 "})),
            std::string::npos);
  const std::string one = written(from, 1);
  EXPECT_EQ(one.find(" 6.5 "), std::string::npos);
  EXPECT_EQ(one.substr(0, one.find(" 10 ")),
            lines({"Flood plain", "zevRA1", " 1 ", "zinc", " 2 ", " 2 ", "0;0", "45;0", " 5.5 "}));
}

TEST(WriterOldFile, WithoutVariablesWritesTheHeaderAlone) {
  Session from = sessionOf(sampleFile("zevra"));
  EXPECT_EQ(written(from, 0), lines({"Flood plain", "zevRA1", " 0 ", " 2 ", " 2 ", "0;0", "45;0"}));
}

TEST(WriterOldFile, WithoutClassesWritesVariancesAndModels) {
  Session from = oneClass();
  from.nclass = -5;
  EXPECT_EQ(written(from, 1),
            lines({"Flood plain", "zevRA1", " 1 ", "zinc", " 1 ", "-5 ", "0;0", " 2.5 "}) +
                unusedModel());
}

TEST(WriterOldFile, CountsBeyondTheTablesFail) {
  struct Row {
    const char* name;
    std::int64_t variables, directions, classes;
  };
  const Row rows[] = {
      {"variables", 42, 1, 1},
      {"directions", 1, 22, 1},
      {"many directions", 1, 2'000'000'000, 1},
      {"classes that no file has filled", 1, 1, 1'001},
      {"many classes", 1, 1, 2'000'000'000},
  };
  for (const Row& row : rows) {
    Session from = oneClass();
    from.ndir = row.directions;
    from.nclass = row.classes;
    MemorySink sink;
    EXPECT_THROW(composeVariogramFile(from, row.variables, oldHeader(), sink), Fault) << row.name;
    EXPECT_LT(sink.bytes.size(), 2000U) << row.name;
  }
}

// A claim of a million classes over an empty file once filled the disk with zeros.
TEST(WriterOldFile, WritesAThousandClassesThatNoFileHasFilled) {
  Session from = oneClass();
  from.hlag.create(1000);
  from.gam.create(1000);
  from.npairs.create(1000);
  from.nclass = 1000;
  const std::string bytes = written(from, 1);
  // Eight lines of the header and the variance, the classes, and 14 lines of the model.
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 8 + 1000 + 14);
}

TEST(WriterOldFile, NumberThatIsNotFiniteFails) {
  Session from = oneClass();
  from.use0({1, 1}) = 1;
  from.c0({1, 1}) = std::numeric_limits<double>::infinity();
  MemorySink sink;
  EXPECT_THROW(composeVariogramFile(from, 1, oldHeader(), sink), Fault);
}

TEST(WriterOldFile, OldFileEndsAtATest) {
  // Behind which token of the old file a test stands, and what is written in front of it; behind
  // the count all tests give one answer.
  struct Row {
    const char* old;
    const char* bytes;
  };
  const Row rows[] = {
      {"", ""},
      {"t", "t\r\n"},
      {"t\r\n", "t\r\n"},
      {"t\r\nzevra\r\n", "t\r\nzevRA1\r\n"},
      {"t\r\nzevra\r\n1", "t\r\nzevRA1\r\n 1 \r\n"},
      {"t\r\nzevra\r\n 1 \r\n", "t\r\nzevRA1\r\n 1 \r\n"},
  };
  for (const Row& row : rows) {
    Session from = oneClass();
    MemorySink sink;
    EXPECT_FALSE(composeVariogramFile(from, 1, row.old, sink)) << row.old;
    EXPECT_EQ(sink.bytes, row.bytes) << row.old;
  }
}

TEST(WriterOldFile, OldFileOfABlankMoreFailsOrPasses) {
  // The blank passes the test; the token behind it is missing.
  for (const char* old : {" ", "t\n ", "t\nzevra\n "}) {
    Session from = oneClass();
    MemorySink sink;
    EXPECT_THROW(composeVariogramFile(from, 1, old, sink), Fault) << old;
  }
  // Behind the count no more tokens are read.
  Session from = oneClass();
  EXPECT_EQ(written(from, 1, "t\nzevra\n1\n "), written(from, 1, "t\nzevra\n1\nwhatever"));
}

}  // namespace
}  // namespace zevfit::test
