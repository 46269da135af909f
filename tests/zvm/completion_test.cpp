// What the shells are told: every verb with every option of its help.
#include <gtest/gtest.h>

#include <cctype>
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
    for (const char* verb : {"info", "check", "test", "export", "completion"}) {
      EXPECT_NE(script.find("    " + std::string(verb) + ")\n"), std::string::npos) << verb;
      for (const std::string& option : optionsIn(ran({verb, "--help"}).out))
        EXPECT_NE(script.find(option), std::string::npos) << shell << verb << option;
    }
    EXPECT_NE(script.find("zvp gstat gslib sgems gstools pykrige gstlearn json csv"),
              std::string::npos);
    EXPECT_NE(script.find("bash zsh"), std::string::npos);
  }
}

}  // namespace
}  // namespace zevfit::test
