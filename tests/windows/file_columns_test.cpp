// What the file dialogs show beside the names of files.
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QTest>
#include <QTreeView>
#include <algorithm>
#include <functional>

#include "platform/qt_dialogs.h"
#include "tests/support/modal_steps.h"
#include "tests/support/scratch_folder.h"

namespace zevfit::test {
namespace {

class FileColumns : public testing::Test {
 protected:
  FileColumns() {
    putFile(folder_ / "meuse.zvm", std::string(24845, ' '));
    dialogs_.holdFile((folder_ / "meuse.zvm").string());
  }

  /// By how much the widest text of a column is cut, pixels.
  static int cutOf(const QTreeView& files, int column) {
    int most = 0;
    const QAbstractItemModel& model = *files.model();
    for (int row = 0; row < model.rowCount(files.rootIndex()); ++row) {
      const QModelIndex cell = model.index(row, column, files.rootIndex());
      const int wanted = files.fontMetrics().horizontalAdvance(cell.data().toString());
      most = std::max(most, wanted - files.columnWidth(column));
    }
    return most;
  }
  static void expectWhole(QWidget& dialog) {
    const auto& files = *dialog.findChild<QTreeView*>("treeView");
    const QAbstractItemModel& model = *files.model();
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount(files.rootIndex()) == 1; }));
    // Columns follow their texts in a later turn of the event loop.
    for (int column = 0; column < model.columnCount(); ++column)
      EXPECT_TRUE(QTest::qWaitFor([&] { return cutOf(files, column) <= 0; })) << column;
    const QRect last = files.visualRect(model.index(0, 3, files.rootIndex()));
    EXPECT_LE(last.right(), files.viewport()->width()) << "all of them in view";
    QTest::keyClick(&dialog, Qt::Key_Escape);
  }

  ScratchFolder folder_;
  QtDialogs dialogs_;
};

TEST_F(FileColumns, AreWholeWhereAFileIsOpened) {
  duringModal([this] { EXPECT_FALSE(dialogs_.openFile("Open", "*.zvm")); }, expectWhole);
}

TEST_F(FileColumns, AreWholeWhereAFileIsSaved) {
  duringModal([this] { EXPECT_FALSE(dialogs_.saveFile("Save", "*.zvm")); }, expectWhole);
}

TEST_F(FileColumns, AreWholeWhereAPictureIsSaved) {
  const FileKind kinds[] = {{"Models", "zvm"}};
  duringModal([&] { EXPECT_FALSE(dialogs_.saveFileAs("Save", kinds, 0, "")); }, expectWhole);
}

}  // namespace
}  // namespace zevfit::test
