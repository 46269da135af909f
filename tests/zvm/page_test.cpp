// The page for users shows what the command really prints.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

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

}  // namespace
}  // namespace zevfit::test
