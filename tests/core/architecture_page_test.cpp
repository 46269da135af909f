// The page on the architecture and the folders' pages name what is there: files, folders, and in
// the walks functions that some source of the program still has.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = ZEVFIT_SOURCE_DIR;

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

std::set<std::string> wordsOf(std::string_view text) {
  std::set<std::string> words;
  std::string word;
  for (const char c : std::string(text) + ' ') {
    if (isWordCharacter(c)) {
      word += c;
    } else if (!word.empty()) {
      words.insert(std::exchange(word, {}));
    }
  }
  return words;
}

/// What stands in backticks; blocks of code between three of them count as nothing.
std::vector<std::string> quotedIn(std::string_view page) {
  std::vector<std::string> quoted;
  for (std::size_t from = page.find('`'); from != page.npos; from = page.find('`', from)) {
    const bool block = page.substr(from, 3) == "```";
    const std::string_view mark = block ? "```" : "`";
    const std::size_t begin = from + mark.size();
    const std::size_t end = page.find(mark, begin);
    if (end == page.npos) break;
    if (!block) quoted.emplace_back(page.substr(begin, end - begin));
    from = end + mark.size();
  }
  return quoted;
}

/// The words of all sources of the program, tests and tools apart.
const std::set<std::string>& wordsOfTheProgram() {
  static const std::set<std::string> words = [] {
    std::set<std::string> found;
    for (const char* folder : {"session", "model", "files", "coreg", "fitting", "plot", "report",
                               "windows", "platform", "zvm"})
      for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder))
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
          found.merge(wordsOf(contentOf(entry.path())));
    return found;
  }();
  return words;
}

std::string architecture() { return contentOf(kRoot / "docs/architecture.md"); }

/// From a heading to the next one of its rank.
std::string section(const std::string& page, const std::string& heading) {
  const std::size_t begin = page.find("\n## " + heading + "\n");
  if (begin == std::string::npos) return {};
  return page.substr(begin, page.find("\n## ", begin + 1) - begin);
}

TEST(ArchitecturePage, NamesFilesThatExist) {
  int paths = 0;
  for (const std::string& name : quotedIn(architecture())) {
    if (name.find('/') == std::string::npos) continue;
    EXPECT_TRUE(fs::exists(kRoot / name)) << name;
    ++paths;
  }
  EXPECT_GT(paths, 20);
}

TEST(ArchitecturePage, WalksAlongFunctionsThatExist) {
  int names = 0;
  for (const std::string& name : quotedIn(section(architecture(), "Four walks"))) {
    if (name.find('/') != std::string::npos) continue;
    for (const std::string& word : wordsOf(name))
      EXPECT_TRUE(wordsOfTheProgram().contains(word)) << name;
    ++names;
  }
  EXPECT_GT(names, 80);
}

TEST(WindowsPage, HasEachFileInItsTable) {
  std::set<std::string> told;
  for (const std::string& name : quotedIn(contentOf(kRoot / "windows/README.md")))
    if (name.ends_with(".h") || name.ends_with(".cpp")) told.insert(name);
  for (const auto& entry : fs::directory_iterator(kRoot / "windows")) {
    const std::string name = entry.path().filename().string();
    EXPECT_TRUE(name == "README.md" || told.contains(name)) << name;
  }
  for (const std::string& name : told) EXPECT_TRUE(fs::exists(kRoot / "windows" / name)) << name;
}

}  // namespace
}  // namespace zevfit::test
