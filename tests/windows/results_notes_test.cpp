// The line below the table of results, and what it explains.
#include "tests/support/results_window.h"
#include "windows/results_grid.h"

namespace zevfit::test {
namespace {

const char* const kOtherTotal = "* CTOTAL is not the sum of the row's ticked sills.";

class ResultsNotes : public ResultsBench {
 protected:
  static std::string note(OpenResults& open) {
    return open.find<QLabel>("Labelnote").text().toLatin1().toStdString();
  }
  static bool isMarked(QWidget& control, QPalette::ColorRole ground) {
    return control.palette().color(ground) == otherTint(QPalette().color(ground));
  }
  static std::vector<bool> markedFields(OpenResults& open, const char* axis) {
    std::vector<bool> marks;
    for (int entry = 0; entry < 5; ++entry)
      marks.push_back(isMarked(open.field(axis, entry), QPalette::Base));
    return marks;
  }
  static void choose(OpenResults& open, int key) {
    QTest::keyClick(&open.find<QComboBox>("Combovarver"), static_cast<Qt::Key>(key));
  }
};

const std::vector<bool> kAll(5, true), kNone(5, false);

// 0.1 + 0.5 = 0.6 is what the bench keeps as totals.
TEST_F(ResultsNotes, TotalsThatAreNotTheSumAreMarked) {
  results([](OpenResults& open) { EXPECT_EQ(note(open), ""); });
  session().ctotal({1, 2}) = 0;
  results([](OpenResults& open) {
    EXPECT_EQ(note(open), kOtherTotal);
    EXPECT_EQ(open.cell(3, 11), "0") << "the table's own text";
    const auto told = [&open](int row) {
      return open.grid().item(row, 11)->data(Qt::AccessibleTextRole).toString();
    };
    EXPECT_EQ(told(2), "");
    EXPECT_EQ(told(3), "0, not the sum of the ticked sills");
    const auto ground = [&open](int row) {
      const QRect cell = open.grid().visualItemRect(open.grid().item(row, 11));
      const QImage all = open.grid().viewport()->grab().toImage();
      return all.pixelColor((cell.topLeft() + QPoint(3, 3)) * all.devicePixelRatio());
    };
    EXPECT_EQ(ground(3), otherTint(open.grid().palette().color(QPalette::Base)));
    EXPECT_NE(ground(2), ground(3));
    choose(open, Qt::Key_Down);
    EXPECT_EQ(note(open), "") << "lead has no models";
    EXPECT_EQ(told(3), "");
  });
}

TEST_F(ResultsNotes, FieldsAndTheRowOfAnotherVariableAreMarked) {
  results([](OpenResults& open) {
    open.pick("Option3d4", 1);
    EXPECT_EQ(note(open), "");
    EXPECT_EQ(markedFields(open, "main"), kNone);
    choose(open, Qt::Key_Down);
    EXPECT_EQ(note(open),
              "From zinc, not from the variable on show: Main, Minor 1, Minor 2, nugget, sills and "
              "models.");
    for (const char* axis : {"main", "minor1", "minor2"})
      EXPECT_EQ(markedFields(open, axis), kAll) << axis;
    EXPECT_TRUE(isMarked(open.find("Option3d4"), QPalette::Window));
    auto& option = open.find("Option3d4");
    const QImage seen = option.grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() - 2, 1), otherTint(QPalette().color(QPalette::Window)));
    EXPECT_EQ(open.field("main", 2).toolTip(), "From zinc");
    // A pick for Minor 1 is of lead now, and so is what is typed.
    open.pick("Option3d5", 2);
    open.type("minor2", 2, "7");
    EXPECT_EQ(markedFields(open, "minor1"), kNone);
    EXPECT_EQ(markedFields(open, "minor2"), (std::vector<bool>{true, true, false, true, true}));
    open.pick("Option3d4", 1);
    EXPECT_EQ(markedFields(open, "main"), kNone);
    EXPECT_FALSE(isMarked(open.find("Option3d4"), QPalette::Window));
    EXPECT_EQ(note(open), "From zinc, not from the variable on show: Minor 2.");
    choose(open, Qt::Key_Up);
    EXPECT_EQ(note(open),
              "From lead, not from the variable on show: Main, Minor 1, Minor 2, nugget, sills and "
              "models.");
  });
}

TEST_F(ResultsNotes, TheFramesOfWhatIsClickedAreSeenOnDarkGrounds) {
  results([](OpenResults& open) {
    QPalette dark(QColor(49, 54, 59));
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    dark.setColor(QPalette::AlternateBase, QColor(49, 54, 59));
    dark.setColor(QPalette::Text, Qt::white);
    open.grid().setPalette(dark);
    for (const int row : {2, 3}) {
      const QRect cell = open.grid().visualItemRect(open.grid().item(row, 1));
      const QImage seen = open.grid().viewport()->grab(cell).toImage();
      int lightest = 0;
      for (int x = 0; x < 8; ++x)
        lightest = std::max(lightest, qGray(seen.pixel(x, seen.height() / 2)));
      EXPECT_GT(lightest, 54 + 40) << row;
    }
  });
}

/// Pixels from the left end of a cell to the first one of its text.
int startOf(QTableWidget& grid, int row, int column) {
  const QRect cell = grid.visualItemRect(grid.item(row, column)).adjusted(1, 3, -2, -3);
  const QImage seen = grid.viewport()->grab(cell).toImage();
  const QRgb ground = seen.pixel(0, 0);
  int first = seen.width();
  for (int y = 0; y < seen.height(); ++y)
    for (int x = 0; x < first; ++x)
      if (seen.pixel(x, y) != ground) first = x;
  return first;
}

TEST_F(ResultsNotes, LongNumbersFillTheirCells) {
  setStructure(session(), {1, 1}, Line::first, "S", 0.70221534826901, 1286.50964880413);
  results([](OpenResults& open) {
    EXPECT_EQ(open.cell(2, 3), "0.70221534826901");
    const int width = open.grid().columnWidth(3);
    ASSERT_GT(open.grid().fontMetrics().horizontalAdvance("0.70221534826901"), width);
    for (const int column : {3, 4}) EXPECT_LT(startOf(open.grid(), 2, column), width / 4) << column;
  });
}

// All directions are level: there is no third one at right angles.
TEST_F(ResultsNotes, InAPlaneBothMinorAxesTakeTheSameRow) {
  const char* const plane = "In two dimensions Minor 1 and Minor 2 take the same row.";
  program_.openBytes(
      "t\nzevra\n1\nzinc\n2\n1\n0;0\n90;0\n"
      "1.5\n10 1 9\n10 1 9\n");
  for (const int direction : {1, 2}) fit(direction, 100);
  results([&](OpenResults& open) {
    EXPECT_EQ(note(open), plane);
    open.pick("Option3d4", 1);
    EXPECT_EQ(note(open), plane);
  });
  session().ctotal({1, 2}) = 0;
  results(
      [&](OpenResults& open) { EXPECT_EQ(note(open), std::string(kOtherTotal) + "  " + plane); });
}

// The same texts, picked again for another variable, are no change of a field.
TEST_F(ResultsNotes, APickOfTheSameTextsIsOfTheVariableOnShow) {
  for (int direction = 1; direction <= 3; ++direction) {
    setNugget(session(), {2, direction}, 0.1);
    setStructure(session(), {2, direction}, Line::first, "S", 0.5, 100);
    session().ctotal({2, direction}) = 0.6;
  }
  results([](OpenResults& open) {
    open.pick("Option3d4", 1);
    choose(open, Qt::Key_Down);
    open.pick("Option3d4", 1);
    EXPECT_EQ(markedFields(open, "main"), kNone);
    EXPECT_EQ(note(open), "From zinc, not from the variable on show: Minor 1, Minor 2.");
  });
}

TEST_F(ResultsNotes, FieldsOfAnotherFileAreMarked) {
  results([](OpenResults& open) { open.pick("Option3d4", 1); });
  const std::string path = (folder_ / "b.zvm").string();
  std::ofstream(path, std::ios::binary) << contentOf(folder_ / "small.zvm");
  program_.open(path);
  results([](OpenResults& open) {
    EXPECT_EQ(
        note(open),
        "From zinc of small.zvm, not from the variable on show: Main, Minor 1, Minor 2, nugget, "
        "sills and models.");
    EXPECT_EQ(markedFields(open, "minor2"), kAll);
  });
}

}  // namespace
}  // namespace zevfit::test
