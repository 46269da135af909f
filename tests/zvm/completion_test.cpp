// What the shells are told: every verb with every option of its help.
#include <gtest/gtest.h>

#include <cctype>
#include <nlohmann/json.hpp>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

const std::vector<std::string> kVerbs{"info", "check", "compute", "merge", "import",
                                      "fit",  "test",  "export",  "plot",  "completion"};

/// The long options that a help text tells of.
std::vector<std::string> optionsIn(const std::string& help) {
  std::vector<std::string> options;
  for (std::size_t at = help.find("--"); at != help.npos; at = help.find("--", at + 2)) {
    std::size_t end = at + 2;
    while (end < help.size() &&
           (std::islower(static_cast<unsigned char>(help[end])) != 0 ||
            std::isdigit(static_cast<unsigned char>(help[end])) != 0 || help[end] == '-'))
      ++end;
    options.push_back(help.substr(at, end - at));
  }
  return options;
}

TEST(Completion, KnowsEveryVerbAndOption) {
  for (const char* shell : {"bash", "zsh"}) {
    const std::string script = ran({"completion", shell}).out;
    for (const std::string& verb : kVerbs) {
      EXPECT_NE(script.find("    " + verb + ")\n"), std::string::npos) << verb;
      for (const std::string& option : optionsIn(ran({verb, "--help"}).out))
        EXPECT_NE(script.find(option), std::string::npos) << shell << verb << option;
    }
    EXPECT_NE(script.find("zvp gstat gslib sgems gstools pykrige gstlearn json csv"),
              std::string::npos);
    EXPECT_NE(script.find("bash zsh"), std::string::npos);
  }
}

TEST(CommandLine, HelpsAndTellsItsVersion) {
  const Ran help = ran({"--help"});
  EXPECT_EQ(help.code, 0);
  for (const std::string& verb : kVerbs)
    EXPECT_NE(help.out.find("  " + verb + "  "), std::string::npos) << verb;
  for (const char* code : {" 0 done", " 1 the", " 2 wrong", " 3 the", " 4 a", " 130 interrupted"})
    EXPECT_NE(help.out.find(code), std::string::npos) << code;
  EXPECT_EQ(ran({"--version"}).out.rfind("zvm ", 0), 0U);
  EXPECT_EQ(ran({"check", "--version"}).out, ran({"--version"}).out);
}

TEST(Completion, OffersValuesAndNoKinds) {
  for (const char* shell : {"bash", "zsh"}) {
    const std::string script = ran({"completion", shell}).out;
    for (const char* kind : {"VALUE", "A:B"})
      EXPECT_EQ(script.find(kind), std::string::npos) << shell << kind;
  }
  const std::string bash = ran({"completion", "bash"}).out;
  EXPECT_NE(bash.find("--nugget) mapfile -t COMPREPLY < <(compgen -W 'free' "), std::string::npos);
  EXPECT_NE(bash.find("--main) :; return"), std::string::npos) << "a direction is no file";
  EXPECT_NE(bash.find("-o | --output) mapfile -t COMPREPLY < <(compgen -f "), std::string::npos);
}

TEST(CommandLine, HelpsInLinesOfATerminal) {
  for (const std::string& verb : kVerbs) {
    std::istringstream help(ran({verb, "--help"}).out);
    for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80U) << line;
  }
  EXPECT_NE(ran({"merge", "--help"}).out.find("Usage: zvm merge [options] PART... OUT\n"),
            std::string::npos);
  EXPECT_NE(ran({"compute", "--help"}).out.find("Usage: zvm compute [options] POINTS [OUT]\n"),
            std::string::npos);
}

TEST(CommandLine, TellsWhatIsWrong) {
  struct Row {
    std::vector<std::string> arguments;
    std::string message;
  };
  const Row rows[] = {
      {{},
       "no verb; there are info, check, compute, merge, import, fit, test, export, plot, "
       "completion; "
       "zvm --help tells more"},
      {{"exprt"},
       "no verb `exprt`; there are export, import, fit, test, plot, info, check, compute, merge, "
       "completion; zvm --help tells more"},
      {{"info"}, "FILE is required; zvm info --help tells more"},
      {{"info", "a", "b"}, "`b` is one argument too many; zvm info --help tells more"},
      {{"check", "-", "--thread=2"},
       "no option `--thread` of zvm check; there are --threads, --help, --quiet, --version, "
       "--json, --overwrite"},
      {{"check", "-", "--threads", "many"}, "--threads takes a whole number from 1, not `many`"},
      {{"check", "-", "--threads", "0"}, "--threads takes a whole number from 1, not `0`"},
      {{"check", "-", "--threads", ""}, "--threads takes a whole number from 1, not ``"},
      {{"check", "-", "--threads", "1", "--threads=2"},
       "--threads takes one value, not 2; zvm check --help tells more"},
      {{"check", "-", "--threads"}, "--threads takes a value: N; zvm check --help tells more"},
      {{"check", "-", "--json=maybe"}, "--json does not take `maybe`; zvm check --help tells more"},
      {{"compute", "a", "b", "--lags", "2.5"}, "--lags takes a whole number, not `2.5`"},
      {{"compute", "a", "b", "--lags", "ten"}, "--lags takes a whole number, not `ten`"},
      {{"compute", "a", "b", "--lags", "0x10"}, "--lags takes a whole number, not `0x10`"},
      {{"compute", "a", "b", "--lags", "10 "}, "--lags takes a whole number, not `10 `"},
      {{"compute", "a", "b", "--lags", "9999999999999999999"},
       "--lags takes a whole number, not `9999999999999999999`"},
      {{"compute", "a", "b", "--lag", "100m"}, "--lag takes a number, not `100m`"},
      {{"compute", "a", "b", "--lag", "1,5"}, "--lag takes a number, not `1,5`"},
      {{"compute", "a", "b", "--lag", ""}, "--lag takes a number, not ``"},
      {{"compute", "a", "b", "--tol", ""}, "--tol takes a number, not ``"},
      {{"compute", "a", "b", "--band", "nan"}, "--band takes a number, not `nan`"},
      {{"compute", "a", "b", "--title", ""}, "--title is empty; it takes TEXT"},
      {{"compute", "a", ""}, "OUT is empty"},
      {{"info", ""}, "FILE is empty"},
      {{"export", "a", "-o", ""}, "--output is empty; it takes OUT"},
      {{"export", "a", "-o"}, "--output takes a value: OUT; zvm export --help tells more"},
      {{"export", "a", "--main", "--minor1", "0;0"},
       "--main takes a value: DIRECTION; `--minor1` is an option"},
      {{"export", "a", "-o", "-q"}, "--output takes a value: OUT; `-q` is an option"},
      {{"compute", "a", "b", "--lag", "--lags", "3"},
       "--lag takes a value: W; `--lags` is an option"},
      {{"check", "-", "-q=1"},
       "no option `-=1` of zvm check; there are --help, --json, --quiet, --version, --threads, "
       "--overwrite"},
      {{"info", "a", "--", "--json"},
       "`--json` is one argument too many; zvm info --help tells more"},
      {{"completion", "bsh"}, "no shell `bsh`; there are bash, zsh"},
  };
  for (const Row& row : rows) {
    const Ran run = ran(row.arguments);
    EXPECT_EQ(run.err, "zvm: error: " + row.message + "\n");
    EXPECT_EQ(run.code, 2) << row.message;
    EXPECT_EQ(run.out, "") << row.message;
  }
}

TEST(Completion, TellsTheScriptAsJson) {
  for (const char* shell : {"bash", "zsh"}) {
    const auto report = nlohmann::json::parse(ran({"completion", shell, "--json"}).out);
    EXPECT_EQ(report.at("schema"), "zvm.completion/1");
    EXPECT_EQ(report.at("shell"), shell);
    EXPECT_EQ(report.at("script"), ran({"completion", shell}).out);
  }
}

TEST(CommandLine, ReadsNumbersInDecimals) {
  const auto computed = [](const char* lag, const char* lags) {
    return ran({"compute", "-", "-", "-q", "--x", "x", "--y", "y", "--var", "v", "--lag", lag,
                "--lags", lags},
               "x,y,v\n0,0,1\n9,0,2\n");
  };
  EXPECT_EQ(computed("1", "010").code, 0) << computed("1", "010").err;
  EXPECT_EQ(computed("1", "010").out, computed("1", "10").out);
  EXPECT_EQ(computed("010", "1").out, computed("1e1", "1").out);
}

TEST(CommandLine, TakesAnOptionForATextBehindAnEqualsSign) {
  const Ran run = ran({"compute", "-", "-", "-q", "--x", "x", "--y", "y", "--var", "v", "--lag",
                       "1", "--lags", "2", "--title=--json"},
                      "x,y,v\n0,0,1\n1,0,2\n");
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out.rfind("--json\r\n", 0), 0U) << run.out;
}

TEST(CommandLine, TakesAllBehindTheMarkForFiles) {
  EXPECT_EQ(ran({"check", "--", "-"}, kData.bytes()).code, 0);
  EXPECT_EQ(ran({"check", "--", "--threads", "--json"}).err,
            "zvm: error: cannot read --threads: No such file or directory\n"
            "zvm: error: cannot read --json: No such file or directory\n");
  EXPECT_EQ(ran({"check", "--", "--json"}).err,
            "zvm: error: cannot read --json: No such file or directory\n");
}

/// A stream that takes nothing, as a full disk.
class FullStream : public std::streambuf {};

TEST(CommandLine, FailsWhereNothingIsTaken) {
  FullStream full;
  std::ostream out(&full);
  std::istringstream in;
  std::ostringstream err;
  EXPECT_EQ(verbs::runCommand({"--version"}, in, out, err), 4);
  EXPECT_EQ(err.str().rfind("zvm: error: cannot write stdout: ", 0), 0U) << err.str();
}

}  // namespace
}  // namespace zevfit::test
