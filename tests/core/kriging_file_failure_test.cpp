// The kriging parameter file where it can't be written, or not in one step.
#include <gtest/gtest.h>

#include "tests/support/kriging_save.h"
#include "tests/support/plain_user.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

const std::string kCannotSave = "plain: Cannot save file: out.ZVP";

TEST(KrigingFileFailure, AFailureToWriteIsToldAndSparesTheOldFile) {
  Save save(threeStructures());
  fs::create_directories(save.folder / "out.ZVP/full");
  EXPECT_EQ(save.run(), (Boxes{kAsked, kCannotSave}));
  EXPECT_TRUE(fs::is_directory(save.folder / "out.ZVP/full"));
  EXPECT_EQ(std::distance(fs::directory_iterator(save.folder.path()), fs::directory_iterator()), 1)
      << "nothing is left beside it";
  save.dialogs.saved = {(save.folder / "none/out.ZVP").string()};
  EXPECT_EQ(save.run(), (Boxes{kAsked, kCannotSave}));
}

// A nugget beyond all numbers: nothing of the file is written.
TEST(KrigingFileFailure, AModelThatCannotBeWrittenIsTold) {
  KrigingModel model = threeStructures();
  model.rowcells.at(1) = "1e400";
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, kCannotSave}));
  EXPECT_FALSE(save.made());
}

TEST(KrigingFileFailure, GoesIntoTheOldFileOfAFolderThatMayNotBeWritten) {
  Save save(threeStructures());
  save.run();
  const std::string whole = save.bytes();
  for (const bool fileToo : {false, true}) {
    const fs::path folder = save.folder / (fileToo ? "closed" : "folder");
    fs::create_directory(folder);
    putFile(folder / "out.ZVP", std::string(5000, 'x'));
    fs::permissions(save.folder.path(), fs::perms(0755));
    fs::permissions(folder / "out.ZVP", fs::perms(fileToo ? 0444 : 0666));
    fs::permissions(folder, fs::perms(0555));
    save.dialogs.saved = {(folder / "out.ZVP").string()};
    EXPECT_TRUE(holdsForAPlainUser([&] {
      return save.run() == Boxes{kAsked, fileToo ? kCannotSave : save.saved};
    }));
    EXPECT_EQ(contentOf(folder / "out.ZVP"), fileToo ? std::string(5000, 'x') : whole);
    fs::permissions(folder, fs::perms(0755));
  }
}

}  // namespace
}  // namespace zevfit::test
