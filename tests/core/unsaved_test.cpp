// What differs from the loaded file, and so is kept before it is lost.
#include "files/unsaved.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "files/rescue.h"
#include "files/variogram_reader.h"
#include "tests/support/model_lines.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::putFile;
using test::sampleFile;

/// A program folder, and a loaded file beside it.
struct Desk {
  Desk() {
    fs::create_directory(program);
    putFile(file, sampleFile("zevra"));
    EXPECT_EQ(loadVariogramFile(file, session), Load::good);
  }
  /// What is told of the rescue that was made; nothing where none was.
  std::string keep(std::int64_t variables = 2) {
    EXPECT_EQ(unsaved.keep(session, variables), std::nullopt);
    return takeRescueNote(program).value_or("");
  }

  test::ScratchFolder folder;
  fs::path program = folder / "program", file = folder / "meuse.zvm";
  std::string told = "The models of " + file.string() + " that were not saved are kept in " +
                     (program / "rescue.zvm").string();
  Session session;
  Unsaved unsaved{program};
};

TEST(Unsaved, IsWhatAFileWouldGetByASave) {
  struct Row {
    const char* name;
    std::function<void(Session&)> change;
    bool isKept;
  };
  const Row rows[] = {{"nothing", [](Session&) {}, false},
                      {"a nugget",
                       [](Session& s) {
                         setNugget(s, {2, 2}, 0.5);
                       },
                       true},
                      {"a structure",
                       [](Session& s) {
                         setStructure(s, {1, 1}, Line::third, "G", 1, 10);
                       },
                       true},
                      {"a line that is off",
                       [](Session& s) {
                         s.c1({1, 1}) = 3;
                       },
                       false},
                      {"a letter that is off",
                       [](Session& s) {
                         s.model2({1, 1}) = "S";
                       },
                       false},
                      {"a flag that no save writes",
                       [](Session& s) {
                         s.use0({1, 1}) = 2;
                       },
                       true},
                      {"a flag that is a text",
                       [](Session& s) {
                         s.use0({1, 1}) = Cell::ofText("yes");
                       },
                       true},
                      {"an axis",
                       [](Session& s) {
                         s.xmax({1, 1}) = 3;
                       },
                       false},
                      {"a class",
                       [](Session& s) {
                         s.gam.set({1, 1}, 1, 3);
                       },
                       true},
                      {"a name", [](Session& s) { s.varname(1) = "other"; }, true}};
  for (const Row& row : rows) {
    Desk desk;
    row.change(desk.session);
    EXPECT_EQ(desk.keep(), row.isKept ? desk.told : "") << row.name;
    EXPECT_EQ(fs::exists(desk.program / kRescueName), row.isKept) << row.name;
  }
}

TEST(Unsaved, IsAlsoASum) {
  Desk desk;
  EXPECT_EQ(desk.keep(3), desk.told);
}

TEST(Unsaved, IsNotKeptTwiceInARow) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  EXPECT_EQ(desk.keep(), desk.told);
  EXPECT_EQ(desk.keep(), "");
  setNugget(desk.session, {1, 1}, 0.25);
  EXPECT_EQ(desk.keep(), desk.told);
}

TEST(Unsaved, IsNotKeptOfWhatIsDisregardedUntilItChanges) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  desk.unsaved.disregard(desk.session, 2);
  EXPECT_EQ(desk.keep(), "");
  setNugget(desk.session, {1, 1}, 0.25);
  EXPECT_EQ(desk.keep(), desk.told);
}

TEST(Unsaved, IsAllWhereTheFileIsGone) {
  Desk desk;
  fs::remove(desk.file);
  EXPECT_EQ(desk.keep(), desk.told);
}

TEST(Unsaved, IsKeptAgainWhereTheRescueIsGone) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  EXPECT_EQ(desk.keep(), desk.told);
  fs::remove(desk.program / kRescueName);
  EXPECT_EQ(desk.keep(), desk.told);
  EXPECT_TRUE(fs::exists(desk.program / kRescueName));
}

TEST(Unsaved, OfAnotherFileIsKeptAlthoughItIsTheSame) {
  for (const bool isDisregarded : {false, true}) {
    Desk desk;
    setNugget(desk.session, {1, 1}, 0.5);
    if (isDisregarded)
      desk.unsaved.disregard(desk.session, 2);
    else
      EXPECT_EQ(desk.keep(), desk.told);
    const fs::path other = desk.folder / "other.zvm";
    putFile(other, sampleFile("zevra"));
    desk.session.inputfile = other.string();
    EXPECT_EQ(desk.keep(), "The models of " + other.string() + " that were not saved are kept in " +
                               (desk.program / "rescue.zvm").string());
    EXPECT_EQ(desk.keep(), "");
  }
}

TEST(Unsaved, OfARescueLeavesThatAsTheOneBefore) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  EXPECT_EQ(desk.keep(), desk.told);
  const fs::path rescue = desk.program / "rescue.zvm", before = desk.program / "rescue-before.zvm";
  const std::string opened = contentOf(rescue);
  ASSERT_EQ(loadVariogramFile(rescue, desk.session), Load::good);
  EXPECT_EQ(desk.keep(), "") << "nothing has changed";
  setNugget(desk.session, {1, 1}, 0.25);
  EXPECT_EQ(desk.keep(), "The models of " + rescue.string() + " that were not saved are kept in " +
                             rescue.string());
  EXPECT_EQ(contentOf(before), opened);
  Session newest;
  ASSERT_TRUE(readVariogramFile(rescue, newest));
  EXPECT_EQ(newest.c0({1, 1}).number(), 0.25);
}

TEST(Unsaved, ThatCannotBeKeptIsToldEachTime) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  fs::remove(desk.program);
  for (int time = 0; time < 2; ++time)
    EXPECT_EQ(desk.unsaved.keep(desk.session, 2), "The models of " + desk.file.string() +
                                                      " that were not saved could not be kept in " +
                                                      (desk.program / "rescue.zvm").string());
  fs::create_directory(desk.program);
  EXPECT_EQ(desk.keep(), desk.told);
}

TEST(Unsaved, IsNothingWithoutAFile) {
  Desk desk;
  setNugget(desk.session, {1, 1}, 0.5);
  desk.session.inputfile.clear();
  EXPECT_EQ(desk.keep(), "");
  EXPECT_TRUE(fs::is_empty(desk.program));
}

TEST(Load, TellsWhatItHasMadeOfTheTables) {
  struct Row {
    std::string content;
    Load outcome;
  };
  const Row rows[] = {{"", Load::refused},
                      {"title", Load::refused},
                      {"title\n", Load::refused},
                      {"title\nzevra", Load::halfWay},
                      {"title\nzevra\n1\nzinc\n1\n1\n0;0\n1\n10 1", Load::halfWay},
                      {"title\nzevra\n1\nzinc\n1\n1\n0;0\n1\n10 1 9", Load::good}};
  for (const Row& row : rows) {
    Desk desk;
    putFile(desk.file, row.content);
    int calls = 0;
    EXPECT_EQ(loadVariogramFile(desk.file, desk.session,
                                [&] {
                                  ++calls;
                                  EXPECT_EQ(desk.session.varname(2), "lead");
                                }),
              row.outcome)
        << row.content;
    EXPECT_EQ(calls, row.outcome == Load::refused ? 0 : 1) << row.content;
  }
}

}  // namespace
}  // namespace zevfit
