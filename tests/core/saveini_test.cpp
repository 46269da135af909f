// The end of a run as the user meets it: the boxes, the file and whether the program ends.
#include "files/saveini.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "files/family_file.h"
#include "files/parameter_file.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::putFile;
using test::ScratchFolder;
using test::ScriptedDialogs;

using Boxes = std::vector<std::string>;

const std::string kQuestion = "question: Save configuration data file to zevFIT.INI ?";
constexpr const char* kPath = "/data/a.zvm";

struct End {
  bool ends = false;
  bool written = false;
  Boxes boxes;
  bool operator==(const End&) const = default;
};

/// For the report of a failing row.
void PrintTo(const End& end, std::ostream* out) {
  *out << (end.ends ? "ends" : "stays") << (end.written ? ", written" : ", not written");
  for (const std::string& box : end.boxes) *out << "; " << box;
}

bool isWritten(const ScratchFolder& folder) {
  const std::string content = contentOf(folder / "zevfit.ini");
  EXPECT_TRUE(content.empty() || content == composeParameters(GraphStyle(), kPath));
  return !content.empty();
}

End decide(std::int32_t p, std::int32_t q, Answer answer) {
  const ScratchFolder folder;
  ScriptedDialogs dialogs;
  dialogs.answers = {answer};
  const bool ends = saveini(GraphStyle(), kPath, folder.path(), p, q, dialogs);
  return {ends, isWritten(folder), dialogs.shown};
}

TEST(Saveini, OneAndNoughtEndsWithoutASave) {
  EXPECT_EQ(decide(1, 0, Answer::yes), (End{true, false, {}}));
}

TEST(Saveini, OneAndOneSavesWithoutAsking) {
  EXPECT_EQ(decide(1, 1, Answer::cancel), (End{true, true, {}}));
}

TEST(Saveini, AllOtherPairsAsk) {
  const std::pair<int, int> pairs[] = {{0, 0},  {0, 1},  {1, 2}, {1, -1}, {2, 1},
                                       {-1, 0}, {-1, 1}, {2, 2}, {0, 7}};
  for (const auto& [p, q] : pairs) {
    EXPECT_EQ(decide(p, q, Answer::yes), (End{true, true, {kQuestion}})) << p << ", " << q;
    EXPECT_EQ(decide(p, q, Answer::no), (End{true, false, {kQuestion}})) << p << ", " << q;
    EXPECT_EQ(decide(p, q, Answer::cancel), (End{false, false, {kQuestion}})) << p << ", " << q;
  }
}

TEST(Saveini, NoAndCancelLeaveTheOldFile) {
  for (const Answer answer : {Answer::no, Answer::cancel}) {
    const ScratchFolder folder;
    putFile(folder / "zevfit.ini", "old");
    ScriptedDialogs dialogs;
    dialogs.answers = {answer};
    saveini(GraphStyle(), kPath, folder.path(), 0, 0, dialogs);
    EXPECT_EQ(contentOf(folder / "zevfit.ini"), "old");
  }
}

TEST(Saveini, TellsOfAFileThatCannotBeWrittenAndEnds) {
  const ScratchFolder folder;
  fs::create_directories(folder / "taken/zevfit.ini");
  for (const char* name : {"none", "taken"}) {
    ScriptedDialogs dialogs;
    EXPECT_TRUE(saveini(GraphStyle(), kPath, folder / name, 1, 1, dialogs)) << name;
    EXPECT_EQ(dialogs.shown, (Boxes{test::noParametersBox((folder / name).string())})) << name;
  }
}

TEST(Saveini, TellsOfItBehindTheQuestionToo) {
  const ScratchFolder folder;
  ScriptedDialogs dialogs;
  dialogs.answers = {Answer::yes};
  EXPECT_TRUE(saveini(GraphStyle(), kPath, folder / "none", 0, 0, dialogs));
  EXPECT_EQ(dialogs.shown, (Boxes{kQuestion, test::noParametersBox((folder / "none").string())}));
}

std::string family(const std::string& lastTwo) { return "1 2 3\r\n4,5,6\n-7.5 8E3 0 " + lastTwo; }

struct CodeCase {
  const char* name;
  std::string bytes;
  SaveCode code;
};

TEST(FamilyFile, GivesTheLastTwoOfElevenNumbers) {
  const CodeCase cases[] = {
      {"end without a save", family("1 0"), {1, 0}},
      {"save without asking", family("1\r\n1\r\n"), {1, 1}},
      {"both nought", family("0,0"), {0, 0}},
      {"nought and one", family(" 0 \r\n 1 \r\n"), {0, 1}},
      {"the second alone is nought", family("5 0"), {5, 0}},
      {"the second alone is one", family("-3 1"), {-3, 1}},
      {"the first alone is nought", family("0 9"), {0, 9}},
      {"the first alone is one", family("1 2"), {1, 2}},
      {"neither is nought or one", family("2 3"), {0, 0}},
      {"neither, with minus one", family("-1 2"), {0, 0}},
      {"more numbers behind", family("1 1 7 8 9"), {1, 1}},
      {"a text behind", family("1 0 end"), {1, 0}},
      {"nearest whole number", family("1.4 -0.2"), {1, 0}},
      {"a half goes to the even one", family("1.5 0.5"), {2, 0}},
      {"a comma with nothing in front is a nought", family("1,,"), {1, 0}},
  };
  for (const CodeCase& c : cases) EXPECT_EQ(readSaveCode(c.bytes), c.code) << c.name;
}

TEST(FamilyFile, ThatCannotBeReadGivesNoughts) {
  const CodeCase cases[] = {
      {"empty", "", {}},
      {"blank", " \r\n ", {}},
      {"nine numbers", family(""), {}},
      {"ten numbers", family("1"), {}},
      {"a text for the first of the two", family("yes 1"), {}},
      {"a text for the second", family("1 no"), {}},
      {"a number in quotes", family("\"1\" 1"), {}},
      {"beyond 32 bits", family("1 2147483648"), {}},
      {"a text among the first nine", "1 2 3 4 name 6 7 8 9 1 1", {}},
      {"an overflow among the first nine", "1 2 3 4 1E400 6 7 8 9 1 1", {}},
  };
  for (const CodeCase& c : cases) EXPECT_EQ(readSaveCode(c.bytes), c.code) << c.name;
}

struct CloseCase {
  const char* name;
  std::string family;
  End end;
};

TEST(CloseRequest, DoesAsTheFamilyFileSays) {
  const CloseCase cases[] = {
      {"end without a save", family("1 0"), {true, false, {}}},
      {"save without asking", family("1 1"), {true, true, {}}},
      {"ask", family("0 1"), {true, true, {kQuestion}}},
      {"neither is nought or one", family("4 4"), {true, true, {kQuestion}}},
      {"one of another pair", family("1 3"), {true, true, {kQuestion}}},
      {"too short", "1 1", {true, true, {kQuestion}}},
  };
  for (const CloseCase& c : cases) {
    const ScratchFolder folder;
    putFile(folder / "zpam.pam", c.family);
    ScriptedDialogs dialogs;
    dialogs.answers = {Answer::yes};
    const bool ends = closeRequest(GraphStyle(), kPath, folder.path(), dialogs);
    EXPECT_EQ((End{ends, isWritten(folder), dialogs.shown}), c.end) << c.name;
    EXPECT_EQ(contentOf(folder / "zpam.pam"), c.family) << c.name;
  }
}

TEST(CloseRequest, WithoutAFamilyFileAsks) {
  const ScratchFolder folder;
  ScriptedDialogs dialogs;
  EXPECT_FALSE(closeRequest(GraphStyle(), kPath, folder.path(), dialogs));
  EXPECT_EQ(dialogs.shown, Boxes{kQuestion});
  fs::create_directory(folder / "zpam.pam");
  EXPECT_FALSE(closeRequest(GraphStyle(), kPath, folder.path(), dialogs));
  EXPECT_EQ(dialogs.shown, (Boxes{kQuestion, kQuestion}));
  EXPECT_FALSE(isWritten(folder));
}

}  // namespace
}  // namespace zevfit
