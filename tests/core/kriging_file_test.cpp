// The kriging parameter file: checks and warnings in their order, and the file byte for byte.
#include "files/kriging_file.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/kriging_save.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

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
}

// The azimuth of Minor 2 alone is kept in single precision, in which 22.6 is 22.6000004.
TEST(KrigingFile, TheSameAnglesOfTheMinorsAreTheSameInSinglePrecision) {
  KrigingModel model = threeStructures();
  model.minor1[kAzimuth] = model.minor2[kAzimuth] = "22.6";
  model.minor1[kDip] = model.minor2[kDip] = "-0.1";
  EXPECT_EQ(Save(model, 0).run(), Boxes{"plain: Main / Minor 1 directions are not orthogonals !"});
  // They differ by less than single precision tells.
  model.minor1[kAzimuth] = "22.600000001";
  model.minor2[kDip] = "-0.10000000001";
  EXPECT_EQ(Save(model, 0).run(), Boxes{"plain: Main / Minor 1 directions are not orthogonals !"});
  model.minor1[kAzimuth] = "22.60001";
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

TEST(KrigingFile, AnglesThatOverflowAreWarnedOfByName) {
  const std::pair<AxisTexts KrigingModel::*, const char*> axes[] = {
      {&KrigingModel::main, "Main"},
      {&KrigingModel::minor1, "minor1"},
      {&KrigingModel::minor2, "minor2"}};
  for (const auto& [axis, name] : axes) {
    for (const auto& [entry, angle] : {std::pair(kAzimuth, "azimuth"), {kDip, "dip"}}) {
      // 1e39 is beyond single precision.
      for (const char* text : {"1e999", "-1e39"}) {
        KrigingModel model = threeStructures();
        (model.*axis).at(entry) = text;
        Save save(model);
        EXPECT_EQ(save.run(), Boxes{std::string("warning: Illegal value for ") + angle + " of " +
                                    name + " Direction: " + text + "!"});
        EXPECT_FALSE(save.made());
      }
    }
  }
  KrigingModel model = threeStructures();
  model.minor1[kDip] = model.minor2[kAzimuth] = "1e39";
  EXPECT_EQ(Save(model).run(), Boxes{"warning: Illegal value for dip of minor1 Direction: 1e39!"});
}

TEST(KrigingFile, ReplacesAnOldFile) {
  Save save(threeStructures());
  putFile(save.folder / "out.ZVP", std::string(5000, 'x'));
  save.run();
  EXPECT_EQ(save.bytes().substr(0, 6), "ZGRD\r\n");
  EXPECT_LT(save.bytes().size(), 500U);
}

TEST(KrigingFile, ASecondSaveNeedsNoNewChoice) {
  Save save(threeStructures());
  save.run();
  save.dialogs.saved = {(save.folder / "again.ZVP").string()};
  save.run();
  EXPECT_EQ(contentOf(save.folder / "again.ZVP"), save.bytes());
}

}  // namespace
}  // namespace zevfit::test
