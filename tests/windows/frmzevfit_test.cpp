#include "windows/frmzevfit.h"

#include <QWindow>

#include "tests/support/structure_window.h"

namespace zevfit {
namespace {

class FrmzevfitTest : public testing::Test, protected StructureWindow {};

struct Hint {
  const char* control;
  const char* text;
};

constexpr Hint kHints[] = {
    {"gridresults",
     "List of data of experimental variogram from the selected variable and direction"},
    {"grid1", "List of the existing variables"},
    {"Text2", "Input variable name"},
    {"adicionar", "Add newly defined variable to current variable list"},
    {"remove", "Remove selected variable from current variable list"},
    {"Command1", "Back to Open Data File Menu"},
    {"Command2", "Continue and Save these  Options"},
};

TEST_F(FrmzevfitTest, HintsStandToTheLetter) {
  for (const Hint& hint : kHints)
    EXPECT_EQ(find<QWidget>(hint.control)->toolTip().toStdString(), hint.text) << hint.control;
}

TEST_F(FrmzevfitTest, ButtonsShowAnIconAndAreNamedByTheirHint) {
  for (const char* name : {"adicionar", "remove", "Command1", "Command2"}) {
    auto* button = find<QPushButton>(name);
    EXPECT_TRUE(button->text().isEmpty()) << name;
    EXPECT_FALSE(button->icon().isNull()) << name;
    EXPECT_EQ(button->accessibleName(), button->toolTip()) << name;
  }
}

struct Captioned {
  const char* caption;
  const char* control;
};

constexpr Captioned kCaptions[] = {
    {"Number of Variables:", "Labelnumerovar"},
    {"Number of Directions:", "Labelnumerodir"},
    {"See Variable      :", "Combovar"},
    {"See Direction     :", "Combodirvalues"},
    {"Variable Selected  :", "Label5_0"},
    {"Sill                         :", "Label5_1"},
    {"Variable Name    :", "Text2"},
};

TEST_F(FrmzevfitTest, CaptionsStandBesideTheirControls) {
  for (const Captioned& row : kCaptions) {
    const QLabel* caption = nullptr;
    for (const QLabel* label : window.findChildren<QLabel*>())
      if (label->text() == row.caption) caption = label;
    ASSERT_NE(caption, nullptr) << row.caption;
    EXPECT_EQ(caption->buddy(), find<QWidget>(row.control)) << row.caption;
  }
}

TEST_F(FrmzevfitTest, FramesReadToTheLetter) {
  Texts titles;
  for (const QGroupBox* frame : window.findChildren<QGroupBox*>())
    titles.push_back(frame->title().toStdString());
  std::sort(titles.begin(), titles.end());
  EXPECT_EQ(titles, (Texts{"Create Variable", "Data File ", "Data File Structure",
                           "Remove Variable", "Select  Variable/Direction"}));
  EXPECT_EQ(find<QGroupBox>("gridcabeca")->title(), "Data File ");
}

TEST_F(FrmzevfitTest, IsEmptyAndHiddenAtStart) {
  EXPECT_EQ(window.objectName(), "frmzevfit");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(label("Labelnumerovar"), "");
  EXPECT_EQ(label("Labelnumerodir"), "");
  EXPECT_EQ(grid("gridresults")->columnCount(), 4);
  EXPECT_EQ(grid("grid1")->columnCount(), 2);
}

TEST_F(FrmzevfitTest, TakesUpAFileWithoutShowingItself) {
  load();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(calls(), Texts{"clearVariables"});
  EXPECT_EQ(label("Labelnumerovar"), "3");
  EXPECT_EQ(label("Labelnumerodir"), "2");
  EXPECT_EQ(entries("Combovar"), (Texts{"zinc", " lead", "copper"}));
  EXPECT_EQ(entries("Combodirvalues"), (Texts{"Direction  1  0;0", "Direction  2  90;0"}));
  EXPECT_EQ(find<QGroupBox>("gridcabeca")->title(), "Data Structure of File :  sample.zvm");
  EXPECT_EQ(window.windowTitle(), "Filename (*.ZVM): folder/sample.zvm");
  EXPECT_TRUE(session.loaded);
  EXPECT_EQ(session.inputfile, "folder/sample.zvm");
}

TEST_F(FrmzevfitTest, StartsWithTheFirstVariableAndDirection) {
  session.datavar = 3;
  load();
  EXPECT_EQ(session.datavar, 1);
  EXPECT_EQ(list("Combovar")->currentIndex(), 0);
  EXPECT_EQ(list("Combodirvalues")->currentIndex(), 0);
  EXPECT_EQ(label("Label5_0"), "zinc");
  EXPECT_EQ(label("Label5_1"), "1");
  EXPECT_EQ(grid("gridresults")->rowCount(), 3);
  EXPECT_EQ(row("gridresults", 0),
            (Texts{" Class Dist. ", "     h   ", "  Gamma(h) ", " N (Points) "}));
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "1110", "111", "11100"}));
  EXPECT_EQ(row("gridresults", 2), (Texts{"    Class  2", "1120", "112", "11200"}));
}

TEST_F(FrmzevfitTest, ListsVariablesNotTicked) {
  session.addflag(2) = true;
  load();
  EXPECT_EQ(grid("grid1")->rowCount(), 4);
  EXPECT_EQ(row("grid1", 0), (Texts{"Variable ", " Add "}));
  EXPECT_EQ(row("grid1", 2), (Texts{" lead", ""}));
  EXPECT_EQ(pictures(), (Texts{"not ticked", "not ticked", "not ticked"}));
  EXPECT_FALSE(session.addflag(2));
}

TEST_F(FrmzevfitTest, BothColumnsOfTheVariablesAreHalfTheGrid) {
  loadAndShow();
  EXPECT_EQ(grid("grid1")->columnWidth(0), grid("grid1")->width() / 2);
  EXPECT_EQ(grid("grid1")->columnWidth(1), grid("grid1")->width() / 2);
}

TEST_F(FrmzevfitTest, NamesTheUnnamed) {
  session.varname(2) = "";
  load();
  EXPECT_EQ(entries("Combovar"), (Texts{"zinc", "No Name2", "copper"}));
  EXPECT_EQ(row("grid1", 2)[0], "No Name2");
  EXPECT_EQ(session.varname(2), "No Name2");
}

TEST_F(FrmzevfitTest, ShowsBytesAsLatin1AndAmpersandsAsTheyAre) {
  session.varname(1) = "cobre \xE1 & Cu";
  load("folder/a&b.zvm");
  EXPECT_EQ(list("Combovar")->itemText(0), QString::fromLatin1("cobre \xE1 & Cu"));
  EXPECT_EQ(find<QLabel>("Label5_0")->text(), QString::fromLatin1("cobre \xE1 & Cu"));
  // A title of a frame takes a single ampersand for the mark of a key.
  EXPECT_EQ(find<QGroupBox>("gridcabeca")->title(), "Data Structure of File :  a&&b.zvm");
}

TEST_F(FrmzevfitTest, LongNamesDoNotWidenTheWindow) {
  loadAndShow();
  const int before = window.minimumSizeHint().width();
  session.varname(1) = session.dirname(1) = std::string(500, 'w');
  load("folder/" + std::string(200, 'w') + ".zvm");
  QApplication::processEvents();
  EXPECT_EQ(window.minimumSizeHint().width(), before);
}

TEST_F(FrmzevfitTest, NumbersAppearInGeneralForm) {
  session.hlag.set({1, 1}, 1, 0.00001);
  session.gam.set({1, 1}, 1, 1.0 / 3.0);
  session.npairs.set({1, 1}, 1, 1.0F / 3.0F);
  session.hlag.set({1, 1}, 2, Cell::ofText("far"));
  session.variance(1) = -2.5e20;
  load();
  // 15 digits for a double, 7 for a float.
  EXPECT_EQ(row("gridresults", 1),
            (Texts{"    Class  1", "1E-05", "0.333333333333333", "0.3333333"}));
  EXPECT_EQ(row("gridresults", 2)[1], "far");
  EXPECT_EQ(label("Label5_1"), "-2.5E+20");
}

TEST_F(FrmzevfitTest, AVariableIsShownWithItsFirstDirection) {
  loadAndShow();
  list("Combodirvalues")->setCurrentIndex(1);
  list("Combovar")->setFocus();
  QTest::keyClick(list("Combovar"), Qt::Key_Down);
  EXPECT_EQ(session.datavar, 2);
  EXPECT_EQ(label("Label5_0"), " lead");
  EXPECT_EQ(label("Label5_1"), "2");
  EXPECT_EQ(list("Combodirvalues")->currentIndex(), 0);
  EXPECT_EQ(row("gridresults", 2), (Texts{"    Class  2", "2120", "212", "21200"}));
}

TEST_F(FrmzevfitTest, AVariableChosenByTheProgramIsShownToo) {
  load();
  list("Combovar")->setCurrentIndex(2);
  EXPECT_EQ(session.datavar, 3);
  EXPECT_EQ(label("Label5_0"), "copper");
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "3110", "311", "31100"}));
}

TEST_F(FrmzevfitTest, TheVariableOnShowChosenAgainShowsItsFirstDirection) {
  load();
  list("Combovar")->setCurrentIndex(1);
  list("Combodirvalues")->setCurrentIndex(1);
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "2210", "221", "22100"}));
  QApplication::processEvents();
  Q_EMIT list("Combovar")->activated(1);
  EXPECT_EQ(list("Combodirvalues")->currentIndex(), 0);
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "2110", "211", "21100"}));
}

TEST_F(FrmzevfitTest, ADirectionFillsTheTable) {
  loadAndShow();
  list("Combovar")->setCurrentIndex(1);
  QTest::keyClick(list("Combodirvalues"), Qt::Key_Down);
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "2210", "221", "22100"}));
  EXPECT_EQ(row("gridresults", 2), (Texts{"    Class  2", "2220", "222", "22200"}));
}

TEST_F(FrmzevfitTest, ADirectionWithoutAVariableIsRefused) {
  session.nvar = 0;
  load();
  const Boxes refused{"warning: You Must Select a Variable First !"};
  EXPECT_EQ(shown(), refused);
  EXPECT_EQ(entries("Combovar"), Texts{});
  EXPECT_EQ(label("Label5_0"), "");
  list("Combodirvalues")->setCurrentIndex(1);
  EXPECT_EQ(shown(), refused);
  // Once for a choice by the user, though the toolkit tells of it twice.
  dialogs.shown.clear();
  QTest::keyClick(list("Combodirvalues"), Qt::Key_Up);
  EXPECT_EQ(shown(), refused);
  // The load shows the classes of variable 1 and direction 1 whatever was chosen.
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "1110", "111", "11100"}));
}

TEST_F(FrmzevfitTest, ALaterFileTakesThePlaceOfTheFirst) {
  loadAndShow();
  clickCell("grid1", 1, 1);
  list("Combovar")->setCurrentIndex(2);
  session.nvar = 2;
  session.ndir = 1;
  session.nclass = 1;
  session.varname(1) = "gold";
  load("other.zvm");
  EXPECT_EQ(entries("Combovar"), (Texts{"gold", " lead"}));
  EXPECT_EQ(entries("Combodirvalues"), Texts{"Direction  1  0;0"});
  EXPECT_EQ(label("Labelnumerovar"), "2");
  EXPECT_EQ(label("Label5_0"), "gold");
  EXPECT_EQ(grid("gridresults")->rowCount(), 2);
  EXPECT_EQ(pictures(), (Texts{"not ticked", "not ticked"}));
  EXPECT_EQ(row("grid1", 1), (Texts{"gold", ""}));
  EXPECT_EQ(session.nvarfile, 2);
}

TEST_F(FrmzevfitTest, EntriesEndWithTheTables) {
  session.nvar = 50;
  session.ndir = 30;
  load();
  EXPECT_EQ(label("Labelnumerovar"), "50");
  EXPECT_EQ(label("Labelnumerodir"), "30");
  EXPECT_EQ(list("Combovar")->count(), 41);
  EXPECT_EQ(list("Combodirvalues")->count(), 21);
  EXPECT_EQ(grid("grid1")->rowCount(), 51);
  EXPECT_EQ(picture(50), "not ticked");
  EXPECT_EQ(row("grid1", 41)[0], "No Name41");
  EXPECT_EQ(row("grid1", 42)[0], "(none)");
}

TEST_F(FrmzevfitTest, CountsThatNoGridCanHaveLeaveTheRows) {
  load();
  session.nvar = session.ndir = session.nclass = 2'000'000'000;
  load();
  EXPECT_EQ(label("Labelnumerovar"), "2000000000");
  EXPECT_EQ(label("Labelnumerodir"), "2000000000");
  EXPECT_EQ(grid("gridresults")->rowCount(), 3);
  EXPECT_EQ(grid("grid1")->rowCount(), 4);
  EXPECT_EQ(list("Combovar")->count(), 41);
  session.nvar = session.ndir = session.nclass = -5;
  load();
  EXPECT_EQ(label("Labelnumerovar"), "-5");
  EXPECT_EQ(grid("gridresults")->rowCount(), 3);
  EXPECT_EQ(grid("grid1")->rowCount(), 4);
  EXPECT_EQ(list("Combovar")->count(), 0);
}

TEST_F(FrmzevfitTest, AsManyClassesAsAFileReallyHasAreShown) {
  session.nclass = 1'001;
  session.hlag.create(session.nclass);
  session.gam.create(session.nclass);
  session.npairs.create(session.nclass);
  load();
  EXPECT_EQ(grid("gridresults")->rowCount(), 1);
  session.hlag.set({2, 1}, session.nclass, 7);
  load();
  EXPECT_EQ(grid("gridresults")->rowCount(), 1'002);
  EXPECT_EQ(row("gridresults", 1'001), (Texts{"    Class  1001", "0", "0", "0"}));
}

TEST_F(FrmzevfitTest, AFileWithoutDirectionsShowsItsNames) {
  session.ndir = 0;
  load();
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(label("Label5_0"), "zinc");
  EXPECT_EQ(label("Label5_1"), "1");
  EXPECT_EQ(list("Combodirvalues")->count(), 0);
  EXPECT_EQ(row("gridresults", 1), (Texts{"    Class  1", "1110", "111", "11100"}));
}

TEST_F(FrmzevfitTest, OfClassesAndVariablesThatAFileOnlyClaimsAThousandAreShown) {
  session.nvar = session.nclass = 1'001;
  load();
  EXPECT_EQ(grid("gridresults")->rowCount(), 1);
  EXPECT_EQ(grid("grid1")->rowCount(), 1);
  session.nvar = session.nclass = 1'000;
  load();
  EXPECT_EQ(grid("gridresults")->rowCount(), 1'001);
  EXPECT_EQ(grid("grid1")->rowCount(), 1'001);
}

TEST_F(FrmzevfitTest, AVariableOfAFileWithoutDirectionsCanBeChosen) {
  session.ndir = 0;
  load();
  list("Combovar")->setCurrentIndex(2);
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(session.datavar, 3);
  EXPECT_EQ(label("Label5_0"), "copper");
  EXPECT_EQ(label("Label5_1"), "3");
}

TEST_F(FrmzevfitTest, TheTitleShowsAnyFileName) {
  load("folder/a[*]b.zvm");
  window.show();
  EXPECT_EQ(window.windowHandle()->title(), "Filename (*.ZVM): folder/a[*]b.zvm");
}

TEST_F(FrmzevfitTest, TheKeyboardReachesEveryControlInOrder) {
  loadAndShow();
  window.activateWindow();
  list("Combovar")->setFocus();
  Texts order;
  for (int i = 0; i < 9; ++i) {
    order.push_back(window.focusWidget()->objectName().toStdString());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order, (Texts{"Combovar", "Combodirvalues", "gridresults", "grid1", "Text2",
                          "adicionar", "remove", "Command1", "Command2"}));
}

}  // namespace
}  // namespace zevfit
