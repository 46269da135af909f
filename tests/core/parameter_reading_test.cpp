#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/parameter_file.h"
#include "tests/support/scratch_folder.h"

namespace zevfit {
namespace {

using Lines = std::vector<std::string>;
using Path = std::optional<std::string>;

// Every value differs from its start value.
const Lines kFile = {"/data/flood plain.zvm",
                     " 1 ",
                     " 2 ",
                     " 3 ",
                     " 4 ",
                     " 5 ",
                     "*0.0  *",
                     "* #.##*",
                     "Caption A",
                     "Face A",
                     " 11 ",
                     "Caption B",
                     "Face B",
                     " 8.5 ",
                     "Caption C",
                     "Face C",
                     " 9.25 "};

std::string file(const Lines& rows) {
  std::string bytes;
  for (const std::string& row : rows) bytes += row + "\r\n";
  return bytes;
}

std::string with(std::size_t line, const std::string& text) {
  Lines rows = kFile;
  rows.at(line - 1) = text;
  return file(rows);
}

struct Reading {
  Path path;
  GraphStyle style;
};

Reading read(const std::string& bytes) {
  Reading reading;
  reading.path = readParameters(bytes, reading.style);
  return reading;
}

std::string font(const FontSample& sample) {
  return sample.caption + "|" + sample.fontname + "|" + std::to_string(sample.fontsize);
}

/// All values of a style in the order of the file, each with its second sample behind it.
Lines valuesOf(const GraphStyle& style) {
  const ColourSwatches& cores = style.cores;
  Lines values;
  for (const Colour colour : {cores.Label1, cores.Label2, cores.Label3, cores.Label4, cores.Label5})
    values.push_back(std::to_string(colour));
  for (const std::string& pattern : style.Formfont.formato) values.push_back(pattern);
  for (std::size_t i = 0; i < 3; ++i)
    values.push_back(font(style.Formfont.Label2.at(i)) + " " + font(style.Formfont.Label3.at(i)));
  return values;
}

const Lines kStart = {"0",
                      "32768",
                      "16711680",
                      "255",
                      "16777215",
                      "#0.#0 ",
                      "####.#0",
                      "Times New Roman|Times New Roman|10.000000 10|Times New Roman|10.000000",
                      "Times New Roman|Times New Roman|7.800000 7.8|Times New Roman|7.800000",
                      "Times New Roman|Times New Roman|7.800000 7.8|Times New Roman|7.800000"};

const Lines kRead = {"1",
                     "2",
                     "3",
                     "4",
                     "5",
                     "0.0  ",
                     " #.##",
                     "Caption A|Face A|11.000000 11|Face A|11.000000",
                     "Caption B|Face B|8.500000 8.5|Face B|8.500000",
                     "Caption C|Face C|9.250000 9.25|Face C|9.250000"};

/// The first values as read, the others as at the start.
Lines firstRead(std::size_t count) {
  Lines values = kStart;
  std::copy_n(kRead.begin(), count, values.begin());
  return values;
}

TEST(ParameterReading, StartValuesStandWithoutAFile) {
  const Reading nothing = read("");
  EXPECT_EQ(nothing.path, std::nullopt);
  EXPECT_EQ(valuesOf(nothing.style), kStart);
}

TEST(ParameterReading, TakesAllSeventeenLines) {
  const Reading whole = read(file(kFile));
  EXPECT_EQ(whole.path, "/data/flood plain.zvm");
  EXPECT_EQ(valuesOf(whole.style), kRead);
}

TEST(ParameterReading, SetsTheStartValuesFirst) {
  GraphStyle style;
  ASSERT_TRUE(readParameters(file(kFile), style));
  EXPECT_EQ(readParameters("", style), std::nullopt);
  EXPECT_EQ(valuesOf(style), kStart);
}

TEST(ParameterReading, CutShortKeepsWhatWasTakenBefore) {
  // Of 17 lines: line 1 is the path, 2 to 8 are a value each; a font is taken with its third line.
  constexpr std::size_t kValues[] = {0, 0, 1, 2, 3, 4, 5, 6, 7, 7, 7, 8, 8, 8, 9, 9, 9};
  for (std::size_t count = 0; count < kFile.size(); ++count) {
    Lines rows = kFile;
    rows.resize(count);
    const Reading cut = read(file(rows));
    EXPECT_EQ(cut.path, std::nullopt) << count << " lines";
    EXPECT_EQ(valuesOf(cut.style), firstRead(kValues[count])) << count << " lines";
  }
}

TEST(ParameterReading, AnyLineEndWillDo) {
  for (const char* end : {"\n", "\r", "\r\n"}) {
    std::string bytes;
    for (const std::string& row : kFile) bytes += row + end;
    EXPECT_EQ(valuesOf(read(bytes).style), kRead) << std::string(end).size();
  }
}

TEST(ParameterReading, NeedsNoLineEndBehindTheLastNumber) {
  std::string bytes = file(kFile);
  bytes.resize(bytes.size() - 2);
  EXPECT_EQ(read(bytes).path, "/data/flood plain.zvm");
  EXPECT_EQ(valuesOf(read(bytes).style), kRead);
}

TEST(ParameterReading, IgnoresWhatStandsBehind) {
  EXPECT_EQ(valuesOf(read(file(kFile) + "more\r\n*of*\r\nit").style), kRead);
}

struct Failure {
  const char* name;
  std::size_t line;
  const char* text;
  std::size_t taken;
};

TEST(ParameterReading, FailureKeepsWhatWasTakenBefore) {
  const Failure cases[] = {
      // "folder, 1.zvm": the text behind the comma stands where the first colour is read.
      {"a path with a comma", 1, "/data/a, b.zvm", 0},
      {"a text for the first colour", 2, "red", 0},
      {"a text behind a number", 3, " 12x ", 1},
      {"a colour beyond 32 bits", 4, " 2147483648 ", 2},
      {"a colour below 32 bits", 4, "-2147483649 ", 2},
      // Halfway between 2147483647 and 2147483648: the even one does not fit.
      {"a colour that is rounded beyond 32 bits", 5, "2147483647.5", 3},
      {"a colour beyond all numbers", 6, "1E400", 4},
      {"no colour but a pattern", 6, "*0.0  *", 4},
      {"an empty first pattern line", 7, "", 5},
      {"a first pattern line of one character", 7, "*", 5},
      {"an empty second pattern line", 8, "", 6},
      {"a second pattern line of one character", 8, "*", 6},
      {"a text for the first size", 11, "large", 7},
      {"a size beyond a float", 14, "1E39", 8},
      {"a size of nought", 11, " 0 ", 7},
      {"a size that a float has as nought", 11, "1E-60", 7},
      {"a size below nought", 14, "-7.8 ", 8},
      {"a size that no font has", 17, " 2160.5 ", 9},
      {"an infinite size", 17, "inf", 9},
      {"a size that is no number", 17, "nan", 9},
      {"no size but a comma", 17, ",", 9},
  };
  for (const Failure& c : cases) {
    const Reading reading = read(with(c.line, c.text));
    EXPECT_EQ(reading.path, std::nullopt) << c.name;
    EXPECT_EQ(valuesOf(reading.style), firstRead(c.taken)) << c.name;
  }
}

struct Value {
  const char* name;
  std::size_t line;
  std::string text;
  std::size_t at;
  std::string value;
};

TEST(ParameterReading, TakesEachValueByItsForm) {
  const Value cases[] = {
      {"largest colour", 2, " 2147483647 ", 0, "2147483647"},
      {"smallest colour", 2, "-2147483648 ", 0, "-2147483648"},
      {"rounded up to the smallest colour", 2, "-2147483648.5", 0, "-2147483648"},
      {"a half goes down to the even one", 3, "2.5", 1, "2"},
      {"a half goes up to the even one", 3, "3.5", 1, "4"},
      {"a half below nought goes to the even one", 4, "-1.5", 2, "-2"},
      {"exponent form", 5, "1.6777215E+07", 3, "16777215"},
      {"no blanks around a colour", 6, "77", 4, "77"},
      {"trailing blanks of a pattern", 7, "*0.0   *", 5, "0.0   "},
      {"leading blanks of a pattern", 7, "*  0.0*", 5, "  0.0"},
      {"a pattern of blanks", 8, "*  *", 6, "  "},
      {"an empty pattern", 8, "**", 6, ""},
      {"no asterisks: the outer characters go unlooked", 7, "a0.0b", 5, "0.0"},
      {"asterisks inside stay", 7, "**0*#**", 5, "*0*#*"},
      {"blanks outside the asterisks count", 7, " *0.0*", 5, "*0.0"},
      {"commas and quotes in a pattern", 8, "*\"0,0\"*", 6, "\"0,0\""},
      {"a caption is a whole line", 9, " \"A\", b ", 7,
       " \"A\", b |Face A|11.000000 11|Face A|11.000000"},
      {"an empty caption", 12, "", 8, "|Face B|8.500000 8.5|Face B|8.500000"},
      {"a font name is a whole line", 10, " Face, bold ", 7,
       "Caption A| Face, bold |11.000000 11| Face, bold |11.000000"},
      {"an empty font name", 16, "", 9, "Caption C||9.250000 9.25||9.250000"},
      {"bytes of Latin-1", 15, "Jos\xE9", 9, "Jos\xE9|Face C|9.250000 9.25|Face C|9.250000"},
      // 1/3 in 7 significant digits.
      {"a size has 7 digits as a caption", 11, " 0.33333333333 ", 7,
       "Caption A|Face A|0.333333 0.3333333|Face A|0.333333"},
      {"a small size has its caption in exponent form", 14, "1E-05", 8,
       "Caption B|Face B|0.000010 1E-05|Face B|0.000010"},
      {"the largest size", 17, " 2160 ", 9, "Caption C|Face C|2160.000000 2160|Face C|2160.000000"},
  };
  for (const Value& c : cases) {
    const Reading reading = read(with(c.line, c.text));
    EXPECT_EQ(reading.path, "/data/flood plain.zvm") << c.name;
    EXPECT_EQ(valuesOf(reading.style).at(c.at), c.value) << c.name;
  }
}

TEST(ParameterReading, ReadsThePathAsATextToken) {
  const std::pair<const char*, const char*> cases[] = {
      {"/data/a b.zvm", "/data/a b.zvm"},
      {"  \t/data/a.zvm", "/data/a.zvm"},
      {"/data/a.zvm ", "/data/a.zvm "},
      {"\"/data/a, b.zvm\" dropped", "/data/a, b.zvm"},
      {"", ""},
  };
  for (const auto& [line, path] : cases) {
    const Reading reading = read(with(1, line));
    EXPECT_EQ(reading.path, path) << line;
    EXPECT_EQ(valuesOf(reading.style), kRead) << line;
  }
}

TEST(ParameterReading, ACommaInThePathPutsAllOutOfStep) {
  // What stands behind the comma is read as the first colour, line 2 as the second and so on; the
  // fifth is then line 5 and line 6 becomes the first pattern, without its outer characters.
  const Reading reading = read(with(1, "/data/a,7"));
  EXPECT_EQ(reading.path, std::nullopt);
  const Lines values = valuesOf(reading.style);
  EXPECT_EQ(Lines(values.begin(), values.begin() + 7),
            (Lines{"7", "1", "2", "3", "4", "5", "0.0  "}));
}

TEST(ParameterReading, LineAfterANumberBeginsBehindItsDelimiter) {
  // A comma behind the fifth colour ends it: the rest of that line is the first pattern.
  EXPECT_EQ(valuesOf(read(with(6, " 5 ,*#*")).style).at(5), "#");
  // A word behind a size is the next caption, in the place of line 12.
  Lines rows = kFile;
  rows[10] = " 11 wide";
  rows.erase(rows.begin() + 11);
  EXPECT_EQ(valuesOf(read(file(rows)).style).at(8), "wide|Face B|8.500000 8.5|Face B|8.500000");
}

TEST(ParameterLoading, ReadsTheFileOfTheFolder) {
  const test::ScratchFolder folder;
  test::putFile(folder / "zevfit.ini", file(kFile));
  GraphStyle style;
  EXPECT_EQ(loadParameters(folder.path(), style), "/data/flood plain.zvm");
  EXPECT_EQ(valuesOf(style), kRead);
}

TEST(ParameterLoading, StartValuesStandWhereThereIsNoFile) {
  const test::ScratchFolder folder;
  std::filesystem::create_directory(folder / "taken");
  std::filesystem::create_directory(folder / "taken/zevfit.ini");
  for (const char* name : {"none", "taken", "."}) {
    GraphStyle style;
    style.cores.Label1 = kRed;
    EXPECT_EQ(loadParameters(folder / name, style), std::nullopt) << name;
    EXPECT_EQ(valuesOf(style), kStart) << name;
  }
}

}  // namespace
}  // namespace zevfit
