#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "files/parameter_file.h"
#include "session/fault.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::contentOf;
using test::lines;
using test::putFile;
using test::ScratchFolder;

GraphStyle otherStyle() {
  GraphStyle style;
  style.cores = {1, -2, 300, 2147483647, 65535};
  style.Formfont.formato = {"##0.000  ", " #"};
  style.Formfont.Label2 = {FontSample{"Caption A", "Face A", 12.0F},
                           FontSample{"Caption B", "Face B", 0.1F},
                           FontSample{"Caption C", "Face C", 8.25F}};
  // Not written: these follow from the first samples.
  style.Formfont.Label3 = {FontSample{"x", "y", 1.0F}, FontSample{"x", "y", 1.0F},
                           FontSample{"x", "y", 1.0F}};
  return style;
}

// A file number has a blank or a minus sign in front and a blank behind.
TEST(ParameterWriting, WritesTheStartValues) {
  EXPECT_EQ(
      composeParameters(GraphStyle(), "/data/meuse.zvm"),
      lines({"/data/meuse.zvm", " 0 ", " 32768 ", " 16711680 ", " 255 ", " 16777215 ", "*#0.#0 *",
             "*####.#0*", "Times New Roman", "Times New Roman", " 10 ", "Times New Roman",
             "Times New Roman", " 7.8 ", "Times New Roman", "Times New Roman", " 7.8 "}));
}

// 0.1 as a float is 0.100000001490116 to a double's digits, but has 7 of its own.
TEST(ParameterWriting, WritesEachValueInItsLine) {
  EXPECT_EQ(composeParameters(otherStyle(), "C:\\a b.zvm"),
            lines({"C:\\a b.zvm", " 1 ", "-2 ", " 300 ", " 2147483647 ", " 65535 ", "*##0.000  *",
                   "* #*", "Caption A", "Face A", " 12 ", "Caption B", "Face B", " 0.1 ",
                   "Caption C", "Face C", " 8.25 "}));
}

TEST(ParameterWriting, WithoutAnInputFileTheFirstLineIsEmpty) {
  EXPECT_EQ(composeParameters(GraphStyle(), "").substr(0, 5), "\r\n 0 ");
}

TEST(ParameterWriting, ReadsBack) {
  for (const char* path : {"/data/a b.zvm", ""}) {
    for (const GraphStyle& style : {GraphStyle(), otherStyle()}) {
      const std::string bytes = composeParameters(style, path);
      GraphStyle read;
      EXPECT_EQ(readParameters(bytes, read), path);
      EXPECT_EQ(composeParameters(read, path), bytes);
    }
  }
}

TEST(ParameterWriting, MakesTheFileOfTheFolder) {
  const ScratchFolder folder;
  writeParameters(folder.path(), GraphStyle(), "/data/a.zvm");
  EXPECT_EQ(contentOf(folder / "zevfit.ini"), composeParameters(GraphStyle(), "/data/a.zvm"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST(ParameterWriting, ReplacesTheOldFileAndALeftover) {
  const ScratchFolder folder;
  putFile(folder / "zevfit.ini", std::string(5000, 'x'));
  putFile(folder / "zevfit.ini.new", std::string(5000, 'y'));
  writeParameters(folder.path(), otherStyle(), "");
  EXPECT_EQ(contentOf(folder / "zevfit.ini"), composeParameters(otherStyle(), ""));
  EXPECT_FALSE(fs::exists(folder / "zevfit.ini.new"));
}

TEST(ParameterWriting, WithoutAFolderFails) {
  const ScratchFolder folder;
  EXPECT_THROW(writeParameters(folder / "none", GraphStyle(), ""), Fault);
  EXPECT_FALSE(fs::exists(folder / "none"));
}

TEST(ParameterWriting, AFolderInTheFilesPlaceFailsAndLeavesNothing) {
  const ScratchFolder folder;
  fs::create_directory(folder / "zevfit.ini");
  EXPECT_THROW(writeParameters(folder.path(), GraphStyle(), ""), Fault);
  EXPECT_TRUE(fs::is_directory(folder / "zevfit.ini"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST(ParameterWriting, FailureLeavesTheOldFile) {
  const ScratchFolder folder;
  putFile(folder / "zevfit.ini", "old");
  fs::create_directory(folder / "zevfit.ini.new");
  EXPECT_THROW(writeParameters(folder.path(), GraphStyle(), ""), Fault);
  EXPECT_EQ(contentOf(folder / "zevfit.ini"), "old");
}

}  // namespace
}  // namespace zevfit
