// The samples of docs/file-formats.md are what the program reads and writes.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "files/kriging_file.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

/// The indented blocks of the page, with the line ends of a file.
std::vector<std::string> samples() {
  const std::string page = contentOf(ZEVFIT_SOURCE_DIR "/docs/file-formats.md");
  std::vector<std::string> blocks;
  bool inside = false;
  for (std::size_t at = 0; at < page.size();) {
    const std::size_t end = page.find('\n', at);
    const std::string_view line = std::string_view(page).substr(at, end - at);
    const bool indented = line.starts_with("    ");
    if (indented && !inside) blocks.emplace_back();
    if (indented) blocks.back() += std::string(line.substr(4)) + "\r\n";
    inside = indented;
    if (end == std::string::npos) break;
    at = end + 1;
  }
  return blocks;
}

TEST(FileFormatsPage, TheVariogramFileIsReadAndWrittenAsItStands) {
  ASSERT_EQ(samples().size(), 2U);
  const std::string sample = samples()[0];
  Session session = sessionOf(sample);
  EXPECT_EQ(session.varname(1), "zinc");
  EXPECT_EQ(classText(session, {1, 1}, 2), "20 7 200");
  EXPECT_EQ(modelText(session, {1, 1}), "1 0.1 1 S 0.5 100" + unusedText(2));
  EXPECT_EQ(written(session, 1, sample), sample);
}

class AnyDirections : public Orthogonality {
 public:
  std::int16_t Normal_verif(float, float, float, float, float, float) const override { return 1; }
};

TEST(FileFormatsPage, TheKrigingFileIsWrittenAsItStands) {
  const ScratchFolder folder;
  ScriptedDialogs dialogs;
  dialogs.saved = {(folder / "a.ZVP").string()};
  const KrigingModel model{
      "zevRA1",
      "ln zinc",
      {"45", "0", "100", "250.5", "-"},
      {"135", "0", "40", "250.5", "-"},
      {"135", "0", "40", "250.5", "-"},
      {"", "0.1", "1", "0.5", "100", "2", "0.25", "250.5", "-", "-", "-", "0.85", "250.5"}};
  saveKrigingFile(model, AnyDirections(), dialogs, dialogs);
  ASSERT_EQ(samples().size(), 2U);
  EXPECT_EQ(contentOf(folder / "a.ZVP"), samples()[1]);
}

}  // namespace
}  // namespace zevfit::test
