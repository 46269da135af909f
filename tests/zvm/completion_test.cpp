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
    for (const char* verb :
         {"info", "check", "import", "fit", "test", "export", "plot", "completion"}) {
      EXPECT_NE(script.find("    " + std::string(verb) + ")\n"), std::string::npos) << verb;
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
  for (const char* verb :
       {"info", "check", "import", "fit", "test", "export", "plot", "completion"})
    EXPECT_NE(help.out.find("  " + std::string(verb) + "  "), std::string::npos) << verb;
  for (const char* code : {" 0 done", " 1 the", " 2 wrong", " 3 the", " 4 a", " 130 interrupted"})
    EXPECT_NE(help.out.find(code), std::string::npos) << code;
  EXPECT_EQ(ran({"--version"}).out.rfind("zvm ", 0), 0U);
  EXPECT_EQ(ran({"check", "--version"}).out, ran({"--version"}).out);
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
       "completion"},
      {{"info"}, "FILE is required; zvm info --help tells more"},
      {{"info", "a", "b"}, "`b` is one argument too many; zvm info --help tells more"},
      {{"check", "-", "--thread=2"},
       "no option `--thread` of zvm check; there are --threads, --help, --quiet, --version, "
       "--json, --overwrite"},
      {{"check", "-", "--threads", "many"},
       "--threads: it takes a whole number from 1, not `many`; zvm check --help tells more"},
      {{"check", "-", "--threads", "1", "--threads=2"},
       "--threads takes one value, not 2; zvm check --help tells more"},
      {{"check", "-", "--threads"}, "--threads takes a value: N; zvm check --help tells more"},
      {{"check", "-", "--json=maybe"}, "--json does not take `maybe`; zvm check --help tells more"},
      {{"compute", "a", "b", "--lags", "2.5"},
       "--lags does not take `2.5`; zvm compute --help tells more"},
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

TEST(CommandLine, TakesAllBehindTheMarkForFiles) {
  EXPECT_EQ(ran({"check", "--", "-"}, kData.bytes()).code, 0);
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
