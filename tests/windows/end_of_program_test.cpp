// The start and the end of the program, with the parameters that it keeps between runs.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QComboBox>
#include <csignal>
#include <filesystem>
#include <iterator>

#include "files/output_file.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "tests/support/temporary_folder.h"

namespace zevfit::test {
namespace {

const std::string kQuestion = "question: Save configuration data file to zevFIT.INI ?";

/// No file takes a byte while it lives, as on a disk that is full.
class FullDisk {
 public:
  FullDisk() : before_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit none{0, limit_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &none);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, before_);
  }

 private:
  void (*before_)(int);
  rlimit limit_{};
};

class EndOfProgram : public testing::Test, protected TemporaryFolder {
 protected:
  std::ptrdiff_t filesInFolder() {
    return std::distance(std::filesystem::directory_iterator(folder()), {});
  }
  bool kept() { return std::filesystem::exists(path("zevfit.ini")); }
};

TEST_F(EndOfProgram, CancelKeepsTheProgramAsItWas) {
  Program program(folder());
  EXPECT_FALSE(program.window().close());
  EXPECT_EQ(program.dialogs().shown, std::vector{kQuestion});
  EXPECT_TRUE(program.window().isVisible());
  EXPECT_FALSE(kept());
  program.trigger("mnuvoltar");
  EXPECT_EQ(program.dialogs().shown.size(), 2U);
  EXPECT_TRUE(program.window().isVisible());
}

TEST_F(EndOfProgram, NoEndsWithoutAFile) {
  Program program(folder());
  program.dialogs().answers = {Answer::no};
  EXPECT_TRUE(program.window().close());
  EXPECT_FALSE(kept());
}

TEST_F(EndOfProgram, YesEndsWithTheFile) {
  Program program(folder());
  program.dialogs().answers = {Answer::yes};
  program.trigger("mnuvoltar");
  EXPECT_EQ(program.dialogs().shown, std::vector{kQuestion});
  EXPECT_FALSE(program.window().isVisible());
  EXPECT_TRUE(kept());
}

TEST_F(EndOfProgram, TwoNumbersOfTheFamilyFileDecideWithoutAQuestion) {
  write("zpam.pam", "1 2 3 4 5 6 7 8 9 1 1\r\n");
  Program program(folder());
  EXPECT_TRUE(program.window().close());
  EXPECT_TRUE(program.dialogs().shown.empty());
  EXPECT_TRUE(kept());
  std::filesystem::remove(path("zevfit.ini"));
  write("zpam.pam", "1 2 3 4 5 6 7 8 9 1 0\r\n");
  Program other(folder());
  EXPECT_TRUE(other.window().close());
  EXPECT_FALSE(kept());
}

TEST_F(EndOfProgram, TheMenuEntryAsksWhateverTheFamilyFileSays) {
  write("zpam.pam", "1 2 3 4 5 6 7 8 9 1 0\r\n");
  Program program(folder());
  program.trigger("mnuvoltar");
  EXPECT_EQ(program.dialogs().shown, std::vector{kQuestion});
}

TEST_F(EndOfProgram, WhatIsKeptComesBackAtTheNextStart) {
  write("small.zvm", kOneClass);
  {
    Program program(folder());
    program.open(path("small.zvm"));
    program.session().style.cores.Label3 = kRed;
    program.session().style.Formfont.formato[0] = "#.# ";
    program.dialogs().answers = {Answer::yes};
    EXPECT_TRUE(program.window().close());
  }
  Program next(folder());
  EXPECT_EQ(next.session().style.cores.Label3, kRed);
  EXPECT_EQ(next.session().style.Formfont.formato[0], "#.# ");
  EXPECT_EQ(next.dialogs().held, path("small.zvm"));
  EXPECT_EQ(next.session().inputfile, "");
}

TEST_F(EndOfProgram, WithoutAFileItStartsWithItsDefaultsAndNoWord) {
  Program program(folder());
  EXPECT_TRUE(program.dialogs().shown.empty());
  EXPECT_EQ(program.session().style.Formfont.formato[1], "####.#0");
}

TEST_F(EndOfProgram, AFolderInThePlaceOfItsFileIsToldAndTheProgramEnds) {
  std::filesystem::create_directories(path("zevfit.ini/full"));
  Program program(folder());
  program.dialogs().answers = {Answer::yes};
  EXPECT_TRUE(program.window().close());
  EXPECT_EQ(program.dialogs().shown, (std::vector{kQuestion, noParametersBox(folder())}));
  EXPECT_TRUE(std::filesystem::is_directory(path("zevfit.ini/full")));
}

TEST_F(EndOfProgram, AFolderThatCannotBeWrittenIsToldAndTheProgramEnds) {
  // Nobody makes a file there, not even the superuser.
  Program program("/proc");
  program.dialogs().answers = {Answer::yes};
  EXPECT_TRUE(program.window().close());
  EXPECT_EQ(program.dialogs().shown, (std::vector{kQuestion, noParametersBox("/proc")}));
}

TEST_F(EndOfProgram, AFullDiskIsToldAndTheOldFileStaysWhole) {
  const std::string old = "an old file\r\n";
  for (const bool byMenu : {false, true}) {
    write("zevfit.ini", old);
    Program program(folder());
    program.dialogs().answers = {Answer::yes};
    {
      const FullDisk full;
      if (byMenu)
        program.trigger("mnuvoltar");
      else
        program.window().close();
    }
    EXPECT_EQ(program.dialogs().shown, (std::vector{kQuestion, noParametersBox(folder())}));
    EXPECT_FALSE(program.window().isVisible()) << "the program ends all the same";
    EXPECT_EQ(readWhole(path("zevfit.ini")), old);
    EXPECT_EQ(filesInFolder(), 1) << "nothing half written beside it";
  }
}

TEST_F(EndOfProgram, AFullDiskIsToldWithoutAQuestionToo) {
  write("zpam.pam", "1 2 3 4 5 6 7 8 9 1 1\r\n");
  Program program(folder());
  {
    const FullDisk full;
    EXPECT_TRUE(program.window().close());
  }
  EXPECT_EQ(program.dialogs().shown, std::vector{noParametersBox(folder())});
}

// Devices end neither the start nor the close in a wait, and a parameter file is not written into
// one.
TEST_F(EndOfProgram, DevicesInThePlaceOfBothFilesAreHarmless) {
  for (const char* device : {"/dev/full", "/dev/zero", "/dev/null"}) {
    for (const char* name : {"zevfit.ini", "zpam.pam"}) {
      std::filesystem::remove(path(name));
      std::filesystem::create_symlink(device, path(name));
    }
    Program program(folder());
    EXPECT_TRUE(program.dialogs().shown.empty()) << device;
    EXPECT_EQ(program.session().style.Formfont.formato[1], "####.#0") << device;
    program.dialogs().answers = {Answer::yes};
    EXPECT_TRUE(program.window().close());
    EXPECT_EQ(program.dialogs().shown, (std::vector{kQuestion, noParametersBox(folder())}))
        << device;
    EXPECT_TRUE(std::filesystem::is_symlink(path("zevfit.ini"))) << device;
  }
}

TEST_F(EndOfProgram, AFolderInThePlaceOfTheFamilyFileLeavesTheQuestion) {
  std::filesystem::create_directories(path("zpam.pam"));
  Program program(folder());
  EXPECT_FALSE(program.window().close());
  EXPECT_EQ(program.dialogs().shown, std::vector{kQuestion});
}

// A save that an early end of the old file has broken off leaves its temporary file open, which
// makes the next save fail; the request to close the program closes all files, also when cancelled.
TEST_F(EndOfProgram, ClosingClosesWhatASaveLeftOpen) {
  for (const bool byMenu : {false, true}) {
    write("small.zvm", kOneClass);
    Program program(folder());
    program.open(path("small.zvm"));
    write("small.zvm", "t\n");
    program.trigger("k11");
    EXPECT_EQ(program.dialogs().shown.back(), kBadFileBox);
    if (byMenu)
      program.trigger("mnuvoltar");
    else
      EXPECT_FALSE(program.window().close());
    EXPECT_EQ(program.dialogs().shown.back(), kQuestion);
    write("small.zvm", kOneClass);
    program.trigger("k11");
    EXPECT_EQ(program.dialogs().shown.back(), savedBox(path("small.zvm")));
  }
}

}  // namespace
}  // namespace zevfit::test
