// Which variables a save writes when sums come and go, and when there are more than the tables
// have.
#include <gtest/gtest.h>

#include "files/variogram_reader.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/structure_steps.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

using Texts = std::vector<std::string>;

class SavedVariables : public testing::Test {
 protected:
  SavedVariables() { open(sampleFile("zevra")); }

  void open(const std::string& bytes) {
    putFile(file_, bytes);
    program_.open(file_);
  }
  void save() { program_.trigger("k11"); }
  /// The names in the file as the next load reads them.
  Texts names() {
    Session session;
    EXPECT_TRUE(readVariogramFile(file_, session));
    Texts all;
    for (std::int64_t v = 1; v <= session.nvar; ++v) all.push_back(session.varname(v));
    return all;
  }
  /// The entries of a list of the panel.
  Texts listed() {
    const auto& list = program_.control<QComboBox>("Combo2");
    Texts all;
    for (int i = 0; i < list.count(); ++i) all.push_back(list.itemText(i).toStdString());
    return all;
  }
  Texts shown() { return std::exchange(program_.dialogs().shown, {}); }

  ScratchFolder folder_;
  std::filesystem::path file_ = folder_ / "meuse.zvm";
  Program program_{folder_ / "."};
};

TEST_F(SavedVariables, ASumStaysBehindASaveAndAnotherLookAtTheFile) {
  viewFile(program_, [](QWidget& modal) { addSum(modal, "sum"); });
  save();
  EXPECT_EQ(program_.session().nvar, 2) << "the old file's count, until the window opens";
  viewFile(program_, [&](QWidget&) { EXPECT_EQ(program_.session().nvar, 3); });
  save();
  EXPECT_EQ(names(), (Texts{"zinc", "lead", "sum"}));
}

TEST_F(SavedVariables, RemovingASavedSumLeavesTheVariablesOfTheFile) {
  viewFile(program_, [](QWidget& modal) { addSum(modal, "sum"); });
  save();
  viewFile(program_, [](QWidget& modal) { removeSum(modal, 3); });
  EXPECT_EQ(program_.session().nvar, 2);
  EXPECT_EQ(listed(), (Texts{"zinc", "lead"}));
  save();
  EXPECT_EQ(names(), (Texts{"zinc", "lead"}));
}

TEST_F(SavedVariables, ASecondSumStaysBesideASavedOne) {
  viewFile(program_, [](QWidget& modal) { addSum(modal, "sum"); });
  save();
  viewFile(program_, [](QWidget& modal) { addSum(modal, "second"); });
  save();
  EXPECT_EQ(names(), (Texts{"zinc", "lead", "sum", "second"}));
  Session session;
  ASSERT_TRUE(readVariogramFile(file_, session));
  EXPECT_EQ(session.variance(3).number(), 12) << "5.5 and 6.5";
  EXPECT_EQ(session.variance(4).number(), 12);
}

TEST_F(SavedVariables, ARemovedSumIsGoneWithoutContinueToo) {
  viewFile(program_, [](QWidget& modal) { addSum(modal, "a"); });
  for (const bool isSaved : {false, true}) {
    if (isSaved) {
      viewFile(program_, [](QWidget& modal) { addSum(modal, "a"); });
      save();
    }
    leaveFile(program_, [](QWidget& modal) { removeSum(modal, 3); });
    EXPECT_EQ(listed(), (Texts{"zinc", "lead"}));
    save();
    EXPECT_EQ(names(), (Texts{"zinc", "lead"}));
  }
}

TEST_F(SavedVariables, OfTwoSumsTheOtherIsWrittenOnceWithoutContinueToo) {
  viewFile(program_, [](QWidget& modal) {
    addSum(modal, "a");
    addSum(modal, "b");
  });
  leaveFile(program_, [](QWidget& modal) { removeSum(modal, 3); });
  EXPECT_EQ(listed(), (Texts{"zinc", "lead", "b"}));
  save();
  EXPECT_EQ(names(), (Texts{"zinc", "lead", "b"}));
}

TEST_F(SavedVariables, ASumThatWasNeverAcceptedIsNoneThatTheListLoses) {
  viewFile(program_, [](QWidget& modal) { addSum(modal, "a"); });
  leaveFile(program_, [](QWidget& modal) {
    addSum(modal, "b");
    removeSum(modal, 4);
  });
  EXPECT_EQ(listed(), (Texts{"zinc", "lead", "a"}));
  save();
  EXPECT_EQ(names(), (Texts{"zinc", "lead", "a"}));
}

TEST_F(SavedVariables, TheListOfThePanelStaysOnItsVariableOrGoesToTheFirst) {
  auto& list = program_.control<QComboBox>("Combo2");
  viewFile(program_, [](QWidget& modal) {
    addSum(modal, "a");
    addSum(modal, "b");
    addSum(modal, "c");
  });
  list.setCurrentIndex(3);
  leaveFile(program_, [](QWidget& modal) { removeSum(modal, 5); });
  EXPECT_EQ(list.currentText(), "b");
  EXPECT_EQ(program_.session().curvar, 4);
  leaveFile(program_, [](QWidget& modal) { removeSum(modal, 3); });
  EXPECT_EQ(list.currentText(), "b");
  EXPECT_EQ(program_.session().curvar, 3);
  leaveFile(program_, [](QWidget& modal) { removeSum(modal, 3); });
  EXPECT_EQ(list.currentText(), "zinc");
  EXPECT_EQ(program_.session().curvar, 1);
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_EQ(program_.session().plotted(), (Pair{1, 1}));
}

// Variables beyond the tables take nothing of a file, so that this one reads to a good end.
TEST_F(SavedVariables, AFileThatClaimsFiftyStaysRefusedAndAsItIs) {
  std::string bytes = "t\nzevra\n50\n";
  for (int v = 1; v <= 41; ++v) bytes += "v" + std::to_string(v) + "\n";
  bytes += "1\n1\n0;0\n" + times("1\n10 1 9\n", 41) + "1\n";
  const std::string refused = "warning: Invalid Input Data File Format or empty File!";
  const auto tryContinue = [](QWidget& modal) {
    Program::find<QAbstractButton>(modal, "Command2").click();
    EXPECT_TRUE(modal.isVisible());
  };
  putFile(file_, bytes);
  program_.dialogs().files = {file_};
  Program::inModal([&] { program_.trigger("k1"); },
                   [&](QWidget& modal) {
                     tryContinue(modal);
                     modal.close();
                   });
  EXPECT_EQ(shown().back(), refused);
  for (int look = 0; look < 2; ++look) {
    leaveFile(program_, [&](QWidget& modal) {
      tryContinue(modal);
      addSum(modal, "sum");
    });
    EXPECT_EQ(shown(), (Texts{refused, "warning: Cannot add more variables!"}));
    program_.control<QAbstractButton>("Command2").click();
    EXPECT_EQ(shown(), Texts{refused}) << "the test of coregionalization";
    save();
    EXPECT_EQ(shown(), Texts{"plain: Please select input data file (*.ZVM) first!"});
    EXPECT_EQ(contentOf(file_), bytes);
  }
}

// 40 variables of the file and a sum fill the tables.
TEST_F(SavedVariables, BeyondTheTablesASumIsRefused) {
  std::string bytes = "t\nzevra\n40\n";
  for (int v = 1; v <= 40; ++v) bytes += "v" + std::to_string(v) + "\n";
  open(bytes + "1\n1\n0;0\n" + times("1\n10 1 9\n", 40));
  shown();
  viewFile(program_, [](QWidget& modal) {
    addSum(modal, "sum");
    addSum(modal, "more");
  });
  EXPECT_EQ(shown(), Texts{"warning: Cannot add more variables!"});
  EXPECT_EQ(program_.session().nvar, 41);
  EXPECT_EQ(listed().back(), "sum");
}

}  // namespace
}  // namespace zevfit::test
