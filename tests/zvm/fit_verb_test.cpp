// The verb fit: what it writes, what it tells, and what it refuses.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/zvm/fit_sample.h"
#include "zvm/verbs/output.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;

TEST_F(FitVerb, WritesTheModelThatTheClassesLieOn) {
  const Ran run = fitted(fileOf({{"zinc"}}, {0}), {"--structures", "1"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_TRUE(output().starts_with("plain\r\nzevRA1\r\n 1 \r\nzinc\r\n 1 \r\n 12 \r\n0;0\r\n"));
  expectSpherical(modelAt(1, 1), 0.1, 0.5, 300);
  // As a save of the program writes it: lines that are not used have a letter and a range.
  EXPECT_TRUE(output().ends_with("0 \r\n-\r\n0\r\n0.0001\r\n 0 \r\n-\r\n0\r\n0.0001\r\n"))
      << output();
  EXPECT_EQ(ran({"check", "-"}, output()).out, "");
}

TEST_F(FitVerb, FitsOneEllipseToAllDirections) {
  const Truth truth{"zinc", 0.1, 0.5, 400, 0.5, 30};
  const Ran run = fitted(fileOf({truth}, kFour), {"--structures", "1", "--forms", "S", "--json"});
  EXPECT_EQ(run.code, 0) << run.err;
  for (std::int64_t d = 1; d <= 4; ++d)
    expectSpherical(modelAt(1, d), 0.1, 0.5,
                    truth.rangeAlong(kFour[static_cast<std::size_t>(d - 1)]));
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("directions"), "geometric");
  const Json& fit = report.at("variables").at(0).at("fits").at(0);
  EXPECT_TRUE(fit.at("direction").is_null());
  EXPECT_EQ(fit.at("models").size(), 4U);
  const Json& taken = fit.at("ranking").at(0);
  EXPECT_EQ(taken.at("lines"), "N+S");
  EXPECT_EQ(taken.at("taken"), true);
  EXPECT_NEAR(taken.at("ellipse").at("azimuth").get<double>(), 30, 0.1);
  EXPECT_NEAR(taken.at("ellipse").at("minor1").get<double>(), 0.5, 1e-3);
}

// Ranges 400 toward the north, 200 toward the east and 100 downward.
TEST_F(FitVerb, FitsOneEllipsoidWhereDirectionsDip) {
  const std::vector<std::pair<double, double>> directions{{0, 0},  {45, 0}, {90, 0},  {135, 0},
                                                          {0, 45}, {0, 90}, {90, 45}, {45, 45}};
  std::string names, data;
  for (const auto& [azimuth, dip] : directions) {
    names += number(azimuth) + ';' + number(dip) + '\n';
    const double across = std::cos(dip * std::numbers::pi / 180);
    const double north = std::cos(azimuth * std::numbers::pi / 180) * across,
                 east = std::sin(azimuth * std::numbers::pi / 180) * across,
                 down = std::sin(dip * std::numbers::pi / 180);
    const double range = 1 / std::hypot(north / 400, east / 200, down / 100);
    for (int k = 1; k <= kClasses; ++k)
      data += number(50.0 * k) + ' ' + number(0.1 + spherical(50.0 * k, 0.5, range)) + " 100\n";
  }
  const std::string file = "plain\nzevlag\n1\nzinc\n" + std::to_string(directions.size()) + "\n" +
                           std::to_string(kClasses) + '\n' + names + "0.6\n" + data;
  const Arguments one{"--structures", "1", "--forms", "S"};
  const Ran run = fitted(file, one);
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_NE(run.out.find("\nellipsoid: azimuth "), std::string::npos) << run.out;
  expectSpherical(modelAt(1, 1), 0.1, 0.5, 400);
  expectSpherical(modelAt(1, 3), 0.1, 0.5, 200);
  expectSpherical(modelAt(1, 6), 0.1, 0.5, 100);
  const Json report = Json::parse(fitted(file, {one[0], one[1], one[2], one[3], "--json"}).out);
  const Json& found =
      report.at("variables").at(0).at("fits").at(0).at("ranking").at(0).at("ellipse");
  EXPECT_NEAR(found.at("minor1").get<double>(), 0.5, 1e-3);
  EXPECT_NEAR(found.at("minor2").get<double>(), 0.25, 1e-3);
  // Either end of an axis tells it.
  for (const char* angle : {"azimuth", "dip", "rotation"})
    EXPECT_NEAR(std::remainder(found.at(angle).get<double>(), 180), 0, 0.1) << angle;
}

TEST_F(FitVerb, FitsEachDirectionByItselfWhereThatIsAskedFor) {
  const std::string file = fileOf({{"zinc", 0.1, 0.5, 400, 0.5, 0}}, {0, 90});
  const Ran run = fitted(file, {"--structures", "1", "--free"});
  EXPECT_EQ(run.code, 0) << run.err;
  expectSpherical(modelAt(1, 1), 0.1, 0.5, 400);
  expectSpherical(modelAt(1, 2), 0.1, 0.5, 200);
  EXPECT_NE(run.out.find("directions  each by itself\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("\nzinc in 90;0, 12 classes\n"), std::string::npos) << run.out;
}

TEST_F(FitVerb, SpeaksOfAnEllipsoidWhereADirectionDips) {
  std::string bytes = fileOf({{"zinc"}}, kFour);
  bytes.replace(bytes.find("\n45;0\n"), 6, "\n0;90\n");
  const Ran run = fitted(bytes);
  EXPECT_NE(run.out.find("directions  one ellipsoid\n"), std::string::npos) << run.out;
}

TEST_F(FitVerb, TellsWeightsRankingAndEllipse) {
  const Truth truth{"zinc", 0.1, 0.5, 400, 0.5, 30};
  const Ran run = fitted(fileOf({truth}, kFour), {"--weights", "npairs"});
  for (const char* part :
       {"title       plain\n", "weights     N\n", "forms       S, E, G\n",
        "structures  up to 2, by AICc\n", "nugget      fitted\n", "directions  one ellipse\n",
        "\nzinc in all directions, 48 classes\n", "ellipse: azimuth 30", ", ratio 0.5", "candidate",
        "sum of squares", "AICc", "taken\n", "\nN+S ", "\nN+E ", "\nN+G ", "\nN  ",
        "direction  model  nugget  C1   a1\n", "\n45;0       N+S    0.1     0.5  "})
    EXPECT_NE(run.out.find(part), std::string::npos) << part << " in\n" << run.out;
  const char* const formulas[][2] = {{"npairs-over-h2", "N/h^2"},
                                     {"npairs-over-gamma2", "N/gamma^2"},
                                     {"npairs", "N\n"},
                                     {"equal", "1\n"}};
  for (const auto& [name, formula] : formulas)
    EXPECT_NE(fitted(fileOf({truth}, {0}), {"--weights", name})
                  .out.find(std::string("weights     ") + formula),
              std::string::npos);
}

TEST_F(FitVerb, TakesWhatTheOptionsTell) {
  const std::string file = fileOf({{"zinc"}}, {0});
  EXPECT_EQ(fitted(file, {"--nugget", "0.2", "--forms", "e", "--structures", "1"}).code, 0);
  EXPECT_EQ(modelAt(1, 1).nugget, 0.2);
  EXPECT_EQ(modelAt(1, 1).structures[0]->form, Form::exponential);
  const Ran run = fitted(file, {"--nugget", "0", "--structures", "2", "--title", "caf\xC3\xA9"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(output().starts_with("caf\xE9\r\nzevRA1\r\n"));
  EXPECT_EQ(modelAt(1, 1).nugget, 0);
  EXPECT_TRUE(modelAt(1, 1).structures[1]);
}

TEST_F(FitVerb, NamesAVariableThatCannotBeFittedAndWritesTheOthers) {
  Truth none{"lead"};
  none.pairs = 0;
  const Ran run = fitted(fileOf({{"zinc"}, none, {"copper"}}, {0}), {"--structures", "1"});
  EXPECT_EQ(run.code, 1);
  EXPECT_TRUE(run.err.starts_with("zvm: warning: `lead` in 0;0 is not fitted: ")) << run.err;
  EXPECT_NE(run.out.find("\n`lead` in 0;0 is not fitted: "), std::string::npos) << run.out;
  expectSpherical(modelAt(1, 1), 0.1, 0.5, 300);
  expectSpherical(modelAt(3, 1), 0.1, 0.5, 300);
  EXPECT_FALSE(modelAt(2, 1).structures[0]);
  EXPECT_EQ(modelAt(2, 1).nugget, 0);
  EXPECT_EQ(ran({"check", "-q", "-"}, output()).code, 0);
  const Json report =
      Json::parse(fitted(fileOf({{"zinc"}, none}, {0}), {"--structures", "1", "--json", "-q"}).out);
  ASSERT_EQ(report.at("notFitted").size(), 1U);
  EXPECT_EQ(report.at("notFitted").at(0).at("variable"), "lead");
  EXPECT_EQ(report.at("variables").at(0).at("fitted"), true);
  EXPECT_EQ(report.at("variables").at(1).at("fitted"), false);
}

TEST_F(FitVerb, SaysWhyNothingFits) {
  const std::string head = "t\nzevlag\n1\nzinc\n1\n", rest = "0;0\n1\n";
  const struct {
    std::string classes;
    Arguments more;
    const char* heading;
    const char* reason;
  } rows[] = {
      {"2\n" + rest + "1 0 0\n2 0 0\n", {}, "zinc in 0;0: not fitted", "no class has pairs"},
      {"1\n" + rest + "100 0.5 40\n",
       {},
       "zinc in 0;0, 1 class: not fitted",
       "1 class is too few for 1 parameter"},
      {"4\n" + rest + "1 0 9\n2 0 9\n3 0 9\n4 0 9\n",
       {},
       "zinc in 0;0, 4 classes: not fitted",
       "all sills are 0"},
      {"4\n" + rest + "1 0 9\n2 0 9\n3 0 9\n4 0 9\n",
       {"--nugget", "0"},
       "zinc in 0;0, 4 classes: not fitted",
       "nothing is left without a nugget"},
      {"4\n" + rest + "1 -1 9\n2 -1 9\n3 -1 9\n4 -1 9\n",
       {},
       "zinc in 0;0, 4 classes: not fitted",
       "all sills are 0"},
      {"4\n" + rest + "1 1e305 9\n2 1e306 9\n3 1e307 9\n4 1e307 9\n",
       {},
       "zinc in 0;0, 4 classes: not fitted",
       "its sum of squares is beyond all numbers"},
      {"6\n" + rest + "1 1 9\n2 1 9\n3 1 9\n4 1 9\n5 1 9\n6 1 9\n",
       {"--forms", "P", "--structures", "1"},
       "zinc in 0;0, 6 classes: not fitted",
       "the exponent runs to its end"},
  };
  for (const auto& row : rows) {
    const Ran run = fitted(head + row.classes, row.more);
    EXPECT_EQ(run.code, 1) << row.reason;
    EXPECT_EQ(run.err,
              "zvm: warning: `zinc` in 0;0 is not fitted: " + std::string(row.reason) + '\n');
    EXPECT_NE(run.out.find('\n' + std::string(row.heading) + ", " + row.reason + '\n'),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("\ndirections  one\n"), std::string::npos) << run.out;
    EXPECT_EQ(modelAt(1, 1).nugget, 0);
    EXPECT_FALSE(modelAt(1, 1).structures[0]);
  }
}

TEST_F(FitVerb, SaysWhatDirectionsWithoutAnglesCanHave) {
  std::string file = fileOf({{"zinc"}}, {0, 90});
  file.replace(file.find("\n90;0\n"), 7, "\nacross\n");
  const Ran run = fitted(file);
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err,
            "zvm: warning: `zinc` is not fitted: a direction has no azimuth and dip, as in 45;0; "
            "--free fits each direction by itself\n");
  EXPECT_EQ(fitted(file, {"--free"}).code, 0);
}

TEST_F(FitVerb, NamesASemivarianceWithoutASill) {
  std::string file = "t\nzevlag\n1\nzinc\n1\n12\n0;0\n1\n";
  for (int k = 1; k <= 12; ++k) file += number(50.0 * k) + ' ' + number(0.01 * k) + " 100\n";
  const Ran run = fitted(file, {"--structures", "1", "--nugget", "0"});
  EXPECT_EQ(run.code, 1) << run.out;
  EXPECT_NE(run.err.find("unbounded"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("largest distance; --forms with P tries a power structure\n"),
            std::string::npos)
      << run.err;
}

TEST_F(FitVerb, LetsOtherVariablesKeepTheirModels) {
  ASSERT_EQ(fitted(fileOf({{"zinc"}, {"lead"}}, {0}), {"--structures", "1"}).code, 0);
  const std::string before = output();
  const Ran run = fitted(before, {"--structures", "1", "--forms", "E", "--var", "lead"});
  EXPECT_EQ(run.code, 0) << run.err;
  expectSpherical(modelAt(1, 1), 0.1, 0.5, 300);
  EXPECT_EQ(modelAt(2, 1).structures[0]->form, Form::exponential);
  EXPECT_EQ(run.out.find("\nzinc in "), std::string::npos) << run.out;
}

TEST_F(FitVerb, HasTheSameBytesForAnyNumberOfThreads) {
  std::vector<Truth> truths;
  for (int v = 0; v < 6; ++v)
    truths.push_back({"v" + std::to_string(v), 0.1 * v, 1.0 + v, 200.0 + 30 * v, 0.6, 20.0 * v});
  ASSERT_EQ(fitted(fileOf(truths, kFour), {"--threads", "1"}).code, 0);
  const std::string one = output();
  ASSERT_EQ(fitted(fileOf(truths, kFour), {"--threads", "5"}).code, 0);
  EXPECT_EQ(output(), one);
}

// ---- The file.

TEST_F(FitVerb, AFileThatIsNotAcceptedTakesNoPlace) {
  const std::string old = write("old", "old");
  const verbs::PendingFile pending{old, "new", [](const std::string& bytes) {
                                     EXPECT_EQ(bytes, "new");
                                     throw verbs::Failure(verbs::Exit::bad, "no");
                                   }};
  EXPECT_THROW(verbs::writeOutput(pending, true), verbs::Failure);
  EXPECT_EQ(contentOf(old), "old");
}

TEST_F(FitVerb, OfSeveralFilesNoneTakesItsPlaceWhereOneIsNotAccepted) {
  const std::string old = write("old", "old");
  const auto refuse = [](const std::string&) { throw verbs::Failure(verbs::Exit::bad, "no"); };
  const std::vector<verbs::PendingFile> pending{{path("new"), "new", {}}, {old, "new", refuse}};
  EXPECT_THROW(verbs::writeOutputs(pending, true), verbs::Failure);
  EXPECT_EQ(contentOf(old), "old");
  EXPECT_FALSE(std::filesystem::exists(path("new")));
}

TEST_F(FitVerb, LeavesNoFileWhenItIsInterrupted) {
  std::vector<Truth> truths(40);
  for (std::size_t v = 0; v < truths.size(); ++v) truths[v].name = "v" + std::to_string(v);
  std::vector<double> azimuths;
  for (int d = 0; d < 20; ++d) azimuths.push_back(9.0 * d);
  write("large.zvm", fileOf(truths, azimuths));
  // The pipe is empty once the program has read it all; jobs of a shell ignore interrupts.
  const std::string command =
      "cd '" + path("") +
      "' && mkfifo in && { env --default-signal=INT '" ZEVFIT_ZVM
      "' fit in out.zvm >printed 2>&1 & program=$!; cat large.zvm >in; sleep 0.1; "
      "kill -INT $program; wait $program; }";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, 130);
  EXPECT_EQ(contentOf(path("printed")), "");
  EXPECT_FALSE(std::filesystem::exists(path("out.zvm")));
}

// ---- Wrong use.

TEST_F(FitVerb, SaysWhatIsWrong) {
  const std::string file = fileOf({{"zinc"}, {"lead"}, {"zinc-lead"}, {"copper"}}, {0});
  const std::string there = write("there.zvm", "");
  const std::string out = path("new.zvm");
  const struct {
    Arguments more;
    int code;
    std::string message;
  } rows[] = {
      {{out, "--forms", "SX"}, 2, "--forms takes letters of S, E, G and P, not `SX`"},
      {{out, "--structures", "4"}, 2, "--structures takes 1, 2 or 3, not `4`"},
      {{out, "--structures", "two"}, 2, "--structures takes 1, 2 or 3, not `two`"},
      {{out, "--nugget", "much"}, 2, "--nugget takes free or a number from 0, not `much`"},
      {{out, "--nugget", "-1"}, 2, "--nugget takes free or a number from 0, not `-1`"},
      {{out, "--weights", "npair"},
       2,
       "no --weights `npair`; there are npairs, equal, npairs-over-h2, npairs-over-gamma2"},
      {{out, "--geometric", "--free"}, 2, "--geometric and --free exclude each other"},
      {{out, "--var", "zink"},
       3,
       "no variable `zink` in -; there are zinc, lead, zinc-lead, copper"},
      {{out, "--lmc", "zinc"}, 2, "--lmc takes 2 variables and more"},
      {{out, "--lmc", "zinc,1"}, 2, "--lmc has `1` twice"},
      {{out, "--lmc", "zinc,zinc-lead"},
       2,
       "`zinc-lead` is a cross variable; --lmc takes the variables that crosses are of"},
      {{out, "--lmc", "zinc,lead,copper"},
       3,
       "no cross variable of zinc and copper, lead and copper in -: it is named A-B for two "
       "variables A and B, or told by --cross-of \"NAME=A,B\""},
      {{out, "--lmc", "zinc,lead", "--nugget", "0.1"}, 2, "--nugget takes free or 0 with --lmc"},
      {{out, "--lmc", "zinc,lead", "--forms", "SP"},
       2,
       "--forms takes letters of S, E and G with --lmc: a power structure has no sill"},
      {{out, "--title", "a,b"}, 2, "--title can't stand in a variogram file: it holds a comma"},
      {{"-", "--json"}, 2, "--json reports on a file: it takes another OUT than stdout"},
      {{there}, 4, there + " exists; --overwrite replaces it"},
  };
  for (const auto& row : rows) {
    Arguments arguments{"fit", "-"};
    arguments.insert(arguments.end(), row.more.begin(), row.more.end());
    const Ran run = ran(arguments, file);
    EXPECT_EQ(run.err, "zvm: error: " + row.message + '\n');
    EXPECT_EQ(run.code, row.code) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
  }
  EXPECT_EQ(ran({"fit", path("none.zvm"), out}).code, 4);
  EXPECT_EQ(ran({"fit", "-", out}, "no file").code, 3);
  const Ran toStdout = ran({"fit", "-", "-", "--structures", "1"}, file);
  EXPECT_TRUE(toStdout.out.starts_with("plain\r\nzevRA1\r\n"));
  EXPECT_TRUE(toStdout.err.starts_with("title ")) << toStdout.err;
}

}  // namespace
}  // namespace zevfit::test
