// The verbs info, check and test: what they print, and how they end.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;

class Verbs : public testing::Test {
 protected:
  std::string write(const std::string& name, const std::string& bytes) const {
    putFile(folder_ / name, bytes);
    return (folder_ / name).string();
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

 private:
  ScratchFolder folder_;
};

// ---- info

TEST_F(Verbs, InfoPrintsTables) {
  // An e with an accent is one byte in the file and one column in the table.
  const std::string file = write("a.zvm", kModel.with(4, "caf\xE9").with(1, "A plain").bytes());
  const Ran run = ran({"info", file});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.out,
            "title       A plain\n"
            "tag         zevRA1\n"
            "variables   1\n"
            "directions  1\n"
            "classes     2\n"
            "\n"
            "direction  azimuth  dip\n"
            "0;0        0        0\n"
            "\n"
            "variable  variance  model 0;0\n"
            "caf\xC3\xA9      1         N+S\n");
}

TEST_F(Verbs, InfoTellsAllAsJson) {
  const Lines file = kData.with(8, "-45;30").with(9, "0.1");
  const Json report = Json::parse(ran({"info", "-", "--json"}, file.bytes()).out);
  const Json expected{
      {"schema", "zvm.info/1"},
      {"file", "-"},
      {"title", "t"},
      {"tag", "zevra"},
      {"classes", 2},
      {"variables", {{{"name", "zinc"}, {"variance", 0.1}}, {{"name", "lead"}, {"variance", 4.0}}}},
      {"directions", {{{"name", "-45;30"}, {"azimuth", -45.0}, {"dip", 30.0}}}},
      {"models", Json::array()}};
  EXPECT_EQ(report, expected);
  const Json models = Json::parse(ran({"info", "-", "--json"}, kModel.bytes()).out).at("models");
  EXPECT_EQ(models, Json::parse(R"([{"variable":"zinc","direction":"0;0","lines":"N+S"}])"));
}

TEST_F(Verbs, InfoOfADirectionWithoutAnglesHasNone) {
  const Ran run = ran({"info", "-"}, kData.with(8, "omni").bytes());
  EXPECT_NE(run.out.find("omni       -        -\n"), std::string::npos) << run.out;
  const Json row =
      Json::parse(ran({"info", "-", "--json"}, kData.with(8, "omni").bytes()).out)["directions"][0];
  EXPECT_TRUE(row.at("azimuth").is_null());
}

TEST_F(Verbs, RefuseAFileWithErrorsByItsFirst) {
  const std::string file = write("a.zvm", kData.with(13, "x y 40").bytes());
  for (const std::vector<std::string>& arguments :
       {std::vector<std::string>{"info", file}, {"test", file, "--all"}}) {
    const Ran run = ran(arguments);
    EXPECT_EQ(run.code, 3);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zvm: error: " + file +
                           ":13:1: `x` in place of the distance of class 1 of `lead` in `0;0`\n");
  }
}

TEST_F(Verbs, WarnOfWhatIsNotRead) {
  const std::string bytes = kData.and_("more").bytes();
  EXPECT_EQ(ran({"info", "-"}, bytes).err,
            "zvm: warning: -:15:1: 5 bytes behind the end are not read\n");
  EXPECT_EQ(ran({"info", "-", "-q"}, bytes).err, "");
  EXPECT_EQ(ran({"info", "-", "--quiet"}, bytes).code, 0);
}

// ---- check

TEST_F(Verbs, CheckShowsTheLineAndACaret) {
  const Ran run = ran({"check", "-"}, kData.with(10, "\t10\tx 40").with(4, "\xE9tain").bytes());
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "-:10:5: error: `x` in place of the semivariance of class 1 of `\xC3\xA9tain` in "
            "`0;0`\n"
            "\t10\tx 40\n"
            "\t  \t^\n");
}

TEST_F(Verbs, CheckShowsPartOfALongLine) {
  // The text begins at byte 301 of 601: 80 bytes in front of it are shown, and 80 from it on.
  const std::string title = "\"" + std::string(299, 'a') + "b,\"" + std::string(299, 'c');
  const Ran run = ran({"check", "-"},
                      kData.with(9, std::string(300, ' ') + "x" + std::string(300, 'y')).bytes());
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.out, "-:9:301: error: `x" + std::string(39, 'y') +
                         "...` in place of the variance of `zinc`\n" + std::string(80, ' ') + "x" +
                         std::string(79, 'y') + "\n" + std::string(80, ' ') + "^\n");
}

TEST_F(Verbs, CheckOfGoodFilesAndOfWarningsIsGood) {
  EXPECT_EQ(ran({"check", "-"}, kData.bytes()).out, "");
  EXPECT_EQ(ran({"check", "-"}, kData.bytes()).code, 0);
  const Ran run = ran({"check", "-", "-q"}, kData.with(10, "10 1 3").bytes());
  EXPECT_EQ(run.code, 0);
  EXPECT_NE(run.out.find("-:10:6: warning: "), std::string::npos)
      << "findings are what was asked for";
}

TEST_F(Verbs, CheckOfSeveralFilesEndsByTheWorst) {
  const std::string good = write("good.zvm", kData.bytes());
  const std::string bad = write("bad.zvm", kData.with(3, "x").bytes());
  EXPECT_EQ(ran({"check", good, bad}).code, 1);
  EXPECT_EQ(ran({"check", bad, good}).code, 1);
  EXPECT_EQ(ran({"check", good, good}).code, 0);
  const Ran run = ran({"check", path("none.zvm"), bad});
  EXPECT_EQ(run.code, 4);
  EXPECT_EQ(run.err,
            "zvm: error: cannot read " + path("none.zvm") + ": No such file or directory\n");
  EXPECT_EQ(run.out, bad + ":3:1: error: `x` is no number of variables\nx\n^\n");
}

TEST_F(Verbs, CheckTellsAllAsJson) {
  const Json report = Json::parse(
      ran({"check", "-", "--json"}, kData.with(10, "10 1 3").with(14, "20 z 40").bytes()).out);
  const Json expected{
      {"schema", "zvm.check/1"},
      {"files",
       {{{"file", "-"},
         {"errors", 1},
         {"warnings", 1},
         {"findings",
          {{{"line", 10},
            {"column", 6},
            {"severity", "warning"},
            {"text", "class 1 of `zinc` in `0;0` has 3 pairs, fewer than 30"}},
           {{"line", 14},
            {"column", 4},
            {"severity", "error"},
            {"text", "`z` in place of the semivariance of class 2 of `lead` in `0;0`"}}}}}}}};
  EXPECT_EQ(report, expected);
}

TEST_F(Verbs, CheckTellsWhatItCanNotReadAsJson) {
  const std::string good = write("good.zvm", kData.bytes());
  const Ran run = ran({"check", path("none.zvm"), good, "--json"});
  EXPECT_EQ(run.code, 4);
  const Json files = Json::parse(run.out).at("files");
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files.at(0).at("failure"),
            "cannot read " + path("none.zvm") + ": No such file or directory");
  EXPECT_EQ(files.at(0).at("errors"), 0);
  EXPECT_FALSE(files.at(1).contains("failure"));
}

TEST_F(Verbs, CheckReadsStdinOnce) {
  const Ran run = ran({"check", "-", "-"}, kData.bytes());
  EXPECT_EQ(run.code, 2);
  EXPECT_EQ(run.err, "zvm: error: stdin is there twice: it can be read once\n");
}

// ---- test

/// Variables with a spherical structure of range 15 in each direction; a variable as its name and
/// sill.
std::string withModels(const std::vector<std::pair<std::string, std::string>>& variables,
                       const std::vector<std::string>& directions) {
  std::string head = "t\nzevRA1\n" + std::to_string(variables.size()) + "\n", data, models;
  for (const auto& [name, sill] : variables) {
    head += name + "\n";
    data += "2\n";
    for (std::size_t d = 0; d < directions.size(); ++d) {
      data += "10 1 40\n";
      models += "0\n0\n1\nS\n" + sill + "\n15\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
    }
  }
  head += std::to_string(directions.size()) + "\n1\n";
  for (const std::string& direction : directions) head += direction + "\n";
  return head + data + models;
}

const std::vector<std::string> kOmni{"0;0"};

std::string threeUnits(const std::string& ab, const std::string& ac, const std::string& bc) {
  return withModels({{"a", "1"}, {"b", "1"}, {"c", "1"}, {"a-b", ab}, {"a-c", ac}, {"c-b", bc}},
                    kOmni);
}

TEST_F(Verbs, TestPrintsTheTreeAndTheMatrix) {
  const std::string file = withModels({{"zinc", "4"}, {"lead", "1"}, {"zinc-lead", "1"}}, kOmni);
  const Ran run = ran({"test", "-", "--primary", "zinc", "--secondary", "lead"}, file);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  // (4 - x)(1 - x) = 1 at (5 - sqrt 13) / 2.
  EXPECT_EQ(run.out,
            "zinc, lead, cross zinc-lead\n"
            "        Test Results\n"
            "passed    Main Direction:(0;0)\n"
            "passed    Minor Direction 1:(0;0)\n"
            "passed    Minor Direction 2:(0;0)\n"
            "\n"
            "Full matrix of zinc, lead\n"
            "passed  structure 1 in 0;0: least eigenvalue 0.697224362268005, trace 5\n");
}

TEST_F(Verbs, TestPrintsEachFaultBelowItsDirection) {
  const std::string file =
      withModels({{"zinc", "4"}, {"lead", "1"}, {"zl", "-2.5"}}, {"0;0", "90;0"});
  const Ran run = ran({"test", "-", "--primary", "zinc", "--secondary", "lead", "--cross", "zl",
                       "--main", "0;0", "--minor1", "90;0"},
                      file);
  EXPECT_EQ(run.code, 1);
  const std::string fault =
      "passed      Number of structures\n"
      "passed        Ranges\n"
      "failed        Wrong sills\n"
      "failed           |C 1xy|  =< 2.0\n";
  // (5 - sqrt(9 + 25)) / 2.
  EXPECT_EQ(run.out,
            "zinc, lead, cross zl\n"
            "        Test Results\n"
            "faulty    Main Direction:(0;0)\n" +
                fault + "faulty    Minor Direction 1:(90;0)\n" + fault +
                "faulty    Minor Direction 2:(90;0)\n" + fault +
                "\n"
                "Full matrix of zinc, lead\n"
                "failed  structure 1 in 0;0: least eigenvalue -0.41547594742265, trace 5\n"
                "failed  structure 1 in 90;0: least eigenvalue -0.41547594742265, trace 5\n");
}

TEST_F(Verbs, TestOfAllFailsByTheMatrixAlone) {
  const Ran run = ran({"test", "-", "--all"}, threeUnits("0.9", "0.9", "-0.9"));
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.out.find("faulty"), std::string::npos);
  EXPECT_NE(
      run.out.find("Full matrix of a, b, c\nfailed  structure 1 in 0;0: least eigenvalue -0.8"),
      std::string::npos)
      << run.out;
  EXPECT_EQ(ran({"test", "-", "--all"}, threeUnits("0.9", "0.9", "0.9")).code, 0);
}

TEST_F(Verbs, TestTellsThatPowersHaveNoSill) {
  std::string file = withModels({{"a", "1"}, {"b", "2"}, {"a-b", "3"}}, kOmni);
  for (std::size_t at = file.find("S\n"); at != file.npos; at = file.find("S\n")) file[at] = 'P';
  const Ran run = ran({"test", "-", "--all"}, file);
  EXPECT_EQ(run.code, 1) << "3 squared is more than 2";
  EXPECT_EQ(run.err,
            "zvm: warning: -: a power structure is h^a without a sill: the tree compares the sills "
            "that b, a-b have in the file, the full matrix takes 1\n");
  EXPECT_NE(run.out.find("passed  structure 1 in 0;0: least eigenvalue 0, trace 2\n"),
            std::string::npos)
      << run.out;
}

TEST_F(Verbs, TestNamesTheFileOfSillsBeyondNumbers) {
  const Ran run = ran({"test", "-", "--all"},
                      withModels({{"a", "1e308"}, {"b", "1e308"}, {"a-b", "1"}}, kOmni));
  EXPECT_EQ(run.code, 3);
  EXPECT_EQ(run.err, "zvm: error: -: the sills can't be tested: Overflow\n");
}

TEST_F(Verbs, TestOfTwoOfThreeLooksAtThoseTwo) {
  const Ran run =
      ran({"test", "-", "--primary", "b", "--secondary", "c"}, threeUnits("0.9", "0.9", "-0.9"));
  EXPECT_EQ(run.code, 0) << run.out;
  EXPECT_NE(run.out.find("b, c, cross c-b\n"), std::string::npos);
}

TEST_F(Verbs, TestOfAllTestsEachDirectionByItself) {
  const std::string file = withModels({{"a", "1"}, {"b", "1"}, {"a-b", "0.5"}}, {"0;0", "90;0"});
  const Json report = Json::parse(ran({"test", "-", "--all", "--json"}, file).out);
  EXPECT_EQ(report.at("schema"), "zvm.test/1");
  EXPECT_EQ(report.at("passed"), true);
  ASSERT_EQ(report.at("tests").size(), 2U);
  for (const int d : {0, 1}) {
    const Json& test = report.at("tests").at(static_cast<std::size_t>(d));
    for (const char* axis : {"main", "minor1", "minor2"})
      EXPECT_EQ(test.at(axis), d == 0 ? "0;0" : "90;0");
    EXPECT_EQ(test.at("tree").at(0).at("text"), "Test Results");
    EXPECT_EQ(test.at("tree").at(1).at("image"), "passed");
  }
  const Json& lines = report.at("fullMatrix").at("lines");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines.at(0).at("leastEigenvalue"), 0.5);
  EXPECT_EQ(lines.at(1).at("direction"), "90;0");
}

TEST_F(Verbs, TestNamesPairsWithoutACross) {
  const std::string file = withModels({{"a", "1"}, {"b", "1"}, {"c", "1"}, {"a-b", "0.5"}}, kOmni);
  const Ran run = ran({"test", "-", "--all"}, file);
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(
      run.err,
      "zvm: warning: -: no cross variable of a and c, b and c; in the matrix their cross sills "
      "count as 0\n");
}

TEST_F(Verbs, TestTakesACrossVariableOfAnotherName) {
  const std::string file = withModels({{"a", "1"}, {"b", "1"}, {"x,", "0.5"}}, kOmni);
  const std::string named = withModels({{"a", "1"}, {"b", "1"}, {"cov", "2"}}, kOmni);
  EXPECT_EQ(ran({"test", "-", "--all", "--cross-of", "cov=b,a"}, named).code, 1);
  const Ran none = ran({"test", "-", "--all"}, named);
  EXPECT_EQ(none.code, 3);
  EXPECT_EQ(
      none.err,
      "zvm: error: no cross variable in -: none is named A-B for two variables A and B; there "
      "are a, b, cov; --cross-of \"NAME=A,B\" names one\n");
}

TEST_F(Verbs, TestTakesTheFirstOfTwoCrossVariables) {
  // The one that is told comes before those by their names; the other two would fail.
  const std::string file =
      withModels({{"a", "1"}, {"b", "1"}, {"b-a", "2"}, {"a-b", "2"}, {"cov", "0.5"}}, kOmni);
  const Ran run = ran({"test", "-", "--all", "--cross-of", "cov=a,b"}, file);
  EXPECT_EQ(run.code, 0) << run.out;
  EXPECT_EQ(run.err,
            "zvm: warning: -: b-a and cov are both the cross variable of b and a; cov counts\n"
            "zvm: warning: -: a-b and cov are both the cross variable of a and b; cov counts\n");
}

TEST_F(Verbs, TestAsksForWhatItNeeds) {
  const std::string two = withModels({{"a", "1"}, {"b", "1"}, {"a-b", "0.5"}}, {"0;0", "90;0"});
  struct Row {
    std::vector<std::string> arguments;
    int code;
    const char* message;
  };
  const Row rows[] = {
      {{}, 2, "--primary and --secondary are missing, or --all"},
      {{"--primary", "a"}, 2, "--primary and --secondary are missing, or --all"},
      {{"--all", "--main", "0;0"}, 2, "--all takes no variable and no direction"},
      {{"--primary", "a", "--secondary", "b", "--cross-of", "a-b=a,b"},
       2,
       "--cross-of goes with --all; a single cross variable is --cross"},
      {{"--primary", "a", "--secondary", "b"},
       2,
       "--main is missing; there are the directions 0;0, 90;0"},
      {{"--primary", "a", "--secondary", "a", "--main", "1"},
       2,
       "--primary and --secondary are one variable"},
      {{"--primary", "a", "--secondary", "a-b", "--main", "1"},
       2,
       "--cross is missing: no variable is named a-a-b; there are b"},
      {{"--primary", "a", "--secondary", "b", "--cross", "b", "--main", "1"},
       2,
       "--cross is --primary or --secondary"},
      {{"--primary", "a", "--secondary", "b", "--cross", "", "--main", "1"},
       3,
       "no variable `` in -; there are a, b, a-b"},
      {{"--primary", "a", "--secondary", "b", "--main", ""},
       3,
       "no direction `` in -; there are 0;0, 90;0"},
      {{"--all", "--cross-of", "a-b=a,a"}, 2, "--cross-of takes three variables, not `a-b=a,a`"},
      {{"--all", "--cross-of", "b=a,b"}, 2, "--cross-of takes three variables, not `b=a,b`"},
      {{"--primary", "a", "--secondary", "c", "--main", "1"},
       3,
       "no variable `c` in -; there are a, b, a-b"},
      {{"--primary", "2", "--secondary", "1", "--main", "9;0"},
       3,
       "no direction `9;0` in -; there are 0;0, 90;0"},
      {{"--all", "--cross-of", "a-b"}, 2, "--cross-of takes \"NAME=A,B\", not `a-b`"},
  };
  for (const Row& row : rows) {
    std::vector<std::string> arguments{"test", "-"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Ran run = ran(arguments, two);
    EXPECT_EQ(run.err, std::string("zvm: error: ") + row.message + "\n");
    EXPECT_EQ(run.code, row.code) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
  }
}

}  // namespace
}  // namespace zevfit::test
