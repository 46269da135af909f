#include "windows/grid.h"

#include <gtest/gtest.h>

#include <QStyledItemDelegate>
#include <QTest>

namespace zevfit {
namespace {

TEST(Grid, ColumnsShareTheWidth) {
  Grid grid({1, 2, 1});
  grid.resize(401, 100);
  grid.show();
  // A quarter, a half and a quarter of 401, rounded down.
  EXPECT_EQ(grid.columnWidth(0), 100);
  EXPECT_EQ(grid.columnWidth(1), 200);
  EXPECT_EQ(grid.columnWidth(2), 100);
}

TEST(Grid, HasNoCellsOutsideItsRows) {
  Grid grid({1});
  grid.setRowCount(2);
  grid.setText(2, 0, "lost");
  grid.setText(-1, 0, "lost");
  grid.setPicture(2, 0, QIcon(":/icons/ticked.svg"), "lost");
  grid.setText(1, 0, "kept");
  EXPECT_EQ(grid.rowCount(), 2);
  EXPECT_EQ(grid.item(1, 0)->text(), "kept");
}

TEST(Grid, CellsCannotBeEdited) {
  Grid grid({1});
  grid.setRowCount(2);
  grid.setText(1, 0, "kept");
  EXPECT_EQ(grid.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST(Grid, PutsDecimalPointsUnderEachOther) {
  Grid grid({1, 1});
  grid.setRowCount(6);
  const char* const texts[] = {"94.25", "1020.5", "7", "1E-05", "-3.5"};
  // "1020" is the longest whole part, of 4 characters, and one width stays free on the left.
  const qsizetype free[] = {1 + 2, 1, 1 + 3, 1 + 3, 1 + 2};
  for (int i = 0; i < 5; ++i) grid.setText(i + 1, 1, texts[i]);
  EXPECT_EQ(grid.indent(1, "94.25"), 0);
  grid.alignPoints(1);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(grid.indent(1, texts[i]), free[i]) << texts[i];
  EXPECT_EQ(grid.item(1, 1)->text(), "94.25");
  EXPECT_EQ(grid.indent(0, "94.25"), 0);
}

TEST(Grid, TextsTakeNoPartInTheAlignment) {
  Grid grid({1});
  grid.setRowCount(5);
  const char* const texts[] = {"12.5", "not a number at all", ".5", "1,000"};
  // "12" has 2 characters and ".5" none in front of the point.
  const qsizetype free[] = {1, 1, 1 + 2, 1};
  for (int i = 0; i < 4; ++i) grid.setText(i + 1, 0, texts[i]);
  grid.alignPoints(0);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(grid.indent(0, texts[i]), free[i]) << texts[i];
}

TEST(Grid, AVeryLongNumberPushesNoOtherOutOfSight) {
  Grid grid({1});
  grid.setRowCount(3);
  const QString lengthy(150, '1');
  grid.setText(1, 0, lengthy);
  grid.setText(2, 0, "7.5");
  grid.alignPoints(0);
  EXPECT_EQ(grid.indent(0, lengthy), 1);
  // 16 characters of a whole part count.
  EXPECT_EQ(grid.indent(0, "7.5"), 1 + 15);
}

TEST(Grid, ShowsTheBeginningOfAVeryLongText) {
  Grid grid({1});
  grid.setRowCount(2);
  const QString lengthy(1'000'000, 'x');
  grid.setText(1, 0, lengthy);
  const auto* shower = qobject_cast<QStyledItemDelegate*>(grid.itemDelegate());
  ASSERT_NE(shower, nullptr);
  const QString longest(200, 'x');
  EXPECT_EQ(shower->displayText(longest, QLocale()), longest);
  EXPECT_EQ(shower->displayText(lengthy, QLocale()), QString(199, 'x') + QChar(0x2026));
  EXPECT_EQ(grid.item(1, 0)->text(), lengthy);
}

TEST(Grid, KeepsDataOfACellWithoutAnItem) {
  Grid grid({1});
  grid.setRowCount(2);
  EXPECT_FALSE(grid.data(1, 0, Qt::UserRole).toBool());
  EXPECT_FALSE(grid.data(7, 7, Qt::UserRole).isValid());
  grid.setData(7, 0, Qt::UserRole, true);
  grid.setData(0, 7, Qt::UserRole, true);
  grid.setData(1, 0, Qt::UserRole, true);
  EXPECT_TRUE(grid.data(1, 0, Qt::UserRole).toBool());
}

TEST(Grid, TheBlankKeyIsAClickOnTheCurrentCell) {
  Grid grid({1, 1});
  grid.setRowCount(3);
  QList<QPoint> clicks;
  QObject::connect(&grid, &Grid::cellClicked, &grid,
                   [&](int row, int column) { clicks.append(QPoint(row, column)); });
  QTest::keyClick(&grid, Qt::Key_Space);
  EXPECT_TRUE(clicks.isEmpty());
  grid.setCurrentCell(2, 1);
  QTest::keyClick(&grid, Qt::Key_Space);
  EXPECT_EQ(clicks, QList<QPoint>{QPoint(2, 1)});
}

TEST(Grid, ThePictureStandsInTheMiddleOfItsCell) {
  Grid grid({1});
  grid.resize(200, 100);
  grid.setRowCount(2);
  grid.setPicture(1, 0, QIcon(":/icons/unticked.svg"), "not ticked");
  grid.show();
  const QRect cell = grid.visualItemRect(grid.item(1, 0));
  const QImage shown = grid.viewport()->grab(cell).toImage();
  const QRgb ground = shown.pixel(2, 2);
  int left = shown.width(), right = 0;
  // The grid lines run along the edges.
  const int middle = shown.height() / 2;
  for (int x = 2; x < shown.width() - 2; ++x) {
    if (shown.pixel(x, middle) == ground) continue;
    left = std::min(left, x);
    right = std::max(right, x);
  }
  ASSERT_LT(left, right);
  EXPECT_NEAR((left + right) / 2.0, shown.width() / 2.0, 2 * grid.devicePixelRatio());
}

TEST(Grid, APictureKeepsItsColoursWhereItsCellIsSelected) {
  Grid grid({1});
  grid.resize(200, 200);
  grid.setAlternatingRowColors(false);
  grid.setRowCount(3);
  for (const int row : {1, 2}) grid.setPicture(row, 0, QIcon(":/icons/ticked.svg"), "ticked");
  grid.show();
  grid.setCurrentCell(2, 0);
  const auto shown = [&grid](int row) {
    QRect picture(QPoint(), grid.iconSize().isValid() ? grid.iconSize() : QSize(16, 16));
    picture.moveCenter(grid.visualItemRect(grid.item(row, 0)).center());
    return grid.viewport()->grab(picture).toImage();
  };
  EXPECT_EQ(shown(2), shown(1));
  const QPoint corner = grid.visualItemRect(grid.item(2, 0)).topLeft() + QPoint(3, 3);
  const QImage all = grid.viewport()->grab().toImage();
  EXPECT_EQ(all.pixelColor(corner * grid.devicePixelRatio()),
            grid.palette().color(QPalette::Highlight));
}

}  // namespace
}  // namespace zevfit
