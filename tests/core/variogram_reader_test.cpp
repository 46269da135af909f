#include "files/variogram_reader.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

TEST(HasVariogramExtension, AsksForTheLastThreeLettersAlone) {
  struct Row {
    const char* name;
    bool good;
  };
  const Row rows[] = {
      {"meuse.zvm", true},    {"meuse.ZVM", true},   {"meuse.zVm", true}, {"meusezvm", true},
      {".zvm", true},         {"zvm", true},         {"vm", false},       {"", false},
      {"meuse.zvp", false},   {"meuse.zvm ", false}, {"meuse", false},    {"meuse.zvm.txt", false},
      {"meuse.txtZVM", true},
  };
  for (const Row& row : rows) EXPECT_EQ(hasVariogramExtension(row.name), row.good) << row.name;
}

TEST(Reader, FillsHeaderAndData) {
  const Session session = sessionOf(sampleFile("zevra"));
  EXPECT_EQ(session.filetag, "zevra");
  EXPECT_FALSE(session.hasmodel);
  EXPECT_EQ(session.nvar, 2);
  EXPECT_EQ(session.ndir, 2);
  EXPECT_EQ(session.nclass, 2);
  EXPECT_EQ(session.varname(1), "zinc");
  EXPECT_EQ(session.varname(2), "lead");
  EXPECT_EQ(session.dirname(1), "0;0");
  EXPECT_EQ(session.dirname(2), "45;0");
  EXPECT_EQ(session.variance(1).number(), 5.5);
  EXPECT_EQ(session.variance(2).number(), 6.5);
  const char* const classes[2][2][2] = {{{"10 1 100", "20 7 200"}, {"11 3 300", "21 2 400"}},
                                        {{"12 5 500", "22 6 600"}, {"13 8 700", "23 9 800"}}};
  for (int v = 1; v <= 2; ++v)
    for (int d = 1; d <= 2; ++d)
      for (int lag = 1; lag <= 2; ++lag)
        EXPECT_EQ(classText(session, {v, d}, lag), classes[v - 1][d - 1][lag - 1]) << v << d << lag;
}

TEST(Reader, KeepsNoLineStructure) {
  // Commas, single line feeds and all on one line are as good as the lines of a save.
  const Session session = sessionOf(
      "t\nzevra,2,zinc,lead,2,2,0;0,45;0,5.5 10 1 100 20 7 200,11,3\n300 "
      "21\t2 400 6.5 12 5 500 22 6 600 13 8 700\r23 9 800");
  const Session usual = sessionOf(sampleFile("zevra"));
  EXPECT_EQ(session.dirname(2), usual.dirname(2));
  EXPECT_EQ(session.variance(2).number(), 6.5);
  for (int v = 1; v <= 2; ++v)
    for (int d = 1; d <= 2; ++d)
      for (int lag = 1; lag <= 2; ++lag)
        EXPECT_EQ(classText(session, {v, d}, lag), classText(usual, {v, d}, lag)) << v << d << lag;
}

TEST(Reader, SetsWhatALoadSets) {
  Session session;
  session.plotvar = 3;
  session.plotdir = 4;
  session.hasmodel = true;
  session.modelshown = true;
  ASSERT_TRUE(readVariogramBytes(sampleFile("zevlag"), session));
  EXPECT_EQ(session.plotvar, 1);
  EXPECT_EQ(session.plotdir, 1);
  EXPECT_FALSE(session.hasmodel);
  // Only a model block sets it back.
  EXPECT_TRUE(session.modelshown);
  // What the windows take up with the file is theirs.
  EXPECT_EQ(session.inputfile, "");
  EXPECT_FALSE(session.loaded);
}

TEST(Reader, RunsTheExtremes) {
  const Session session = sessionOf(sampleFile("zevra"));
  // hmax, gmax, gmin of each pair, read off the classes.
  EXPECT_EQ(session.hmax({1, 1}), 20);
  EXPECT_EQ(session.gmax({1, 1}), 7);
  EXPECT_EQ(session.gmin({1, 1}), 1);
  EXPECT_EQ(session.hmax({1, 2}), 21);
  EXPECT_EQ(session.gmax({1, 2}), 3);
  EXPECT_EQ(session.gmin({1, 2}), 2);
  EXPECT_EQ(session.hmax({2, 2}), 23);
  EXPECT_EQ(session.gmax({2, 2}), 9);
  EXPECT_EQ(session.gmin({2, 2}), 8);
}

std::string oneDirection(const std::string& variance, const std::string& classes, int count) {
  return lines({"t", "zevra", "1", "zinc", "1", std::to_string(count), "0;0", variance, classes});
}

TEST(Reader, DerivesTheAxis) {
  struct Row {
    const char* name;
    const char* variance;
    const char* classes;
    double gmax, gmin, ymax, ymin;
  };
  const Row rows[] = {
      // 1.06 times the greater of highest semivariance and variance, and of the lesser ones; above
      // 0 the axis begins at 0.
      {"all below the variance", "10", "1 2 1 2 4 1", 4, 2, 10.6, 0},
      {"highest above the variance", "10", "1 2 1 2 20 1", 20, 2, 21.2, 0},
      {"lowest below 0", "1", "1 -2 1 2 4 1", 4, -2, 4.24, -2.12},
      {"all above the variance", "1", "1 2 1 2 4 1", 4, 2, 4.24, 0},
      {"variance below 0", "-1", "1 2 1 2 4 1", 4, 2, 4.24, -1.06},
      {"all semivariances below 0", "-5", "1 -2 1 2 -4 1", -1e-200, -4, 1.06 * -1e-200, -5.3},
      {"all semivariances 0", "0", "1 0 1 2 0 1", 0, 0, 0, 0},
      {"a class without pairs takes part", "1", "1 2 1 2 50 0", 50, 2, 53, 0},
      {"a class of no distance takes part", "1", "0 -3 1 2 4 1", 4, -3, 4.24, -3.18},
      {"too high for 1.06 times it", "1", "1 1.75e308 1 2 4 1", 1.75e308, 4, 0, 0},
      {"too low for 1.06 times it", "1", "1 -1.75e308 1 2 4 1", 4, -1.75e308, 4.24, 0},
  };
  for (const Row& row : rows) {
    const Session session = sessionOf(oneDirection(row.variance, row.classes, 2));
    EXPECT_EQ(session.hmax({1, 1}), 2) << row.name;
    EXPECT_EQ(session.gmax({1, 1}), row.gmax) << row.name;
    EXPECT_EQ(session.gmin({1, 1}), row.gmin) << row.name;
    EXPECT_DOUBLE_EQ(session.ymax({1, 1}), row.ymax) << row.name;
    EXPECT_DOUBLE_EQ(session.ymin({1, 1}), row.ymin) << row.name;
    EXPECT_EQ(session.ymax0({1, 1}), session.ymax({1, 1})) << row.name;
    EXPECT_EQ(session.ymin0({1, 1}), session.ymin({1, 1})) << row.name;
    EXPECT_EQ(session.xmax({1, 1}), 0) << row.name;
    EXPECT_EQ(session.ctotal({1, 1}), 0) << row.name;
  }
}

TEST(Reader, WithoutClassesDerivesTheAxisFromTheVariance) {
  for (const int classes : {0, -1, -2}) {
    const Session session = sessionOf(oneDirection("2", "", classes));
    EXPECT_EQ(session.nclass, classes);
    EXPECT_EQ(session.hmax({1, 1}), 0) << classes;
    EXPECT_EQ(session.gmax({1, 1}), -1e-200) << classes;
    EXPECT_EQ(session.gmin({1, 1}), 1e200) << classes;
    EXPECT_DOUBLE_EQ(session.ymax({1, 1}), 2.12) << classes;
    EXPECT_EQ(session.ymin({1, 1}), 0) << classes;
  }
}

TEST(Reader, TakesAModelBlockByTheTag) {
  struct Row {
    const char* line;
    const char* tag;
    int hasmodel;
  };
  const Row rows[] = {
      {"zevra1", "zevra1", 1},
      {"zevRA1", "zevRA1", 1},
      {"ZEVRA1", "ZEVRA1", 1},
      {"  zevra1  ", "zevra1  ", 1},
      {"\"  zevRA1 \"", "  zevRA1 ", 1},
      {"zevra", "zevra", 0},
      {"zevlag", "zevlag", 0},
      {"zevra11", "zevra11", 0},
      {"zev ra1", "zev ra1", 0},
      {"zevra1\t", "zevra1\t", 0},
      {"other", "other", 0},
      {"\"\"", "", 0},
  };
  for (const Row& row : rows) {
    const std::string data = lines({"t", row.line, "1", "zinc", "1", "1", "0;0", "2", "1 2 3"});
    const Session session = sessionOf(data + lines({"1", "0.5"}) + times(kUnusedStructure, 3));
    EXPECT_EQ(session.filetag, row.tag) << row.line;
    EXPECT_EQ(session.hasmodel, row.hasmodel) << row.line;
    EXPECT_EQ(modelText(session, {1, 1}), row.hasmodel ? "1 0.5" + unusedText(3) : kResetModel)
        << row.line;
  }
}

TEST(Reader, ReadsModelsByVariableAndDirection) {
  Session session;
  session.modelshown = true;
  const std::string models =
      lines(
          {"1", "0.11", "1", "S", "1.11", "11", "1", " E ", "2.11", "21", "1", "G", "3.11", "31"}) +
      unusedModel() +
      lines({"0", "0.21", "1", "P", "1.21", "12", "0", "S", "2.21", "22", "1", "E", "3.21", "32"}) +
      lines({"1", "0.22", "0", "\" G \"", "1.22", "13", "1", "P", "2.22", "23", "0", "S", "3.22",
             "33"});
  ASSERT_TRUE(readVariogramBytes(sampleFile("zevra1") + models, session));
  EXPECT_EQ(modelText(session, {1, 1}), "1 0.11 1 S 1.11 11 1 E 2.11 21 1 G 3.11 31");
  EXPECT_EQ(modelText(session, {1, 2}), unusedModelText());
  EXPECT_EQ(modelText(session, {2, 1}), "0 0.21 1 P 1.21 12 0 S 2.21 22 1 E 3.21 32");
  EXPECT_EQ(modelText(session, {2, 2}), "1 0.22 0 G 1.22 13 1 P 2.22 23 0 S 3.22 33");
  EXPECT_EQ(modelText(session, {3, 1}), kResetModel);
  EXPECT_EQ(modelText(session, {1, 3}), kResetModel);
  // No field of the block belongs to it.
  EXPECT_EQ(session.model0({1, 1}), "-");
  EXPECT_FALSE(session.modelshown);
}

TEST(Reader, ModelsChangeNoDerivedCell) {
  Session with, without = sessionOf(sampleFile("zevra"));
  std::string models;
  for (int pair = 0; pair < 4; ++pair)
    models += lines({"1", "500", "1", "S", "600", "700", "0", "-", "0", "1", "0", "-", "0", "1"});
  ASSERT_TRUE(readVariogramBytes(sampleFile("zevra1") + models, with));
  for (int v = 1; v <= 2; ++v) {
    for (int d = 1; d <= 2; ++d) {
      EXPECT_EQ(with.ctotal({v, d}), 0);
      EXPECT_EQ(with.xmax({v, d}), 0);
      for (const auto table : {&Session::hmax, &Session::gmax, &Session::gmin, &Session::ymax,
                               &Session::ymin, &Session::ymax0, &Session::ymin0})
        EXPECT_EQ((with.*table)({v, d}), (without.*table)({v, d})) << v << d;
    }
  }
}

TEST(AcceptLoad, SettlesTheFile) {
  Session session;
  session.addflag.fill(1);
  session.datavar = 7;
  session.nvarfile = 9;
  ASSERT_TRUE(readVariogramBytes(
      lines({"t", "zevra", "4", "zinc", "\"\"", "\" \"", ",", "0", "0", "1", "2", "3", "4"}),
      session));
  acceptLoad(session, "folder/a file.zvm");
  EXPECT_EQ(session.inputfile, "folder/a file.zvm");
  EXPECT_TRUE(session.loaded);
  EXPECT_EQ(session.nvarfile, 4);
  EXPECT_EQ(session.datavar, 1);
  EXPECT_EQ(session.varname(1), "zinc");
  EXPECT_EQ(session.varname(2), "No Name2");
  EXPECT_EQ(session.varname(3), " ");
  EXPECT_EQ(session.varname(4), "No Name4");
  EXPECT_EQ(session.varname(5), "");
  for (int v = 1; v <= 40; ++v) EXPECT_FALSE(session.addflag(v)) << v;
  EXPECT_TRUE(session.addflag(41));
}

TEST(AcceptLoad, NamesTheLastSlotOfTooManyVariables) {
  Session session;
  session.nvar = 2'000'000'000;
  acceptLoad(session, "a.zvm");
  EXPECT_EQ(session.varname(41), "No Name41");
  EXPECT_EQ(session.nvarfile, 2'000'000'000);
}

}  // namespace
}  // namespace zevfit::test
