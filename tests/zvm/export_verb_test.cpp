// The verb export: what it asks for, and the file that it writes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/plain_user.h"
#include "tests/zvm/command.h"
#include "zvm/exchange/export.h"
#include "zvm/verbs/output.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

/// The sample in two directions, the range of the second 30.
std::string twoDirections() {
  return Lines({"t", "zevRA1", "1", "zinc", "2", "1", "0;0", "90;0", "1", "10 0.5 40", "10 1 40"})
             .bytes() +
         "1\n0.1\n1\nS\n0.5\n15\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n" +
         "1\n0.1\n1\nS\n0.5\n30\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
}

/// Three variables and two cross variables of the first, the last without a model.
std::string foreignCross() {
  std::vector<std::string> lines{"t", "zevRA1", "5", "A", "B", "C", "A-B", "A-C", "1", "1", "0;0"};
  for (int variable = 1; variable <= 5; ++variable) {
    lines.emplace_back("1");
    lines.emplace_back("10 1 40");
  }
  const std::string model = "1\n0.1\n1\nS\n0.5\n15\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
  const std::string none = "0\n0\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n0\n-\n0\n0.0001\n";
  return Lines(lines).bytes() + model + model + model + model + none;
}

/// Two variables and, with a name of its own, their cross variable, without models.
std::string threeVariables(const std::string& cross) {
  return Lines({"t", "zevra", "3", "zinc", "lead", cross, "1", "1", "0;0", "1", "10 1 40", "1",
                "10 1 40", "1", "10 1 40"})
      .bytes();
}

class Export : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  const fs::path& folder() const { return folder_.path(); }
  /// The names of the files in the folder.
  std::vector<std::string> files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder()))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  ScratchFolder folder_;
};

using Names = std::vector<std::string>;

TEST_F(Export, TakesTheCrossesOfTheChosenVariablesAlone) {
  const Ran run = ran({"export", "-", "--to", "json", "--var", "A", "--var", "B"}, foreignCross());
  EXPECT_EQ(run.err, "");
  ASSERT_EQ(run.code, 0);
  EXPECT_NE(run.out.find("\"A-B\""), std::string::npos);
  EXPECT_EQ(run.out.find("\"A-C\""), std::string::npos);
  const std::vector<std::string> all{"export", "-",     "--to", "json",  "--var",
                                     "A",      "--var", "B",    "--var", "C"};
  EXPECT_EQ(ran(all, foreignCross()).code, 3) << "A-C has no model";
}

TEST_F(Export, WritesEveryTarget) {
  for (const exchange::TargetRow& row : exchange::kTargets) {
    const Ran run = ran({"export", "-", "--to", std::string(row.name), "--var", "zinc", "--main",
                         "0;0", "--minor1", "90;0"},
                        twoDirections());
    EXPECT_EQ(run.code, 0) << row.name << run.err;
    EXPECT_NE(run.out, "") << row.name;
  }
}

TEST_F(Export, TakesTheOnlyVariableAndDirection) {
  const Ran run = ran({"export", "-", "--to", "gstat"}, kModel.bytes());
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out,
            ran({"export", "-", "--to", "gstat", "--var", "1", "--main", "1"}, kModel.bytes()).out);
}

TEST_F(Export, OfPointsTakesEveryDirection) {
  const Ran run = ran({"export", "-", "--to", "csv"}, twoDirections());
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_NE(run.out.find("0;0"), std::string::npos);
  EXPECT_NE(run.out.find("90;0"), std::string::npos);
}

TEST_F(Export, TellsNumbersWithAllDigits) {
  // Each number is the one of its digits that no shorter text reads back as; beyond the range the
  // model is 0.1 + 0.2.
  const std::string file = kModel.with(8, "0.30000000000000004")
                               .with(9, "10.000000000000002 0.12345678901234568 16777215")
                               .with(12, "0.1")
                               .with(15, "0.2")
                               .with(16, "14.999999999999998")
                               .bytes();
  const std::string csv = ran({"export", "-", "--to", "csv"}, file).out;
  EXPECT_NE(csv.find("\nzinc,0;0,0,0,1,16777215,10.000000000000002,0.12345678901234568,"),
            std::string::npos)
      << csv;
  EXPECT_NE(csv.find("\nzinc,0;0,0,0,2,40,20,1.5,0.30000000000000004\n"), std::string::npos) << csv;
  const Json model = Json::parse(ran({"export", "-", "--to", "json"}, file).out).at("models").at(0);
  EXPECT_EQ(model.at("variance"), 0.30000000000000004);
  EXPECT_EQ(model.at("nugget"), 0.1);
  EXPECT_EQ(model.at("structures").at(0).at("sill"), 0.2);
  EXPECT_EQ(model.at("structures").at(0).at("range").at("main"), 14.999999999999998);
  EXPECT_EQ(
      Json::parse(ran({"info", "-", "--json"}, file).out).at("variables").at(0).at("variance"),
      0.30000000000000004);
}

TEST_F(Export, RefusesWhatTheTargetCanNotSay) {
  const std::string power = kModel.with(14, "P").with(16, "1.5").bytes();
  for (const char* target : {"sgems", "gstools"}) {
    const Ran run = ran({"export", "-", "--to", target}, power);
    EXPECT_EQ(run.code, 3) << target;
    EXPECT_EQ(run.out, "") << target;
    EXPECT_EQ(run.err.rfind("zvm: error: -: ", 0), 0U) << run.err;
  }
  EXPECT_EQ(ran({"export", "-", "--to", "gstat"}, kData.with(3, "1")
                                                      .first(4)
                                                      .and_("1")
                                                      .and_("1")
                                                      .and_("0;0")
                                                      .and_("1")
                                                      .and_("10 1 40")
                                                      .bytes())
                .code,
            3)
      << "there is no model";
}

TEST_F(Export, AsksForWhatItNeeds) {
  struct Row {
    Names arguments;
    int code;
    std::string message;
  };
  const Row rows[] = {
      {{"--to", "gsta"},
       2,
       "no target `gsta`; there are gstat, gslib, json, csv, zvp, sgems, gstools, gstlearn, "
       "pykrige"},
      {{}, 2, "--to is required; zvm export --help tells more"},
      {{"--to", "gstat"}, 2, "--main is missing; there are the directions 0;0, 90;0"},
      {{"--to", "gstat", "--minor1", "0;0"}, 2, "--minor1 takes --main"},
      {{"--to", "gstat", "--main", "0;0", "--minor2", "0;0"}, 2, "--minor2 takes --minor1"},
      {{"--to", "gslib", "--var", "a", "--var", "b"}, 2, "--to gslib takes one --var"},
      {{"--to", "gslib", "--gslib-gaussian", "5"}, 2, "--gslib-gaussian is 3 or 9, not `5`"},
      {{"--to", "gstat", "--gslib-gaussian", "9"}, 2, "--gslib-gaussian goes with --to gslib"},
      {{"--to", "gstat", "--cross-of", "c=a,b"}, 2, "--cross-of goes with several --var"},
      {{"--to", "gstat", "--json"}, 2, "--json reports on a file: it takes -o"},
      {{"--to", "gstat", "--json", "-o", "-"}, 2, "--json reports on a file: it takes -o"},
      {{"--to", "gstat", "--json", "-o", "/dev/stdout"},
       2,
       "--json reports on a file: it takes -o"},
      {{"--to", "gstat", "--main", ""}, 3, "no direction `` in -; there are 0;0, 90;0"},
      {{"--to", "zvp", "--main", "0;0"},
       3,
       "-: Main / Minor 1 directions are not orthogonals ! Without --minor1 that is Main; a "
       "kriging "
       "file takes two at right angles."},
      {{"--to", "gstat", "--to", "csv"},
       2,
       "--to takes one value, not 2; zvm export --help tells more"},
      {{"--to", "gstat", "--var", "zink"}, 3, "no variable `zink` in -; there are zinc"},
      {{"--to", "gstat", "--var", "zinc", "--var", "1"}, 2, "--var 1 is there twice"},
      {{"--to", "gstat", "--main", "45;0"}, 3, "no direction `45;0` in -; there are 0;0, 90;0"},
      {{"--to", "gstat", "--main", "0;0", "-o", path("none/out.R")},
       4,
       "cannot write " + path("none/out.R") + ": No such file or directory"},
      {{"--to", "gstat", "--main", "0;0", "-o", path("")},
       4,
       "cannot write " + path("") + ": Is a directory"},
  };
  for (const Row& row : rows) {
    Names arguments{"export", "-"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Ran run = ran(arguments, twoDirections());
    EXPECT_EQ(run.err, "zvm: error: " + row.message + "\n");
    EXPECT_EQ(run.code, row.code) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
  }
  EXPECT_EQ(files(), Names());
  EXPECT_EQ(ran({"export", "-", "--to", "csv"}, kData.bytes()).err,
            "zvm: error: --var is missing; there are the variables zinc, lead\n");
}

TEST_F(Export, ReplacesAFileOnlyWhereItMay) {
  const std::string out = path("out.R");
  const std::string text = ran({"export", "-", "--to", "gstat"}, kModel.bytes()).out;
  const Names arguments{"export", "-", "--to", "gstat", "-o", out};
  EXPECT_EQ(ran(arguments, kModel.bytes()).code, 0);
  EXPECT_EQ(contentOf(out), text);
  putFile(out, "old");
  const Ran refused = ran(arguments, kModel.bytes());
  EXPECT_EQ(refused.code, 4);
  EXPECT_EQ(refused.err, "zvm: error: " + out + " exists; --overwrite replaces it\n");
  EXPECT_EQ(contentOf(out), "old");
  Names overwriting = arguments;
  overwriting.emplace_back("--overwrite");
  EXPECT_EQ(ran(overwriting, kModel.bytes()).code, 0);
  EXPECT_EQ(contentOf(out), text);
  EXPECT_EQ(files(), Names{"out.R"}) << "nothing else is left";
}

TEST_F(Export, WritesTheTargetOfALink) {
  const std::string text = ran({"export", "-", "--to", "gstat"}, kModel.bytes()).out;
  fs::create_directory(folder() / "in");
  fs::create_symlink("in/target.R", path("link"));
  EXPECT_EQ(ran({"export", "-", "--to", "gstat", "-o", path("link")}, kModel.bytes()).code, 0)
      << "nothing is there yet";
  EXPECT_TRUE(fs::is_symlink(path("link")));
  EXPECT_EQ(contentOf(path("in/target.R")), text);
  putFile(path("in/target.R"), "old");
  EXPECT_EQ(ran({"export", "-", "--to", "gstat", "-o", path("link")}, kModel.bytes()).code, 4);
  EXPECT_EQ(
      ran({"export", "-", "--to", "gstat", "-o", path("link"), "--overwrite"}, kModel.bytes()).code,
      0);
  EXPECT_TRUE(fs::is_symlink(path("link")));
  EXPECT_EQ(contentOf(path("in/target.R")), text);
  for (const auto& [link, target] : {std::pair{"a", "b"}, {"b", "a"}})
    fs::create_symlink(target, path(link));
  for (const char* overwrite : {"-q", "--overwrite"}) {
    const Ran circle =
        ran({"export", "-", "--to", "gstat", "-o", path("a"), overwrite}, kModel.bytes());
    EXPECT_EQ(circle.code, 4);
    EXPECT_EQ(circle.err,
              "zvm: error: cannot write " + path("a") + ": Too many levels of symbolic links\n");
    EXPECT_TRUE(fs::is_symlink(path("a")));
  }
}

TEST_F(Export, WritesToWhatIsNoFileAsItIs) {
  EXPECT_EQ(ran({"export", "-", "--to", "gstat", "-o", "/dev/null"}, kModel.bytes()).code, 0);
  const Ran full = ran({"export", "-", "--to", "gstat", "-o", "/dev/full"}, kModel.bytes());
  EXPECT_EQ(full.code, 4);
  EXPECT_EQ(full.err, "zvm: error: cannot write /dev/full: No space left on device\n");
}

TEST_F(Export, WritesToADescriptorWhereItStands) {
  const int descriptor = ::open(path("made").c_str(), O_WRONLY | O_CREAT, 0600);
  ASSERT_EQ(::write(descriptor, "old\n", 4), 4);
  const std::string number = std::to_string(descriptor);
  const Names names{"/dev/fd/" + number, "/proc/self/fd/" + number,
                    "/proc/" + std::to_string(::getpid()) + "/fd/" + number};
  for (const std::string& name : names)
    EXPECT_EQ(ran({"export", "-", "--to", "gstat", "-o", name}, kModel.bytes()).code, 0) << name;
  ::close(descriptor);
  const std::string text = ran({"export", "-", "--to", "gstat"}, kModel.bytes()).out;
  EXPECT_EQ(contentOf(path("made")), "old\n" + text + text + text);
  for (const std::string& name : names)
    EXPECT_EQ(ran({"export", "-", "--to", "gstat", "-o", name}, kModel.bytes()).err,
              "zvm: error: cannot write " + name + ": Bad file descriptor\n");
}

TEST_F(Export, LooksForSignalsBeforeTheLastStep) {
  putFile(path("old"), "old");
  const pid_t child = ::fork();
  if (child == 0) {
    verbs::exitOnSignals();
    sigset_t waiting;
    sigemptyset(&waiting);
    sigaddset(&waiting, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &waiting, nullptr);
    ::raise(SIGTERM);
    verbs::writeOutput({path("new"), "new", {}}, false);
    verbs::writeOutput({path("old"), "new", {}}, true);
    ::sigprocmask(SIG_UNBLOCK, &waiting, nullptr);
    ::_exit(1);
  }
  int code = 0;
  ASSERT_EQ(::waitpid(child, &code, 0), child);
  EXPECT_EQ(WEXITSTATUS(code), 130);
  EXPECT_EQ(files(), Names{"old"});
  EXPECT_EQ(contentOf(path("old")), "old");
}

TEST_F(Export, NeedsAFolderThatMayBeWritten) {
  fs::permissions(folder(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  const std::string out = path("out.R");
  EXPECT_TRUE(holdsForAPlainUser([&] {
    if (::geteuid() == 0) return false;
    const Ran run = ran({"export", "-", "--to", "gstat", "-o", out}, kModel.bytes());
    return run.code == 4 && run.err == "zvm: error: cannot write " + out + ": Permission denied\n";
  }));
  fs::create_directory(path("closed"));
  putFile(path("closed/in.zvm"), kModel.bytes());
  fs::permissions(path("closed"), fs::perms::owner_all);
  EXPECT_TRUE(holdsForAPlainUser([&] {
    const Ran run = ran({"info", path("closed/in.zvm")});
    return run.code == 4 &&
           run.err == "zvm: error: cannot read " + path("closed/in.zvm") + ": Permission denied\n";
  }));
}

TEST_F(Export, ReportsAsJsonOnAFile) {
  const Ran run =
      ran({"export", "-", "--to", "gstat", "-o", path("out.R"), "--json"}, kModel.bytes());
  EXPECT_EQ(run.code, 0);
  const Json report = Json::parse(run.out);
  EXPECT_EQ(report.at("schema"), "zvm.export/1");
  EXPECT_EQ(report.at("target"), "gstat");
  EXPECT_EQ(report.at("variables"), Json({"zinc"}));
  EXPECT_EQ(report.at("output"), path("out.R"));
  EXPECT_EQ(report.at("bytes"), contentOf(path("out.R")).size());
}

TEST_F(Export, WarnsOfTheFile) {
  const Ran run = ran({"export", "-", "--to", "gstat"}, kModel.with(16, "0").bytes());
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err,
            "zvm: warning: -: zinc: structure 1 along 0;0 has no range above 0; 1e-05 is taken\n");
}

TEST_F(Export, NamesAMissingCrossVariable) {
  const Names arguments{"export", "-", "--to", "gstat", "--var", "zinc", "--var", "lead"};
  const Ran none = ran(arguments, threeVariables("cov"));
  EXPECT_EQ(none.code, 3);
  EXPECT_EQ(none.err,
            "zvm: error: -: no variable is named zinc-lead; there are cov; --cross-of "
            "\"NAME=A,B\" names one\n");
  EXPECT_EQ(ran(arguments, threeVariables("lead-zinc")).code, 3) << "there is no model";
}

}  // namespace
}  // namespace zevfit::test
