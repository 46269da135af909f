// The file as it was before the first save after a load, and titles and names that a save quotes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <random>
#include <string>

#include "files/tokens.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "tests/support/plain_user.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::putFile;
using test::sampleFile;

/// A program folder, and a loaded file in another one.
struct Desk {
  Desk() {
    fs::create_directory(folder / "program");
    fs::create_directory(folder / "data");
    load(sampleFile("zevra"));
  }
  void load(const std::string& content) {
    putFile(file, content);
    ASSERT_TRUE(readVariogramFile(file, session));
    acceptLoad(session, file);
    saver.startFile();
  }
  /// What is told at the foot of the window; nothing where all is well.
  std::string save() {
    const auto note = saver.gravando(session, 2, dialogs);
    EXPECT_EQ(dialogs.shown.back(), "plain: Models saved to file:" + session.inputfile);
    return note.value_or("");
  }

  test::ScratchFolder folder;
  fs::path file = folder / "data/meuse.zvm";
  fs::path kept = folder / "data/meuse.zvm~";
  Session session;
  test::ScriptedDialogs dialogs;
  ModelSaver saver{folder / "program"};
};

TEST(KeptFile, IsTheFileBeforeTheFirstSaveAfterALoad) {
  Desk desk;
  EXPECT_EQ(desk.save(), "");
  EXPECT_EQ(contentOf(desk.kept), sampleFile("zevra"));
  const std::string saved = contentOf(desk.file);
  EXPECT_NE(saved, sampleFile("zevra"));
  desk.session.use0({1, 1}) = 1;
  EXPECT_EQ(desk.save(), "");
  EXPECT_EQ(contentOf(desk.kept), sampleFile("zevra")) << "left alone";
  desk.load(saved);
  desk.save();
  EXPECT_EQ(contentOf(desk.kept), saved) << "a new load";
}

std::ptrdiff_t filesIn(const fs::path& folder) {
  return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

// The copy once took the place of an older one before the file itself was replaced.
TEST(KeptFile, AnOlderOneStaysUntilTheSaveHasSucceeded) {
  Desk desk;
  putFile(desk.kept, "older");
  const fs::path target = desk.folder / "data/target.zvm";
  fs::rename(desk.file, target);
  fs::create_symlink("target.zvm", desk.file);
  // Its file can be read, but not be replaced.
  fs::permissions(target, fs::perms(0444));
  fs::permissions(desk.folder / "data", fs::perms(0777));
  fs::permissions(desk.folder / "program", fs::perms(0777));
  EXPECT_TRUE(test::holdsForAPlainUser([&] {
    const auto note = desk.saver.gravando(desk.session, 2, desk.dialogs);
    return !note && desk.dialogs.shown.back().starts_with("plain: Cannot save  models to file:") &&
           contentOf(desk.kept) == "older" && filesIn(desk.folder / "data") == 3;
  }));
  fs::permissions(target, fs::perms(0644));
  EXPECT_EQ(desk.save(), "");
  EXPECT_EQ(contentOf(desk.kept), sampleFile("zevra"));
  EXPECT_EQ(filesIn(desk.folder / "data"), 3);
}

TEST(KeptFile, KeepsThePermissionsOfTheFile) {
  Desk desk;
  fs::permissions(desk.file, fs::perms(0600));
  desk.save();
  EXPECT_EQ(fs::status(desk.kept).permissions(), fs::perms(0600));
}

TEST(KeptFile, TakesTheNameOfALinkAndSparesItsTarget) {
  Desk desk;
  putFile(desk.folder / "data/own", "own");
  fs::create_symlink("own", desk.kept);
  EXPECT_EQ(desk.save(), "");
  EXPECT_EQ(contentOf(desk.folder / "data/own"), "own");
  EXPECT_FALSE(fs::is_symlink(desk.kept));
  EXPECT_EQ(contentOf(desk.kept), sampleFile("zevra"));
}

TEST(KeptFile, ThatCannotBeKeptIsToldAndDoesNotHinderTheSave) {
  Desk desk;
  fs::create_directory(desk.kept);
  EXPECT_EQ(desk.save(),
            "The file as it was before this save could not be kept as " + desk.kept.string());
  EXPECT_TRUE(contentOf(desk.file).starts_with("Flood plain\r\nzevRA1\r\n"));
  fs::remove(desk.kept);
  EXPECT_EQ(desk.save(), "") << "what is there now is not the file as it was";
  EXPECT_FALSE(fs::exists(desk.kept));
}

/// The superuser may write everywhere; what asks for the rights of the user who started the program
/// is told of somebody else's.
class SomebodyElse {
 public:
  SomebodyElse() { EXPECT_EQ(::getuid() == 0 ? ::setreuid(kNobody, kSame) : 0, 0); }
  SomebodyElse(const SomebodyElse&) = delete;
  SomebodyElse& operator=(const SomebodyElse&) = delete;
  ~SomebodyElse() { EXPECT_EQ(::geteuid() == 0 ? ::setreuid(0, kSame) : 0, 0); }

 private:
  static constexpr uid_t kNobody = 65534;
  static constexpr auto kSame = static_cast<uid_t>(-1);
};

// A link in a folder that can't be written leads to a file that can be saved.
TEST(KeptFile, GoesToTheProgramsFolderWhereItsOwnCannotBeWritten) {
  Desk desk;
  const fs::path shut = desk.folder / "shut";
  fs::create_directory(shut);
  fs::create_symlink(desk.file, shut / "link.zvm");
  fs::permissions(desk.file, fs::perms(0666));
  fs::permissions(shut, fs::perms(0555));
  desk.session.inputfile = (shut / "link.zvm").string();
  {
    const SomebodyElse user;
    EXPECT_EQ(desk.save(), "");
  }
  fs::permissions(shut, fs::perms(0755));
  EXPECT_EQ(contentOf(desk.folder / "program/link.zvm~"), sampleFile("zevra"));
  EXPECT_FALSE(fs::exists(shut / "link.zvm~"));
  EXPECT_TRUE(contentOf(desk.file).starts_with("Flood plain\r\nzevRA1\r\n"));
}

TEST(KeptFile, IsWaitedForUntilASaveSucceeds) {
  Desk desk;
  putFile(desk.file, "t");
  desk.saver.gravando(desk.session, 2, desk.dialogs);
  EXPECT_FALSE(fs::exists(desk.kept));
  desk.saver.closeFiles();
  putFile(desk.file, sampleFile("zevlag"));
  desk.save();
  EXPECT_EQ(contentOf(desk.kept), sampleFile("zevlag"));
}

/// Titles and names as files can have them, quoted and plain, the same ones on every run.
class Names {
 public:
  explicit Names(unsigned seed) : engine_(seed) {}

  std::string token() {
    if (upTo(2) == 0) return '"' + text(" ,ab\t'\r\n\xE3-", 0) + '"';
    // An empty one is a comma alone; a plain one begins with a letter.
    if (upTo(9) == 0) return ",";
    return std::string(1, "azAZ09'"[upTo(6)]) + text(" ab\t\"'\xE3-", 1);
  }

 private:
  int upTo(int most) { return static_cast<int>(engine_() % (static_cast<unsigned>(most) + 1)); }
  std::string text(std::string_view letters, int least) {
    std::string made;
    for (int left = least + upTo(6); left > 0; --left)
      made += letters[static_cast<std::size_t>(upTo(static_cast<int>(letters.size()) - 1))];
    return made;
  }

  std::mt19937 engine_;
};

std::string titleOf(const std::string& file) { return std::string(*TokenStream(file).text()); }

TEST(QuotedNames, ReadSaveReadGivesTheSameNamesAndTitle) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    Names names(seed);
    std::string content = names.token() + "\nzevra\n2\n" + names.token() + "\n" + names.token() +
                          "\n2\n1\n" + names.token() + "\n" + names.token() +
                          "\n1\n1 2 3\n1 2 3\n1\n1 2 3\n1 2 3\n";
    Desk desk;
    desk.load(content);
    desk.save();
    Session again;
    ASSERT_TRUE(readVariogramFile(desk.file, again)) << seed;
    EXPECT_TRUE(again.hasmodel) << seed;
    EXPECT_EQ(titleOf(contentOf(desk.file)), titleOf(content)) << seed;
    for (int i = 1; i <= 2; ++i) {
      EXPECT_EQ(again.varname(i), desk.session.varname(i)) << seed;
      EXPECT_EQ(again.dirname(i), desk.session.dirname(i)) << seed;
    }
  }
}

/// A file of one pair with this tag and, where that says so, with letters of any kind.
std::string fileOfOne(Names& names, const std::string& tag) {
  std::string content = "t\n" + tag + "\n1\nzinc\n1\n1\n0;0\n1\n1 2 3\n1\n0.5\n";
  for (int structure = 1; structure <= 3; ++structure)
    content += "1\n" + names.token() + "\n1\n10\n";
  return content;
}

TEST(QuotedNames, ReadSaveReadGivesTheSameTagAndLetters) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    Names names(seed);
    const bool hasModel = seed % 2 == 0;
    Desk desk;
    desk.load(fileOfOne(names, hasModel ? "zevRA1" : names.token()));
    ASSERT_EQ(desk.session.hasmodel, hasModel) << seed;
    const std::string tag = desk.session.filetag;
    desk.saver.gravando(desk.session, 1, desk.dialogs);
    Session again;
    ASSERT_TRUE(readVariogramFile(desk.file, again)) << seed;
    EXPECT_EQ(again.filetag, tag) << seed;
    EXPECT_EQ(again.varname(1), "zinc") << seed;
    EXPECT_EQ(test::modelText(again, {1, 1}), test::modelText(desk.session, {1, 1})) << seed;
  }
}

TEST(QuotedNames, StandInQuotesOnlyWhereTheyNeedThem) {
  Desk desk;
  desk.load(
      "\"A title\"\nzevra\n2\n\"zinc\"\n\"lead, ln\"\n2\n1\n\"\"\nno\"rth\n"
      "1\n1 2 3\n1 2 3\n1\n1 2 3\n1 2 3\n");
  desk.save();
  EXPECT_TRUE(contentOf(desk.file).starts_with(
      "A title\r\nzevRA1\r\n 2 \r\nzinc\r\n\"lead, ln\"\r\n 2 \r\n 1 \r\n\"\"\r\nno\"rth\r\n"));
}

}  // namespace
}  // namespace zevfit
