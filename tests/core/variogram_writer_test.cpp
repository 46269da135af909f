// What a save writes, byte for byte.
#include "files/variogram_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "session/fault.h"
#include "session/line.h"
#include "tests/support/model_lines.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

/// What is written behind the data of one class.
std::string writtenModel(Session& from) {
  const std::string bytes = written(from, 1);
  const std::string data = " 10            3             9 \r\n";
  return bytes.substr(bytes.find(data) + data.size());
}

TEST(Writer, TheNuggetHasNoLetter) {
  Session from = oneClass();
  from.use0({1, 1}) = 1;
  from.c0({1, 1}) = 0.5;
  from.model0({1, 1}) = "P";
  EXPECT_EQ(written(from, 1).substr(written(from, 1).find(" 1 \r\n 0.5 ")),
            " 1 \r\n 0.5 \r\n" + times(kUnusedStructure, 3));
}

TEST(Writer, WritesTheWholeFile) {
  Session from = sessionOf(sampleFile("zevra"));
  setNugget(from, {1, 1}, 0.25);
  setStructure(from, {1, 1}, Line::first, "S", 4.5, 300);
  setStructure(from, {2, 2}, Line::second, "E", -0.5, 1e-05);
  setStructure(from, {2, 2}, Line::third, "G", 1e15, 0.1 + 0.2);
  const std::string data =
      lines({"Flood plain", "zevRA1", " 2 ", "zinc", "lead", " 2 ", " 2 ", "0;0", "45;0", " 5.5 ",
             " 10            1             100 ", " 20            7             200 ",
             " 11            3             300 ", " 21            2             400 ", " 6.5 ",
             " 12            5             500 ", " 22            6             600 ",
             " 13            8             700 ", " 23            9             800 "});
  const std::string first =
      lines({" 1 ", " 0.25 ", " 1 ", "S", " 4.5 ", " 300 "}) + times(kUnusedStructure, 2);
  const std::string last = std::string(kUnusedNugget) + kUnusedStructure +
                           lines({" 1 ", "E", "-0.5 ", " 1E-05 ", " 1 ", "G", " 1E+15 ", " 0.3 "});
  EXPECT_EQ(written(from, 2), data + first + unusedModel() + unusedModel() + last);
}

TEST(Writer, StartsFieldsInPrintZones) {
  struct Row {
    const char* name;
    Cell h;
    double gam;
    float npairs;
    std::string line;
  };
  const Row rows[] = {
      // Zones begin at columns 0, 14, 28, 42 and 56; a number begins with a blank for its sign.
      {"short fields", 1, 2, 3, " 1             2             3 "},
      {"negative numbers", -1, -2, -3, "-1            -2            -3 "},
      {"a field of 13 columns", 12345678901., 2, 3, " 12345678901   2             3 "},
      // With the blank behind it, it fills its zone to the last column.
      {"a field of 14 columns", 123456789012., 2, 3, " 123456789012  2             3 "},
      // The next field goes on to column 28.
      {"a field of 15 columns", 1234567890123., 2, 3,
       " 1234567890123 " + std::string(13, ' ') + " 2             3 "},
      {"14 columns in the second zone", 1, -123456789012., 3, " 1            -123456789012  3 "},
      {"15 columns in the second zone", 1, -1234567890123., 3,
       " 1            -1234567890123 " + std::string(13, ' ') + " 3 "},
      {"15 digits", 94.2307076789621, 0.268312293736626, 18,
       " 94.2307076789621            0.268312293736626           18 "},
      {"more than 15 digits", 1.0 / 3, 2.0 / 3, 1.0F / 3,
       " 0.333333333333333           0.666666666666667           0.3333333 "},
      {"exponents", 1e-05, 1.5e20, 1e7F, " 1E-05         1.5E+20       1E+07 "},
      {"seven digits of pairs", 1, 2, 1234567, " 1             2             1234567 "},
      // 12345678 is a float, and has eight digits.
      {"eight digits of pairs", 1, 2, 12345678, " 1             2             1.234568E+07 "},
      {"tenths of a float", 1, 0.1, 0.1F, " 1             0.1           0.1 "},
      {"a text", Cell::ofText("far"), 2, 3, "far            2             3 "},
      // No blank parts a text of a whole zone from what follows.
      {"a text of 13 columns", Cell::ofText("thirteen-----"), 2, 3,
       "thirteen-----  2             3 "},
      {"a text of 14 columns", Cell::ofText("fourteen------"), 2, 3,
       "fourteen------" + std::string(14, ' ') + " 2             3 "},
  };
  for (const Row& row : rows) {
    Session from = oneClass();
    from.hlag.set({1, 1}, 1, row.h);
    from.gam.set({1, 1}, 1, row.gam);
    from.npairs.set({1, 1}, 1, row.npairs);
    const std::string bytes = written(from, 1);
    const std::string before =
        lines({"Flood plain", "zevRA1", " 1 ", "zinc", " 1 ", " 1 ", "0;0", " 2.5 "});
    EXPECT_EQ(bytes.substr(0, before.size()), before) << row.name;
    EXPECT_EQ(bytes.substr(before.size(), bytes.find('\r', before.size()) - before.size()),
              row.line)
        << row.name;
  }
}

TEST(Writer, WritesALineByItsFlag) {
  struct Row {
    Cell flag;
    const char* nugget;     ///< with the value 1.5
    const char* structure;  ///< with the letter P, the sill 2.5 and the range 3.5
  };
  const Row rows[] = {
      {0, kUnusedNugget, kUnusedStructure},
      {1, " 1 \r\n 1.5 \r\n", " 1 \r\nP\r\n 2.5 \r\n 3.5 \r\n"},
      // Nothing at all for any other flag.
      {2, "", ""},
      {-1, "", ""},
  };
  for (const Row& row : rows) {
    Session nugget = oneClass();
    setNugget(nugget, {1, 1}, 1.5);
    line(nugget, {1, 1}, Line::nugget).use(row.flag);
    EXPECT_EQ(writtenModel(nugget), row.nugget + times(kUnusedStructure, 3)) << row.flag.toText();
    for (const Line structure : kStructures) {
      Session from = oneClass();
      setStructure(from, {1, 1}, structure, "P", 2.5, 3.5);
      line(from, {1, 1}, structure).use(row.flag);
      const int place = static_cast<int>(indexOf(structure));
      const std::string expected = kUnusedNugget + times(kUnusedStructure, place - 1) +
                                   row.structure + times(kUnusedStructure, 3 - place);
      EXPECT_EQ(writtenModel(from), expected) << "line " << place << ", " << row.flag.toText();
    }
  }
  // A flag that is not whole; the one of structure 3 always is.
  Session from = oneClass();
  from.use0({1, 1}) = 0.5;
  EXPECT_EQ(writtenModel(from), times(kUnusedStructure, 3));
}

TEST(Writer, WritesTextsOfCellsAsTheyStood) {
  Session from = oneClass();
  from.variance(1) = Cell::ofText("large");
  from.use0({1, 1}) = from.use1({1, 1}) = 1;
  from.c0({1, 1}) = Cell::ofText("a");
  from.model1({1, 1}) = "two words";
  from.c1({1, 1}) = Cell::ofText("b");
  from.a1({1, 1}) = Cell::ofText("1e999");
  EXPECT_EQ(writtenModel(from),
            " 1 \r\na\r\n 1 \r\ntwo words\r\nb\r\n1e999\r\n" + times(kUnusedStructure, 2));
  EXPECT_NE(written(from, 1).find("0;0\r\nlarge\r\n"), std::string::npos);
}

TEST(Writer, TextAsAFlagFails) {
  for (const Line which : {Line::nugget, Line::first, Line::second}) {
    Session from = oneClass();
    line(from, {1, 1}, which).use(Cell::ofText("yes"));
    MemorySink sink;
    EXPECT_THROW(composeVariogramFile(from, 1, oldHeader(), sink), Fault);
  }
}

}  // namespace
}  // namespace zevfit::test
