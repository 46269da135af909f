// Ticking, creating and removing variables in the data structure window.
#include "tests/support/structure_window.h"
#include "windows/boundary.h"

namespace zevfit {
namespace {

class FrmzevfitVariables : public testing::Test, protected StructureWindow {
 protected:
  FrmzevfitVariables() { loadAndShow(); }

  void tickRows(std::initializer_list<int> rows) {
    for (const int at : rows) clickCell("grid1", at, 1);
  }
};

// The cell that was clicked is the selected one, on a ground like the tick's own colour.
TEST_F(FrmzevfitVariables, ATickKeepsItsColoursInTheSelectedCell) {
  QTableWidget& variables = *grid("grid1");
  const auto picture = [&variables] {
    QRect place(0, 0, 16, 16);
    place.moveCenter(variables.visualItemRect(variables.item(2, 1)).center());
    return variables.viewport()->grab(place).toImage();
  };
  const QImage unticked = picture();
  tickRows({2});
  ASSERT_TRUE(variables.item(2, 1)->isSelected());
  const QImage selected = picture();
  EXPECT_NE(selected, unticked);
  variables.setCurrentCell(1, 0);
  EXPECT_EQ(selected, picture());
}

TEST_F(FrmzevfitVariables, AClickTicksARowAndTheNextOneUnticksIt) {
  tickRows({2});
  EXPECT_EQ(pictures(), (Texts{"not ticked", "ticked", "not ticked"}));
  EXPECT_TRUE(session.addflag(2));
  tickRows({2});
  EXPECT_EQ(pictures(), (Texts{"not ticked", "not ticked", "not ticked"}));
  EXPECT_FALSE(session.addflag(2));
}

TEST_F(FrmzevfitVariables, AClickOnANameTicksItsRow) {
  clickCell("grid1", 3, 0);
  EXPECT_EQ(picture(3), "ticked");
  EXPECT_TRUE(session.addflag(3));
  EXPECT_TRUE(grid("grid1")->item(3, 0)->icon().isNull());
}

TEST_F(FrmzevfitVariables, AClickOnTheHeadingDoesNothing) {
  clickCell("grid1", 0, 1);
  clickCell("grid1", 0, 0);
  EXPECT_EQ(pictures(), (Texts{"not ticked", "not ticked", "not ticked"}));
  for (int v = 0; v <= 3; ++v) EXPECT_FALSE(session.addflag(v)) << v;
  EXPECT_TRUE(grid("grid1")->item(0, 1)->icon().isNull());
}

TEST_F(FrmzevfitVariables, TheBlankKeyTicksTheCurrentRow) {
  grid("grid1")->setCurrentCell(1, 1);
  QTest::keyClick(grid("grid1"), Qt::Key_Down);
  QTest::keyClick(grid("grid1"), Qt::Key_Space);
  EXPECT_EQ(pictures(), (Texts{"not ticked", "ticked", "not ticked"}));
  EXPECT_TRUE(session.addflag(2));
}

struct RefusedCreation {
  const char* what;
  std::initializer_list<int> ticked;
  const char* name;
  const char* warning;
  bool focus;
};

const RefusedCreation kRefusedCreations[] = {
    {"one ticked", {2}, "sum", " Cannot Add same variable. ", true},
    {"one ticked and no name", {2}, "", " Cannot Add same variable. ", true},
    {"none ticked", {}, "sum", " Please select variables to add. ", true},
    {"no name", {1, 2}, "", "Please choose a name for this new variable!", false},
    {"blanks alone", {1, 2}, "   ", "Please choose a name for this new variable!", false},
    {"11 characters", {1, 2}, "12345678901", "Name too long, choose another one!", true},
    {"a comma",
     {1, 2},
     "a,b",
     "Name has a character that the file cannot hold, choose another one!",
     true},
    {"a double quote",
     {1, 2},
     "a\"b",
     "Name has a character that the file cannot hold, choose another one!",
     true},
    {"a name of the file",
     {1, 2},
     "zinc",
     " Name  (zinc)  already exists. Please choose another one.",
     true},
    {"a name that stands behind a blank",
     {1, 2},
     "  lead",
     " Name  (lead)  already exists. Please choose another one.",
     true},
};

TEST_F(FrmzevfitVariables, RefusesToCreateWithAWarningAndTakesTheFocusAfterSome) {
  QWidget other;
  other.show();
  dialogs.meanwhile = [&] {
    other.activateWindow();
    QApplication::processEvents();
  };
  for (const RefusedCreation& refused : kRefusedCreations) {
    tickRows(refused.ticked);
    window.activateWindow();
    QApplication::processEvents();
    create(refused.name);
    QApplication::processEvents();
    EXPECT_EQ(shown(), (Boxes{"warning: " + std::string(refused.warning)})) << refused.what;
    EXPECT_EQ(QApplication::activeWindow() == &window, refused.focus) << refused.what;
    EXPECT_EQ(find<QLineEdit>("Text2")->text(), refused.name) << refused.what;
    EXPECT_EQ(session.nvar, 3) << refused.what;
    EXPECT_EQ(grid("grid1")->rowCount(), 4) << refused.what;
    tickRows(refused.ticked);
  }
}

TEST_F(FrmzevfitVariables, RefusesCharactersThatNoFileHas) {
  tickRows({1, 2});
  for (const QString& name : {QString(QChar(0x03B3)), QString("a\tb"), QString(QChar(0x20AC))}) {
    find<QLineEdit>("Text2")->setText(name);
    press("adicionar");
    EXPECT_EQ(shown(), (Boxes{"warning: Name has a character that the file cannot hold, choose "
                              "another one!"}));
  }
  find<QLineEdit>("Text2")->setText(QString(QChar(0xE3)));
  press("adicionar");
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(session.varname(4), "\xE3");
}

TEST_F(FrmzevfitVariables, AFileOfOneVariableCanHaveNoOther) {
  session.nvar = 1;
  load();
  create("sum");
  tickRows({1});
  create("sum");
  const std::string refusal{"warning:  Cannot Add same variable. "};
  EXPECT_EQ(shown(), (Boxes{refusal, refusal}));
  EXPECT_EQ(session.nvar, 1);
}

TEST_F(FrmzevfitVariables, CreatesTheSumOfTheTickedOnes) {
  tickRows({2, 3});
  create("  Lead sum");
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(session.nvar, 4);
  EXPECT_EQ(session.varname(4), "Lead sum");
  EXPECT_EQ(entries("Combovar"), (Texts{"zinc", " lead", "copper", "Lead sum"}));
  EXPECT_EQ(list("Combovar")->currentIndex(), 0);
  EXPECT_EQ(grid("grid1")->rowCount(), 5);
  EXPECT_EQ(row("grid1", 4), (Texts{"Lead sum", ""}));
  EXPECT_EQ(pictures(), (Texts{"not ticked", "ticked", "ticked", ""}));
  EXPECT_EQ(find<QLineEdit>("Text2")->text(), "");
  EXPECT_EQ(label("Labelnumerovar"), "3");
}

TEST_F(FrmzevfitVariables, ShowsTheSum) {
  tickRows({2, 3});
  create("sum");
  list("Combovar")->setCurrentIndex(3);
  EXPECT_EQ(label("Label5_0"), "sum");
  EXPECT_EQ(label("Label5_1"), "5");  // 2 + 3
  list("Combodirvalues")->setCurrentIndex(1);
  // Distance of variable 3, 222 + 322, pairs of variable 1.
  EXPECT_EQ(row("gridresults", 2), (Texts{"    Class  2", "3220", "544", "12200"}));
}

TEST_F(FrmzevfitVariables, TenCharactersAreANameLeadingBlanksNotCounted) {
  tickRows({1, 2});
  create("   1234567890");
  EXPECT_EQ(session.varname(4), "1234567890");
  EXPECT_EQ(row("grid1", 4)[0], "1234567890");
  EXPECT_EQ(shown(), Boxes{});
}

TEST_F(FrmzevfitVariables, ACreatedVariableCanBeTicked) {
  tickRows({1, 2});
  create("sum");
  tickRows({4});
  EXPECT_EQ(picture(4), "ticked");
  EXPECT_TRUE(session.addflag(4));
  tickRows({4});
  EXPECT_EQ(picture(4), "not ticked");
  EXPECT_FALSE(session.addflag(4));
}

TEST_F(FrmzevfitVariables, TheLastSlotIsUsedAndAFurtherVariableIsRefused) {
  tickRows({1, 2});
  for (int v = 4; v <= 41; ++v) create(("new " + std::to_string(v)).c_str());
  EXPECT_EQ(session.nvar, 41);
  EXPECT_EQ(entries("Combovar").back(), "new 41");
  EXPECT_EQ(row("grid1", 41)[0], "new 41");
  EXPECT_EQ(shown(), Boxes{});
  create("new 42");
  EXPECT_EQ(shown(), Boxes{"warning: Cannot add more variables!"});
  EXPECT_EQ(session.nvar, 41);
  EXPECT_EQ(entries("Combovar").size(), 41U);
  EXPECT_EQ(grid("grid1")->rowCount(), 42);
  EXPECT_EQ(find<QLineEdit>("Text2")->text(), "new 42");
}

TEST_F(FrmzevfitVariables, ARowBeyondTheTablesTakesNoTick) {
  session.nvar = 50;
  load();
  grid("grid1")->setCurrentCell(42, 1);
  QTest::keyClick(grid("grid1"), Qt::Key_Space);
  EXPECT_EQ(picture(42), "not ticked");
  create("sum");
  EXPECT_EQ(shown(), Boxes{"warning:  Please select variables to add. "});
}

TEST_F(FrmzevfitVariables, KeepsTheVariablesOfTheFile) {
  QWidget other;
  other.show();
  dialogs.meanwhile = [&] {
    other.activateWindow();
    QApplication::processEvents();
  };
  for (int position = 0; position < 3; ++position) {
    list("Combovar")->setCurrentIndex(position);
    press("remove");
    QApplication::processEvents();
    EXPECT_EQ(shown(), (Boxes{"warning: Cannot remove this variable!"})) << position;
    EXPECT_EQ(QApplication::activeWindow(), &window) << position;
  }
  EXPECT_EQ(session.nvar, 3);
  EXPECT_EQ(list("Combovar")->count(), 3);
}

TEST_F(FrmzevfitVariables, RemovalNeedsAVariableOnShow) {
  find<QLabel>("Label5_0")->clear();
  QWidget other;
  other.show();
  dialogs.meanwhile = [&] {
    other.activateWindow();
    QApplication::processEvents();
  };
  press("remove");
  QApplication::processEvents();
  EXPECT_EQ(shown(), (Boxes{"warning: Select variable!"}));
  EXPECT_EQ(QApplication::activeWindow(), &window);
}

TEST_F(FrmzevfitVariables, RemovingTheLastVariableTakesItFromTheLists) {
  tickRows({1, 2});
  create("sum");
  list("Combovar")->setCurrentIndex(3);
  press("remove");
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(session.nvar, 3);
  EXPECT_EQ(entries("Combovar"), (Texts{"zinc", " lead", "copper"}));
  EXPECT_EQ(grid("grid1")->rowCount(), 4);
  EXPECT_EQ(list("Combovar")->currentIndex(), 0);
  EXPECT_EQ(session.datavar, 1);
  EXPECT_EQ(label("Label5_0"), "zinc");
  EXPECT_EQ(label("Label5_1"), "1");
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "1110", "111", "11100"}));
}

TEST_F(FrmzevfitVariables, RemovalMovesNamesDownButNoPictures) {
  tickRows({1, 2});
  create("first");
  create("second");
  create("third");
  tickRows({5});
  EXPECT_EQ(pictures(), (Texts{"ticked", "ticked", "not ticked", "", "ticked", ""}));
  list("Combovar")->setCurrentIndex(3);
  press("remove");
  EXPECT_EQ(entries("Combovar"), (Texts{"zinc", " lead", "copper", "second", "third"}));
  EXPECT_EQ(row("grid1", 4)[0], "second");
  EXPECT_EQ(row("grid1", 5)[0], "third");
  // The last row goes with its picture, the others stay, while the ticks themselves move: what was
  // ticked in row 5 is now variable 4.
  EXPECT_EQ(pictures(), (Texts{"ticked", "ticked", "not ticked", "", "ticked"}));
  EXPECT_TRUE(session.addflag(4));
  EXPECT_FALSE(session.addflag(5));
}

TEST_F(FrmzevfitVariables, RemovalClearsTheNameAlsoWhenTheCountIsThatOfTheFileAgain) {
  tickRows({1, 2});
  create("first");
  create("second");
  session.nvar = 3;  // As a save leaves it.
  list("Combovar")->setCurrentIndex(3);
  press("remove");
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(grid("grid1")->rowCount(), 5);
  EXPECT_EQ(row("grid1", 4)[0], "");
}

TEST_F(FrmzevfitVariables, ARowThatNeverShowedAnythingCanBeTicked) {
  tickRows({1, 2});
  session.nvar = 5;  // As a save over a file of 5 variables leaves it.
  create("sum");
  EXPECT_EQ(grid("grid1")->rowCount(), 7);
  EXPECT_EQ(row("grid1", 4), (Texts{"(none)", "(none)"}));
  grid("grid1")->setCurrentCell(4, 1);
  QTest::keyClick(grid("grid1"), Qt::Key_Space);
  EXPECT_EQ(picture(4), "ticked");
  EXPECT_TRUE(session.addflag(4));
}

TEST_F(FrmzevfitVariables, AVariableThatMovesDownTakesOverTheAxisOfTheRemovedOne) {
  session.ymax({1, 1}) = 10;
  session.ymax({2, 1}) = 20;
  session.ymax({3, 1}) = 30;
  tickRows({1, 2});
  create("low");  // The highest of 10 and 20.
  tickRows({1, 3});
  create("high");  // The highest of 20 and 30.
  EXPECT_EQ(session.ymax({5, 1}), 30);
  list("Combovar")->setCurrentIndex(3);
  press("remove");
  EXPECT_EQ(session.varname(4), "high");
  EXPECT_EQ(session.ymax({4, 1}), 20);
}

}  // namespace
}  // namespace zevfit
