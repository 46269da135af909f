// The kriging parameter file: checks and warnings in their order, and the file byte for byte.
#include "files/kriging_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "session/fault.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::lines;
using test::putFile;
using test::ScratchFolder;
using test::ScriptedDialogs;
using Boxes = std::vector<std::string>;

const std::string kAsked = "save: Save Output File (*.ZVP)|*.ZVP";

/// Answers as told, and keeps what it was asked.
class FixedAnswer : public Orthogonality {
 public:
  explicit FixedAnswer(std::int16_t answer = 1) : answer_(answer) {}
  std::int16_t Normal_verif(float a, float b, float c, float d, float e, float f) const override {
    asked = {a, b, c, d, e, f};
    return answer_;
  }
  mutable std::vector<float> asked;

 private:
  std::int16_t answer_;
};

/// A row as the results window hands it over: nugget, three times code, sill and range, total sill,
/// largest range.
std::array<std::string, 13> row(const std::array<std::string, 12>& cells) {
  std::array<std::string, 13> made;
  for (std::size_t i = 0; i < cells.size(); ++i) made.at(i + 1) = cells.at(i);
  return made;
}

/// Three structures in a plane: Main 45, Minor 135.
KrigingModel threeStructures() {
  KrigingModel model;
  model.filetag = "zevRA1";
  model.variable = "ln zinc";
  model.main = {"45", "0", "100", "250.5", "1000"};
  model.minor1 = {"135", "0", "40", "250.5", "4000"};
  model.minor2 = {"135", "0", "40", "167", "3000"};
  model.rowcells =
      row({"0.1", "1", "0.5", "100", "2", "0.25", "250.5", "4", "1.5", "1000", "2.35", "1000"});
  return model;
}

struct Save {
  explicit Save(KrigingModel of, std::int16_t orthogonal = 1)
      : model(std::move(of)), orthogonality(orthogonal) {
    dialogs.saved = {(folder / "out.ZVP").string()};
  }
  Boxes run() {
    dialogs.shown.clear();
    saveKrigingFile(model, orthogonality, dialogs, dialogs);
    return dialogs.shown;
  }
  bool made() const { return fs::exists(folder / "out.ZVP"); }
  std::string bytes() const { return contentOf(folder / "out.ZVP"); }

  ScratchFolder folder;
  KrigingModel model;
  FixedAnswer orthogonality;
  ScriptedDialogs dialogs;
  std::string saved =
      "plain: File  ' out.ZVP '  is saved, you can go on to simulation/kriging modules.";
};

// Ratios: 100/40 = 2.5 and 2.5; 250.5/250.5 = 1 and 250.5/167 = 1.5; 1000/4000 = 0.25 and 1000/3000
// = 0.3333. The zones of a structure's line begin at columns 1, 15, 29, 43 and 57.
TEST(KrigingFile, OfThreeStructures) {
  Save save(threeStructures());
  EXPECT_EQ(save.run(), (Boxes{kAsked, save.saved}));
  EXPECT_EQ(save.bytes(), lines({"ZGRD", "zevRA1", "ln zinc", " 45 ", " 0 ", " 4 ", " 0.1 ", "2.35",
                                 "1             0.5            100          2.5           2.5",
                                 "2             0.25           250.5        1.            1.5",
                                 "4             1.5            1000         .25           .3333",
                                 " 135 ", " 0 ", " 135 ", " 0 "}));
}

TEST(KrigingFile, OfTwoStructures) {
  KrigingModel model = threeStructures();
  model.main[4] = model.minor1[4] = model.minor2[4] = "-";
  model.rowcells =
      row({"0.1", "1", "0.5", "100", "2", "0.25", "250.5", "-", "-", "-", "0.85", "250.5"});
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, save.saved}));
  EXPECT_EQ(save.bytes(), lines({"ZGRD", "zevRA1", "ln zinc", " 45 ", " 0 ", " 3 ", " 0.1 ", "0.85",
                                 "1             0.5            100          2.5           2.5",
                                 "2             0.25           250.5        1.            1.5",
                                 " 135 ", " 0 ", " 135 ", " 0 "}));
}

TEST(KrigingFile, OfOneStructureInSpace) {
  KrigingModel model;
  model.filetag = "zevra";
  model.variable = "gold";
  model.main = {"30", "45", "12.5", "", "abc"};
  model.minor1 = {"-60", "0", "5", "0", "0"};
  model.minor2 = {"30.5", "-45", "2.5", "-", "-"};
  model.rowcells = row({"-", "3", "0.75", "12.5", "-", "-", "-", "-", "-", "-", "0.75", "12.5"});
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, save.saved}));
  EXPECT_EQ(save.bytes(), lines({"ZGRD", "zevra", "gold", " 30 ", " 45 ", " 2 ", " 0 ", "0.75",
                                 "3             0.75           12.5         2.5           5.",
                                 "-60 ", " 0 ", " 30.5 ", "-45 "}));
  EXPECT_EQ(save.orthogonality.asked, (std::vector<float>{30, 45, -60, 0, 30.5F, -45}));
}

TEST(KrigingFile, TheAzimuthOfMinor2IsSingle) {
  KrigingModel model = threeStructures();
  model.main[0] = "12.345678901";
  model.minor1[0] = "102.345678901";
  model.minor2[0] = "102.345678901";
  Save save(model);
  save.run();
  const std::string bytes = save.bytes();
  EXPECT_NE(bytes.find(" 12.345678901 \r\n"), std::string::npos);
  // 102.345678901 has seven digits in single precision.
  EXPECT_EQ(bytes.substr(bytes.find(" 102.345678901 \r\n")),
            lines({" 102.345678901 ", " 0 ", " 102.3457 ", " 0 "}));
}

TEST(KrigingFile, TwoMessagesForDirectionsThatAreNotOrthogonal) {
  Save plane(threeStructures(), 0);
  EXPECT_EQ(plane.run(), Boxes{"plain: Main / Minor 1 directions are not orthogonals !"});
  for (const std::size_t angle : {kAzimuth, kDip}) {
    KrigingModel model = threeStructures();
    model.minor2.at(angle) = "7";
    Save space(model, 0);
    EXPECT_EQ(space.run(),
              Boxes{"plain: Main / Minor 1 / Minor 2 directions are not orthogonals !"});
    EXPECT_FALSE(space.made());
  }
  // What single precision rounds off makes two azimuths differ.
  KrigingModel model = threeStructures();
  model.minor1[0] = model.minor2[0] = "0.1";
  EXPECT_EQ(Save(model, 0).run(),
            Boxes{"plain: Main / Minor 1 / Minor 2 directions are not orthogonals !"});
}

TEST(KrigingFile, AnyAnswerButNoughtIsOrthogonal) {
  for (const std::int16_t answer : {std::int16_t{1}, std::int16_t{-1}, std::int16_t{7}})
    EXPECT_TRUE(Save(threeStructures(), answer).run().size() == 2) << answer;
}

TEST(KrigingFile, CancelEndsWithoutAWord) {
  Save save(threeStructures());
  save.dialogs.saved.clear();
  EXPECT_EQ(save.run(), Boxes{kAsked});
}

const std::string kNoParameters =
    "warning: File ' out.ZVP ' have no parameters, please run  zevFIT program!";
const std::string kOther1 =
    "warning: Wrong number of structures between Main Direction and Minor1 Direction!";
const std::string kOther2 =
    "warning: Wrong number of structures between Main Direction and Minor2 Direction!";
const std::string kOnlyNugget = "warning: Atention:You have only one structure (C0) !";

using Ranges = std::array<const char*, 3>;

struct Check {
  const char* what;
  Ranges main, minor1, minor2;
  Boxes boxes;  ///< behind the file dialog
};

const Check kChecks[] = {
    {"minor 1 empty, row not", {"1", "", ""}, {"", "", ""}, {"1", "", ""}, {kOther1}},
    {"minor 1 of two", {"1", "", ""}, {"1", "2", ""}, {"1", "", ""}, {kOther1}},
    {"minor 2 of two", {"1", "", ""}, {"1", "", ""}, {"1", "2", ""}, {kOther2}},
    {"both of two: the first is told", {"1", "", ""}, {"1", "2", ""}, {"1", "2", ""}, {kOther1}},
    {"minor 2 with a gap", {"1", "", ""}, {"1", "", ""}, {"1", "", "3"}, {kOther2}},
    {"main with a gap", {"", "2", ""}, {"1", "", ""}, {"1", "", ""}, {kOther1}},
    {"all with gaps of other kinds", {"", "2", ""}, {"", "", "3"}, {"1", "", "3"}, {}},
    {"a range of one text", {"x", "", ""}, {"0", "", ""}, {"-", "", ""}, {kOnlyNugget}},
};

TEST(KrigingFile, CountsOfStructuresAreCheckedInTheirOrder) {
  for (const Check& check : kChecks) {
    KrigingModel model = threeStructures();
    for (std::size_t i = 0; i < 3; ++i) {
      model.main.at(i + 2) = check.main.at(i);
      model.minor1.at(i + 2) = check.minor1.at(i);
      model.minor2.at(i + 2) = check.minor2.at(i);
    }
    Save save(model);
    Boxes expected{kAsked};
    expected.insert(expected.end(), check.boxes.begin(), check.boxes.end());
    const bool written = check.boxes.empty() || check.boxes.front() == kOnlyNugget;
    if (written) expected.push_back(save.saved);
    EXPECT_EQ(save.run(), expected) << check.what;
    EXPECT_EQ(save.made(), written) << check.what;
  }
}

TEST(KrigingFile, GapsInAllDirectionsWriteNoStructure) {
  KrigingModel model = threeStructures();
  for (AxisTexts* axis : {&model.main, &model.minor1, &model.minor2}) (*axis)[2] = "0";
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, save.saved}));
  EXPECT_EQ(save.bytes(), lines({"ZGRD", "zevRA1", "ln zinc", " 45 ", " 0 ", " 0 ", " 0.1 ", "2.35",
                                 " 135 ", " 0 ", " 135 ", " 0 "}));
}

TEST(KrigingFile, ARowOfANuggetAloneHasNoParameters) {
  KrigingModel model = threeStructures();
  for (AxisTexts* axis : {&model.main, &model.minor1, &model.minor2})
    for (std::size_t i = 2; i < 5; ++i) axis->at(i) = "-";
  model.rowcells = row({"0.1", "-", "-", "-", "-", "-", "-", "-", "-", "-", "0.1", ""});
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, kNoParameters}));
  EXPECT_FALSE(save.made());
  // The "-" of the first structure's sill begins the joined text, whatever stands behind it.
  model.rowcells = row({"0.1", "-", "-", "-", "2", "0.25", "9", "-", "-", "-", "0.1", "9"});
  EXPECT_EQ(Save(model).run(), (Boxes{kAsked, kNoParameters}));
  // Never filled: the joined text is empty.
  model.rowcells = {};
  EXPECT_EQ(Save(model).run(), (Boxes{kAsked, kNoParameters}));
}

/// A model whose row has these texts as its three sills and their sum.
KrigingModel withSills(const std::array<const char*, 4>& sills) {
  KrigingModel model = threeStructures();
  model.rowcells =
      row({"0.1", "1", sills[0], "0", "-", sills[1], "-", "-", sills[2], "-", sills[3], "0"});
  return model;
}

TEST(KrigingFile, SillsAreJoinedAndReadAsOneNumber) {
  struct Row {
    std::array<const char*, 4> sills;
    bool goesOn;
  };
  const Row rows[] = {{{"0", "0.25", "-", "0.35"}, true},  // 00.25
                      {{"0", "-", "-", "0.1"}, false},     // 0
                      {{"0", "0", "0", "0.1"}, true},      // 0000.1
                      {{"0", "0", "0", "0"}, false}};
  for (const Row& each : rows) {
    KrigingModel model = withSills(each.sills);
    for (AxisTexts* axis : {&model.main, &model.minor1, &model.minor2})
      (*axis)[2] = (*axis)[3] = (*axis)[4] = "0";
    Save save(model);
    EXPECT_EQ(save.run(), each.goesOn ? (Boxes{kAsked, kOnlyNugget, save.saved})
                                      : (Boxes{kAsked, kNoParameters}));
  }
}

// The check on the row hangs on the ranges of Minor 1 alone, and comes before the counts.
TEST(KrigingFile, AnEmptyRowIsLookedAtWhereMinorOneIsEmpty) {
  for (const bool minor1Empty : {true, false}) {
    KrigingModel model = withSills({"-", "-", "-", "0.1"});
    model.main = {"45", "0", minor1Empty ? "1" : "", "", ""};
    model.minor1 = {"135", "0", minor1Empty ? "" : "1", "", ""};
    model.minor2 = {"135", "0", "1", "", ""};
    EXPECT_EQ(Save(model).run(), (Boxes{kAsked, minor1Empty ? kNoParameters : kOther1}));
  }
}

// The first structure has a sill and a range of 0: the warning is shown, and the file tells of two
// structures.
TEST(KrigingFile, AStructureWithoutARangeIsWrittenWithRatiosOfOne) {
  KrigingModel model = threeStructures();
  for (AxisTexts* axis : {&model.main, &model.minor1, &model.minor2}) {
    (*axis)[2] = "0";
    (*axis)[3] = (*axis)[4] = "-";
  }
  model.rowcells = row({"0.1", "1", "0.5", "0", "-", "-", "-", "-", "-", "-", "0.6", "0"});
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, kOnlyNugget, save.saved}));
  EXPECT_EQ(save.bytes(), lines({"ZGRD", "zevRA1", "ln zinc", " 45 ", " 0 ", " 2 ", " 0.1 ", "0.6",
                                 "1             0.5            0            1.            1.",
                                 " 135 ", " 0 ", " 135 ", " 0 "}));
}

TEST(KrigingFile, ACodeOfARowWithoutAModelStaysADash) {
  KrigingModel model = threeStructures();
  model.rowcells.at(5) = "-";
  Save save(model);
  save.run();
  EXPECT_NE(save.bytes().find("\r\n-             0.25           250.5"), std::string::npos);
}

// A field that fills its zone moves the next one on to the zone after the next.
TEST(KrigingFile, WideFieldsMoveOnByAZone) {
  KrigingModel model = threeStructures();
  model.rowcells.at(3) = "0.12345678901234";
  Save save(model);
  save.run();
  EXPECT_NE(save.bytes().find("1             0.12345678901234             100          2.5"),
            std::string::npos);
}

TEST(KrigingFile, AQuotientWithoutAValueLeavesItsRatio) {
  KrigingModel model = threeStructures();
  model.main[2] = "1e300";
  model.minor1[2] = "1e-300";
  Save save(model);
  EXPECT_EQ(save.run(), (Boxes{kAsked, save.saved}));
  // 1E300 / 1E-300 overflows; 1E300 / 40 = 2.5E298 has 299 digits.
  EXPECT_NE(save.bytes().find("1             0.5            1E+300       .             25"),
            std::string::npos);
}

TEST(KrigingFile, AnglesThatOverflowPassToTheCaller) {
  for (const auto axis : {&KrigingModel::main, &KrigingModel::minor1, &KrigingModel::minor2}) {
    KrigingModel model = threeStructures();
    (model.*axis)[0] = "1e999";
    Save save(model);
    EXPECT_THROW(save.run(), Fault);
    (model.*axis)[0] = "1e39";  // beyond single precision
    Save single(model);
    EXPECT_THROW(single.run(), Fault);
  }
}

TEST(KrigingFile, ReplacesAnOldFile) {
  Save save(threeStructures());
  putFile(save.folder / "out.ZVP", std::string(5000, 'x'));
  save.run();
  EXPECT_EQ(save.bytes().substr(0, 6), "ZGRD\r\n");
  EXPECT_LT(save.bytes().size(), 500U);
}

TEST(KrigingFile, AFailureToWriteEndsWithoutAWordAndSparesTheOldFile) {
  Save save(threeStructures());
  fs::create_directories(save.folder / "out.ZVP/full");
  EXPECT_EQ(save.run(), Boxes{kAsked});
  EXPECT_TRUE(fs::is_directory(save.folder / "out.ZVP/full"));
  EXPECT_EQ(std::distance(fs::directory_iterator(save.folder.path()), fs::directory_iterator()), 1)
      << "nothing is left beside it";
  save.dialogs.saved = {(save.folder / "none/out.ZVP").string()};
  EXPECT_EQ(save.run(), Boxes{kAsked});
}

TEST(KrigingFile, ASecondSaveNeedsNoNewChoice) {
  Save save(threeStructures());
  save.run();
  save.dialogs.saved = {(save.folder / "again.ZVP").string()};
  save.run();
  EXPECT_EQ(contentOf(save.folder / "again.ZVP"), save.bytes());
}

}  // namespace
}  // namespace zevfit
