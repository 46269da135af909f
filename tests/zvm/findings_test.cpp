// What is found in a variogram file, each kind with its line and column.
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "tests/zvm/command.h"
#include "zvm/checking/check_file.h"

namespace zevfit::test {
namespace {

using Findings = std::vector<std::string>;

/// "LINE:COLUMN: error: text" each.
Findings findingsOf(const std::string& bytes) {
  Findings texts;
  for (const auto& [severity, place, text, topic] : checking::checkFile(bytes).findings)
    texts.push_back(std::to_string(place.line) + ':' + std::to_string(place.column) + ": " +
                    (severity == checking::Severity::error ? "error: " : "warning: ") + text);
  return texts;
}

struct Row {
  const char* name;
  Lines file;
  Findings findings;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

class Found : public testing::TestWithParam<Row> {};

TEST_P(Found, AtItsPlace) { EXPECT_EQ(findingsOf(GetParam().file.bytes()), GetParam().findings); }

INSTANTIATE_TEST_SUITE_P(
    Header, Found,
    testing::Values(
        Row{"nothing", kData, {}},
        Row{"no variables",
            kData.with(3, "none"),
            {"3:1: error: `none` is no number of variables"}},
        Row{"half a variable",
            kData.with(3, "2.5"),
            {"3:1: error: `2.5` is no number of variables"}},
        Row{"zero variables", kData.with(3, "0"), {"3:1: error: `0` is no number of variables"}},
        Row{"fewer than none", kData.with(7, "  -2"), {"7:3: error: `-2` is no number of classes"}},
        Row{"41 variables",
            kData.with(3, "41"),
            {"3:1: error: number of variables 41 is more than zevFIT holds, which is 40"}},
        Row{"21 directions",
            kData.with(6, " 21 "),
            {"6:2: error: number of directions 21 is more than zevFIT holds, which is 20"}},
        Row{"a text for directions",
            kData.with(6, "0;0"),
            {"6:1: error: `0;0` is no number of directions"}},
        Row{"more classes than digits tell apart",
            kData.with(7, "1e16"),
            {"7:1: error: `1e16` is no number of classes"}},
        Row{"a comma in the title",
            kData.with(1, "Flood, plain"),
            {"2:1: error: `zevra` is no number of variables (the comma in the title ends it; it "
             "takes double quotes)"}},
        Row{"a quoted comma in the title",
            kData.with(1, "\"Flood, plain\""),
            {"1:1: warning: a comma in quotes in the title: a program that writes it without "
             "quotes breaks the file"}},
        Row{"a quoted comma in a name",
            kData.with(4, "  \"zinc, ln\""),
            {"4:3: warning: a comma in quotes in the name of variable 1: a program that writes it "
             "without "
             "quotes breaks the file"}},
        Row{"a text behind quotes",
            kData.with(5, "\"lead\" (ppm)"),
            {"5:1: warning: a save does not bring back what stands behind the quotes of the "
             "name of variable 2"}},
        Row{"a name of nothing",
            kData.with(5, "\"\""),
            {"5:1: warning: variable 2 has no name; a save gives it one"}},
        Row{"a tag that a save breaks",
            kData.with(2, "\"a, b\""),
            {"2:1: warning: a comma in quotes in the tag: a program that writes it without quotes "
             "breaks the file",
             "2:1: warning: the tag `a, b` is none that a save brings back"}},
        Row{"a line end in a name",
            kData.with(5, "\"le\nad\""),
            {"5:1: warning: a line end in quotes in the name of variable 2: a program that writes "
             "it "
             "without quotes breaks the file"}},
        Row{"a blank in front of a name",
            kData.with(5, "\" lead\""),
            {"5:1: warning: a blank in front in the quotes of the name of variable 2: a program "
             "that "
             "writes it without quotes drops it"}},
        Row{"blanks within and behind a name", kData.with(5, "\"le\tad \""), {}},
        Row{"no title",
            kData.with(1, "\" \""),
            {"1:1: warning: no title: a program that writes it without quotes breaks the file"}},
        Row{"a control character in a name",
            kData.with(5, "le\x1B[31m\x07"),
            {"5:3: warning: a control character, 0x1B, in the name of variable 2"}},
        Row{"one beyond ASCII, in quotes",
            kData.with(4, " \"zi\x85n\""),
            {"4:5: warning: a control character, 0x85, in the name of variable 1"}},
        Row{"the last of them in the title",
            kData.with(1, "\x7F"),
            {"1:1: warning: a control character, 0x7F, in the title"}},
        Row{"letters of Latin-1", kData.with(5, "\xE9tain \xA0\xFF\xC3"), {}},
        Row{"a name in UTF-8",
            kData.with(5, "z\xC3\xAFnc \xE2\x82\xAC"),
            {"5:2: warning: the name of variable 2 looks like UTF-8; it is read as Latin-1, each "
             "byte as a letter of its own"}},
        Row{"equal names",
            kData.with(5, "zinc "),
            {"5:1: warning: two names of variables are `zinc`"}},
        Row{"a direction without angles",
            kData.with(8, "omni"),
            {"8:1: warning: the direction `omni` has no azimuth and dip, as in 0;0"}}));

INSTANTIATE_TEST_SUITE_P(
    Data, Found,
    testing::Values(
        Row{"a text for the variance",
            kData.with(9, "one"),
            {"9:1: error: `one` in place of the variance of `zinc`"}},
        Row{"a text for a distance",
            kData.with(10, " x 0.5 40"),
            {"10:2: error: `x` in place of the distance of class 1 of `zinc` in `0;0`"}},
        Row{"a decimal comma moves all behind it",
            kData.with(10, "10 0,5 40"),
            {"10:6: warning: class 1 of `zinc` in `0;0` has 5 pairs, fewer than 30",
             "11:4: warning: class 2 of `zinc` in `0;0` has 1.5 pairs, fewer than 30",
             "13:4: warning: class 1 of `lead` in `0;0` has 1 pair, fewer than 30",
             "14:4: warning: class 2 of `lead` in `0;0` has 2 pairs, fewer than 30",
             "14:6: warning: 3 bytes behind the end are not read"}},
        Row{"a text for a semivariance",
            kData.with(14, "20 1.2.3 40"),
            {"14:4: error: `1.2.3` in place of the semivariance of class 2 of `lead` in `0;0`"}},
        Row{"a text for pairs",
            kData.with(13, "10 1 many"),
            {"13:6: error: `many` in place of the number of pairs of class 1 of `lead` in `0;0`"}},
        Row{"an empty field",
            kData.with(13, "10,,40"),
            {"13:4: warning: nothing in place of the semivariance of class 1 of `lead` in `0;0`, "
             "which counts as 0"}},
        Row{"pairs beyond single precision",
            kData.with(13, "10 1 1e39"),
            {"13:6: error: `1e39` in place of the number of pairs of class 1 of `lead` in `0;0`"}},
        Row{"the end in a class",
            kData.first(13).and_("20 2"),
            {"14:5: error: the file ends before the number of pairs of class 2 of `lead` in "
             "`0;0`"}},
        Row{"the end before a variable",
            kData.first(11),
            {"11:10: error: the file ends before the variance of `lead`"}},
        Row{"the end in the names",
            kData.first(4),
            {"4:5: error: the file ends before the name of variable 2"}},
        Row{"bytes behind",
            kData.and_("").and_("  end"),
            {"16:3: warning: 4 bytes behind the end are not read"}},
        Row{"a model dropped for its tag",
            kModel.with(2, "zevra"),
            {"2:1: warning: for the tag `zevra` the block of models from line 11 on is dropped; it "
             "takes the tag zevRA1"}},
        Row{"a class without pairs",
            kData.with(10, "10 0.5 0"),
            {"10:8: warning: class 1 of `zinc` in `0;0` has no pairs"}},
        Row{"few pairs",
            kData.with(10, "10 0.5 29"),
            {"10:8: warning: class 1 of `zinc` in `0;0` has 29 pairs, fewer than 30"}},
        Row{"thirty pairs", kData.with(10, "10 0.5 30"), {}},
        Row{"distances that stay",
            kData.with(11, "10 1.5 40"),
            {"11:1: warning: the distance of class 2 of `zinc` in `0;0` is not above the one "
             "before"}},
        Row{"a distance of no pairs is none",
            kData.with(10, "99 0.5 0"),
            {"10:8: warning: class 1 of `zinc` in `0;0` has no pairs"}},
        Row{"a negative semivariance",
            kData.with(10, "10 -0.5 40"),
            {"10:4: warning: the semivariance of class 1 of `zinc` in `0;0` is negative"}},
        Row{"a negative one of a cross variable",
            Lines({"t", "zevra", "3", "zinc", "lead", "lead-zinc", "1", "1", "0;0", "1", "10 1 40",
                   "1", "10 1 40", "1", "10 -1 40"}),
            {}}));

INSTANTIATE_TEST_SUITE_P(
    Models, Found,
    testing::Values(
        Row{"nothing", kModel, {}},
        Row{"a cut block",
            kModel.first(15),
            {"15:4: warning: the block of models is cut: the model of `zinc` in `0;0` and those "
             "behind it repeat the last number and letter"}},
        Row{"no block",
            kModel.first(10),
            {"10:10: warning: the block of models is cut: the model of `zinc` in `0;0` and those "
             "behind it repeat the last number and letter"}},
        Row{"another flag",
            kModel.with(13, "2"),
            {"13:1: error: the flag of structure 1 of `zinc` in `0;0` is 2, not 0 or 1; a save "
             "leaves the line out"}},
        Row{"a flag of the nugget",
            kModel.with(11, "0.5"),
            {"11:1: error: the flag of the nugget of `zinc` in `0;0` is 0.5, not 0 or 1; a save "
             "leaves the line out"}},
        Row{"a text for a flag",
            kModel.with(11, "yes"),
            {"11:1: error: `yes` in place of the flag of the nugget of `zinc` in `0;0`"}},
        Row{"another letter",
            kModel.with(14, " X"),
            {"14:2: warning: the letter of structure 1 of `zinc` in `0;0` is `X`, not one of S, E, "
             "G, P and -"}},
        Row{"another letter of a line that is off",
            kModel.with(18, "s"),
            {"18:1: warning: the letter of structure 2 of `zinc` in `0;0` is `s`, not one of S, E, "
             "G, P and -"}},
        Row{"no letter",
            kModel.with(14, "-"),
            {"14:1: warning: the letter of structure 1 of `zinc` in `0;0` is -, though it is "
             "used"}},
        Row{"a text for a sill",
            kModel.with(15, "C"),
            {"15:1: error: `C` in place of the sill of structure 1 of `zinc` in `0;0`"}},
        Row{"a range of 0",
            kModel.with(16, "0"),
            {"16:1: warning: the range of structure 1 of `zinc` in `0;0` is 0, not above 0"}},
        Row{"20 times the largest distance", kModel.with(16, "400"), {}},
        Row{"a range beyond",
            kModel.with(16, " 400.5"),
            {"16:2: warning: the range of structure 1 of `zinc` in `0;0` is 400.5, beyond 20 times "
             "the largest distance, 20"}},
        Row{"an exponent of 2",
            kModel.with(14, "P").with(16, "2"),
            {"16:1: warning: the exponent 2 of structure 1 of `zinc` in `0;0` is not below 2"}},
        Row{"an exponent of 0",
            kModel.with(14, "P").with(16, "0"),
            {"16:1: warning: the exponent 0 of structure 1 of `zinc` in `0;0` is not above 0"}},
        Row{"a power structure has no sill",
            kModel.with(14, "P").with(15, "9").with(16, "1.5"),
            {}},
        Row{"twice the variance", kModel.with(15, "1.9"), {}},
        Row{"more than twice the variance",
            kModel.with(15, "2"),
            {"15:1: warning: the total sill of `zinc` in `0;0` is 2.1, above twice the variance, "
             "1"}},
        Row{"less than nothing",
            kModel.with(15, "-2.5"),
            {"15:1: warning: the total sill of `zinc` in `0;0` is -2.4, in size above twice the "
             "variance, 1"}},
        Row{"more than twice a negative variance",
            kModel.with(8, "-1").with(15, "2"),
            {"15:1: warning: the total sill of `zinc` in `0;0` is 2.1, in size above twice the "
             "variance, -1"}},
        Row{"more than twice it by the nugget",
            kModel.with(12, "3").with(13, "0"),
            {"12:1: warning: the total sill of `zinc` in `0;0` is 3, above twice the variance, "
             "1"}}));

TEST(Findings, CountOneByteAsOne) {
  EXPECT_EQ(findingsOf(kData.bytes() + "."),
            Findings{"15:1: warning: 1 byte behind the end is not read"});
}

TEST(Findings, OfNothingIsItsEnd) {
  EXPECT_EQ(findingsOf(""), Findings{"1:1: error: the file ends before the title"});
  EXPECT_EQ(findingsOf("  \n "), Findings{"2:2: error: the file ends before the title"});
}

TEST(Findings, HaveTheirPlaceWhateverEndsTheLines) {
  const Lines file = kData.with(13, "10 1 x");
  const Findings expected{
      "13:6: error: `x` in place of the number of pairs of class 1 of `lead` in `0;0`"};
  for (const char* end : {"\n", "\r\n", "\r"}) EXPECT_EQ(findingsOf(file.bytes(end)), expected);
}

TEST(Findings, OfAFileOnOneLineHaveTheColumnOfTheirToken) {
  // t,zevra,1,v,1,1,0;0,1 10 x 40: the x is byte 26.
  EXPECT_EQ(findingsOf("t,zevra,1,v,1,1,0;0,1 10 x 40"),
            Findings{"1:26: error: `x` in place of the semivariance of class 1 of `v` in `0;0`"});
}

TEST(Findings, NameControlCharactersAndShowBlanks) {
  const std::string bytes =
      kData.with(4, std::string("zi\x1B") + "nc").with(10, "10 \x01 40").bytes();
  const std::string text = "in place of the semivariance of class 1 of `zi\\x1Bnc` in `0;0`";
  EXPECT_NE(
      ran({"check", "-"}, bytes).out.find("-:10:4: error: `\\x01` " + text + "\n10   40\n   ^\n"),
      std::string::npos)
      << ran({"check", "-"}, bytes).out;
  EXPECT_EQ(ran({"info", "-"}, bytes).err, "zvm: error: -:10:4: `\\x01` " + text + "\n");
}

TEST(Findings, ContentIsWhatTheFileHolds) {
  const auto content = checking::checkFile(kModel.bytes()).content;
  EXPECT_EQ(content.title, "t");
  EXPECT_EQ(content.tag, "zevRA1");
  EXPECT_EQ(content.variances, std::vector<double>{1});
  ASSERT_EQ(content.data.size(), 1U);
  ASSERT_EQ(content.data[0].size(), 2U);
  EXPECT_EQ(content.data[0][1].distance, 20);
  EXPECT_EQ(content.data[0][1].semivariance, 1.5);
  EXPECT_EQ(content.data[0][1].pairs, 40);
  ASSERT_EQ(content.models.size(), 1U);
  EXPECT_EQ(content.models[0][0].sill, 0.1);
  EXPECT_EQ(content.models[0][1].letter, "S");
  EXPECT_EQ(content.models[0][1].range, 15);
  EXPECT_EQ(content.models[0][3].letter, "-");
}

}  // namespace
}  // namespace zevfit::test
