// "Save As" of the results window.
#include "tests/support/results_window.h"

namespace zevfit::test {
namespace {

class ModfinalSave : public ResultsBench {};

TEST_F(ModfinalSave, SavesTheChosenAxes) {
  const std::string target = (folder_ / "out.ZVP").string();
  program_.dialogs().saved = {target};
  results([](OpenResults& open) {
    open.pick("Option3d4", 1);
    open.pick("Option3d5", 2);
    open.pick("Option3d6", 3);
    open.click("Command2");
  });
  EXPECT_EQ(shown(),
            (Texts{"save: Save Output File (*.ZVP)|*.ZVP",
                   "plain: File  ' out.ZVP '  is saved, you can go on to simulation/kriging "
                   "modules."}));
  // 100 / 40 = 2.5 and 100 / 25 = 4.
  EXPECT_EQ(contentOf(target),
            "ZGRD\r\nzevra\r\nzinc\r\n 0 \r\n 0 \r\n 2 \r\n 0.1 \r\n0.6\r\n"
            "1             0.5            100          2.5           4.\r\n"
            " 90 \r\n 0 \r\n 0 \r\n 90 \r\n");
}

TEST_F(ModfinalSave, SavesOnlyOrthogonalAxes) {
  program_.dialogs().saved = {(folder_ / "plane.ZVP").string()};
  results([&](OpenResults& open) {
    open.pick("Option3d4", 1);
    open.click("Command2");
    EXPECT_EQ(shown(), Texts{"plain: Main / Minor 1 directions are not orthogonals !"});
    shown().clear();
    open.pick("Option3d5", 2);
    open.click("Command2");
    EXPECT_EQ(shown(), Texts{"plain: Main / Minor 1 / Minor 2 directions are not orthogonals !"});
    shown().clear();
    // In the plane of Main and Minor 1.
    open.pick("Option3d6", 2);
    open.click("Command2");
    EXPECT_EQ(shown().size(), 2U);
  });
  EXPECT_EQ(contentOf(folder_ / "plane.ZVP"),
            "ZGRD\r\nzevra\r\nzinc\r\n 0 \r\n 0 \r\n 2 \r\n 0.1 \r\n0.6\r\n"
            "1             0.5            100          2.5           2.5\r\n"
            " 90 \r\n 0 \r\n 90 \r\n 0 \r\n");
}

// The azimuth of Minor 2 alone is kept in single precision, in which 22.6 is 22.6000004.
TEST_F(ModfinalSave, MinorsOfTheSameAngleGetTheShorterMessage) {
  results([&](OpenResults& open) {
    open.pick("Option3d4", 1);
    for (const char* minor : {"minor1", "minor2"}) open.type(minor, 0, "22.6");
    open.click("Command2");
    EXPECT_EQ(shown(), Texts{"plain: Main / Minor 1 directions are not orthogonals !"});
    shown().clear();
    open.type("minor2", 0, "22.60001");
    open.click("Command2");
    EXPECT_EQ(shown(), Texts{"plain: Main / Minor 1 / Minor 2 directions are not orthogonals !"});
  });
}

// What Main was taken from is the file's, also when another variable or row is shown since; the
// name is that of the variable on show.
TEST_F(ModfinalSave, TheModelIsThatOfTheLastPickForMain) {
  program_.dialogs().saved = {(folder_ / "out.ZVP").string()};
  results([](OpenResults& open) {
    open.pick("Option3d4", 1);
    open.pick("Option3d5", 2);
    open.pick("Option3d6", 3);
    QTest::keyClick(&open.find<QComboBox>("Combovarver"), Qt::Key_Down);
    open.click("Command2");
  });
  EXPECT_TRUE(
      contentOf(folder_ / "out.ZVP")
          .starts_with("ZGRD\r\nzevra\r\nlead\r\n 0 \r\n 0 \r\n 2 \r\n 0.1 \r\n0.6\r\n1  "));
}

TEST_F(ModfinalSave, AnAngleBeyondAllNumbersIsWarnedOf) {
  results([&](OpenResults& open) {
    open.type("main", 0, "1e39");
    open.type("main", 2, "1e999");
    EXPECT_EQ(shown(), Texts{});
    open.click("Command2");
    EXPECT_EQ(shown(), Texts{"warning: Illegal value for azimuth of Main Direction: 1e39!"});
    EXPECT_TRUE(open.window().isVisible());
    EXPECT_EQ(open.field("main", 0).text(), "1e39");
  });
}

}  // namespace
}  // namespace zevfit::test
