// The example in three dimensions as far as the kriging file.
#include "tests/support/model_lines.h"
#include "tests/support/results_window.h"

namespace zevfit::test {
namespace {

/// The ore body, copper fitted with the model that its values were made from.
class OreResults : public testing::Test {
 protected:
  OreResults() : program_(folder_.path()) {
    const auto file = folder_ / "ore.zvm";
    std::filesystem::copy_file(std::filesystem::path(ZEVFIT_SOURCE_DIR) / "examples/ore.zvm", file);
    program_.open(file.string());
    const std::pair<double, double> ranges[] = {{60, 160}, {40, 80}, {20, 40}, {37, 76.5}};
    for (int direction = 1; direction <= 4; ++direction) {
      const auto& [first, second] = ranges[direction - 1];
      const Pair pair{1, direction};
      Session& session = program_.session();
      setNugget(session, pair, 0.2);
      setStructure(session, pair, Line::first, "S", 0.4, first);
      setStructure(session, pair, Line::second, "S", 0.6, second);
      session.ctotal(pair) = 1.2;
    }
    program_.dialogs().shown.clear();
    program_.dialogs().saved = {(folder_ / "ore.ZVP").string()};
  }

  /// Saves with Main, Minor 1 and Minor 2 in these directions; what the boxes said.
  Texts save(int main, int minor1, int minor2) {
    Program::inModal([&] { program_.trigger("k3"); },
                     [&](QWidget& modal) {
                       QApplication::processEvents();
                       OpenResults open(modal);
                       open.pick("Option3d4", main);
                       open.pick("Option3d5", minor1);
                       open.pick("Option3d6", minor2);
                       open.click("Command2");
                       modal.hide();
                     });
    return program_.dialogs().shown;
  }

  ScratchFolder folder_;
  Program program_;
};

// The axes of the body are at right angles: 40;30 and 40;-60 in one vertical plane, 130;0 across
// it. Ratios 60/40 = 1.5 and 60/20 = 3, 160/80 = 2 and 160/40 = 4.
TEST_F(OreResults, GoToTheKrigingFileAlongTheAxesOfTheBody) {
  EXPECT_EQ(save(1, 2, 3).back(),
            "plain: File  ' ore.ZVP '  is saved, you can go on to simulation/kriging modules.");
  EXPECT_EQ(contentOf(folder_ / "ore.ZVP"),
            "ZGRD\r\nzevra\r\ncopper\r\n 40 \r\n 30 \r\n 3 \r\n 0.2 \r\n1.2\r\n"
            "1             0.4            60           1.5           3.\r\n"
            "1             0.6            160          2.            4.\r\n"
            " 130 \r\n 0 \r\n 40 \r\n-60 \r\n");
}

// 85;0 is 45 degrees from 130;0.
TEST_F(OreResults, RefuseTheDirectionBetweenTheAxes) {
  EXPECT_EQ(save(1, 2, 4),
            Texts{"plain: Main / Minor 1 / Minor 2 directions are not orthogonals !"});
}

}  // namespace
}  // namespace zevfit::test
