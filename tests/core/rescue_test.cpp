// What a program that must end leaves behind, and what the next one says of it.
#include "files/rescue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "tests/support/same_tables.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;
/// A program folder, and a loaded file beside it.
struct Desk {
  explicit Desk(const std::string& content = sampleFile("zevra")) {
    fs::create_directory(folder / "program");
    putFile(file, content);
    EXPECT_TRUE(readVariogramFile(file, session));
    acceptLoad(session, file);
  }
  std::optional<fs::path> rescue(std::int64_t variables = 2) {
    return writeRescue(session, variables, program);
  }

  ScratchFolder folder;
  fs::path program = folder / "program";
  fs::path kept = folder / "program/rescue.zvm";
  fs::path file = folder / "meuse.zvm";
  Session session;
};

TEST(Rescue, IsAWholeVariogramFile) {
  Desk desk;
  desk.session.use0({1, 2}) = 1;
  desk.session.c0({1, 2}) = 0.25;
  EXPECT_EQ(desk.rescue(), desk.kept);
  const std::string structures = times(lines({" 0 ", "-", " 0 ", " 1E-05 "}), 3);
  const std::string unused = lines({" 0 ", " 0 "}) + structures;
  const std::string nugget = lines({" 1 ", " 0.25 "}) + structures;
  const std::string bytes = contentOf(desk.kept);
  EXPECT_TRUE(bytes.starts_with("Flood plain\r\nzevRA1\r\n 2 \r\nzinc\r\nlead\r\n 2 \r\n 2 \r\n"));
  EXPECT_TRUE(bytes.ends_with(unused + nugget + unused + unused)) << bytes;
  EXPECT_EQ(contentOf(desk.file), sampleFile("zevra"));
}

TEST(Rescue, BringsBackTheSessionWithWhatASaveDrops) {
  Desk desk;
  Session& s = desk.session;
  s.use1({2, 1}) = 0;  // switched off
  s.model1({2, 1}) = "S";
  s.c1({2, 1}) = 3.5;
  s.a1({2, 1}) = 900;
  s.use2({2, 1}) = 2;  // of no use to a save
  s.use0({1, 1}) = Cell::ofText("yes");
  ASSERT_TRUE(desk.rescue());
  Session again;
  ASSERT_TRUE(readVariogramFile(desk.kept, again));
  EXPECT_TRUE(again.hasmodel);
  EXPECT_EQ(modelText(again, {2, 1}), "0 0 0 S 3.5 900 2 - 0 1E-05 0 - 0 1E-05");
  EXPECT_EQ(modelText(again, {1, 1}), "yes 0 0 - 0 1E-05 0 - 0 1E-05 0 - 0 1E-05");
  again.filetag = s.filetag;
  EXPECT_EQ(dataText(again), dataText(s));
  EXPECT_EQ(modelTexts(again), modelTexts(s));
}

TEST(Rescue, HoldsVariablesBeyondThoseOfTheFile) {
  Desk desk;
  desk.session.varname(3) = "sum";
  ASSERT_TRUE(desk.rescue(3));
  Session again;
  ASSERT_TRUE(readVariogramFile(desk.kept, again));
  EXPECT_EQ(again.nvar, 3);
  EXPECT_EQ(again.varname(3), "sum");
}

TEST(Rescue, NamesComeBackWhateverStandsInThem) {
  const std::pair<const char*, const char*> rows[] = {{"zinc", "zinc"},
                                                      {"zinc, ln", "zinc, ln"},
                                                      {"", ""},
                                                      {" zinc", " zinc"},
                                                      {"\tzinc", "\tzinc"},
                                                      {"\"zinc", "'zinc"},
                                                      {"zi\"nc", "zi\"nc"},
                                                      {"zi\"n,c", "zi'n,c"},
                                                      {"two\r\nlines", "two\r\nlines"},
                                                      {"end blank ", "end blank "}};
  for (const auto& [name, back] : rows) {
    Desk desk;
    desk.session.varname(1) = name;
    desk.session.dirname(2) = name;
    desk.session.model3({2, 2}) = name;
    ASSERT_TRUE(desk.rescue());
    Session again;
    ASSERT_TRUE(readVariogramFile(desk.kept, again)) << name;
    EXPECT_EQ(again.varname(1), back);
    EXPECT_EQ(again.varname(2), "lead") << name;
    EXPECT_EQ(again.dirname(2), back);
    EXPECT_EQ(again.a3({2, 2}).number(), 1e-05) << name;
  }
}

TEST(Rescue, TakesTheNameOfAFileThatIsGoneForItsTitle) {
  for (const bool empty : {false, true}) {
    Desk desk;
    fs::remove(desk.file);
    if (empty) putFile(desk.file, "");
    ASSERT_TRUE(desk.rescue());
    EXPECT_TRUE(contentOf(desk.kept).starts_with("meuse.zvm\r\nzevRA1\r\n"));
  }
}

TEST(Rescue, NothingIsWrittenWithoutAFile) {
  Desk desk;
  desk.session.inputfile.clear();
  EXPECT_EQ(desk.rescue(), std::nullopt);
  EXPECT_TRUE(fs::is_empty(desk.program));
}

TEST(Rescue, CutsCountsThatABadFileHasLeftToTheTables) {
  struct Row {
    std::int64_t variables, directions, classes;
    std::int64_t kept[3];
  };
  const Row rows[] = {
      {1990, 2, 2, {41, 2, 2}}, {2, 1990, 2, {2, 21, 2}}, {2, 2, 4'000'000'000, {2, 2, 2}},
      {-1, 2, 2, {0, 2, 0}},    {2, -1, 2, {2, 0, 0}},    {2, 2, -1, {2, 2, -1}},
      {2, 2, 1000, {2, 2, 2}},  {2, 2, 1001, {2, 2, 2}},  {41, 21, 2, {41, 21, 2}}};
  for (const Row& row : rows) {
    Desk desk;
    desk.session.c0({1, 1}) = 0.5;
    desk.session.ndir = row.directions;
    desk.session.nclass = row.classes;
    ASSERT_TRUE(desk.rescue(row.variables)) << row.variables;
    Session again;
    ASSERT_TRUE(readVariogramFile(desk.kept, again));
    EXPECT_EQ(again.nvar, row.kept[0]);
    EXPECT_EQ(again.ndir, row.kept[1]);
    EXPECT_EQ(again.nclass, row.kept[2]);
    const bool any = row.kept[0] > 0 && row.kept[1] > 0;
    EXPECT_EQ(again.c0({1, 1}).number(), any ? 0.5 : 0);
  }
}

/// The names of the rescues, the newest first.
const std::vector<std::string> kNames{
    "rescue.zvm",          "rescue-before.zvm",   "rescue-before-2.zvm", "rescue-before-3.zvm",
    "rescue-before-4.zvm", "rescue-before-5.zvm", "rescue-before-6.zvm", "rescue-before-7.zvm",
    "rescue-before-8.zvm", "rescue-before-9.zvm"};

/// The nuggets of the rescues by their names; 0 where there is none.
std::vector<double> nuggets(const fs::path& program) {
  std::vector<double> all;
  for (const std::string& name : kNames) {
    Session session;
    const bool isThere = fs::exists(program / name);
    EXPECT_EQ(isThere && readVariogramFile(program / name, session), isThere) << name;
    all.push_back(isThere ? session.c0({1, 1}).number() : 0);
  }
  return all;
}

bool rescueNugget(Desk& desk, double nugget) {
  desk.session.c0({1, 1}) = nugget;
  return desk.rescue().has_value();
}

std::vector<std::string> filesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

// Two ordinary ends once pushed the rescue of a fault out.
TEST(Rescue, KeepsTheNineBefore) {
  Desk desk;
  for (int nugget = 1; nugget <= 12; ++nugget) {
    ASSERT_TRUE(rescueNugget(desk, nugget));
    std::vector<double> wanted(10, 0.0);
    for (int age = 0; age < 10; ++age)
      wanted[static_cast<std::size_t>(age)] = std::max(nugget - age, 0);
    EXPECT_EQ(nuggets(desk.program), wanted);
  }
  std::vector<std::string> wanted = kNames;
  wanted.emplace_back("rescue.txt");
  std::sort(wanted.begin(), wanted.end());
  EXPECT_EQ(filesIn(desk.program), wanted);
}

TEST(Rescue, MovesOnOnlyAsFarAsThereIsNoFreeName) {
  Desk desk;
  for (const double nugget : {1, 2, 3, 4}) ASSERT_TRUE(rescueNugget(desk, nugget));
  fs::remove(desk.program / "rescue-before-2.zvm");
  ASSERT_TRUE(rescueNugget(desk, 5));
  EXPECT_EQ(nuggets(desk.program), (std::vector<double>{5, 4, 3, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(Rescue, PassesOverANameThatAFolderHas) {
  Desk desk;
  fs::create_directory(desk.program / "rescue-before.zvm");
  for (const double nugget : {1, 2, 3}) ASSERT_TRUE(rescueNugget(desk, nugget));
  fs::remove(desk.program / "rescue-before.zvm");
  EXPECT_EQ(nuggets(desk.program), (std::vector<double>{3, 0, 2, 1, 0, 0, 0, 0, 0, 0}));
}

TEST(Rescue, OfTheSameContentIsNoNewOne) {
  Desk desk;
  ASSERT_TRUE(rescueNugget(desk, 1));
  takeRescueNote(desk.program);
  ASSERT_TRUE(rescueNugget(desk, 1));
  EXPECT_EQ(nuggets(desk.program)[1], 0);
  EXPECT_TRUE(takeRescueNote(desk.program)) << "told all the same";
}

// The one before was once removed before it was known whether the new one can be written.
TEST(Rescue, ThatCannotBeWrittenLeavesTheOthersWhereTheyAre) {
  for (const std::size_t count : {std::size_t{3}, kNames.size() - 1}) {
    Desk desk;
    fs::create_directory(desk.program / "rescue.zvm");
    for (std::size_t age = 1; age <= count; ++age)
      putFile(desk.program / kNames[age], "rescue " + std::to_string(age));
    EXPECT_FALSE(rescueNugget(desk, 1));
    for (std::size_t age = 1; age <= count; ++age)
      EXPECT_EQ(contentOf(desk.program / kNames[age]), "rescue " + std::to_string(age));
    EXPECT_EQ(filesIn(desk.program).size(), count + 1);
  }
}

TEST(Rescue, CannotBeWrittenWithoutAFolder) {
  Desk desk;
  fs::remove(desk.program);
  EXPECT_EQ(desk.rescue(), std::nullopt);
}

TEST(Rescue, IsToldOnce) {
  Desk desk;
  EXPECT_EQ(takeRescueNote(desk.program), std::nullopt);
  ASSERT_TRUE(desk.rescue());
  EXPECT_EQ(takeRescueNote(desk.program), "The program had to end early. The models of " +
                                              desk.file.string() + " are kept in " +
                                              desk.kept.string());
  EXPECT_EQ(takeRescueNote(desk.program), std::nullopt);
  EXPECT_TRUE(fs::exists(desk.kept));
}

}  // namespace
}  // namespace zevfit::test
