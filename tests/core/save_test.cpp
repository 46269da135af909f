// A save as the user meets it: the boxes in their order, and the files afterwards.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "session/line.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;
using Boxes = std::vector<std::string>;

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
  }
  Boxes save(std::int16_t variables = 2) {
    dialogs.shown.clear();
    note = saver.gravando(session, variables, dialogs).value_or("");
    return dialogs.shown;
  }

  ScratchFolder folder;
  fs::path file = folder / "data/meuse.zvm";
  fs::path temporary = folder / "program/temporario.zvm";
  Session session;
  ScriptedDialogs dialogs;
  ModelSaver saver{folder / "program"};
  std::string note;  ///< of the last save

  std::string question = "confirm: Save  current models to file: " + file.string();
  std::string saved = savedBox(file.string());
  std::string failed = notSavedBox(file.string());
  std::string bad = kBadFileBox;
};

TEST(Save, WithoutAFileRefuses) {
  Desk desk;
  for (const char* name : {"", " ", "   "}) {
    desk.session.inputfile = name;
    EXPECT_EQ(desk.save(), Boxes{kNoFileBox});
  }
  EXPECT_FALSE(fs::exists(desk.temporary));
}

TEST(Save, CancelLeavesEverything) {
  Desk desk;
  desk.dialogs.confirmations = {false};
  desk.session.nvar = 5;
  EXPECT_EQ(desk.save(), Boxes{desk.question});
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
  EXPECT_FALSE(fs::exists(desk.temporary));
  EXPECT_EQ(desk.session.nvar, 5);
}

TEST(Save, AsksSavesAndTells) {
  Desk desk;
  desk.session.use0({1, 1}) = 1;
  desk.session.c0({1, 1}) = 0.5;
  desk.session.modelshown = true;
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
  EXPECT_FALSE(fs::exists(desk.temporary));
  EXPECT_TRUE(contentOf(desk.file).starts_with("Flood plain\r\nzevRA1\r\n 2 \r\nzinc\r\nlead\r\n"));
  EXPECT_NE(contentOf(desk.file).find(" 1 \r\n 0.5 \r\n"), std::string::npos);
  // The session goes on as it was.
  EXPECT_EQ(desk.session.filetag, "zevra");
  EXPECT_FALSE(desk.session.hasmodel);
  EXPECT_TRUE(desk.session.modelshown);
  EXPECT_EQ(desk.session.nvar, 2);
  EXPECT_EQ(desk.session.inputfile, desk.file.string());
}

TEST(Save, ReloadGivesTheModelsInUse) {
  Desk desk;
  desk.session.use0({2, 1}) = 1;
  desk.session.c0({2, 1}) = 0.125;
  desk.session.use2({2, 1}) = 1;
  desk.session.model2({2, 1}) = "G";
  desk.session.c2({2, 1}) = 3.25;
  desk.session.a2({2, 1}) = 450;
  // Switched off, so that its values are lost.
  desk.session.model3({2, 1}) = "P";
  desk.session.c3({2, 1}) = 7;
  desk.session.a3({2, 1}) = 80;
  desk.save();
  Session again;
  ASSERT_TRUE(readVariogramFile(desk.file, again));
  EXPECT_TRUE(again.hasmodel);
  EXPECT_EQ(modelText(again, {2, 1}), "1 0.125 0 - 0 0.0001 1 G 3.25 450 0 - 0 0.0001");
  EXPECT_EQ(modelText(again, {1, 1}), unusedModelText());
}

TEST(Save, UnknownTagStaysAndHidesTheModels) {
  Desk desk;
  desk.load(sampleFile("mine"));
  desk.session.use0({1, 1}) = 1;
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
  Session again;
  ASSERT_TRUE(readVariogramFile(desk.file, again));
  EXPECT_EQ(again.filetag, "mine");
  EXPECT_FALSE(again.hasmodel);
  EXPECT_EQ(modelText(again, {1, 1}), kResetModel);
}

TEST(Save, DropsTheOldModelBlock) {
  Desk desk;
  std::string old = sampleFile("zevra1");
  for (int pair = 0; pair < 4; ++pair)
    old += lines({"1", "5", "1", "S", "6", "7", "1", "E", "8", "9", "1", "G", "10", "11"});
  desk.load(old + "whatever stands behind");
  for (const Line which : kLines) line(desk.session, {1, 1}, which).use(0);
  desk.save();
  Session again;
  ASSERT_TRUE(readVariogramFile(desk.file, again));
  EXPECT_EQ(modelText(again, {1, 1}), unusedModelText());
  EXPECT_EQ(modelText(again, {2, 2}), "1 5 1 S 6 7 1 E 8 9 1 G 10 11");
  EXPECT_TRUE(contentOf(desk.file).ends_with(" 1 \r\nG\r\n 10 \r\n 11 \r\n"));
}

TEST(Save, TwiceGivesTheSameFile) {
  Desk desk;
  desk.session.nvar = 3;
  desk.session.varname(3) = "sum";
  desk.session.variance(3) = 9;
  EXPECT_EQ(desk.save(3), (Boxes{desk.question, desk.saved}));
  // The count of the old file first, then that of the file just written.
  EXPECT_EQ(desk.session.nvar, 2);
  const std::string once = contentOf(desk.file);
  EXPECT_EQ(desk.save(3), (Boxes{desk.question, desk.saved}));
  EXPECT_EQ(desk.session.nvar, 3);
  EXPECT_EQ(contentOf(desk.file), once);
}

TEST(Save, DerivedVariableIsOneOfTheFileAfterReload) {
  Desk desk;
  desk.session.nvar = 3;
  desk.session.varname(3) = "sum";
  desk.session.variance(3) = 12;
  desk.session.gam.set({3, 2}, 1, 11);
  desk.save(3);
  desk.load(contentOf(desk.file));
  EXPECT_EQ(desk.session.nvar, 3);
  EXPECT_EQ(desk.session.nvarfile, 3);
  EXPECT_EQ(desk.session.varname(3), "sum");
  EXPECT_EQ(desk.session.variance(3).number(), 12);
  EXPECT_EQ(desk.session.gam({3, 2}, 1), 11);
}

TEST(Save, OldFileThatEndsTooEarlyFailsOnceMore) {
  // The old file ends at each of the tests in turn.
  for (const char* content : {"", "t", "t\r\nother", "t\r\nother\r\n 7 \r\n"}) {
    Desk desk;
    putFile(desk.file, content);
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.bad})) << content;
    EXPECT_EQ(contentOf(desk.file), content);
    EXPECT_TRUE(fs::exists(desk.temporary)) << content;
    // The temporary file is still open: one more failure, which closes it.
    const std::string good = sampleFile("zevra");
    putFile(desk.file, good);
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed})) << content;
    EXPECT_EQ(contentOf(desk.file), good);
    EXPECT_TRUE(fs::exists(desk.temporary)) << content;
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved})) << content;
    EXPECT_FALSE(fs::exists(desk.temporary)) << content;
  }
}

TEST(Save, FilesClosedInBetweenLetTheNextSaveSucceed) {
  Desk desk;
  putFile(desk.file, "t");
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.bad}));
  desk.saver.closeFiles();
  putFile(desk.file, sampleFile("zevra"));
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
}

TEST(Save, OldFileThatEndsTooEarlyLeavesWhatWasBuilt) {
  Desk desk;
  putFile(desk.file, "title\r\nzevlag\r\n 7 \r\n");
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.bad}));
  EXPECT_EQ(desk.session.filetag, "zevlag");
  EXPECT_EQ(desk.session.nvar, 7);
  // Refusals and a Cancel between leave it open; the failed save closes it.
  desk.dialogs.confirmations = {false};
  EXPECT_EQ(desk.save(), Boxes{desk.question});
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_EQ(contentOf(desk.temporary), "title\r\nzevRA1\r\n 2 \r\n");
}

TEST(Save, TextInTheOldHeaderFails) {
  for (const char* content : {"t\nzevra\nmany\nzinc", "t\nzevra\n \n", "t\n \n", " "}) {
    Desk desk;
    putFile(desk.file, content);
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed})) << content;
    EXPECT_EQ(contentOf(desk.file), content);
    // Nothing stays open.
    putFile(desk.file, sampleFile("zevra"));
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved})) << content;
  }
}

TEST(Save, FaultInTheModelsLeavesTheFile) {
  Desk desk;
  desk.session.use1({2, 2}) = Cell::ofText("yes");
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
  desk.session.use1({2, 2}) = 1;
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
}

TEST(Save, CountsBeyondTheTablesLeaveTheFile) {
  Desk desk;
  EXPECT_EQ(desk.save(42), (Boxes{desk.question, desk.failed}));
  desk.session.ndir = 2'000'000'000;
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  desk.session.ndir = 2;
  desk.session.nclass = 2'000'000'000;
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
}

TEST(Save, WithoutTheInputFileFails) {
  Desk desk;
  fs::remove(desk.file);
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_FALSE(fs::exists(desk.file));
  // A folder in its place can't be read.
  fs::create_directory(desk.file);
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_TRUE(fs::is_directory(desk.file));
}

TEST(Save, WithoutAProgramFolderToWriteInFails) {
  Desk desk;
  putFile(desk.folder / "file", "");
  for (const char* name : {"none", "file"}) {
    ModelSaver saver(desk.folder / name);
    desk.dialogs.shown.clear();
    saver.gravando(desk.session, 2, desk.dialogs);
    EXPECT_EQ(desk.dialogs.shown, (Boxes{desk.question, desk.failed})) << name;
    EXPECT_EQ(contentOf(desk.file), sampleFile("zevra")) << name;
  }
  fs::create_directory(desk.temporary);
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.failed}));
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
}

TEST(Save, WritesOverALeftoverTemporaryFile) {
  Desk desk;
  putFile(desk.temporary, std::string(100'000, 'x'));
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
  EXPECT_FALSE(fs::exists(desk.temporary));
  EXPECT_EQ(contentOf(desk.file).find('x'), std::string::npos);
}

TEST(Save, OfTheTemporaryFileItselfLeavesIt) {
  Desk desk;
  desk.file = desk.temporary;
  desk.load(sampleFile("zevra"));
  const Boxes boxes = desk.save();
  EXPECT_EQ(boxes.back(), notSavedBox(desk.temporary.string()));
  EXPECT_EQ(contentOf(desk.temporary), sampleFile("zevra"));
}

// A link under the temporary name once let the save write into a file of the user's.
TEST(Save, SparesTheTargetOfALinkUnderTheTemporaryName) {
  Desk desk;
  putFile(desk.folder / "data/own", "own");
  fs::create_symlink("../data/own", desk.temporary);
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
  EXPECT_EQ(contentOf(desk.folder / "data/own"), "own");
  EXPECT_FALSE(fs::is_symlink(desk.file));
}

// The file lies on another volume, where all names for a copy beside it are taken.
TEST(Save, ThatCannotReplaceTheFileKeepsTheModelsInTheTemporaryFile) {
  Desk desk;
  const fs::path volume = "/dev/shm";
  if (!fs::is_directory(volume)) return;
  const fs::path folder = volume / desk.folder.path().filename();
  fs::create_directory(folder);
  const fs::path file = folder / "meuse.zvm";
  putFile(file, sampleFile("zevra"));
  for (int i = 1; i <= 1000; ++i)
    putFile(folder / ("meuse.zvm.zevfit-new" + std::to_string(i)), "taken");
  desk.session.inputfile = file.string();
  const Boxes boxes = desk.save();
  const bool whole = contentOf(file) == sampleFile("zevra");
  fs::remove_all(folder);
  EXPECT_TRUE(whole);
  EXPECT_EQ(boxes, (Boxes{"confirm: Save  current models to file: " + file.string(),
                          notSavedBox(file.string())}));
  EXPECT_TRUE(contentOf(desk.temporary).starts_with("Flood plain\r\nzevRA1\r\n 2 \r\nzinc"));
}

// Neither would be a title on a line of its own.
TEST(Save, OfATitleThatNeedsItsQuotesReadsBack) {
  for (const std::string title : {"", "Flood, plain", " Flood plain"}) {
    Desk desk;
    std::string content = sampleFile("zevra");
    content.replace(0, std::string("Flood plain").size(), '"' + title + '"');
    desk.load(content);
    EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
    EXPECT_TRUE(contentOf(desk.file).starts_with('"' + title + "\"\r\nzevRA1\r\n 2 \r\nzinc\r\n"));
    Session again;
    EXPECT_TRUE(readVariogramFile(desk.file, again)) << title;
    EXPECT_EQ(again.varname(2), "lead") << title;
    EXPECT_TRUE(again.hasmodel) << title;
  }
}

TEST(Save, WithNoVariableListedRefuses) {
  Desk desk;
  EXPECT_EQ(desk.save(0), Boxes{"plain: Please select input data file (*.ZVM) first!"});
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
  EXPECT_FALSE(fs::exists(desk.temporary));
}

TEST(Save, KeepsALinkAndItsPermissions) {
  Desk desk;
  const fs::path target = desk.folder / "data/target";
  fs::rename(desk.file, target);
  fs::permissions(target, fs::perms(0640));
  fs::create_symlink("target", desk.file);
  EXPECT_EQ(desk.save(), (Boxes{desk.question, desk.saved}));
  EXPECT_TRUE(fs::is_symlink(desk.file));
  EXPECT_FALSE(fs::is_symlink(target));
  EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
  EXPECT_TRUE(contentOf(target).starts_with("Flood plain\r\nzevRA1\r\n"));
}

}  // namespace
}  // namespace zevfit::test
