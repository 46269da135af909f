// Tables of points: what is read of them, and where what can't be used stands.
#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "zvm/experimental/sample.h"
#include "zvm/points/data_error.h"
#include "zvm/points/names.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm::test {
namespace {

ReadOptions columns(const std::vector<std::string>& variables = {"v"}) {
  ReadOptions options;
  options.x = "x";
  options.y = "y";
  options.variables = variables;
  return options;
}

PointSet read(const std::string& bytes, const ReadOptions& options = columns()) {
  std::istringstream in(bytes);
  return readPoints(in, "a.csv", options);
}

std::string refusal(const std::string& bytes, const ReadOptions& options = columns()) {
  try {
    read(bytes, options);
  } catch (const DataError& error) {
    return error.what();
  }
  return "";
}

/// "x y v", rows parted by "; ", "-" for a missing value.
std::string rowsOf(const PointSet& points) {
  std::ostringstream text;
  for (std::size_t i = 0; i < points.size(); ++i) {
    text << (i > 0 ? "; " : "") << points.x[i] << ' ' << points.y[i];
    if (points.inSpace) text << ' ' << points.z[i];
    for (const auto& column : points.values) {
      if (std::isnan(column[i]))
        text << " -";
      else
        text << ' ' << column[i];
    }
  }
  return text.str();
}

struct Table {
  std::string_view name;
  std::string bytes;
  std::string rows;
};

void PrintTo(const Table& table, std::ostream* out) { *out << table.name; }

class GoodTable : public testing::TestWithParam<Table> {};

TEST_P(GoodTable, IsRead) { EXPECT_EQ(rowsOf(read(GetParam().bytes)), GetParam().rows); }

INSTANTIATE_TEST_SUITE_P(
    Csv, GoodTable,
    testing::Values(
        Table{"Commas", "x,y,v\n1,2,3\n4,5,6\n", "1 2 3; 4 5 6"},
        Table{"Semicolons", "x;y;v\n1;2;3\n", "1 2 3"},
        Table{"Tabs", "x\ty\tv\n1\t2\t3\n", "1 2 3"},
        Table{"LineEndsOfDos", "x,y,v\r\n1,2,3\r\n4,5,6\r\n", "1 2 3; 4 5 6"},
        Table{"NoLastLineEnd", "x,y,v\n1,2,3", "1 2 3"},
        Table{"ByteOrderMark", "\xEF\xBB\xBFx,y,v\n1,2,3\n", "1 2 3"},
        Table{"Blanks", " x , y , v \n 1 , 2 , 3 \n", "1 2 3"},
        Table{"EmptyLines", "x,y,v\n\n1,2,3\n  \n\n", "1 2 3"},
        Table{"OtherOrder", "v,a,y,b,x\n3,?,2,!,1\n", "1 2 3"},
        Table{"QuotedNames", "\"x\",\"y\",\"v\"\n1,2,3\n", "1 2 3"},
        Table{"QuotedNumbers", "x,y,v\n\"1\",\"2\", \"3\" \n", "1 2 3"},
        Table{"BlanksBehindQuotes", "x,y,v\n1,2,\"3\"\t \n", "1 2 3"},
        Table{"SeparatorsInQuotes", "x,y,a,v\n1,2,\"a,\"\"b\"\",c\",3\n", "1 2 3"},
        Table{"LineEndInQuotes", "x,y,a,v\n1,2,\"a\nb\",3\n4,5,,6\n", "1 2 3; 4 5 6"},
        Table{"SemicolonsBesideACommaInQuotes", "x;y;\"a,b\";v\n1;2;0;3\n", "1 2 3"},
        Table{"FormsOfNumbers", "x,y,v\n+1,-2.5,1e3\n.5,1.,1E-2\n", "1 -2.5 1000; 0.5 1 0.01"},
        Table{"Missing", "x,y,v\n1,2,\n3,4,NA\n5,6,NaN\n7,8,nan\n", "1 2 -; 3 4 -; 5 6 -; 7 8 -"},
        Table{"WithoutCoordinates", "x,y,v\n1,,3\nNA,5,6\n7,8,9\n", "7 8 9"},
        Table{"NoRow", "x,y,v\n", ""}));

INSTANTIATE_TEST_SUITE_P(
    GeoEas, GoodTable,
    testing::Values(Table{"Plain", "Title, with commas\n3\nx\ny\nv\n1 2 3\n4 5 6\n",
                          "1 2 3; 4 5 6"},
                    Table{"BlanksAndTabs", "t\n 3 10 1\nx\r\ny \n v\n\t1  2\t3 \r\n", "1 2 3"},
                    Table{"Commas", "t\n3\nx\ny\nv\n1, 2,3\n", "1 2 3"},
                    Table{"FortranExponents", "t\n3\nx\ny\nv\n1D1 2d0 1.5D+02\n", "10 2 150"},
                    Table{"NamesWithBlanks", "t\n4\nx\ny\nv\nlog of v\n1 2 3 4\n", "1 2 3"}));

struct Bad {
  std::string_view name;
  std::string bytes;
  std::string refusal;
};

void PrintTo(const Bad& bad, std::ostream* out) { *out << bad.name; }

class BadTable : public testing::TestWithParam<Bad> {};

TEST_P(BadTable, IsRefusedWithThePlace) {
  EXPECT_EQ(refusal(GetParam().bytes), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(
    Csv, BadTable,
    testing::Values(
        Bad{"Text", "x,y,v\n1,2,3\n4,5,abc\n", "a.csv:3:5: `abc` is no number"},
        Bad{"TextAsCoordinate", "x,y,v\n1, e,3\n", "a.csv:2:4: `e` is no number"},
        Bad{"DecimalComma", "x;y;v\n1;2,5;3\n",
            "a.csv:2:3: `2,5` has a decimal comma; numbers take a point"},
        Bad{"QuotedDecimalComma", "x,y,v\n1,2,\"2,5\"\n",
            "a.csv:2:5: `2,5` has a decimal comma; numbers take a point"},
        Bad{"MoreFields", "x,y,v\n1,2,3,4\n",
            "a.csv:2:7: the row has 4 fields, the table 3 columns"},
        Bad{"FewerFields", "x,y,v\n1,2\n", "a.csv:2:4: the row has 2 fields, the table 3 columns"},
        Bad{"Infinity", "x,y,v\n1,2,inf\n", "a.csv:2:5: `inf` is no finite number"},
        Bad{"TooLarge", "x,y,v\n1,2,1e999\n", "a.csv:2:5: `1e999` is beyond the range of numbers"},
        Bad{"OpenQuote", "x,y,v\n1,2,\"3\n4,5,6\n", "a.csv:2:5: a quote that nothing closes"},
        Bad{"OpenQuoteInAnotherColumn", "x,y,v,a\n1,2,3,b\n1,2,3,\"b\n1,2,3,b\n",
            "a.csv:3:7: a quote that nothing closes"},
        Bad{"OpenQuoteInTheHeader", "x,y,\"v\n1,2,3\n", "a.csv:1:5: a quote that nothing closes"},
        Bad{"BehindALineEndInQuotes", "a,x,y,v\n\"b\nc\",1,2,z\n", "a.csv:3:8: `z` is no number"},
        Bad{"NoHeader", "1,2,3\n4,5,6\n",
            "a.csv:1:1: numbers in the first line, where names are looked for"},
        Bad{"Empty", "", "a.csv: the file is empty"},
        Bad{"EmptyFirstLine", "\nx,y,v\n1,2,3\n",
            "a.csv:1:1: an empty line, where names are looked for"},
        Bad{"Utf16", std::string("\xFF\xFEx\0,\0y\0", 8),
            "a.csv:1:1: the file is in UTF-16; tables are read as UTF-8"},
        Bad{"Utf16WithTheHighByteFirst", std::string("\xFE\xFF\0x\0,", 6),
            "a.csv:1:1: the file is in UTF-16; tables are read as UTF-8"},
        Bad{"NulByte", std::string("x,y,v\n1,2,3\0\n", 13), "a.csv:2:5: `3\\x00` is no number"},
        Bad{"TextBehindQuotes", "x,y,v\n1,2,\"3\"4\n", "a.csv:2:5: `\"3\"4` is no number"},
        Bad{"NoColumn", "x,y,zinc,lead,w\n",
            "no column `v` in a.csv; there are x, y, w, zinc, lead"},
        Bad{"TwiceNamed", "x,y,v,v\n",
            "a.csv: columns 3 and 4 are both named `v`; name one by its number"}));

INSTANTIATE_TEST_SUITE_P(
    GeoEas, BadTable,
    testing::Values(Bad{"Text", "t\n3\nx\ny\nv\n1 2 abc\n", "a.csv:6:5: `abc` is no number"},
                    Bad{"FewerValues", "t\n3\nx\ny\nv\n1 2\n",
                        "a.csv:6:4: the row has 2 fields, the table 3 columns"},
                    Bad{"NulByte", std::string("t\n3\nx\ny\nv\n1 2 3\0 4\n", 19),
                        "a.csv:6:5: `3\\x00` is no number"},
                    Bad{"NamesMissing", "t\n3\nx\ny\n",
                        "a.csv:4:1: the file ends after 2 of 3 names of columns"}));

TEST(Points, ColumnsByNumberUnlessOneHasThatName) {
  ReadOptions options = columns({"3"});
  options.x = "1";
  options.y = "2";
  EXPECT_EQ(rowsOf(read("a,b,c\n1,2,3\n", options)), "1 2 3");
  EXPECT_EQ(rowsOf(read("a,2,3,b\n1,2,3,4\n", options)), "1 2 3");
  options.variables = {"4"};
  EXPECT_EQ(refusal("a,b,c\n1,2,3\n", options), "no column `4` in a.csv; there are a, b, c");
}

TEST(Points, InSpaceAndTheSameColumnTwice) {
  ReadOptions options = columns({"v", "x"});
  options.z = "v";
  EXPECT_EQ(rowsOf(read("x,y,v\n1,2,3\n", options)), "1 2 3 3 1");
}

TEST(Points, NamedMissingValuesInAllTheirForms) {
  ReadOptions options = columns();
  options.missing = MissingValues({"-999", "none"});
  EXPECT_EQ(rowsOf(read("x,y,v\n1,2,-999.0\n3,4,-9.99e2\n5,6,none\n7,8,-99\n", options)),
            "1 2 -; 3 4 -; 5 6 -; 7 8 -99");
}

TEST(Points, TrimsTheRawValuesBeforeTheLogarithm) {
  ReadOptions options = columns();
  options.logs = {"v"};
  options.trim = Trim{1, 10};
  const PointSet points = read("x,y,v\n1,1,0.5\n2,2,1\n3,3,10\n4,4,10.5\n5,5,-1\n", options);
  EXPECT_EQ(rowsOf(points), "1 1 -; 2 2 0; 3 3 2.30259; 4 4 -; 5 5 -");
}

TEST(Points, ALogarithmOfNothingIsRefusedWithItsLine) {
  ReadOptions options = columns();
  options.logs = {"v"};
  EXPECT_EQ(refusal("x,y,v\n1,2,3\n1,2,NA\n1,2,0\n", options),
            "a.csv:4:5: `v` is not above 0 and has no logarithm");
}

TEST(Points, CountsRowsAndThoseWithoutCoordinates) {
  const PointSet points = read("x,y,v\n1,,3\nNA,5,6\n7,8,\n\n");
  EXPECT_EQ(points.read, 3U);
  EXPECT_EQ(points.skipped, 2U);
  EXPECT_EQ(points.size(), 1U);
}

// A block is a mebibyte.
TEST(Points, RecordsLieAcrossBlocks) {
  std::string bytes = "x,y,a,v\n";
  const std::string row = "1.25,2.5,\"some \"\"text\"\"\nin two lines\",3.75\n";
  const std::size_t rows = 3 * (std::size_t{1} << 20U) / row.size();
  for (std::size_t i = 0; i < rows; ++i) bytes += row;
  std::uint64_t told = 0;
  std::istringstream in(bytes);
  const PointSet points = readPoints(in, "a.csv", columns(), [&told](std::uint64_t read) {
    told = std::max(told, read);
    return true;
  });
  ASSERT_EQ(points.size(), rows);
  for (std::size_t i = 0; i < rows; ++i) ASSERT_EQ(points.values[0][i], 3.75);
  EXPECT_GT(told, std::uint64_t{1} << 20U);
  EXPECT_EQ(refusal(bytes + "1,2,3,x\n"),
            "a.csv:" + std::to_string(2 * rows + 2) + ":7: `x` is no number");
}

// Short decimals take a way of their own; each has the very bits that from_chars has for it.
TEST(Points, DecimalsOfAllLengthsAreRoundedOnce) {
  std::vector<std::string> texts{"0",
                                 "-0",
                                 "-0.0",
                                 ".5",
                                 "5.",
                                 "-.25",
                                 "0.1",
                                 "1e5",
                                 "1.5e-3",
                                 "00001.50",
                                 "999999999999999",
                                 "99999999999999.9",
                                 "9999999999999999",
                                 "0.000000000000001",
                                 "-0.30000000000000004",
                                 "123456789012345678901234567890",
                                 "9007199254740993",
                                 "4.9e-324",
                                 "1.7976931348623157e308"};
  SplitMix random(5);
  for (std::size_t digits = 1; digits <= 20; ++digits)
    for (std::size_t point = 0; point <= digits; ++point)
      for (int i = 0; i < 20; ++i) {
        std::string text;
        for (std::size_t d = 0; d < digits; ++d) text += static_cast<char>('0' + random.below(10));
        texts.push_back((i % 2 == 0 ? "-" : "") + text.insert(point, "."));
      }
  std::string table = "x,y,v\n";
  for (const std::string& text : texts) table += text + ",0,\n";
  const PointSet points = read(table);
  ASSERT_EQ(points.size(), texts.size());
  for (std::size_t i = 0; i < texts.size(); ++i) {
    double value = 0;
    std::from_chars(texts[i].data(), texts[i].data() + texts[i].size(), value);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(points.x[i]), std::bit_cast<std::uint64_t>(value))
        << texts[i];
  }
}

// A quote in a later row, in front of and behind the end of a block, still begins a field.
TEST(Points, QuotesBehindRowsWithoutThem) {
  for (const std::size_t rows : {1U, 800U, 1023U, 1024U, 1025U, 5000U}) {
    std::string table = "x,y,v\n";
    for (std::size_t i = 0; i < rows; ++i) table += "1,2\t,\n";
    table += "\"7\",8,\"9\"\n1,2,3\n";
    const PointSet points = read(table);
    ASSERT_EQ(points.size(), rows + 2) << rows;
    EXPECT_EQ(points.x[rows], 7);
    EXPECT_EQ(points.values[0][rows], 9);
    EXPECT_EQ(points.x[rows + 1], 1);
  }
}

TEST(Points, ProgressEndsTheReading) {
  std::istringstream in("x,y,v\n1,2,3\n");
  EXPECT_THROW(readPoints(in, "a.csv", columns(), [](std::uint64_t) { return false; }), Cancelled);
}

struct NameRow {
  std::string_view name;
  std::string refusal;
};

TEST(Names, OfAVariogramFile) {
  const NameRow rows[] = {{"zinc", ""},
                          {"ln zinc (ppm)", ""},
                          {"caf\xC3\xA9", ""},
                          {"\xC3\xBF", ""},
                          {"", "it is empty"},
                          {"  ", "it is empty"},
                          {"a,b", "it holds a comma"},
                          {"a\"b", "it holds a quote"},
                          {"a\nb", "it holds a control character"},
                          {"\xC2\x85", "it holds a control character"},
                          {"\xCE\xB3", "it is not in Latin-1"},
                          {"\xE9", "it is not in Latin-1"},
                          {"\xC3", "it is not in Latin-1"}};
  for (const NameRow& row : rows)
    EXPECT_EQ(nameRefusal(row.name).value_or(""), row.refusal) << row.name;
  EXPECT_EQ(latin1Of("caf\xC3\xA9"), "caf\xE9");
  EXPECT_EQ(utf8Of("caf\xE9"), "caf\xC3\xA9");
}

TEST(Names, NearestFirst) {
  EXPECT_EQ(nearestFirst("zin", {"x", "y", "zinc", "lead"}),
            (std::vector<std::string>{"zinc", "x", "y", "lead"}));
  EXPECT_EQ(nearestFirst("ZINC", {"ZICK", "zinc"}), (std::vector<std::string>{"zinc", "ZICK"}));
}

}  // namespace
}  // namespace zevfit::zvm::test
