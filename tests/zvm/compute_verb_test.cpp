// The verbs compute and merge: files, reports, refusals.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "session/session.h"
#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;
using Arguments = std::vector<std::string>;

/// Four corners of a square with a side of 1; 3 and 4 lie at one place.
constexpr const char* kSquare =
    "x,y,zinc,lead,what\n0,0,1,10,a\n0,1,2,20,b\n1,0,4,NA,c\n1,0,5,50,d\n,1,9,90,e\n";

class ComputeVerb : public testing::Test {
 protected:
  std::string write(const std::string& name, const std::string& bytes) const {
    putFile(folder_ / name, bytes);
    return path(name);
  }
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  /// compute of the square with more options.
  Ran square(const Arguments& more, const std::string& points = kSquare) const {
    Arguments arguments{"compute", "-",    "--x",   "x", "--y",    "y",
                        "--var",   "zinc", "--lag", "1", "--lags", "2"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return ran(arguments, points);
  }

 private:
  ScratchFolder folder_;
};

TEST_F(ComputeVerb, WritesAVariogramFile) {
  const Ran run = square({path("a.zvm"), "--title", "caf\xC3\xA9"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  // Sides: differences 1, 3, 4; the diagonal twice: 2, 3. The variance of 1, 2, 4, 5 is 10 / 3.
  EXPECT_EQ(contentOf(path("a.zvm")),
            "caf\xE9\r\nzevlag\r\n 1 \r\nzinc\r\n 1 \r\n 2 \r\n0;0\r\n 3.33333333333333 \r\n"
            " 1             4.33333333333333            3 \r\n"
            " 1.4142135623731             3.25          2 \r\n");
  EXPECT_EQ(ran({"check", "-q", path("a.zvm")}).code, 0);
}

TEST_F(ComputeVerb, ReportsWhatBecameOfThePoints) {
  EXPECT_EQ(
      square({path("a.zvm"), "--var", "lead", "--cross", "all", "--zero", "first", "-q"}).code, 0);
  const Ran run = square({path("b.zvm"), "--dir", "0;0", "--dir", "90;0"});
  const std::size_t pace = run.out.find("pairs a second");
  ASSERT_NE(pace, std::string::npos) << run.out;
  EXPECT_EQ(run.out.substr(0, pace),
            "title                    Semivariograms\n"
            "points read              5\n"
            "without coordinates      1\n"
            "without a value          0\n"
            "used                     4\n"
            "in the place of another  1\n")
      << run.out;
  EXPECT_NE(run.out.find("zinc      4       1 left out\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("90;0       zinc      1 2\n"), std::string::npos) << run.out;
}

TEST_F(ComputeVerb, JsonHasTheNumbersOfTheFile) {
  const Ran run = square({path("a.zvm"), "--json", "--var", "lead", "--cross", "zinc:lead", "--dir",
                          "0;0", "--dir", "90;0", "--tol", "45"});
  EXPECT_EQ(run.err,
            "zvm: warning: `zinc-lead` is computed at the 3 points that both have, of 4 and 3\n");
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("schema"), "zvm.compute/1");
  EXPECT_EQ(report.at("points"), Json::parse(R"({"read":5,"withoutCoordinates":1,"withoutValue":0,
                                                 "used":4,"duplicates":1})"));
  EXPECT_EQ(report.at("variables").size(), 3U);
  EXPECT_EQ(report.at("variables")[2].at("name"), "zinc-lead");
  EXPECT_EQ(report.at("variables")[2].at("points"), 3);
  Session session;
  ASSERT_TRUE(readVariogramFile(path("a.zvm"), session));
  const Json& all = report.at("semivariograms");
  ASSERT_EQ(all.size(), 6U);
  for (std::int64_t v = 1; v <= 3; ++v)
    for (std::int64_t d = 1; d <= 2; ++d)
      for (std::int64_t k = 1; k <= 2; ++k) {
        const Json& lag = all.at(static_cast<std::size_t>((v - 1) * 2 + d - 1))
                              .at("classes")
                              .at(static_cast<std::size_t>(k - 1));
        EXPECT_NEAR(session.hlag({v, d}, k).number(), lag.at("distance").get<double>(), 1e-14);
        EXPECT_NEAR(session.gam({v, d}, k), lag.at("semivariance").get<double>(), 1e-12);
        EXPECT_EQ(session.npairs({v, d}, k), lag.at("pairs").get<float>());
      }
}

TEST_F(ComputeVerb, ToStdoutTheReportGoesBeside) {
  const Ran run = square({"-"});
  EXPECT_EQ(run.out.substr(0, 24), "Semivariograms\r\nzevlag\r\n");
  EXPECT_NE(run.err.find("points read"), std::string::npos);
  EXPECT_EQ(square({"-", "--json"}).code, 2);
}

TEST_F(ComputeVerb, PartsJoinToTheSameFile) {
  const Arguments more{"--var", "lead", "--cross", "all", "-q", "--title", "t"};
  const auto with = [&more](Arguments arguments) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  };
  ASSERT_EQ(square(with({path("whole.zvm")})).code, 0);
  ASSERT_EQ(square(with({"--part", "1/2", "-o", path("1")})).code, 0);
  ASSERT_EQ(square(with({"--part", "2/2", "-o", path("2")})).code, 0);
  const Ran run = ran({"merge", path("2"), path("1"), path("joined.zvm")});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(contentOf(path("joined.zvm")), contentOf(path("whole.zvm")));
  EXPECT_EQ(ran({"merge", "-", path("1"), path("piped.zvm")}, contentOf(path("2"))).code, 0);
  EXPECT_EQ(contentOf(path("piped.zvm")), contentOf(path("whole.zvm")));
  const Ran missing = ran({"merge", path("2"), path("other.zvm")});
  EXPECT_EQ(missing.code, 3);
  EXPECT_EQ(missing.err, "zvm: error: part 1 of 2 is missing\n");
  const std::string none = path("none"), noPart = write("a.csv", "x,y\n");
  const Ran bad = ran({"merge", noPart, none, path("1"), noPart, path("other.zvm")});
  EXPECT_EQ(bad.code, 4);
  const std::string isNone = "zvm: error: " + noPart + ":1: this is no part of a computation\n";
  EXPECT_EQ(bad.err,
            isNone + isNone + "zvm: error: cannot read " + none + ": No such file or directory\n");
  EXPECT_EQ(ran({"merge", path("1"), path("2"), path("joined.zvm")}).code, 4);
  EXPECT_EQ(ran({"merge", path("1")}).code, 2);
}

TEST_F(ComputeVerb, APartReportsWhatItKnows) {
  const Ran first = square({"--part", "1/2", "-o", path("1"), "--title", "t"});
  EXPECT_EQ(first.err, "");
  const std::size_t pace = first.out.find("pairs a second");
  ASSERT_NE(pace, std::string::npos) << first.out;
  EXPECT_EQ(first.out.substr(0, pace),
            "title                    t\n"
            "part                     1 of 2\n"
            "points read              5\n"
            "without coordinates      1\n"
            "without a value          0\n"
            "used                     4\n"
            "in the place of another  1\n");
  EXPECT_TRUE(first.out.ends_with("\n\nvariable  points\nzinc      4\n")) << first.out;
  const Ran second = square({"--part", "2/2", "-o", path("2"), "--title", "t"});
  EXPECT_NE(second.out.find("part                     2 of 2, all pairs are in others\n"),
            std::string::npos)
      << second.out;
  const Ran beside = square({"--part", "1/2", "-o", "-", "--title", "t"});
  EXPECT_EQ(beside.out, contentOf(path("1")));
  EXPECT_EQ(beside.err.substr(0, pace), first.out.substr(0, pace));
  const Json report =
      Json::parse(square({"--part", "2/2", "-o", path("3"), "--title", "t", "--json"}).out);
  EXPECT_EQ(report.at("schema"), "zvm.compute/1");
  EXPECT_EQ(report.at("part"), 2);
  EXPECT_EQ(report.at("parts"), 2);
  EXPECT_EQ(report.at("title"), "t");
  EXPECT_EQ(report.at("points").at("used"), 4);
  EXPECT_EQ(report.at("variables").at(0).at("points"), 4);
  EXPECT_EQ(report.at("directions"), Json::parse(R"(["0;0"])"));
  EXPECT_EQ(report.at("pairsASecond"), 0.0);
}

TEST_F(ComputeVerb, MergeReportsAsComputeDoes) {
  for (const std::string part : {"1", "2"})
    ASSERT_EQ(square({"--part", part + "/2", "-o", path(part), "--title", "t", "-q"}).code, 0);
  const Json report =
      Json::parse(ran({"merge", path("1"), path("2"), path("a.zvm"), "--json"}).out);
  EXPECT_EQ(report.at("schema"), "zvm.merge/1");
  EXPECT_EQ(report.at("parts"), Json({path("1"), path("2")}));
  EXPECT_EQ(report.at("output"), path("a.zvm"));
  EXPECT_EQ(report.at("points").at("used"), 4);
  EXPECT_FALSE(report.contains("seconds"));
  // Differences 1, 3 and 4 at the sides, half of the mean of 1, 9 and 16.
  const Json first = report.at("semivariograms").at(0).at("classes").at(0);
  EXPECT_EQ(first.at("pairs"), 3);
  EXPECT_DOUBLE_EQ(first.at("semivariance").get<double>(), 26.0 / 6);
  const Ran beside = ran({"merge", path("1"), path("2"), "-"});
  EXPECT_EQ(beside.out, contentOf(path("a.zvm")));
  EXPECT_TRUE(beside.err.starts_with("title                    t\npoints read  ")) << beside.err;
  EXPECT_EQ(ran({"merge", path("1"), path("2"), "-", "--json"}).code, 2);
}

/// As many files as a program may have open at once, until it goes.
class OpenFiles {
 public:
  explicit OpenFiles(rlim_t most) {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    const rlimit fewer{most, before_.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &fewer);
  }
  OpenFiles(const OpenFiles&) = delete;
  OpenFiles& operator=(const OpenFiles&) = delete;
  ~OpenFiles() { ::setrlimit(RLIMIT_NOFILE, &before_); }

 private:
  rlimit before_{};
};

TEST_F(ComputeVerb, JoinsMorePartsThanFilesCanBeOpen) {
  Arguments merge{"merge"};
  for (int i = 1; i <= 100; ++i) {
    merge.push_back(path(std::to_string(i)));
    ASSERT_EQ(square({"--part", std::to_string(i) + "/100", "-o", merge.back(), "-q"}).code, 0);
  }
  merge.push_back(path("joined.zvm"));
  ASSERT_EQ(square({path("whole.zvm")}).code, 0);
  const OpenFiles few(50);
  EXPECT_EQ(ran(merge).err, "");
  EXPECT_EQ(contentOf(path("joined.zvm")), contentOf(path("whole.zvm")));
}

struct Refusal {
  Arguments more;
  int code;
  std::string message;
};

TEST_F(ComputeVerb, RefusesWithReasonAndExitCode) {
  const std::string out = path("a.zvm"), there = write("there.zvm", "");
  const Refusal refusals[] = {
      {{out, "--var", "zin"}, 3, "no column `zin` in stdin; there are zinc, x, y, lead, what"},
      {{out, "--var", "what"}, 3, "stdin:2:10: `a` is no number"},
      {{out, "--var", "zinc"}, 2, "--var zinc is there twice"},
      {{out, "--var", ""}, 2, "--var is empty; it takes A,B,..."},
      {{out, "--var", "lead,,x"}, 2, "--var takes a list without gaps, not `lead,,x`"},
      {{out, "--log", " "}, 2, "--log takes a list without gaps, not ` `"},
      {{out, "--log", "lead"}, 2, "no variable `lead` in --var; there are zinc"},
      {{out, "--log", "led"}, 3, "no column `led` in stdin; there are lead, x, y, zinc, what"},
      {{out, "--cross", "zinc:lead"}, 2, "no variable `lead` in --var; there are zinc"},
      {{out, "--name", "lead=Pb"}, 2, "no variable `lead` in --var; there are zinc"},
      {{out, "--cross", "zinc"}, 2, "--cross takes all or A:B, not `zinc`"},
      {{out, "--name", "zinc"}, 2, "--name takes COLUMN=NAME, not `zinc`"},
      {{out, "--name", "zinc=a,b"},
       2,
       "--name zinc=a,b can't stand in a variogram file: it holds a comma"},
      {{out, "--name", "zinc= "}, 2, "--name zinc=  can't stand in a variogram file: it is empty"},
      {{out, "--var", "3"}, 2, "two variables named `zinc`"},
      {{out, "--var", "lead", "--name", "lead=zinc"}, 2, "two variables named `zinc`"},
      {{out, "--var", "lead", "--cross", "zinc:lead,zinc:lead"},
       2,
       "two variables named `zinc-lead`"},
      {{out, "--dir", "0;0", "--dir", " 0;0"}, 2, "two directions named `0;0`"},
      {{out, "--dir", "45"}, 2, "--dir takes \"AZ;DIP\", not `45`"},
      {{out, "--dir", "45;10"}, 2, "the dip of direction `45;10` needs points with z"},
      {{out, "--tol", "10"}, 2, "--tol, --band and --vband take --dir"},
      {{out, "--trim", "5"}, 2, "--trim takes MIN:MAX in numbers, not `5`"},
      {{out, "--trim", "6:5"}, 2, "--trim 6:5 keeps nothing"},
      {{out, "--trim", "5:6"},
       3,
       "stdin: no semivariogram: one point alone (5 read, 1 without coordinates, 3 without a "
       "value)"},
      {{out, "--trim", "50:60"},
       3,
       "stdin: no semivariogram: no point with coordinates and a value (5 read, 1 without "
       "coordinates, 4 without a value)"},
      {{out, "--var", "lead", "--trim", "10:20"},
       3,
       "stdin: no semivariogram: `zinc` has fewer than two values (5 read, 1 without coordinates, "
       "2 without a value)"},
      {{out, "--part", "3/2"}, 2, "there is no part 3/2"},
      {{out, "--part", "0/2"}, 2, "there is no part 0/2"},
      {{out, "--part", "a/2"}, 2, "--part takes I/N in whole numbers, not `a/2`"},
      {{out, "--part", "5/18446744073709551615"},
       2,
       "--part takes I/N in whole numbers, not `5/18446744073709551615`"},
      {{out, "--sample", "-3"}, 2, "--sample takes a whole number from 0, not `-3`"},
      {{out, "--sample", "1"}, 2, "--sample takes 2 points and more"},
      {{out, "--sample", "2", "--seed", "-1"}, 2, "--seed takes a whole number from 0, not `-1`"},
      {{out, "--seed", "3"}, 2, "--seed takes --sample"},
      {{out, "--compat", "gsat"}, 2, "no --compat `gsat`; there are gstat, gamv"},
      {{out, "--compat", "gstat", "--lag-tolerance", "1"}, 2, "gstat has no lag tolerance"},
      {{out, "--compat", "gstat", "--zero", "skip"},
       2,
       "gstat has pairs at the same place in the first class"},
      {{out, "--compat", "gamv", "--zero", "first"},
       2,
       "gamv has pairs at the same place in no class"},
      {{out, "--compat", "gstat", "--dir", "0;0", "--band", "1"}, 2, "gstat has no bands"},
      {{out, "--dir", "45;0", "--vband", "1"},
       2,
       "the band across the axis of direction `45;0` needs points with z"},
      {{out, "--format", "csv", "--layer", "soil"},
       2,
       "--layer, --where, --sql and --projected take a spatial source"},
      {{out, "--title", "a,b"}, 2, "--title can't stand in a variogram file: it holds a comma"},
      {{}, 2, "the file to write is missing"},
      {{there}, 4, ""},
  };
  for (const Refusal& refusal : refusals) {
    const Ran run = square(refusal.more);
    EXPECT_EQ(run.code, refusal.code) << refusal.message;
    EXPECT_EQ(run.out, "");
    if (refusal.message.empty()) continue;
    EXPECT_EQ(run.err, "zvm: error: " + refusal.message + '\n');
  }
  for (const auto& [points, why] : {std::pair(path("none.csv"), "No such file or directory"),
                                    std::pair(path(""), "Is a directory")}) {
    const Ran run = ran({"compute", points, out, "--format", "csv", "--x", "x", "--y", "y", "--var",
                         "v", "--lag", "1", "--lags", "2"});
    EXPECT_EQ(run.code, 4);
    EXPECT_EQ(run.err, "zvm: error: cannot read " + points + ": " + why + '\n');
  }
}

TEST_F(ComputeVerb, ShowsNamesToTheirEndInMessages) {
  const Ran run =
      square({path("a.zvm"), "--var", "3"}, std::string("x,y,zi\0nc,zinc\n0,0,1,1\n", 23));
  EXPECT_EQ(run.err,
            "zvm: error: the name `zi\\x00nc` can't stand in a variogram file: it holds a control "
            "character; give it another with --name \"3=NAME\"\n");
}

// Squares of such distances would be 0.
TEST_F(ComputeVerb, RefusesClassesThatAreTooNarrowForADouble) {
  for (const char* width : {"1e-310", "0.9e-150"}) {
    const Ran run = ran({"compute", "-", path("a.zvm"), "--x", "x", "--y", "y", "--var", "v",
                         "--lag", width, "--lags", "2"},
                        "x,y,v\n0,0,1\n0,0,2\n");
    EXPECT_EQ(run.err, "zvm: error: the width of the lag classes has to be at least 1e-150\n");
    EXPECT_EQ(run.code, 2);
  }
  EXPECT_EQ(ran({"compute", "-", path("a.zvm"), "--x", "x", "--y", "y", "--var", "v", "--lag",
                 "1e-150", "--lags", "2"},
                "x,y,v\n0,0,1\n0,1e-150,2\n")
                .code,
            0);
  EXPECT_NE(contentOf(path("a.zvm")).find(" 1 \r\n"), std::string::npos);
}

// A name that --name can be given: that of --var, whatever stands in the table.
TEST_F(ComputeVerb, ShowsTheWayOutForNamesOfColumns) {
  for (const std::string name : {"\"a,b\"", "caf\xE9", "\"a\"\"b\"", ""}) {
    const std::string points = "x,y," + name + "\n0,0,1\n0,1,2\n";
    const Arguments all{"compute", "-", path("a.zvm"), "--x", "x",      "--y", "y",
                        "--var",   "3", "--lag",       "1",   "--lags", "2",   "--overwrite"};
    const Ran refused = ran(all, points);
    EXPECT_EQ(refused.code, 3) << name;
    EXPECT_NE(refused.err.find("; give it another with --name \"3=NAME\"\n"), std::string::npos)
        << refused.err;
    Arguments named = all;
    named.insert(named.end(), {"--name", "3=ab"});
    EXPECT_EQ(ran(named, points).err, "") << name;
  }
}

TEST_F(ComputeVerb, NamesVariablesAndCrosses) {
  EXPECT_EQ(square({path("a.zvm"), "--var", "4", "--name", "4=Pb", "--name", "zinc=Zn", "--cross",
                    "all", "-q"})
                .code,
            0);
  Session session;
  ASSERT_TRUE(readVariogramFile(path("a.zvm"), session));
  EXPECT_EQ(session.varname(1), "Zn");
  EXPECT_EQ(session.varname(2), "Pb");
  EXPECT_EQ(session.varname(3), "Zn-Pb");
}

TEST_F(ComputeVerb, TakesBlanksBehindTheCommasOfLists) {
  EXPECT_EQ(square({path("a.zvm"), "--var", "lead, x", "--log", "zinc, lead", "--cross",
                    "zinc:lead, x:zinc", "-q"})
                .err,
            "");
  Session session;
  ASSERT_TRUE(readVariogramFile(path("a.zvm"), session));
  EXPECT_EQ(session.varname(5), "x-zinc");
}

// A name with outer blanks would stand in quotes, which a save drops.
TEST_F(ComputeVerb, KeepsTheNamesOfDirectionsButForOuterBlanks) {
  EXPECT_EQ(square({path("a.zvm"), "--dir", " -45 ; 0 ", "--dir", "090;0.0", "-q"}).code, 0);
  Session session;
  ASSERT_TRUE(readVariogramFile(path("a.zvm"), session));
  EXPECT_EQ(session.dirname(1), "-45 ; 0");
  EXPECT_EQ(session.dirname(2), "090;0.0");
  EXPECT_EQ(contentOf(path("a.zvm")).find('"'), std::string::npos);
}

TEST_F(ComputeVerb, SaysWhatASampleIs) {
  EXPECT_EQ(square({path("a.zvm"), "--sample", "3", "--seed", "7", "--title", "t"}).code, 0);
  EXPECT_TRUE(contentOf(path("a.zvm")).starts_with("t (sample of 3 of 4 points; seed 7)\r\n"));
}

TEST_F(ComputeVerb, WarnsOfOverlapsAndOfWhatGamvCounts) {
  EXPECT_EQ(square({path("a.zvm"), "--lag-tolerance", "0.75"}).err,
            "zvm: warning: --lag-tolerance is above half of --lag: a pair counts in several "
            "classes\n");
  EXPECT_EQ(square({path("b.zvm"), "--compat", "gamv"}).err,
            "zvm: warning: gamv counts each point with itself as well, at distance 0: left out "
            "here\n");
}

}  // namespace
}  // namespace zevfit::test
