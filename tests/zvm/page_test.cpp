// The pages for users: what they show is what the command really prints, and every option is told.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"
#include "tests/zvm/command.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = ZEVFIT_SOURCE_DIR;

struct Example {
  std::string command;
  std::string output;
  bool isWhole = true;  ///< false: more was printed than is shown
};

/// A line of a block without its indentation; of an item of a list that is two blanks more.
std::string unindented(const std::string& line, std::size_t indentation) {
  return line.size() < indentation ? "" : line.substr(indentation);
}

/// Behind "$ zvm ..." or "$ ... | zvm ..." up to the end of the block.
std::vector<Example> examplesOf(const std::string& page) {
  std::vector<Example> examples;
  std::istringstream in(page);
  std::size_t indentation = 0;
  for (std::string line; std::getline(in, line);) {
    const std::size_t text = line.find_first_not_of(' ');
    if (text >= 4 && text != line.npos && line.compare(text, 2, "$ ") == 0) {
      indentation = text;
      examples.push_back({line.substr(text + 2), ""});
    } else if (indentation > 0 && text != line.npos && text < indentation) {
      indentation = 0;
    } else if (indentation > 0 && unindented(line, indentation) == "...") {
      examples.back().isWhole = false;
    } else if (indentation > 0) {
      examples.back().output += unindented(line, indentation) + '\n';
    }
  }
  // The empty lines behind a block are no part of it.
  for (Example& example : examples) {
    const std::size_t last = example.output.find_last_not_of('\n');
    example.output.resize(last == std::string::npos ? 0 : last + 2);
  }
  return examples;
}

TEST(ZvmPage, ShowsWhatIsPrinted) {
  const ScratchFolder folder;
  fs::copy(kRoot / "examples", folder / "examples");
  const auto examples = examplesOf(contentOf(kRoot / "docs/zvm.md"));
  EXPECT_GE(examples.size(), 6U);
  // Without Qt the program that draws is not made.
  const bool draws = fs::exists(fs::path(ZEVFIT_ZVM).parent_path() / "zvm-plot");
  for (const Example& example : examples) {
    if (!draws && example.command.starts_with("zvm plot ")) continue;
    putFile(folder / "run", "zvm() { '" ZEVFIT_ZVM "' \"$@\"; }\n" + example.command + "\n");
    const std::string command =
        "cd '" + (folder / "examples").string() + "' && bash ../run >../out 2>&1";
    EXPECT_TRUE(WIFEXITED(std::system(command.c_str())));
    const std::string printed = contentOf(folder / "out");
    EXPECT_EQ(example.isWhole ? printed : printed.substr(0, example.output.size()), example.output)
        << example.command;
  }
}

/// The lines of the block in which a page begins with a table of points.
std::string firstCommands(const std::string& page) {
  const std::size_t begin = page.find("    zvm compute meuse.csv ");
  return begin == std::string::npos ? "" : page.substr(begin, page.find("\n\n", begin) - begin);
}

TEST(ZvmPage, LeadsFromPointsToAnExport) {
  for (const char* page : {"docs/zvm.md", "README.md"}) {
    const ScratchFolder folder;
    fs::copy(kRoot / "examples", folder.path());
    // Who fits by eye saves as fitted.zvm; here the start is taken as it is.
    putFile(folder / "run",
            "zvm() {\n  '" ZEVFIT_ZVM
            "' \"$@\" >out\n  echo \"$1 $?\" >>codes\n"
            "  [ ! -f start.zvm ] || cp start.zvm fitted.zvm\n}\nzevfit() { :; }\n" +
                firstCommands(contentOf(kRoot / page)) + "\n");
    const std::string command = "cd '" + folder.path().string() + "' && bash run 2>messages";
    EXPECT_TRUE(WIFEXITED(std::system(command.c_str())));
    // Variables that are fitted one by one are no model together.
    const std::string codes = contentOf(folder / "codes");
    for (const char* code : {"compute 0\n", "fit 0\n", "test 1\n", "export 0\n"})
      EXPECT_NE(codes.find(code), std::string::npos)
          << page << codes << contentOf(folder / "messages");
    EXPECT_NE(contentOf(folder / "zinc.R").find("vgm("), std::string::npos) << page;
  }
}

using Options = std::set<std::string>;

Options optionsIn(const std::string& text) {
  const std::regex option("--[a-z][a-z0-9-]*");
  Options options;
  for (std::sregex_iterator at(text.begin(), text.end(), option), end; at != end; ++at)
    options.insert(at->str());
  return options;
}

/// What stands behind a heading up to the next line that begins so, or the end.
std::string sectionOf(const std::string& page, const std::string& heading,
                      const std::string& next) {
  const std::size_t begin = page.find(heading);
  if (begin == std::string::npos) return "";
  std::smatch found;
  const std::string rest = page.substr(begin + heading.size());
  return std::regex_search(rest, found, std::regex(next)) ? found.prefix().str() : rest;
}

TEST(ManualPage, TellsEachOptionOfEachVerb) {
  const std::string page =
      std::regex_replace(contentOf(kRoot / "packaging/zvm.1.in"), std::regex(R"(\\-)"), "-");
  const Options common = optionsIn(sectionOf(page, "\n.SH OPTIONS\n", "\n\\.SH"));
  EXPECT_EQ(common.size(), 6U);
  const std::regex row("\n  ([a-z]+)  ");
  const std::string help = ran({"--help"}).out;
  int verbs = 0;
  for (std::sregex_iterator at(help.begin(), help.end(), row), end; at != end; ++at, ++verbs) {
    const std::string verb = (*at)[1];
    Options told =
        optionsIn(sectionOf(page, "\"" + verb + " ", "\n\\.B[IR] \"(?!zvm )[a-z]+ |\n\\.SH"));
    told.insert(common.begin(), common.end());
    EXPECT_EQ(told, optionsIn(ran({verb, "--help"}).out)) << verb;
  }
  EXPECT_EQ(verbs, 10);
}

}  // namespace
}  // namespace zevfit::test
