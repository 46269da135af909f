// Testing, leaving and coming back in the dialog of the test of coregionalization.
#include <QPushButton>

#include "tests/support/test_dialog.h"
#include "windows/boundary.h"

namespace zevfit::test {
namespace {

TEST_F(TestDialog, OpeningTwiceShowsTheSameWithoutAPressOfTest) {
  openFile();
  chooseSample();
  openDialog();
  const Lines first = shownTree();
  EXPECT_EQ(first, kPassed);
  press("Command2");
  openDialog();
  EXPECT_EQ(shownTree(), first);
  EXPECT_EQ(onShow(), (Positions{1, 0, 2, 1, 2, 0}));
  EXPECT_EQ(list("combovarp").count(), 3);
}

TEST_F(TestDialog, TestStoresAllButThePrimaryAndTheSecondaryVariable) {
  openFile();
  openDialog();
  choose({1, 0, 2, 1, 2, 0});
  EXPECT_EQ(kept(), Positions(6, 0)) << "a choice alone stores nothing";
  press("Command1");
  EXPECT_EQ(kept(), (Positions{0, 0, 2, 1, 2, 0}));
  EXPECT_EQ(shownTree(), kPassed) << "tested with what is on show";
  press("Command2");
  EXPECT_EQ(kept(), (Positions{1, 0, 2, 1, 2, 0}));
}

TEST_F(TestDialog, TheTreeShowsTheLastRunAndIsExpandedAfterEach) {
  openFile();
  openDialog();
  choose({1, 0, 2, 1, 2, 0});
  const Lines before = shownTree();
  EXPECT_EQ(before[1], " Main Direction:(0;0), 1");
  setLine(session(), Line::first, primary, mainDirection, {1, "E", 4, 100});
  EXPECT_EQ(shownTree(), before) << "until the next run";
  press("Command1");
  EXPECT_EQ(shownTree(),
            (Lines{"Test Results, 4", " Main Direction:(90;0), 3", "  Different models, 2",
                   " Minor Direction 1:(45;0), 3", "  Different models, 2",
                   " Minor Direction 2:(0;0), 3", "  Different models, 2"}));
  EXPECT_EQ(tree().topLevelItemCount(), 1);
}

TEST_F(TestDialog, OneDirectionThreeTimesIsAllowed) {
  openFile();
  openDialog();
  choose({1, 0, 2, 1, 1, 1});
  press("Command1");
  EXPECT_EQ(shownTree(), (Lines{"Test Results, 4", " Main Direction:(90;0), 1",
                                " Minor Direction 1:(90;0), 1", " Minor Direction 2:(90;0), 1"}));
}

TEST_F(TestDialog, CollapsedNodesExpandWhenTheDialogIsActivatedAgain) {
  openFile();
  chooseSample();
  openDialog();
  tree().collapseAll();
  EXPECT_EQ(shownTree().size(), 1U);
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(&dialog(), &activation);
  EXPECT_EQ(shownTree(), kPassed);
}

/// The ways to leave; all do the same.
TEST_F(TestDialog, ExitTheCloseBoxAndEscapeStoreAllAndGoBack) {
  openFile();
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"Exit", [&] { press("Command2"); }},
      {"close box", [&] { EXPECT_TRUE(dialog().close()); }},
      {"Escape", [&] { QTest::keyClick(&dialog(), Qt::Key_Escape); }}};
  for (const auto& [name, leave] : ways) {
    session().testcross = session().testprimary = session().testsecondary = 0;
    session().testmain = session().testminor1 = session().testminor2 = 0;
    openDialog();
    choose({2, 1, 1, 2, 0, 1});
    leave();
    EXPECT_EQ(kept(), (Positions{2, 1, 1, 2, 0, 1})) << name;
    EXPECT_FALSE(dialog().isVisible()) << name;
    EXPECT_TRUE(program_.window().isEnabled()) << name;
    EXPECT_TRUE(program_.control("Command5").isEnabled()) << name;
    EXPECT_EQ(program_.dialogs().shown.size(), 1U) << name << ": the file dialog alone";
  }
}

TEST_F(TestDialog, EnterPressesTest) {
  openFile();
  openDialog();
  choose({1, 0, 2, 1, 2, 0});
  QTest::keyClick(&list("combovarp"), Qt::Key_Return);
  EXPECT_EQ(shownTree(), kPassed);
}

TEST_F(TestDialog, TheFocusGoesBackToTheButtonWithoutADrawing) {
  openFile();
  program_.control("Command2").setFocus();
  openDialog();
  session().plotvar = 9;
  press("Command2");
  ASSERT_NE(program_.window().focusWidget(), nullptr);
  EXPECT_EQ(program_.window().focusWidget()->objectName(), "Command2");
  EXPECT_EQ(session().plotvar, 9) << "a drawing sets it";
}

TEST_F(TestDialog, TheMainWindowCannotBeClosedMeanwhile) {
  openFile();
  openDialog();
  const std::size_t boxes = program_.dialogs().shown.size();
  EXPECT_FALSE(program_.window().close());
  EXPECT_EQ(program_.dialogs().shown.size(), boxes);
  press("Command2");
  EXPECT_FALSE(program_.window().close());
  EXPECT_EQ(program_.dialogs().shown.size(), boxes + 1) << "the question of the end";
}

TEST_F(TestDialog, ChoicesAreResetWhenAFileIsAccepted) {
  openFile();
  chooseSample();
  openDialog();
  press("Command2");
  openFile();
  EXPECT_EQ(kept(), Positions(6, 0));
}

TEST_F(TestDialog, ShowsVariablesThatWereAddedMeanwhile) {
  openFile();
  openDialog();
  press("Command2");
  session().nvar = 4;
  session().varname(4) =
      "Gr\xF6\xDF"
      "e";
  openDialog();
  for (const char* name : kVariableLists) {
    ASSERT_EQ(list(name).count(), 4) << name;
    EXPECT_EQ(list(name).itemText(3), QString::fromLatin1("Gr\xF6\xDF"
                                                          "e"));
  }
}

TEST_F(TestDialog, APositionOfAFormerFileBecomesTheFirst) {
  openFile();
  chooseSample();
  openDialog();
  press("Command2");
  // A file with less of both that is opened but not accepted.
  session().nvar = 2;
  session().ndir = 2;
  openDialog();
  EXPECT_EQ(onShow(), (Positions{1, 0, 0, 1, 0, 0}));
  EXPECT_EQ(kept(), onShow());
  EXPECT_TRUE(dialog().isVisible());
}

TEST_F(TestDialog, TheButtonIsEnabledWithoutAFileWhichEndsTheProgram) {
  QWidget& panel = program_.control("Picture1");
  EXPECT_TRUE(program_.control("Command2").isEnabledTo(&panel));
  panel.setEnabled(true);
  EXPECT_EQ(runToEnd([&] { openDialog(); }), kFatalExitCode);
  EXPECT_EQ(program_.dialogs().shown, Lines{"fatal: Invalid list position"});
  EXPECT_FALSE(dialog().isVisible());
  EXPECT_TRUE(program_.window().isEnabled());
}

TEST_F(TestDialog, AFileWithNoneOrTooManyOfThemIsWarnedOf) {
  openFile();
  for (std::int64_t* count : {&session().ndir, &session().nvar})
    for (const std::int64_t claim : {0, -1, 42, 2'000'000'000}) {
      const std::int64_t before = std::exchange(*count, claim);
      program_.dialogs().shown.clear();
      openDialog();
      EXPECT_EQ(program_.dialogs().shown, Lines{kBadFileBox}) << claim;
      EXPECT_TRUE(program_.window().isEnabled()) << claim;
      *count = before;
    }
}

TEST_F(TestDialog, ATextInAModelIsWarnedOfAndLeavesTheTree) {
  openFile();
  chooseSample();
  openDialog();
  const int shown = tree().topLevelItemCount();
  const Pair pair = pairOf(primary, mainDirection);
  line(session(), pair, Line::first).use(Cell::ofText("yes"));
  press("Command1");
  EXPECT_EQ(program_.dialogs().shown.back(),
            "warning: Illegal value for flag of Structure 1 in Direction (" +
                session().dirname(pair.direction) + ") of " + session().varname(pair.variable) +
                ": yes!");
  EXPECT_EQ(tree().topLevelItemCount(), shown);
  EXPECT_TRUE(dialog().isVisible());
}

TEST_F(TestDialog, OpensWithAWarningOfATextInAModel) {
  openFile();
  session().use0({1, 1}) = Cell::ofText("yes");
  openDialog();
  EXPECT_EQ(program_.dialogs().shown.back(),
            "warning: Illegal value for flag of Nugget Effect in Direction (" +
                session().dirname(1) + ") of " + session().varname(1) + ": yes!");
  EXPECT_EQ(tree().topLevelItemCount(), 0);
  EXPECT_TRUE(dialog().isVisible());
}

TEST_F(TestDialog, AVeryLongTextIsScrolledTo) {
  openFile();
  chooseSample();
  setLine(session(), Line::nugget, primary, mainDirection, {1, "", -1e300, 0});
  setLine(session(), Line::nugget, secondary, mainDirection, {1, "", 1e300, 0});
  openDialog();
  const int width = dialog().width();
  EXPECT_GT(tree().columnWidth(0), tree().viewport()->width());
  EXPECT_LT(width, 1000);
}

}  // namespace
}  // namespace zevfit::test
