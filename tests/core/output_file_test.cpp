#include "files/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "session/fault.h"
#include "tests/support/plain_user.h"
#include "tests/support/scratch_folder.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::putFile;
using test::ScratchFolder;

/// Another file system than that of the temporary folder, where the machine has one.
fs::path otherVolume() { return "/dev/shm"; }

TEST(OutputFile, WritesWhatItIsGiven) {
  const ScratchFolder folder;
  const fs::path path = folder / "new.zvm";
  OutputFile out(path);
  out.write("one\r\n");
  out.write("");
  out.write(std::string("\0\xFF", 2));
  out.close();
  EXPECT_EQ(contentOf(path), std::string("one\r\n\0\xFF", 7));
}

TEST(OutputFile, DropsOldContentAtOnce) {
  const ScratchFolder folder;
  const fs::path path = folder / "old.zvm";
  putFile(path, "a long old content");
  OutputFile out(path);
  EXPECT_EQ(contentOf(path), "");
  out.write("new");
  out.close();
  EXPECT_EQ(contentOf(path), "new");
}

TEST(OutputFile, WritesMoreThanItHoldsBack) {
  const ScratchFolder folder;
  const std::string block(300'007, 'x');
  std::string whole;
  OutputFile out(folder / "large");
  for (int i = 0; i < 10; ++i) {
    out.write(block + std::to_string(i));
    whole += block + std::to_string(i);
  }
  out.close();
  EXPECT_EQ(contentOf(folder / "large"), whole);
}

TEST(OutputFile, LeftAloneKeepsWhatWasWritten) {
  const ScratchFolder folder;
  auto out = std::make_unique<OutputFile>(folder / "part");
  out->write("begun");
  out.reset();
  EXPECT_EQ(contentOf(folder / "part"), "begun");
}

TEST(OutputFile, FailsWhereNoFileCanBeMade) {
  const ScratchFolder folder;
  putFile(folder / "file", "");
  EXPECT_THROW(OutputFile(folder.path()), Fault);
  EXPECT_THROW(OutputFile(folder / "none/new"), Fault);
  EXPECT_THROW(OutputFile(folder / "file/new"), Fault);
  EXPECT_THROW(OutputFile(fs::path{}), Fault);
}

TEST(OutputFile, FullDeviceFailsAtTheLatestOnClose) {
  const fs::path full = "/dev/full";
  if (!fs::exists(full)) return;
  OutputFile out(full);
  out.write("some");
  EXPECT_THROW(out.close(), Fault);
}

// What stood in the buffer when a write failed was once written again by the closing.
TEST(OutputFile, GivesUpWhatItCouldNotWrite) {
  const fs::path full = "/dev/full";
  if (!fs::exists(full)) return;
  OutputFile out(full);
  EXPECT_THROW(out.write(std::string(3'000'000, 'x')), Fault);
  out.write("little");
  EXPECT_THROW(out.close(), Fault);
}

// A link left under the name of the temporary file once led the save to write another file.
TEST(OutputFile, TakesTheNameOfALinkAndSparesItsTarget) {
  const ScratchFolder folder;
  putFile(folder / "own", "own");
  fs::create_symlink("own", folder / "link");
  OutputFile out(folder / "link");
  out.write("new");
  out.close();
  EXPECT_EQ(contentOf(folder / "own"), "own");
  EXPECT_FALSE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(contentOf(folder / "link"), "new");
}

TEST(OutputFile, LeavesAnOldFileWhereItIsRefused) {
  const ScratchFolder folder;
  putFile(folder / "own", "own");
  fs::create_symlink("none", folder / "link");
  EXPECT_THROW(OutputFile(folder / "own", OutputFile::Old::refused), Fault);
  EXPECT_THROW(OutputFile(folder / "link", OutputFile::Old::refused), Fault);
  EXPECT_EQ(contentOf(folder / "own"), "own");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
}

TEST(SaveWhole, PutsTheFileInItsPlaceOrIntoTheOldOne) {
  const ScratchFolder folder;
  saveWhole(folder / "a", "one");
  EXPECT_EQ(contentOf(folder / "a"), "one");
  fs::permissions(folder / "a", fs::perms(0666));
  fs::create_symlink("a", folder / "link");
  const std::string longer(100'000, 'y');
  for (const char* name : {"a", "link"}) {
    for (const std::string& bytes : {longer, std::string("short"), std::string()}) {
      fs::permissions(folder.path(), fs::perms(0555));
      EXPECT_TRUE(test::holdsForAPlainUser([&] {
        saveWhole(folder / name, bytes);
        return contentOf(folder / "a") == bytes;
      })) << name
          << " " << bytes.size();
      fs::permissions(folder.path(), fs::perms(0755));
    }
  }
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_THROW(saveWhole(folder / "none/a", "x"), Fault);
  EXPECT_THROW(saveWhole(folder.path(), "x"), Fault);
}

// In a sticky folder, such as /tmp, nobody may take somebody else's file out of its place; a file
// that may be written was once refused there.
TEST(SaveWhole, WritesIntoAFileOfSomebodyElseInAStickyFolder) {
  const ScratchFolder folder;
  fs::permissions(folder.path(), fs::perms(01777));
  for (const char* name : {"out.zvp", "shut.zvp"}) putFile(folder / name, "an old file");
  fs::permissions(folder / "out.zvp", fs::perms(0666));
  fs::permissions(folder / "shut.zvp", fs::perms(0444));
  EXPECT_TRUE(test::holdsForAPlainUser([&] {
    saveWhole(folder / "out.zvp", "new");
    return contentOf(folder / "out.zvp") == "new";
  }));
  EXPECT_TRUE(test::holdsForAPlainUser([&] {
    try {
      saveWhole(folder / "shut.zvp", "new");
    } catch (const Fault&) {
      return contentOf(folder / "shut.zvp") == "an old file";
    }
    return false;
  }));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}

// A pipe or a device in the place of a file once kept the program waiting for ever.
TEST(ReadWhole, DoesNotWaitForPipesAndDevices) {
  const ScratchFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_THROW(readWhole(folder / "pipe"), Fault);
  EXPECT_THROW(readWhole("/dev/zero"), Fault);
  EXPECT_THROW(readPieces(folder / "pipe"), Fault);
}

// A file that claims more than the memory holds once ended the program.
TEST(ReadWhole, FailsForAFileBeyondTheMemory) {
  const ScratchFolder folder;
  const fs::path sparse = otherVolume() / folder.path().filename();
  putFile(sparse, "");
  std::error_code unable;
  fs::resize_file(sparse, std::uintmax_t{INT64_MAX}, unable);
  if (!unable) {
    EXPECT_THROW(readWhole(sparse), Fault);
    EXPECT_THROW(readPieces(sparse), Fault);
  }
  fs::remove(sparse, unable);
}

TEST(ReadWhole, GivesAllBytes) {
  const ScratchFolder folder;
  for (const std::string& content :
       {std::string(), std::string("\0\r\n\x1A\xFF", 5), std::string(3'000'000, 'x')}) {
    putFile(folder / "a", content);
    EXPECT_EQ(readWhole(folder / "a"), content);
    std::string joined;
    for (const std::string& piece : readPieces(folder / "a")) {
      EXPECT_FALSE(piece.empty());
      joined += piece;
    }
    EXPECT_EQ(joined, content);
  }
}

TEST(ReadWhole, ReadsFilesThatClaimNoSize) {
  // The size of such a file is 0 in its folder.
  const fs::path file = "/proc/self/status";
  if (!fs::exists(file)) return;
  EXPECT_NE(readWhole(file).find("Pid:"), std::string::npos);
}

TEST(ReadWhole, FailsWhereThereIsNoFile) {
  const ScratchFolder folder;
  EXPECT_THROW(readWhole(folder / "none"), Fault);
  EXPECT_THROW(readPieces(folder / "none"), Fault);
  EXPECT_THROW(readWhole(folder.path()), Fault);
  EXPECT_THROW(readWhole(fs::path()), Fault);
}

TEST(ReplaceFile, PutsTheNewInThePlaceOfTheOld) {
  const ScratchFolder folder;
  putFile(folder / "new", "new");
  putFile(folder / "old", "old");
  replaceFile(folder / "new", folder / "old");
  EXPECT_EQ(contentOf(folder / "old"), "new");
  EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST(ReplaceFile, WorksWithoutAnOldOne) {
  const ScratchFolder folder;
  putFile(folder / "new", "new");
  replaceFile(folder / "new", folder / "target");
  EXPECT_EQ(contentOf(folder / "target"), "new");
}

TEST(ReplaceFile, KeepsTheOldPermissions) {
  const ScratchFolder folder;
  for (const unsigned bits : {0600U, 0640U, 0664U, 0755U}) {
    putFile(folder / "new", "new");
    putFile(folder / "old", "old");
    fs::permissions(folder / "old", fs::perms(bits));
    replaceFile(folder / "new", folder / "old");
    EXPECT_EQ(fs::status(folder / "old").permissions(), fs::perms(bits)) << bits;
    EXPECT_EQ(contentOf(folder / "old"), "new");
  }
}

TEST(ReplaceFile, FollowsLinksToTheirTarget) {
  const ScratchFolder folder;
  fs::create_directory(folder / "data");
  putFile(folder / "data/file", "old");
  fs::create_symlink("data/file", folder / "link");
  fs::create_symlink("link", folder / "link of a link");
  putFile(folder / "new", "new");
  replaceFile(folder / "new", folder / "link of a link");
  EXPECT_TRUE(fs::is_symlink(folder / "link of a link"));
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(fs::read_symlink(folder / "link"), "data/file");
  EXPECT_FALSE(fs::is_symlink(folder / "data/file"));
  EXPECT_EQ(contentOf(folder / "data/file"), "new");
}

TEST(ReplaceFile, LeavesTheTargetWhereItFails) {
  const ScratchFolder folder;
  putFile(folder / "new", "new");
  fs::create_directory(folder / "folder");
  putFile(folder / "folder/inside", "inside");
  EXPECT_THROW(replaceFile(folder / "new", folder / "folder"), Fault);
  EXPECT_EQ(contentOf(folder / "folder/inside"), "inside");
  EXPECT_EQ(contentOf(folder / "new"), "new");
  EXPECT_THROW(replaceFile(folder / "new", folder / "none/file"), Fault);
  EXPECT_EQ(contentOf(folder / "new"), "new");
  putFile(folder / "old", "old");
  EXPECT_THROW(replaceFile(folder / "none", folder / "old"), Fault);
  EXPECT_EQ(contentOf(folder / "old"), "old");
}

TEST(ReplaceFile, WorksAcrossVolumes) {
  const ScratchFolder folder;
  const fs::path from = otherVolume() / folder.path().filename();
  for (const bool old : {true, false}) {
    putFile(from, "new");
    const fs::path target = folder / (old ? "old" : "none yet");
    if (old) putFile(target, "old");
    if (old) fs::permissions(target, fs::perms(0640));
    if (!fs::exists(from)) return;
    replaceFile(from, target);
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_FALSE(fs::exists(from));
    EXPECT_EQ(fs::status(target).permissions() == fs::perms(0640), old);
  }
  // Nothing else is left behind.
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2);
}

// The copy beside the target once overwrote a file that happened to have its name.
TEST(ReplaceFile, AcrossVolumesSparesTheFilesBesideTheTarget) {
  const ScratchFolder folder;
  const fs::path from = otherVolume() / folder.path().filename();
  putFile(from, "new");
  if (!fs::exists(from)) return;
  for (const char* name : {"old", "old.zevfit-new", "old.zevfit-new1"})
    putFile(folder / name, name);
  fs::create_symlink("old.zevfit-new", folder / "old.zevfit-new2");
  replaceFile(from, folder / "old");
  EXPECT_EQ(contentOf(folder / "old"), "new");
  EXPECT_EQ(contentOf(folder / "old.zevfit-new"), "old.zevfit-new");
  EXPECT_EQ(contentOf(folder / "old.zevfit-new1"), "old.zevfit-new1");
  EXPECT_TRUE(fs::is_symlink(folder / "old.zevfit-new2"));
  EXPECT_FALSE(fs::exists(from));
}

TEST(WriteWhole, TakesTheLongestNameThatAFileMayHave) {
  const ScratchFolder folder;
  for (const std::size_t length : {1U, 238U, 239U, 240U, 255U}) {
    const fs::path target = folder / std::string(length, 'n');
    for (const char* bytes : {"first", "second"}) {
      writeWhole(target, bytes, freeSibling(target));
      EXPECT_EQ(contentOf(target), bytes) << length;
    }
    fs::remove(target);
    EXPECT_TRUE(fs::is_empty(folder.path()));
  }
}

}  // namespace
}  // namespace zevfit
