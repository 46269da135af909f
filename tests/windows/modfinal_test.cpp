// The results window: what it shows, and its events under the mouse and the keyboard.
#include "windows/modfinal.h"

#include <QPushButton>
#include <QTimer>

#include "tests/support/results_window.h"
#include "windows/results_grid.h"

namespace zevfit::test {
namespace {

class Modfinal : public ResultsBench {};

const Texts kEmpty{"", "", "", "", ""};
const Texts kFirst{"0", "0", "100", "-", "-"};
const Texts kSecond{"90", "0", "40", "-", "-"};
const Texts kThird{"0", "90", "25", "-", "-"};

TEST_F(Modfinal, HasItsCaptionsAndHints) {
  results([](OpenResults& open) {
    EXPECT_EQ(open.window().objectName(), "modfinal");
    EXPECT_EQ(open.window().windowTitle(), "Results From  Interactive Fit");
    EXPECT_TRUE(open.window().isModal());
    QStringList labels;
    for (const QLabel* label : open.window().findChildren<QLabel*>()) labels << label->text();
    for (const char* text : {"Results From Interactive Fit", "Select Variable :", "Variance :",
                             "Define and Save Kriging Parameters to ouput file *.ZVP", "Azimuth",
                             "Dip", "a1", "a2", "a3", "Direction"})
      EXPECT_TRUE(labels.contains(text)) << text;
    struct Row {
      const char* name;
      const char* caption;
      const char* hint;
    };
    const char* quickly =
        "Click here and then click on the grid above to transfer the parameters quickly!";
    const Row rows[] = {
        {"Option3d4", "Main Direction", quickly},
        {"Option3d5", "Minor Direction 1", quickly},
        {"Option3d6", "Minor Direction 2", quickly},
        {"Command1", "", "Back to the interactive Fit"},
        {"Command2", "Save As", "Save kriging parameters to your output file *.ZVP"}};
    for (const Row& row : rows) {
      EXPECT_EQ(open.find(row.name).text(), row.caption) << row.name;
      EXPECT_EQ(open.find(row.name).toolTip(), row.hint) << row.name;
    }
    EXPECT_EQ(open.grid().toolTip(),
              "Results from interactive fit for all directions of selected variable ");
  });
}

TEST_F(Modfinal, TheTableHasTwoHeadingRows) {
  results([](OpenResults& open) {
    ASSERT_EQ(open.grid().columnCount(), 13);
    ASSERT_EQ(open.grid().rowCount(), 5);
    EXPECT_EQ(open.row(0), (Texts{"", "Structure 0", "Structure  1", "", "", "Structure  2", "", "",
                                  "Structure  3", "", "", "     Sill", " RANGE"}));
    EXPECT_EQ(open.row(1),
              (Texts{"Directions", "     C0", "Model", "     C 1", "     a 1", "Model", "     C 2",
                     "     a 2", "Model", "     C 3", "     a 3", " CTOTAL", "     A"}));
    // 400 twips are 26 2/3 pixels, 300 are 20.
    for (int row = 0; row < 5; ++row) EXPECT_EQ(open.grid().rowHeight(row), 27) << row;
    for (const int width : {1200, 900}) {
      open.grid().parentWidget()->resize(width, 640);
      QApplication::processEvents();
      for (int column = 0; column < 13; ++column)
        EXPECT_EQ(open.grid().columnWidth(column), (open.grid().width() - 20) / 13) << column;
    }
  });
}

TEST_F(Modfinal, ShowsTheFirstVariableAndThenTheOneChosen) {
  session().variance(2) = Cell::ofText("none");
  session().use0({2, 2}) = 1;
  session().c0({2, 2}) = 3;
  results([&](OpenResults& open) {
    auto& list = open.find<QComboBox>("Combovarver");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.currentText(), "zinc");
    EXPECT_EQ(open.find<QLabel>("Label29").text(), "1.5");
    EXPECT_EQ(open.row(2),
              (Texts{"0;0", "0.1", "S", "0.5", "100", "-", "-", "-", "-", "-", "-", "0.6", "100"}));
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.currentText(), "lead");
    EXPECT_EQ(open.find<QLabel>("Label29").text(), "none");
    EXPECT_EQ(open.row(2),
              (Texts{"0;0", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-"}));
    // A total that was never computed, and no range yet.
    EXPECT_EQ(open.row(3),
              (Texts{"90;0", "3", "-", "-", "-", "-", "-", "-", "-", "-", "-", "0", ""}));
  });
  results([](OpenResults& open) {
    EXPECT_EQ(open.find<QComboBox>("Combovarver").currentText(), "zinc");
    EXPECT_EQ(open.cell(2, 1), "0.1");
  });
}

TEST_F(Modfinal, ARowGoesWhereTheChosenOptionSays) {
  results([&](OpenResults& open) {
    open.clickCell(2, 1);
    EXPECT_EQ(session().targetdir, std::nullopt);
    EXPECT_EQ(open.fields("main"), kEmpty);
    open.pick("Option3d4", 1);
    EXPECT_EQ(session().targetdir, Axis::main);
    EXPECT_EQ(open.grid().currentRow(), 2);
    EXPECT_EQ(open.grid().currentColumn(), 0);
    for (const char* axis : {"main", "minor1", "minor2"}) EXPECT_EQ(open.fields(axis), kFirst);
    open.pick("Option3d5", 2);
    EXPECT_EQ(session().targetdir, Axis::minor1);
    open.pick("Option3d6", 3);
    EXPECT_EQ(session().targetdir, Axis::minor2);
    EXPECT_EQ(open.fields("main"), kFirst);
    EXPECT_EQ(open.fields("minor1"), kSecond);
    EXPECT_EQ(open.fields("minor2"), kThird);
    EXPECT_FALSE(open.find("Option3d4").isChecked());
    EXPECT_FALSE(open.find("Option3d5").isChecked());
    EXPECT_TRUE(open.find("Option3d6").isChecked());
  });
}

TEST_F(Modfinal, ClicksBesideTheFirstColumnDoNothing) {
  results([](OpenResults& open) {
    open.click("Option3d4");
    for (int row = 0; row < 5; ++row)
      for (int column = 0; column < 13; ++column)
        if (row < 2 || column != 1) open.clickCell(row, column);
    EXPECT_EQ(open.fields("main"), kEmpty);
  });
}

TEST_F(Modfinal, TheBlankKeyIsAClickOnTheCurrentCell) {
  results([](OpenResults& open) {
    open.click("Option3d5");
    open.grid().setCurrentCell(3, 0);
    QTest::keyClick(&open.grid(), Qt::Key_Space);
    EXPECT_EQ(open.fields("minor1"), kEmpty);
    QTest::keyClick(&open.grid(), Qt::Key_Right);
    QTest::keyClick(&open.grid(), Qt::Key_Space);
    EXPECT_EQ(open.fields("minor1"), kSecond);
    EXPECT_EQ(open.grid().currentColumn(), 0);
  });
}

TEST_F(Modfinal, OptionsAreChosenByTheKeyboardToo) {
  results([&](OpenResults& open) {
    open.click("Option3d4");
    QTest::keyClick(&open.find("Option3d4"), Qt::Key_Down);
    EXPECT_TRUE(open.find("Option3d5").isChecked());
    EXPECT_EQ(session().targetdir, Axis::minor1);
  });
}

TEST_F(Modfinal, FieldsAndOptionsStayButTheTargetDoesNot) {
  results([](OpenResults& open) { open.pick("Option3d4", 1); });
  results([&](OpenResults& open) {
    EXPECT_EQ(session().targetdir, std::nullopt);
    EXPECT_EQ(open.fields("main"), kFirst);
    EXPECT_TRUE(open.find("Option3d4").isChecked());
    open.clickCell(3, 1);
    EXPECT_EQ(open.fields("main"), kFirst);
    open.pick("Option3d4", 2);
    EXPECT_EQ(open.fields("main"), kSecond);
  });
}

TEST_F(Modfinal, RangesAreCheckedAtEachKey) {
  struct Row {
    const char* axis;
    const char* name;
  };
  results([&](OpenResults& open) {
    for (const Row& row : {Row{"main", "Main"}, Row{"minor1", "minor1"}, Row{"minor2", "minor2"}}) {
      for (int entry = 2; entry < 5; ++entry) {
        shown().clear();
        open.type(row.axis, entry, "-1");
        EXPECT_EQ(shown(), Texts{"warning: Illegal value for range 'a" + std::to_string(entry - 1) +
                                 "' of " + row.name + " Direction!"});
        EXPECT_EQ(open.field(row.axis, entry).text(), "0");
        open.type(row.axis, entry, "abc");
        EXPECT_EQ(open.field(row.axis, entry).text(), "abc");
      }
      shown().clear();
      open.type(row.axis, 0, "-45");
      open.type(row.axis, 1, "-30");
      EXPECT_EQ(shown(), Texts{});
    }
  });
}

TEST_F(Modfinal, AGridClickRunsTheCheckToo) {
  session().a1({1, 2}) = -40;
  results([&](OpenResults& open) {
    open.pick("Option3d6", 2);
    EXPECT_EQ(shown(), Texts{"warning: Illegal value for range 'a1' of minor2 Direction!"});
    EXPECT_EQ(open.fields("minor2"), (Texts{"90", "0", "0", "-", "-"}));
  });
}

TEST_F(Modfinal, RowsTellWhichAxisTheyAre) {
  results([](OpenResults& open) {
    EXPECT_EQ(open.told(1), "");
    open.pick("Option3d4", 1);
    EXPECT_EQ(open.told(1), "0;0, Main Direction, Minor Direction 1, Minor Direction 2");
    open.pick("Option3d5", 2);
    open.pick("Option3d6", 3);
    EXPECT_EQ(open.told(1), "0;0, Main Direction");
    EXPECT_EQ(open.told(2), "90;0, Minor Direction 1");
    EXPECT_EQ(open.told(3), "0;90, Minor Direction 2");
    const auto& grid = dynamic_cast<ResultsGrid&>(open.grid());
    EXPECT_EQ(grid.marks(2), std::vector<Axis>{Axis::main});
    EXPECT_EQ(grid.marks(4), std::vector<Axis>{Axis::minor2});
    // Another direction, typed.
    open.type("minor1", 0, "45");
    EXPECT_EQ(open.told(2), "");
    QTest::keyClick(&open.find<QComboBox>("Combovarver"), Qt::Key_Down);
    EXPECT_EQ(open.told(1), "0;0, Main Direction");
  });
  results([](OpenResults& open) { EXPECT_EQ(open.told(1), "0;0, Main Direction"); });
}

TEST_F(Modfinal, MarksAreSeen) {
  results([](OpenResults& open) {
    const auto colours = [&open] {
      const QImage picture = open.grid().viewport()->grab().toImage();
      std::vector<bool> seen(3);
      for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
          for (const Axis axis : kAxes)
            if (picture.pixelColor(x, y) == axisColour(axis))
              seen[static_cast<std::size_t>(axis)] = true;
        }
      }
      return seen;
    };
    EXPECT_EQ(colours(), (std::vector<bool>{false, false, false}));
    open.pick("Option3d5", 2);
    EXPECT_EQ(colours(), (std::vector<bool>{false, true, false}));
    open.pick("Option3d6", 3);
    EXPECT_EQ(colours(), (std::vector<bool>{false, true, true}));
    open.pick("Option3d4", 1);
    EXPECT_EQ(colours(), (std::vector<bool>{true, true, true}));
  });
}

TEST_F(Modfinal, ANameWithoutASeparatorIsWarnedOfAndChangesNothing) {
  session().dirname(2) = "omni";
  const Texts warned{"warning: Direction (omni) has no azimuth and dip, as in 0;0."};
  results([&](OpenResults& open) {
    open.clickCell(3, 1);
    EXPECT_EQ(shown(), warned) << "whatever the target";
    open.pick("Option3d4", 1);
    for (const char* option : {"Option3d4", "Option3d5", "Option3d6"}) {
      shown().clear();
      open.pick(option, 2);
      EXPECT_EQ(shown(), warned) << option;
      for (const char* axis : {"main", "minor1", "minor2"}) EXPECT_EQ(open.fields(axis), kFirst);
    }
    shown().clear();
    open.pick("Option3d5", 3);
    EXPECT_EQ(open.fields("minor1"), kThird);
    EXPECT_EQ(shown(), Texts{});
  });
}

// The program moves the selection to the last row by itself; only axes give rows another ground.
TEST_F(Modfinal, NoRowLooksChosenByItself) {
  results([&](OpenResults& open) {
    const QImage table = open.grid().viewport()->grab().toImage();
    const auto ground = [&](int row) {
      return table.pixelColor(open.grid().visualItemRect(open.grid().item(row, 0)).topLeft() +
                              QPoint(2, 2));
    };
    EXPECT_EQ(open.grid().currentRow(), 4);
    EXPECT_EQ(ground(4), ground(2)) << "both on the ground of their rows";
    open.pick("Option3d4", 3);
    EXPECT_EQ(open.grid().currentRow(), 4);
    EXPECT_NE(open.grid().viewport()->grab().toImage(), table) << "the tint of the axis";
  });
}

TEST_F(Modfinal, ItIsHiddenByItsButtonTheKeyAndTheCloseBox) {
  const std::function<void(OpenResults&)> ways[] = {
      [](OpenResults& open) { open.click("Command1"); },
      [](OpenResults& open) { QTest::keyClick(&open.window(), Qt::Key_Escape); },
      [](OpenResults& open) { open.window().close(); },
  };
  for (const auto& way : ways) {
    results([&](OpenResults& open) {
      way(open);
      EXPECT_FALSE(open.window().isVisible());
    });
  }
  EXPECT_EQ(program_.window().findChildren<QWidget*>("modfinal").size(), 1);
}

TEST_F(Modfinal, EnterPressesTheButtonWithTheFocusAlone) {
  results([&](OpenResults& open) {
    open.field("main", 0).setFocus();
    QTest::keyClick(&open.field("main", 0), Qt::Key_Return);
    EXPECT_TRUE(open.window().isVisible());
    EXPECT_EQ(shown(), Texts{});
    open.find("Command1").setFocus();
    QTest::keyClick(&open.find("Command1"), Qt::Key_Return);
    EXPECT_FALSE(open.window().isVisible());
  });
}

TEST_F(Modfinal, WithoutListedVariablesTheTableStaysWithItsDashes) {
  program_.control<QComboBox>("Combo2").clear();
  results([&](OpenResults& open) {
    EXPECT_EQ(open.find<QComboBox>("Combovarver").count(), 0);
    ASSERT_EQ(open.grid().rowCount(), 5);
    for (int row = 2; row < 5; ++row) {
      EXPECT_EQ(open.cell(row, 0), session().dirname(row - 1));
      for (int column = 1; column < 13; ++column) EXPECT_EQ(open.cell(row, column), "-");
    }
    open.pick("Option3d4", 2);
    EXPECT_EQ(open.fields("main"), (Texts{"90", "0", "-", "-", "-"}));
  });
}

TEST_F(Modfinal, AFlagThatIsATextIsWarnedOfAndTheTableStays) {
  session().use1({2, 2}) = Cell::ofText("yes");
  const Texts warned{"warning: Illegal value for flag of Structure 1 in Direction (90;0): yes!"};
  results([&](OpenResults& open) {
    const Texts before = open.row(2);
    auto& list = open.find<QComboBox>("Combovarver");
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(shown(), warned);
    EXPECT_EQ(list.currentText(), "zinc");
    EXPECT_EQ(open.find<QLabel>("Label29").text(), "1.5");
    EXPECT_EQ(open.row(2), before);
  });
  // Of the first variable: none is on show yet, and others can be chosen.
  session().use1({1, 2}) = Cell::ofText("yes");
  session().use1({2, 2}) = 0;
  shown().clear();
  results([&](OpenResults& open) {
    EXPECT_EQ(shown(), warned);
    auto& list = open.find<QComboBox>("Combovarver");
    EXPECT_EQ(list.currentIndex(), -1);
    EXPECT_EQ(open.cell(2, 1), "-");
    shown().clear();
    open.click("Command2");
    EXPECT_EQ(shown(), warned) << "there is nothing to save";
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(list.currentText(), "lead");
    EXPECT_EQ(open.find<QLabel>("Label29").text(), "2");
    EXPECT_EQ(shown(), warned);
  });
}

TEST_F(Modfinal, AFailureEndsWithoutTheWindow) {
  EXPECT_TRUE(opens());
  session().ndir = 22;
  EXPECT_FALSE(opens());
  session().ndir = 3;
  EXPECT_TRUE(opens());
  EXPECT_EQ(shown(), Texts{});
}

TEST_F(Modfinal, MinimizingTheMainWindowHidesIt) {
  results([&](OpenResults& open) {
    program_.window().showMinimized();
    QApplication::processEvents();
    EXPECT_FALSE(open.window().isVisible());
  });
}

}  // namespace
}  // namespace zevfit::test
