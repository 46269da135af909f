#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "session/fault.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

struct DoubleRow {
  double value;
  const char* text;
};

const DoubleRow kDoubleRows[] = {
    {0, "0"},
    {-0.0, "0"},
    {1, "1"},
    {-1, "-1"},
    {10, "10"},
    {100, "100"},
    {0.5, "0.5"},
    {-2.5, "-2.5"},
    {0.1, "0.1"},
    {94.2307076789621, "94.2307076789621"},
    {0.268312293736626, "0.268312293736626"},
    {0.1 + 0.2, "0.3"},                // 0.30000000000000004
    {1.0 / 3, "0.333333333333333"},    // 15 digits
    {2.0 / 3, "0.666666666666667"},    // the last one rounded
    {1000.0 / 3, "333.333333333333"},  // 15 digits on both sides of the point
    {0.9999999999999999, "1"},         // all digits carried
    {0.0001, "0.0001"},                // the smallest power without an exponent
    {0.00012345, "0.00012345"},
    {1e-05, "1E-05"},  // the first with one
    {0.00009, "9E-05"},
    {-1.5e-05, "-1.5E-05"},
    {0.00009999999999999999, "0.0001"},  // rounds up to the power without an exponent
    {123456789012345.0, "123456789012345"},
    {100000000000000.0, "100000000000000"},
    {999999999999999.0, "999999999999999"},
    {999999999999999.9, "1E+15"},  // 16 digits; rounds up to the first with an exponent
    {1e15, "1E+15"},
    {1234567890123456.0, "1.23456789012346E+15"},
    {1.5e15, "1.5E+15"},
    {1e22, "1E+22"},
    {1e99, "1E+99"},
    {1e100, "1E+100"},
    {-1e-200, "-1E-200"},
    {1e200, "1E+200"},
    {1e-100, "1E-100"},
    {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
    {std::numeric_limits<double>::min(), "2.2250738585072E-308"},
};

TEST(GeneralText, IsTheShortestOfUpToFifteenDigits) {
  for (const DoubleRow& row : kDoubleRows) {
    EXPECT_EQ(generalText(row.value), row.text);
  }
}

struct FloatRow {
  float value;
  const char* text;
};

const FloatRow kFloatRows[] = {
    {0.0F, "0"},
    {-0.0F, "0"},
    {18.0F, "18"},
    {-2.5F, "-2.5"},
    {0.1F, "0.1"},
    {1.0F / 3, "0.3333333"},
    {2.0F / 3, "0.6666667"},
    {0.0001F, "0.0001"},
    {0.00001F, "1E-05"},
    {123456.7F, "123456.7"},
    {1234567.0F, "1234567"},
    {9999999.0F, "9999999"},
    {10000000.0F, "1E+07"},
    {12345678.0F, "1.234568E+07"},
    {16777216.0F, "1.677722E+07"},
    {1e10F, "1E+10"},
    {3.40282347e38F, "3.402823E+38"},
};

TEST(GeneralText, HasUpToSevenDigitsInSinglePrecision) {
  for (const FloatRow& row : kFloatRows) {
    EXPECT_EQ(generalText(row.value), row.text);
  }
}

TEST(GeneralText, FaultsWithoutANumber) {
  EXPECT_THROW(generalText(kInfinity), Fault);
  EXPECT_THROW(generalText(-kInfinity), Fault);
  EXPECT_THROW(generalText(kNotANumber), Fault);
  EXPECT_THROW(generalText(std::numeric_limits<float>::infinity()), Fault);
}

TEST(FileNumber, HasASignPlaceInFrontAndABlankBehind) {
  EXPECT_EQ(fileNumber(0.0), " 0 ");
  EXPECT_EQ(fileNumber(-0.0), " 0 ");
  EXPECT_EQ(fileNumber(-2.5), "-2.5 ");
  EXPECT_EQ(fileNumber(2.5), " 2.5 ");
  EXPECT_EQ(fileNumber(1e-05), " 1E-05 ");
  EXPECT_EQ(fileNumber(-1e15), "-1E+15 ");
  EXPECT_EQ(fileNumber(18.0F), " 18 ");
  EXPECT_EQ(fileNumber(-1e7F), "-1E+07 ");
}

TEST(FileNumber, OfATextCellIsTheText) {
  EXPECT_EQ(fileNumber(Cell(-2.5)), "-2.5 ");
  EXPECT_EQ(fileNumber(Cell(0)), " 0 ");
  EXPECT_EQ(fileNumber(Cell::ofText("n.a.")), "n.a.");
  EXPECT_EQ(fileNumber(Cell::ofText("")), "");
}

TEST(FileNumber, IsAppended) {
  std::string line = "x";
  appendFileNumber(line, 1.5);
  appendFileNumber(line, 0.1F);
  appendFileNumber(line, Cell(-3));
  appendFileNumber(line, Cell::ofText("t"));
  EXPECT_EQ(line, "x 1.5  0.1 -3 t");
}

TEST(FileNumber, FaultsWithoutANumberAndAppendsNothing) {
  std::string line = "x";
  EXPECT_THROW(appendFileNumber(line, kInfinity), Fault);
  EXPECT_THROW(appendFileNumber(line, kNotANumber), Fault);
  EXPECT_EQ(line, "x");
}

TEST(SignedText, HasNoBlankBehind) {
  EXPECT_EQ(signedText(0), " 0");
  EXPECT_EQ(signedText(1), " 1");
  EXPECT_EQ(signedText(14), " 14");
  EXPECT_EQ(signedText(-3), "-3");
  EXPECT_EQ(signedText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

struct ZoneRow {
  const char* field;
  std::size_t start;  // of the next field
};

const ZoneRow kZoneRows[] = {
    {" 0 ", 14},
    {" 123456789012", 14},  // 13 columns, the blank between the fields is the 14th
    {" 12345678901 ", 14},
    {" 123456789012 ", 14},   // 14 columns, the last one blank
    {" 1234567890123", 28},   // 14 columns and no blank yet
    {" 1234567890123 ", 28},  // 15 columns
    {" 94.2307076789621 ", 28},
    {"text", 14},
    {"a text that fills two whole ", 28},
    {"a text that fills two zones.", 42},
    {"", 14},
};

TEST(PrintZone, StartsAtTheNextMultipleOfFourteenBehindABlank) {
  for (const ZoneRow& row : kZoneRows) {
    SCOPED_TRACE(row.field);
    std::string line = row.field;
    nextPrintZone(line, 0);
    EXPECT_EQ(line, row.field + std::string(row.start - std::string(row.field).size(), ' '));
  }
}

TEST(PrintZone, CountsFromTheBeginningOfTheLine) {
  std::string file = "title\r\n";
  const std::size_t lineStart = file.size();
  file += " 1 ";
  nextPrintZone(file, lineStart);
  EXPECT_EQ(file, "title\r\n 1 " + std::string(11, ' '));
}

TEST(PrintZone, LaysOutALineOfClasses) {
  std::string line;
  appendFileNumber(line, 94.2307076789621);
  nextPrintZone(line, 0);
  appendFileNumber(line, 0.268312293736626);
  nextPrintZone(line, 0);
  appendFileNumber(line, 18.0F);
  EXPECT_EQ(line, " 94.2307076789621            0.268312293736626           18 ");
}

TEST(PrintZone, FieldsThatFitKeepTheirZones) {
  std::string line;
  for (const double field : {100.0, -0.5, 20.0}) {
    if (!line.empty()) nextPrintZone(line, 0);
    appendFileNumber(line, field);
  }
  //               |0            |14           |28
  EXPECT_EQ(line, " 100          -0.5           20 ");
}

TEST(Texts, AreTrimmedOfBlanksAlone) {
  EXPECT_EQ(trimmed("  a b  "), "a b");
  EXPECT_EQ(trimmed("\ta\t"), "\ta\t");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(trimmed(""), "");
  EXPECT_EQ(trimmedLeft("  a b  "), "a b  ");
  EXPECT_EQ(trimmedLeft("   "), "");
  EXPECT_EQ(trimmedLeft(""), "");
}

TEST(Texts, AreLoweredFromAToZ) {
  EXPECT_EQ(lowered("zevRA1 [AZ]"), "zevra1 [az]");
  EXPECT_EQ(lowered("\xC9t\xE9"), "\xC9t\xE9");
}

}  // namespace
}  // namespace zevfit
