// The rules of the house that no compiler checks: which folder may include which, how long a file
// may be, and that every folder says what it holds.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string_view>;

/// What an include names, told by its text alone.
enum class Kind { house, standard, system, qt, moc, other };

/// What the files under a path may include. A file belongs to the first row whose path begins its
/// own; of `house`, an entry with a point is one header, any other a whole folder.
struct Rule {
  std::string_view path;
  Names house;
  std::vector<Kind> kinds;
};

const Names kFolders{"session", "model",    "files", "coreg", "fitting",    "plot", "report",
                     "windows", "platform", "zvm",   "tests", "benchmarks", "fuzz"};
const std::vector<Kind> kStandard{Kind::standard};
/// Flushing a file to the disk is beyond the standard library.
const std::vector<Kind> kStandardAndSystem{Kind::standard, Kind::system};
const std::vector<Kind> kLibraries{Kind::standard, Kind::system, Kind::other};
const std::vector<Kind> kToolkit{Kind::standard, Kind::system, Kind::qt, Kind::moc};
const std::vector<Kind> kCoreTest{Kind::standard, Kind::system, Kind::other};
const std::vector<Kind> kAll{Kind::standard, Kind::system, Kind::qt, Kind::moc, Kind::other};

const std::vector<Rule> kRules{
    {"session/", {"session"}, kStandard},
    {"model/", {"model", "session"}, kStandard},
    {"files/", {"files", "session"}, kStandardAndSystem},
    {"coreg/", {"coreg", "session"}, kStandard},
    {"fitting/", {"fitting", "session", "model", "coreg"}, kStandard},
    {"plot/drawing/", {"plot/drawing", "session", "model"}, kStandard},
    {"plot/window/", {"plot", "session", "model"}, kStandard},
    {"plot/overlay/", {"plot/overlay", "plot/drawing", "session", "model"}, kStandard},
    {"report/", {"report", "session", "model", "plot"}, kStandard},
    {"windows/",
     {"windows", "session", "model", "files", "coreg", "fitting", "plot", "report",
      "platform/picture_box.h", "platform/picture_file.h"},
     kToolkit},
    {"platform/plotter/",
     {"zvm/plotting", "session", "platform/picture_file.h"},
     {Kind::standard, Kind::system, Kind::qt}},
    {"platform/", {"platform", "session", "model", "files", "coreg", "plot", "report"}, kToolkit},
    {"zvm/checking/", {"zvm/checking", "session", "model", "files"}, kStandard},
    {"zvm/exchange/import",
     {"zvm/exchange", "zvm/experimental", "zvm/points", "session"},
     kStandard},
    {"zvm/exchange/", {"zvm/exchange", "session", "model", "files"}, {Kind::standard, Kind::other}},
    {"zvm/points/", {"zvm/points", "session/short_decimal.h"}, kStandard},
    {"zvm/experimental/", {"zvm/experimental", "zvm/points", "session", "files"}, kStandard},
    {"zvm/plotting/",
     {"zvm/plotting", "zvm/experimental/surface_map.h", "session", "model", "files", "plot"},
     {Kind::standard, Kind::other}},
    {"zvm/spatial/", {"zvm/spatial", "zvm/points/names.h"}, kLibraries},
    {"zvm/", {"zvm", "session", "model", "files", "coreg", "fitting"}, kLibraries},
    {"tests/zvm/",
     {"tests", "zvm", "session", "model", "files", "coreg", "fitting", "plot", "report"},
     kCoreTest},
    {"tests/core/",
     {"tests", "session", "model", "files", "coreg", "fitting", "plot", "report"},
     kCoreTest},
    {"tests/", kFolders, kAll},
    {"benchmarks/", kFolders, kAll},
    {"fuzz/", kFolders, kAll},
    {"main.cpp", kFolders, kToolkit},
};

constexpr std::size_t kLongestFile = 400;
constexpr std::size_t kLongestMain = 99;

struct Include {
  std::string name;
  bool quoted = false;
};

/// The header that a line includes; nothing when it is no include line.
std::optional<Include> includeOf(std::string_view line) {
  const auto skipBlanks = [&line] {
    while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
  };
  const auto take = [&line](std::string_view word) {
    if (!line.starts_with(word)) return false;
    line.remove_prefix(word.size());
    return true;
  };
  skipBlanks();
  if (!take("#")) return std::nullopt;
  skipBlanks();
  if (!take("include")) return std::nullopt;
  skipBlanks();
  const bool quoted = line.starts_with('"');
  if (!quoted && !line.starts_with('<')) return Include{std::string(line), false};
  const std::size_t end = line.find(quoted ? '"' : '>', 1);
  return Include{std::string(line.substr(1, end == line.npos ? end : end - 1)), quoted};
}

bool isSystemHeader(std::string_view name) {
  static const Names headers{"dlfcn.h", "fcntl.h", "unistd.h"};
  return name.starts_with("sys/") || std::ranges::count(headers, name) > 0;
}

bool isQtHeader(std::string_view name) {
  return name.size() > 1 && name[0] == 'Q' && std::isupper(static_cast<unsigned char>(name[1]));
}

Kind kindOf(const Include& include) {
  const std::string_view name = include.name;
  if (include.quoted) return name.ends_with(".moc") ? Kind::moc : Kind::house;
  if (isSystemHeader(name)) return Kind::system;
  if (isQtHeader(name) || name.starts_with("Qt")) return Kind::qt;
  const bool plain =
      std::ranges::all_of(name, [](char c) { return (c >= 'a' && c <= 'z') || c == '_'; });
  return plain && !name.empty() ? Kind::standard : Kind::other;
}

const Rule* ruleFor(std::string_view file) {
  const auto rule =
      std::ranges::find_if(kRules, [file](const Rule& row) { return file.starts_with(row.path); });
  return rule == kRules.end() ? nullptr : &*rule;
}

bool namesHeader(std::string_view entry, std::string_view header) {
  if (entry.find('.') != entry.npos) return entry == header;
  return header.starts_with(std::string(entry) + '/');
}

bool allowed(std::string_view file, const Include& include) {
  const Rule* rule = ruleFor(file);
  if (rule == nullptr) return false;
  const Kind kind = kindOf(include);
  if (kind != Kind::house) return std::ranges::count(rule->kinds, kind) > 0;
  return std::ranges::any_of(
      rule->house, [&](std::string_view entry) { return namesHeader(entry, include.name); });
}

const fs::path& root() {
  static const fs::path path = ZEVFIT_SOURCE_DIR;
  return path;
}

bool isHidden(const fs::path& path) { return path.filename().string().starts_with('.'); }

/// The folders of the tree that hold something, by name; what a build made is none of them.
std::vector<std::string> folders() {
  std::vector<std::string> found;
  for (const auto& entry : fs::directory_iterator(root())) {
    if (!entry.is_directory() || isHidden(entry.path()) || entry.path().filename() == "build")
      continue;
    const fs::recursive_directory_iterator inside(entry.path());
    if (std::any_of(begin(inside), end(inside), [](const auto& e) { return e.is_regular_file(); }))
      found.push_back(entry.path().filename().string());
  }
  std::ranges::sort(found);
  return found;
}

bool isSource(const fs::path& path) {
  return path.extension() == ".cpp" || path.extension() == ".h";
}

/// Every source and header of the tree, relative to its root.
std::vector<std::string> sources() {
  std::vector<std::string> found;
  const auto add = [&found](const fs::directory_entry& entry) {
    if (entry.is_regular_file() && isSource(entry.path()))
      found.push_back(entry.path().lexically_relative(root()).generic_string());
  };
  std::ranges::for_each(fs::directory_iterator(root()), add);
  for (const std::string& folder : folders())
    std::ranges::for_each(fs::recursive_directory_iterator(root() / folder), add);
  std::ranges::sort(found);
  return found;
}

std::vector<std::string> linesOf(const std::string& file) {
  std::ifstream stream(root() / file);
  EXPECT_TRUE(stream) << file << " can't be read";
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST(House, EveryIncludeIsOneThatTheFolderMayUse) {
  for (const std::string& file : sources()) {
    const std::vector<std::string> lines = linesOf(file);
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (const auto include = includeOf(lines[i]); include && !allowed(file, *include))
        ADD_FAILURE() << file << ':' << i + 1 << ": may not include " << include->name;
  }
}

TEST(House, EverySourceHasARule) {
  for (const std::string& file : sources())
    EXPECT_NE(ruleFor(file), nullptr) << file << ": its folder is not in the table";
}

TEST(House, NoFileIsTooLong) {
  for (const std::string& file : sources())
    EXPECT_LE(linesOf(file).size(), file == "main.cpp" ? kLongestMain : kLongestFile) << file;
}

TEST(House, EveryHeaderIsReadOnce) {
  for (const std::string& file : sources()) {
    if (!file.ends_with(".h")) continue;
    const std::vector<std::string> lines = linesOf(file);
    EXPECT_GT(std::ranges::count(lines, "#pragma once"), 0) << file;
  }
}

// Tables do not count.
TEST(House, EveryFolderSaysInAFewLinesWhatItHolds) {
  for (const std::string& folder : folders()) {
    const std::string page = folder + "/README.md";
    const auto lines = fs::exists(root() / page) ? linesOf(page) : std::vector<std::string>();
    const auto filled = std::ranges::count_if(
        lines, [](const auto& line) { return !line.empty() && !line.starts_with('|'); });
    EXPECT_TRUE(filled >= 3 && filled <= 8) << page << " has " << filled << " lines";
  }
}

struct IncludeRow {
  std::string_view file;
  std::string_view line;
  bool allowed;
};

void PrintTo(const IncludeRow& row, std::ostream* out) { *out << row.file << ": " << row.line; }

class HouseRule : public testing::TestWithParam<IncludeRow> {};

TEST_P(HouseRule, Decides) {
  const auto include = includeOf(GetParam().line);
  ASSERT_TRUE(include);
  EXPECT_EQ(allowed(GetParam().file, *include), GetParam().allowed);
}

INSTANTIATE_TEST_SUITE_P(
    Includes, HouseRule,
    testing::Values(IncludeRow{"session/a.h", R"(#include <vector>)", true},
                    IncludeRow{"session/a.h", R"(#include "session/cell.h")", true},
                    IncludeRow{"session/a.h", R"(#include "model/fit.h")", false},
                    IncludeRow{"session/a.h", R"(#include "cell.h")", false},
                    IncludeRow{"session/a.h", R"(#include "../session/cell.h")", false},
                    IncludeRow{"session/a.h", R"(#include <QString>)", false},
                    IncludeRow{"session/a.h", R"(#include <QtCore/QString>)", false},
                    IncludeRow{"session/a.h", R"(#include <unistd.h>)", false},
                    IncludeRow{"session/a.h", R"(#include <gtest/gtest.h>)", false},
                    IncludeRow{"session/a.h", R"(  #  include   <QPainter>)", false},
                    IncludeRow{"session/a.h", R"(#include NAME)", false},
                    IncludeRow{"model/a.cpp", R"(#include "session/session.h")", true},
                    IncludeRow{"model/a.cpp", R"(#include "files/tokens.h")", false},
                    IncludeRow{"model/a.cpp", R"(#include "plot/drawing/surface.h")", false},
                    IncludeRow{"files/a.cpp", R"(#include "session/session.h")", true},
                    IncludeRow{"files/a.cpp", R"(#include <sys/stat.h>)", true},
                    IncludeRow{"files/a.cpp", R"(#include "model/fit.h")", false},
                    IncludeRow{"coreg/a.cpp", R"(#include "session/session.h")", true},
                    IncludeRow{"coreg/a.cpp", R"(#include "model/fit.h")", false},
                    IncludeRow{"fitting/a.cpp", R"(#include "coreg/eigenvalues.h")", true},
                    IncludeRow{"fitting/a.cpp", R"(#include "files/tokens.h")", false},
                    IncludeRow{"fitting/a.cpp", R"(#include <QPainter>)", false},
                    IncludeRow{"plot/drawing/a.cpp", R"(#include "model/fit.h")", true},
                    IncludeRow{"plot/drawing/a.cpp", R"(#include "plot/window/zoom.h")", false},
                    IncludeRow{"plot/window/a.cpp", R"(#include "plot/drawing/frame.h")", true},
                    IncludeRow{"plot/window/a.cpp", R"(#include "files/tokens.h")", false},
                    IncludeRow{"plot/window/a.cpp", R"(#include <QPainter>)", false},
                    IncludeRow{"plot/overlay/a.cpp", R"(#include "plot/drawing/surface.h")", true},
                    IncludeRow{"plot/overlay/a.cpp", R"(#include "plot/window/zoom.h")", false},
                    IncludeRow{"plot/drawing/a.cpp", R"(#include "plot/overlay/looks.h")", false},
                    IncludeRow{"report/a.cpp", R"(#include "plot/drawing/surface.h")", true},
                    IncludeRow{"report/a.cpp", R"(#include "files/tokens.h")", false},
                    IncludeRow{"windows/a.cpp", R"(#include <QLabel>)", true},
                    IncludeRow{"windows/a.cpp", R"(#include "files/variogram_reader.h")", true},
                    IncludeRow{"windows/a.cpp", R"(#include "platform/picture_box.h")", true},
                    IncludeRow{"windows/a.cpp", R"(#include "platform/program_folder.h")", false},
                    IncludeRow{"windows/a.cpp", R"(#include "a.moc")", true},
                    IncludeRow{"platform/a.cpp", R"(#include <QPainter>)", true},
                    IncludeRow{"platform/a.cpp", R"(#include "plot/drawing/surface.h")", true},
                    IncludeRow{"platform/a.cpp", R"(#include "windows/mdimod.h")", false},
                    IncludeRow{"coreg/a.cpp", R"(#include "zvm/verbs/verb.h")", false},
                    IncludeRow{"windows/a.cpp", R"(#include "zvm/verbs/verb.h")", false},
                    IncludeRow{"zvm/checking/a.cpp", R"(#include "files/tokens.h")", true},
                    IncludeRow{"zvm/checking/a.cpp", R"(#include "coreg/crosstest.h")", false},
                    IncludeRow{"zvm/checking/a.cpp", R"(#include <CLI/CLI.hpp>)", false},
                    IncludeRow{"zvm/exchange/a.cpp", R"(#include <nlohmann/json.hpp>)", true},
                    IncludeRow{"zvm/exchange/a.cpp", R"(#include "zvm/verbs/verb.h")", false},
                    IncludeRow{"zvm/exchange/import.h", R"(#include "zvm/points/rows.h")", true},
                    IncludeRow{"zvm/exchange/import.h", R"(#include <CLI/CLI.hpp>)", false},
                    IncludeRow{"zvm/exchange/a.cpp", R"(#include "zvm/points/rows.h")", false},
                    IncludeRow{"zvm/points/a.cpp", R"(#include <charconv>)", true},
                    IncludeRow{"zvm/points/a.cpp", R"(#include "session/numbers.h")", false},
                    IncludeRow{"zvm/experimental/a.cpp", R"(#include <thread>)", true},
                    IncludeRow{"zvm/experimental/a.cpp", R"(#include "zvm/points/names.h")", true},
                    IncludeRow{"zvm/experimental/a.cpp", R"(#include <CLI/CLI.hpp>)", false},
                    IncludeRow{"zvm/verbs/a.cpp", R"(#include "zvm/checking/cursor.h")", true},
                    IncludeRow{"zvm/verbs/a.cpp", R"(#include "coreg/crosstest.h")", true},
                    IncludeRow{"zvm/verbs/a.cpp", R"(#include <CLI/CLI.hpp>)", true},
                    IncludeRow{"zvm/verbs/a.cpp", R"(#include <QString>)", false},
                    IncludeRow{"zvm/verbs/a.cpp", R"(#include "plot/drawing/frame.h")", false},
                    IncludeRow{"tests/core/a.cpp", R"(#include <gtest/gtest.h>)", true},
                    IncludeRow{"tests/core/a.cpp", R"(#include "tests/support/panel.h")", true},
                    IncludeRow{"tests/core/a.cpp", R"(#include <QLabel>)", false},
                    IncludeRow{"tests/core/a.cpp", R"(#include "windows/mdimod.h")", false},
                    IncludeRow{"tests/windows/a.cpp", R"(#include "windows/mdimod.h")", true},
                    IncludeRow{"main.cpp", R"(#include "windows/mdimod.h")", true},
                    IncludeRow{"main.cpp", R"(#include <gtest/gtest.h>)", false},
                    IncludeRow{"elsewhere/a.cpp", R"(#include <vector>)", false}));

TEST(HouseInclude, OtherLinesAreNone) {
  for (const std::string_view line : {"", "// #include <QLabel>", "#define include", "include <a>"})
    EXPECT_FALSE(includeOf(line)) << line;
}

}  // namespace
