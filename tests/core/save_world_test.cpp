// A save onto files as the world has them: linked, protected, owned by others, changed meanwhile.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

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
using test::holdsForAPlainUser;
using test::putFile;
using test::sampleFile;

struct Desk {
  Desk() {
    for (const char* name : {"program", "data"}) fs::create_directory(folder / name);
    putFile(file, sampleFile("zevra"));
    EXPECT_TRUE(readVariogramFile(file, session));
    acceptLoad(session, file);
  }
  /// The last box of a save.
  std::string save() {
    ModelSaver(folder / "program").gravando(session, 2, dialogs);
    return dialogs.shown.back();
  }
  bool isNew() const {
    const std::string bytes = contentOf(file);
    return bytes.starts_with("Flood plain\r\nzevRA1\r\n") &&
           bytes.ends_with("-\r\n0\r\n0.0001\r\n");
  }
  bool isOld() const { return contentOf(file) == sampleFile("zevra"); }
  struct stat about() const {
    struct stat found {};
    EXPECT_EQ(::stat(file.c_str(), &found), 0);
    return found;
  }

  test::ScratchFolder folder;
  fs::path file = folder / "data/meuse.zvm";
  Session session;
  test::ScriptedDialogs dialogs;
  std::string saved = test::savedBox(file.string());
  std::string failed = test::notSavedBox(file.string());
};

void openToAll(const fs::path& path) { ::chmod(path.c_str(), 0777); }

TEST(SaveInTheWorld, KeepsPermissionBits) {
  for (const mode_t bits : {0600U, 0640U, 0664U, 0666U, 0755U}) {
    Desk desk;
    ASSERT_EQ(::chmod(desk.file.c_str(), bits), 0);
    EXPECT_EQ(desk.save(), desk.saved);
    EXPECT_TRUE(desk.isNew());
    EXPECT_EQ(desk.about().st_mode & 07777, bits);
  }
}

TEST(SaveInTheWorld, KeepsTheOwner) {
  Desk desk;
  // Root alone gives files away; to others the file stays their own.
  const bool given = ::chown(desk.file.c_str(), 12345, 54321) == 0;
  EXPECT_EQ(given, ::geteuid() == 0);
  EXPECT_EQ(desk.save(), desk.saved);
  EXPECT_TRUE(desk.isNew());
  EXPECT_EQ(desk.about().st_uid, given ? 12345 : ::geteuid());
  EXPECT_EQ(desk.about().st_gid, given ? 54321 : ::getegid());
}

TEST(SaveInTheWorld, LeavesTheOldContentUnderAnotherNameOfTheFile) {
  Desk desk;
  const fs::path other = desk.folder / "data/other.zvm";
  fs::create_hard_link(desk.file, other);
  EXPECT_EQ(desk.save(), desk.saved);
  EXPECT_TRUE(desk.isNew());
  EXPECT_EQ(contentOf(other), sampleFile("zevra"));
}

TEST(SaveInTheWorld, GoesThroughLinksOfLinks) {
  Desk desk;
  const fs::path first = desk.folder / "first.zvm";
  const fs::path second = desk.folder / "data/second.zvm";
  fs::create_symlink("data/second.zvm", first);
  fs::create_symlink("meuse.zvm", second);
  desk.session.inputfile = first;
  EXPECT_EQ(desk.save(), test::savedBox(first.string()));
  EXPECT_TRUE(desk.isNew());
  EXPECT_EQ(fs::read_symlink(first), "data/second.zvm");
  EXPECT_EQ(fs::read_symlink(second), "meuse.zvm");
}

TEST(SaveInTheWorld, RefusesAFileThatMayOnlyBeRead) {
  Desk desk;
  ASSERT_EQ(::chmod(desk.file.c_str(), 0444), 0);
  for (const auto& folder : {desk.folder.path(), desk.folder / "program", desk.folder / "data"})
    openToAll(folder);
  EXPECT_TRUE(holdsForAPlainUser([&] { return desk.save() == desk.failed; }));
  EXPECT_TRUE(desk.isOld());
  EXPECT_EQ(desk.about().st_mode & 07777, 0444U);
}

TEST(SaveInTheWorld, RefusesAFileInAFolderThatMayOnlyBeRead) {
  Desk desk;
  for (const auto& folder : {desk.folder.path(), desk.folder / "program"}) openToAll(folder);
  ASSERT_EQ(::chmod(desk.file.c_str(), 0666), 0);
  ASSERT_EQ(::chmod((desk.folder / "data").c_str(), 0555), 0);
  EXPECT_TRUE(holdsForAPlainUser([&] { return desk.save() == desk.failed; }));
  ASSERT_EQ(::chmod((desk.folder / "data").c_str(), 0755), 0);
  EXPECT_TRUE(desk.isOld());
}

TEST(SaveInTheWorld, TakesTitleAndTagOfAFileThatSomebodyHasChanged) {
  Desk desk;
  putFile(desk.file, "River bank\r\nmine\r\n7\r\nother\r\n");
  EXPECT_EQ(desk.save(), desk.saved);
  EXPECT_TRUE(contentOf(desk.file).starts_with("River bank\r\nmine\r\n 2 \r\nzinc\r\nlead\r\n"));
  EXPECT_EQ(desk.session.nvar, 7);
}

TEST(SaveInTheWorld, FailsForAFileThatSomebodyHasTakenAway) {
  const std::function<void(const fs::path&)> replacements[] = {
      [](const fs::path&) {}, [](const fs::path& at) { fs::create_directory(at); },
      [](const fs::path& at) { EXPECT_EQ(::mkfifo(at.c_str(), 0600), 0); },
      [](const fs::path& at) { fs::create_symlink("nowhere.zvm", at); }};
  for (const auto& replace : replacements) {
    Desk desk;
    fs::remove(desk.file);
    replace(desk.file);
    EXPECT_EQ(desk.save(), desk.failed);
    EXPECT_EQ(fs::exists(desk.folder / "data/nowhere.zvm"), false);
  }
}

}  // namespace
}  // namespace zevfit
