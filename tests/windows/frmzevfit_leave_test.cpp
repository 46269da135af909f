// Leaving the data structure window by its two buttons and by closing it.
#include "tests/support/structure_window.h"
#include "windows/boundary.h"

namespace zevfit {
namespace {

class FrmzevfitLeave : public testing::Test, protected StructureWindow {
 protected:
  FrmzevfitLeave() {
    loadAndShow();
    calls();
    host.remark = [this] { return window.isVisible() ? "" : " (hidden)"; };
  }

  const Boxes badFile{"warning: Invalid Input Data File Format or empty File!"};
};

TEST_F(FrmzevfitLeave, BackShowsTheOpenDialogOnceMoreForNothing) {
  const std::string before = session.inputfile;
  dialogs.files = {"folder/other.zvm"};
  press("Command1");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(calls(), (Texts{"enableMain (hidden)", "focusMain (hidden)"}));
  EXPECT_EQ(shown(), (Boxes{"open: Input Data File (*.ZVM)|*.ZVM"}));
  EXPECT_EQ(session.inputfile, before);
  EXPECT_TRUE(session.loaded);
}

TEST_F(FrmzevfitLeave, BackGoesOnWithTheMainWindowWhenTheDialogFails) {
  dialogs.meanwhile = [] { throw Fault("no dialog"); };
  press("Command1");
  EXPECT_EQ(calls(), (Texts{"enableMain (hidden)", "focusMain (hidden)"}));
  EXPECT_EQ(shown().size(), 1U);
}

TEST_F(FrmzevfitLeave, ContinueFillsTheListsAndStartsTheFit) {
  session.dragging = true;
  session.selvar = session.seldir = 2;
  session.testprimary = session.testsecondary = session.testcross = 2;
  session.testmain = session.testminor1 = session.testminor2 = 1;
  press("Command2");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(calls(), (Texts{"enableMain", "fillDirections [0;0] [90;0]", "selectDirection 0",
                            "fillVariables [zinc] [ lead] [copper]", "selectVariable 0",
                            "enableFitControls", "startFit (hidden)"}));
  EXPECT_FALSE(session.dragging);
  EXPECT_EQ(session.selvar, 1);
  EXPECT_EQ(session.seldir, 1);
  for (const int position : {session.testprimary, session.testsecondary, session.testcross,
                             session.testmain, session.testminor1, session.testminor2})
    EXPECT_EQ(position, 0);
}

TEST_F(FrmzevfitLeave, ContinueWithoutDirectionsChoosesNone) {
  session.ndir = 0;
  press("Command2");
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(calls(), (Texts{"enableMain", "fillDirections", "fillVariables [zinc] [ lead] [copper]",
                            "selectVariable 0", "enableFitControls", "startFit (hidden)"}));
}

TEST_F(FrmzevfitLeave, ContinueOffersDerivedVariablesToo) {
  clickCell("grid1", 1, 1);
  clickCell("grid1", 2, 1);
  create("sum");
  press("Command2");
  EXPECT_EQ(calls().at(3), "fillVariables [zinc] [ lead] [copper] [sum]");
}

TEST_F(FrmzevfitLeave, WithModelsTheFirstVariableWithStructure1InDirection1IsChosen) {
  session.hasmodel = true;
  session.use1({1, 2}) = 1;
  session.use1({2, 1}) = 1;
  session.use1({3, 1}) = 1;
  session.selvar = session.seldir = 3;
  press("Command2");
  const Texts asked = calls();
  ASSERT_EQ(asked.size(), 8U);
  EXPECT_EQ(asked[5], "selectVariable 1");
  EXPECT_EQ(session.curvar, 2);
  EXPECT_EQ(session.curdir, 1);
  EXPECT_EQ(session.selvar, 3);
}

TEST_F(FrmzevfitLeave, WithModelsButNoStructure1TheFirstEntryStays) {
  session.hasmodel = true;
  press("Command2");
  const Texts asked = calls();
  ASSERT_EQ(asked.size(), 7U);
  EXPECT_EQ(asked.back(), "startFit (hidden)");
}

TEST_F(FrmzevfitLeave, AFailureFromTheChoiceOnIsABadFile) {
  for (const char* call : {"selectVariable 0", "enableFitControls"}) {
    host.failing = call;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    press("Command2");
    EXPECT_EQ(shown(), badFile) << call;
    EXPECT_EQ(calls().back(), call);
    EXPECT_TRUE(window.isVisible()) << call;
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << call;
  }
}

TEST_F(FrmzevfitLeave, ATextInPlaceOfAFlagIsABadFile) {
  session.hasmodel = true;
  session.use1({1, 1}) = Cell::ofText("yes");
  press("Command2");
  EXPECT_EQ(shown(), badFile);
  EXPECT_EQ(calls().back(), "selectVariable 0");
}

TEST_F(FrmzevfitLeave, AFailureBeforeTheChoiceEndsTheProgram) {
  host.failing = "selectDirection 0";
  EXPECT_EQ(runToEnd([&] { press("Command2"); }), kFatalExitCode);
  EXPECT_EQ(shown(), (Boxes{"fatal: The list can't do this"}));
}

TEST_F(FrmzevfitLeave, MoreThanTheTablesHaveIsABadFileThatStartsNothing) {
  for (std::int64_t* count : {&session.nvar, &session.ndir}) {
    const std::int64_t before = std::exchange(*count, 4'000'000'000);
    press("Command2");
    EXPECT_EQ(shown(), badFile);
    EXPECT_EQ(calls(), Texts{});
    EXPECT_TRUE(window.isVisible());
    dialogs.shown.clear();
    *count = before;
  }
}

TEST_F(FrmzevfitLeave, ClosingHidesAndEnablesTheMainWindow) {
  EXPECT_FALSE(window.close());
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(calls(), Texts{"enableMain"});
  EXPECT_EQ(shown(), Boxes{});
}

TEST_F(FrmzevfitLeave, EscapeCloses) {
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(calls(), Texts{"enableMain"});
}

TEST_F(FrmzevfitLeave, EnterPressesTheButtonInFocusAndNoOther) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(find<QLineEdit>("Text2"), key);
    EXPECT_TRUE(window.isVisible()) << key;
  }
  EXPECT_EQ(shown(), Boxes{});
  window.activateWindow();
  find<QPushButton>("adicionar")->setFocus();
  QTest::keyClick(find<QPushButton>("adicionar"), Qt::Key_Return);
  EXPECT_EQ(shown(), (Boxes{"warning:  Please select variables to add. "}));
}

TEST_F(FrmzevfitLeave, IsModalInItsNormalSizeUntilHidden) {
  window.hide();
  for (const Qt::WindowState state : {Qt::WindowMinimized, Qt::WindowMaximized}) {
    window.setWindowState(state);
    bool modal = false;
    QTimer::singleShot(0, &window, [&] {
      modal = window.isModal() && window.isVisible();
      EXPECT_FALSE(window.isMinimized());
      EXPECT_FALSE(window.isMaximized());
      press("Command2");
    });
    window.showModal();
    EXPECT_TRUE(modal);
    EXPECT_FALSE(window.isVisible());
  }
}

TEST_F(FrmzevfitLeave, ComesBackAsItWasLeft) {
  list("Combovar")->setCurrentIndex(2);
  find<QLineEdit>("Text2")->setText("half");
  window.close();
  QTimer::singleShot(0, &window, [&] { window.reject(); });
  window.showModal();
  EXPECT_EQ(list("Combovar")->currentIndex(), 2);
  EXPECT_EQ(find<QLineEdit>("Text2")->text(), "half");
}

}  // namespace
}  // namespace zevfit
