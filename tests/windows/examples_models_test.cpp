// The models of the examples, seen, tested and saved by the whole program.
#include <algorithm>
#include <filesystem>

#include "tests/support/scratch_folder.h"
#include "tests/support/test_dialog.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> examples() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(fs::path(ZEVFIT_SOURCE_DIR) / "examples"))
    if (entry.path().extension() == ".zvm") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

/// An example that stands still in a save: its own bytes or, where it has no models yet, these with
/// the other tag and a block of lines that are not used.
std::string savedUntouched(std::string bytes, int pairs) {
  const std::string tag = "\r\nzevra\r\n";
  const std::size_t at = bytes.find(tag);
  if (at == std::string::npos) return bytes;
  return bytes.replace(at, tag.size(), "\r\nzevRA1\r\n") + times(unusedModel(), pairs);
}

class ExamplesInTheProgram : public TestDialog {
 protected:
  /// A copy of an example, in the program.
  std::string open(const fs::path& example) {
    std::string file = write(example.filename().c_str(), contentOf(example));
    program_.open(file);
    return file;
  }
  void showUsedLines(Pair pair) {
    for (const Line which : kLines) {
      if (!line(session(), pair, which).isOn()) continue;
      const std::string option = "est" + std::to_string(indexOf(which) + 1);
      program_.control<QAbstractButton>(option.c_str()).click();
    }
  }
  void plotEveryPair() {
    auto& variables = program_.control<QComboBox>("Combo2");
    auto& directions = program_.control<QComboBox>("Combodirvar");
    for (int v = 0; v < variables.count(); ++v) {
      for (int d = 0; d < directions.count(); ++d) {
        variables.setCurrentIndex(v);
        directions.setCurrentIndex(d);
        program_.control<QAbstractButton>("Command5").click();
        QApplication::processEvents();
        EXPECT_EQ(session().plotted(), (Pair{v + 1, d + 1}));
        showUsedLines({v + 1, d + 1});
      }
    }
  }
};

TEST_F(ExamplesInTheProgram, StandStillWhenEveryPairAndItsLinesAreSeenAndSaved) {
  ASSERT_GE(examples().size(), 3U);
  for (const fs::path& example : examples()) {
    const std::string file = open(example);
    plotEveryPair();
    program_.trigger("k11");
    EXPECT_EQ(program_.dialogs().shown.back(), "plain: Models saved to file:" + file);
    const int pairs = static_cast<int>(session().nvar * session().ndir);
    EXPECT_EQ(contentOf(file), savedUntouched(contentOf(example), pairs)) << example;
  }
}

// Zinc, lead and their cross variable in all orders of three of the four directions, before and
// behind a look at every pair.
TEST_F(ExamplesInTheProgram, TheFittedOnePassesTheTestOfCoregionalization) {
  open(fs::path(ZEVFIT_SOURCE_DIR) / "examples/meuse-fitted.zvm");
  for (const bool isSeen : {false, true}) {
    if (isSeen) plotEveryPair();
    for (const Positions& directions : {Positions{1, 3, 0}, {0, 2, 1}, {2, 0, 3}, {3, 1, 2}}) {
      openDialog();
      choose({0, 1, 4, directions[0], directions[1], directions[2]});
      press("Command1");
      const Lines lines = shownTree();
      ASSERT_EQ(lines.size(), 4U);
      EXPECT_EQ(lines[0], "Test Results, 4");
      for (std::size_t i = 1; i < lines.size(); ++i)
        EXPECT_TRUE(lines[i].ends_with(", 1")) << lines[i];
      press("Command2");
    }
  }
}

}  // namespace
}  // namespace zevfit::test
