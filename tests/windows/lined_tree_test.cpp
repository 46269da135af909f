#include "windows/lined_tree.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

namespace zevfit {
namespace {

/// A root with two branches; the first has a leaf.
class LinedTreeTest : public testing::Test {
 protected:
  LinedTreeTest() {
    tree.resize(300, 200);
    tree.expandAll();
    tree.show();
    QApplication::processEvents();
  }

  QPoint junction(QTreeWidgetItem& item) {
    const QRect place = tree.visualItemRect(&item);
    return {place.left() - tree.indentation() / 2, place.center().y()};
  }
  /// The ground is white, so what is darker was drawn.
  bool drawn(const QPoint& at) {
    const QImage picture = tree.viewport()->grab().toImage();
    return qGray(picture.pixel(at)) < 240;
  }

  LinedTree tree;
  QTreeWidgetItem root{&tree, {"root"}};
  QTreeWidgetItem first{&root, {"first"}};
  QTreeWidgetItem leaf{&first, {"leaf"}};
  QTreeWidgetItem second{&root, {"second"}};
};

TEST_F(LinedTreeTest, LinesJoinTheNodes) {
  const int half = tree.visualItemRect(&leaf).height() / 2 - 1;
  const QPoint above(0, -half), below(0, half), right(tree.indentation() / 2 - 1, 0);
  struct Row {
    const char* name;
    QTreeWidgetItem& item;
    bool above, below;
  };
  for (const Row& row : {Row{"first", first, true, true}, Row{"second", second, true, false},
                         Row{"leaf", leaf, true, false}}) {
    EXPECT_EQ(drawn(junction(row.item) + above), row.above) << row.name;
    EXPECT_EQ(drawn(junction(row.item) + below), row.below) << row.name;
    EXPECT_TRUE(drawn(junction(row.item) + right)) << row.name;
  }
  for (const QPoint& side : {above, below, right}) EXPECT_FALSE(drawn(junction(root) + side));
  // The line from the first branch to the second passes the leaf.
  EXPECT_TRUE(drawn(junction(leaf) - QPoint(tree.indentation(), 0)));
  EXPECT_FALSE(drawn(junction(leaf) - QPoint(2 * tree.indentation(), 0)));
}

TEST_F(LinedTreeTest, BoxesTellWhatIsExpandedAndTakeClicks) {
  const QPoint up(0, -2);
  EXPECT_TRUE(drawn(junction(first)));
  EXPECT_FALSE(drawn(junction(first) + up)) << "a minus";
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, junction(first));
  EXPECT_FALSE(first.isExpanded());
  EXPECT_TRUE(drawn(junction(first) + up)) << "a plus";
  EXPECT_FALSE(drawn(junction(second) + QPoint(-4, -4))) << "no box";
  EXPECT_TRUE(drawn(junction(first) + QPoint(-4, -4)));
}

}  // namespace
}  // namespace zevfit
