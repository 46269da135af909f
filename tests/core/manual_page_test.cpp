// The manual tells of every message of the program, to the letter, and shows pictures that are
// there.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/scratch_folder.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

std::string manual() { return contentOf(ZEVFIT_SOURCE_DIR "/docs/manual.md"); }

const char* const kMessages[] = {
    "Please select input data file (*.ZVM) first!",
    "Illegal Type of Input Data File!",
    "Invalid Input Data File Format or empty File!",
    "You Must Select a Variable First !",
    "Please select variables to add.",
    "Cannot Add same variable.",
    "Please choose a name for this new variable!",
    "Name too long, choose another one!",
    "already exists. Please choose another one.",
    "Select variable!",
    "Cannot remove this variable!",
    "Save  current models to file: ",
    "Models saved to file:",
    "Cannot save  models to file:",
    "| Power Model (0 < a < 2) |",
    "Structure II : Power Model (0 < a < 2)",
    "Structure III : Power Model (0 < a < 2)",
    "Structure IV : Power Model (0 < a < 2)",
    "Illegal value ymax ! Note:  legal value >  ",
    "Legend too long: Maximum 6 char.!",
    "Please select the Font!",
    "Illegal value for Fontsize: max. value = 16!",
    "Illegal value for Fontsize: max. value = 10!",
    "Illegal value for Fontsize: max. value = 9!",
    "Illegal format string: Two . detected!",
    "Illegal format symbol - ",
    "Cannot enlarge variogram plot!",
    "Cannot reduce variogram plot!",
    "Please Select Variogram Plot you want to copy to Clipboard!",
    "Illegal value for range 'a1' of Main Direction!",
    "Illegal value for azimuth of Main Direction: ",
    "Illegal value for X-Maximum: ",
    "Illegal value for variance: ",
    "Illegal value for flag of Structure 1 in Direction (",
    "has no azimuth and dip, as in 0;0.",
    "Cannot save file: ",
    "Main / Minor 1 directions are not orthogonals !",
    "Main / Minor 1 / Minor 2 directions are not orthogonals !",
    "have no parameters, please run  zevFIT program!",
    "Wrong number of structures between Main Direction and Minor1 Direction!",
    "Wrong number of structures between Main Direction and Minor2 Direction!",
    "Atention:You have only one structure (C0) !",
    "'  is saved, you can go on to simulation/kriging modules.",
    "Please select variogram plot first!",
    "Cannot print!",
    "| cannot print! |",
    "Save configuration data file to zevFIT.INI ?",
    "Cannot save  session parameters to ",
    "The program has met a fault and must end: ",
    "The program had to end early. The models of ",
    "Name has a character that the file cannot hold, choose another one!",
    "| The models of ... that were not saved are kept in ... |",
    "| The file as it was before this save could not be kept as ... |",
    "| The models of ... that were not saved could not be kept in ... |",
    "| The file ... could not be read to its end: the tables hold a part of it.",
    "The last file could not be read to its end: the tables hold parts of two files.",
    "Open a good file.",
    "is no sill here: the semivariance axis goes from ",
    "False is no number. The value before is back.",
    "The slider does not take the end of the axis: type ",
    "is no range here: ranges go from 0 to ",
    "0 is no range: 1E-05 is taken.",
    " counts as 0, and 0 is no range: 1E-05 is taken.",
    "| \"...\" counts as ",
    " is beyond all numbers. The range stays ",
    " is beyond all numbers. The sill stays ",
    "lies beyond the distance axis, which ends at ",
    "| Out of view: ",
    "| Start model: C0 = ",
    "The same command takes it back.",
    "The model from before the start model is back.",
    "| No start model: ",
    "| Report 1 went to ",
    "Cannot save picture: ",
    "The picture is saved as ",
    "The manual is not there.",
    "Cannot open the manual: "};

TEST(ManualPage, TellsOfEveryMessage) {
  const std::string page = manual();
  for (const char* message : kMessages)
    EXPECT_NE(page.find(message), std::string::npos) << "'" << message << "'";
}

TEST(ManualPage, ShowsPicturesThatExist) {
  const std::string page = manual(), mark = "src=\"";
  int pictures = 0;
  for (std::size_t at = page.find(mark); at != std::string::npos; at = page.find(mark, at)) {
    at += mark.size();
    const std::string name = page.substr(at, page.find('"', at) - at);
    EXPECT_TRUE(fs::exists(fs::path(ZEVFIT_SOURCE_DIR) / "docs" / name)) << name;
    ++pictures;
  }
  EXPECT_GT(pictures, 8);
}

}  // namespace
}  // namespace zevfit::test
