// What a save, a load and the end of the program keep of the user's work, and what the foot of the
// window says of it.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>

#include "files/rescue.h"
#include "files/variogram_reader.h"
#include "platform/qt_dialogs.h"
#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/structure_steps.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

constexpr const char* kTwoFiles =
    "The last file could not be read to its end: the tables hold parts of two files. Open a good "
    "file.";

/// The notes at the foot of the window; nothing where there are none on show.
std::string footOf(Program& program) {
  const auto& notes = program.control<QLabel>("LabelFoot");
  return notes.isVisible() ? notes.text().toStdString() : "";
}

class NothingLost : public testing::Test {
 protected:
  NothingLost() {
    fs::create_directory(folder_ / "program");
    putFile(file_, sampleFile("zevra"));
    putFile(other_, sampleFile("zevra"));
  }

  /// What the program has kept, as the next one reads it.
  Session kept() {
    Session session;
    EXPECT_TRUE(readVariogramFile(program_ / kRescueName, session));
    return session;
  }
  bool keptAny() { return fs::exists(program_ / kRescueName); }
  std::string keptNote(const fs::path& file) {
    return "The models of " + file.string() + " that were not saved are kept in " +
           (program_ / "rescue.zvm").string();
  }
  std::string lostNote(const fs::path& file) {
    return "The models of " + file.string() + " that were not saved could not be kept in " +
           (program_ / "rescue.zvm").string();
  }
  static void end(Program& program) {
    program.dialogs().answers = {Answer::no};
    program.dialogs().shown.clear();
    EXPECT_TRUE(program.window().close());
    EXPECT_EQ(program.dialogs().shown,
              Texts{"question: Save configuration data file to zevFIT.INI ?"});
  }
  static void load(Program& program, const fs::path& file) {
    program.dialogs().files = {file};
    program.trigger("k1");
  }

  ScratchFolder folder_;
  fs::path program_ = folder_ / "program";
  fs::path file_ = folder_ / "meuse.zvm", other_ = folder_ / "other.zvm";
};

TEST_F(NothingLost, TheFirstSaveAfterALoadKeepsTheFileBesideIt) {
  Program program(program_);
  program.open(file_);
  const fs::path before = folder_ / "meuse.zvm~";
  setNugget(program.session(), {1, 1}, 0.5);
  program.trigger("k11");
  EXPECT_EQ(contentOf(before), sampleFile("zevra"));
  const std::string saved = contentOf(file_);
  setNugget(program.session(), {1, 1}, 0.25);
  program.trigger("k11");
  EXPECT_EQ(contentOf(before), sampleFile("zevra"));
  EXPECT_NE(contentOf(file_), saved);
  putFile(file_, saved);
  program.open(file_);
  program.trigger("k11");
  EXPECT_EQ(contentOf(before), saved);
  EXPECT_EQ(footOf(program), keptNote(file_)) << "the file lost the last nugget meanwhile";
}

TEST_F(NothingLost, AFileThatCannotBeKeptIsSavedAndToldAtTheFoot) {
  fs::create_directory(folder_ / "meuse.zvm~");
  Program program(program_);
  program.open(file_);
  program.trigger("k11");
  EXPECT_EQ(program.dialogs().shown.back(), "plain: Models saved to file:" + file_.string());
  EXPECT_EQ(footOf(program), "The file as it was before this save could not be kept as " +
                                 (folder_ / "meuse.zvm~").string());
  program.open(other_);
  EXPECT_EQ(footOf(program), "");
}

TEST_F(NothingLost, TheEndKeepsModelsThatWereNotSavedAndTheNextStartSaysSoOnce) {
  {
    Program program(program_);
    program.open(file_);
    setNugget(program.session(), {2, 1}, 0.25);
    end(program);
  }
  EXPECT_EQ(kept().c0({2, 1}).number(), 0.25);
  EXPECT_EQ(contentOf(file_), sampleFile("zevra"));
  {
    Program program(program_);
    EXPECT_EQ(footOf(program), keptNote(file_));
    program.open(other_);
    EXPECT_EQ(footOf(program), "");
  }
  Program program(program_);
  EXPECT_EQ(footOf(program), "");
}

TEST_F(NothingLost, TheEndKeepsNothingOfWhatStandsInTheFile) {
  for (const char* tag : {"zevra", "zevRA1", "mine"}) {
    putFile(file_, sampleFile(tag));
    Program program(program_);
    program.open(file_);
    program.control<QAbstractButton>("Command5").click();
    end(program);
    EXPECT_FALSE(keptAny()) << tag;
  }
  for (const char* tag : {"zevra", "zevRA1", "mine"}) {
    putFile(file_, sampleFile(tag));
    Program program(program_);
    program.open(file_);
    setNugget(program.session(), {2, 1}, 0.25);
    program.session().c2({1, 1}) = 7;  // switched off
    viewFile(program, [](QWidget& modal) { addSum(modal, "sum"); });
    program.trigger("k11");
    end(program);
    EXPECT_FALSE(keptAny()) << tag;
  }
  Program program(program_);
  end(program);
  EXPECT_FALSE(keptAny()) << "without a file";
  EXPECT_EQ(footOf(program), "");
}

TEST_F(NothingLost, TheEndKeepsASumThatWasNotSaved) {
  Program program(program_);
  program.open(file_);
  // Not accepted: neither the panel's list nor a save knows of it.
  leaveFile(program, [](QWidget& modal) { addSum(modal, "sum"); });
  end(program);
  EXPECT_EQ(kept().nvar, 3);
  EXPECT_EQ(kept().varname(3), "sum");
}

TEST_F(NothingLost, ALoadKeepsWhatItReplacesAndTheFootSaysSo) {
  {
    Program program(program_);
    program.open(file_);
    setNugget(program.session(), {2, 1}, 0.25);
    program.open(other_);
    EXPECT_EQ(footOf(program), keptNote(file_));
    EXPECT_EQ(kept().c0({2, 1}).number(), 0.25);
    EXPECT_EQ(program.dialogs().shown.size(), 2U) << "the two questions for a file";
    program.open(file_);
    EXPECT_EQ(footOf(program), "");
    end(program);
  }
  Program program(program_);
  EXPECT_EQ(footOf(program), "") << "told already";
}

TEST_F(NothingLost, WhatCannotBeKeptBeforeALoadIsToldAtTheFoot) {
  fs::create_directory(program_ / kRescueName);
  const fs::path bad = folder_ / "bad.zvm";
  putFile(bad, "bad\nzevra\n1\nx\n1\n1\n45;0\n1\n10 0.5");
  Program program(program_);
  program.open(file_);
  setNugget(program.session(), {2, 1}, 0.25);
  load(program, bad);
  EXPECT_EQ(footOf(program), kTwoFiles + ("\n" + lostNote(file_)));
  program.open(file_);
  EXPECT_EQ(footOf(program), "");
  setNugget(program.session(), {2, 1}, 0.25);
  program.open(other_);
  EXPECT_EQ(footOf(program), lostNote(file_));
  program.open(file_);
  EXPECT_EQ(footOf(program), "");
}

TEST_F(NothingLost, WhatCannotBeKeptAtTheEndIsToldInABox) {
  fs::create_directory(program_ / kRescueName);
  Program program(program_);
  program.open(file_);
  setNugget(program.session(), {2, 1}, 0.25);
  program.dialogs().answers = {Answer::no};
  program.dialogs().shown.clear();
  EXPECT_TRUE(program.window().close());
  EXPECT_EQ(program.dialogs().shown,
            (Texts{"question: Save configuration data file to zevFIT.INI ?",
                   "plain: " + lostNote(file_)}));
}

// Each line of it settles on the steps of the sliders once it is shown.
TEST_F(NothingLost, TheEndKeepsNothingOfAFileThatWasOnlyLookedAt) {
  {
    Program program(program_);
    program.open(file_);
    for (const Pair pair : {Pair{1, 1}, Pair{2, 2}}) {
      setNugget(program.session(), pair, 0.1234567);
      setStructure(program.session(), pair, Line::first, "S", 1.2345678, 7.12345678);
      setStructure(program.session(), pair, Line::second, "E", 0.7654321, 12.87654321);
    }
    program.trigger("k11");
  }
  for (const bool isChanged : {false, true}) {
    Program program(program_);
    program.open(file_);
    bool isSettled = false;
    for (const int variable : {0, 1}) {
      program.control<QComboBox>("Combo2").setCurrentIndex(variable);
      for (const int direction : {0, 1}) {
        program.control<QComboBox>("Combodirvar").setCurrentIndex(direction);
        for (const char* line : {"est1", "est2", "est3", "est2"}) {
          program.control<QAbstractButton>(line).click();
          program.control<QAbstractButton>("Command5").click();
        }
      }
    }
    for (const Pair pair : {Pair{1, 1}, Pair{2, 2}})
      isSettled = isSettled || program.session().a1(pair).number() != 7.12345678;
    EXPECT_TRUE(isSettled);
    if (isChanged) program.session().c1({2, 2}) = 1.5;
    end(program);
    EXPECT_EQ(keptAny(), isChanged);
  }
}

class RaisedOnSight : public NothingLost {
 protected:
  /// Opens, draws and leaves a file whose first pair has that letter and range in structure 1;
  /// gives the range in the tables.
  double rangeBehindALook(const char* letter, const char* range) {
    putFile(file_, sampleFile("zevRA1") + kUnusedNugget + lines({" 1 ", letter, "0.5", range}) +
                       times(kUnusedStructure, 2) + times(unusedModel(), 3));
    Program program(program_);
    program.open(file_);
    program.control<QAbstractButton>("Command5").click();
    shown_ = program.dialogs().shown;
    const double seen = program.session().a1({1, 1}).number();
    end(program);
    return seen;
  }
  Texts shown_;
};

TEST_F(RaisedOnSight, ARangeOfZeroMakesNoRescue) {
  EXPECT_EQ(rangeBehindALook("S", "0"), 1e-05);
  EXPECT_FALSE(keptAny());
  EXPECT_EQ(shown_.size(), 1U) << "the question for the file";
}

TEST_F(RaisedOnSight, AnExponentThatIsResetWithAWarningMakesOne) {
  EXPECT_EQ(rangeBehindALook("P", "3"), 2);
  EXPECT_TRUE(keptAny());
  EXPECT_EQ(shown_.back(), "warning: Structure II : Power Model (0 < a < 2)");
}

TEST_F(NothingLost, ARescueThatIsOpenedAndChangedStaysBesideTheNewOne) {
  const fs::path rescue = program_ / kRescueName;
  {
    Program program(program_);
    program.open(file_);
    setNugget(program.session(), {2, 1}, 0.25);
    end(program);
  }
  const std::string opened = contentOf(rescue);
  {
    Program program(program_);
    program.open(rescue);
    setNugget(program.session(), {2, 1}, 0.5);
    end(program);
  }
  EXPECT_EQ(contentOf(program_ / "rescue-before.zvm"), opened);
  EXPECT_EQ(kept().c0({2, 1}).number(), 0.5);
  Program program(program_);
  EXPECT_EQ(footOf(program), keptNote(rescue));
}

TEST_F(NothingLost, ALoadThatFailsHalfWayIsToldUntilAGoodOne) {
  const fs::path bad = folder_ / "bad.zvm", empty = folder_ / "empty.zvm";
  putFile(bad, "bad\nzevra\n1\nx\n1\n1\n45;0\n1\n10 0.5");
  putFile(empty, "");
  Program program(program_);
  for (int time = 0; time < 2; ++time) {
    load(program, bad);
    EXPECT_EQ(footOf(program), "The file " + bad.string() +
                                   " could not be read to its end: the tables hold a part of it. "
                                   "Open a good file.");
  }
  load(program, empty);
  program.open(file_);
  EXPECT_EQ(footOf(program), "");
  load(program, empty);
  EXPECT_EQ(footOf(program), "") << "the tables are as they were";
  setNugget(program.session(), {2, 1}, 0.25);
  for (int time = 0; time < 2; ++time) {
    load(program, bad);
    EXPECT_EQ(footOf(program), kTwoFiles + ("\n" + keptNote(file_)));
    EXPECT_EQ(program.dialogs().shown.back(),
              "warning: Invalid Input Data File Format or empty File!");
  }
  program.open(other_);
  EXPECT_EQ(footOf(program), "");
  // What half a file has left is not worth keeping, nor does it push out what is.
  EXPECT_EQ(kept().c0({2, 1}).number(), 0.25);
  EXPECT_FALSE(fs::exists(program_ / "rescue-before.zvm"));
}

TEST_F(NothingLost, ASaveBehindALoadThatFailedHalfWayKeepsTheFileOnceMore) {
  const fs::path bad = folder_ / "bad.zvm";
  putFile(bad, "bad\nzevra\n1\nx\n1\n1\n45;0\n1\n10 0.5");
  Program program(program_);
  program.open(file_);
  setNugget(program.session(), {1, 1}, 0.25);
  program.trigger("k11");
  const std::string saved = contentOf(file_);
  load(program, bad);
  program.trigger("k11");
  EXPECT_NE(contentOf(file_), saved);
  EXPECT_EQ(contentOf(fs::path(file_).concat("~")), saved);
}

// The program starts on the path and ends without a question.
TEST_F(NothingLost, APathThatIsNoTextKeepsItsBytesInTheParameters) {
  const std::string path = "/data/S\xE3o \xFF.zvm";
  {
    Program program(program_);
    program.dialogs().held = path;
    program.dialogs().answers = {Answer::yes};
    EXPECT_TRUE(program.window().close());
  }
  const std::string parameters = contentOf(program_ / "zevfit.ini");
  ASSERT_TRUE(parameters.starts_with(path + "\r\n"));
  putFile(program_ / "zpam.pam", "1 2 3 4 5 6 7 8 9 1 1\r\n");
  QtDialogs dialogs;
  RecordingPrinter printer;
  const AngleTest angleTest;
  mdimod window(dialogs, printer, angleTest, program_);
  window.show();
  EXPECT_TRUE(window.close());
  QTimer::singleShot(0, [] { QApplication::exit(0); });
  QApplication::exec();
  EXPECT_EQ(contentOf(program_ / "zevfit.ini"), parameters);
}

}  // namespace
}  // namespace zevfit::test
