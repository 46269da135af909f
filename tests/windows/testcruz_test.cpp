// What the dialog of the test of coregionalization shows when it opens.
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include "tests/support/test_dialog.h"

namespace zevfit::test {
namespace {

TEST_F(TestDialog, ControlsShowTheirCaptions) {
  openFile();
  openDialog();
  EXPECT_EQ(dialog().windowTitle(), "Test - Cross Semivariogram");
  const std::vector<std::pair<const char*, const char*>> frames{
      {"Frame3", "Primary Variable:    Semivariogram"},
      {"Frame4", "Secondary Variable:    Semivariogram"},
      {"Frame1", "Cross- Semivariogram"},
      {"Frame6", "Main Direction"},
      {"Frame8", "Minor Direction 1"},
      {"Frame7", "Minor Direction 2"},
      {"Frame5", "Test Results"}};
  for (const auto& [name, title] : frames) EXPECT_EQ(find<QGroupBox>(name).title(), title);
  EXPECT_EQ(find<QPushButton>("Command1").text(), "Test");
  EXPECT_EQ(find<QPushButton>("Command2").text(), "Exit");
  EXPECT_EQ(find<QPushButton>("Command1").shortcut(), QKeySequence("Alt+T"));
  EXPECT_EQ(find<QPushButton>("Command2").shortcut(), QKeySequence("Alt+E"));
}

TEST_F(TestDialog, EachControlStandsInItsFrame) {
  openFile();
  openDialog();
  const std::vector<std::pair<const char*, std::vector<const char*>>> frames{
      {"Frame3", {"combovarp", "Label4", "Label7"}},
      {"Frame4", {"combovarsec", "Label5", "Label8"}},
      {"Frame1", {"Combovarcruz", "Label3", "Label6"}},
      {"Frame6", {"Combodmain"}},
      {"Frame8", {"Combodminor1"}},
      {"Frame7", {"Combodminor2"}},
      {"Frame5", {"TreeView1"}}};
  for (const auto& [frame, controls] : frames)
    for (const char* control : controls)
      EXPECT_EQ(find(control).parentWidget()->objectName(), frame) << control;
}

TEST_F(TestDialog, SymbolsAreGammasWithTheirIndex) {
  openFile();
  openDialog();
  for (const char* gamma : {"Label4", "Label5", "Label3"})
    EXPECT_EQ(find<QLabel>(gamma).text(), QString(QChar(0x03B3))) << gamma;
  EXPECT_EQ(find<QLabel>("Label7").text(), "X");
  EXPECT_EQ(find<QLabel>("Label8").text(), "Y");
  EXPECT_EQ(find<QLabel>("Label6").text(), "XY");
}

TEST_F(TestDialog, OpensWithItsListsFilledAndTheMainWindowDisabled) {
  openFile();
  openDialog();
  EXPECT_TRUE(dialog().isVisible());
  EXPECT_TRUE(dialog().isEnabled());
  EXPECT_FALSE(dialog().isModal());
  EXPECT_FALSE(program_.window().isEnabled());
  for (const char* name : kVariableLists) {
    EXPECT_EQ(list(name).count(), 3) << name;
    EXPECT_EQ(list(name).itemText(2), "zinc-lead") << name;
  }
  for (const char* name : kDirectionLists) {
    EXPECT_EQ(list(name).count(), 3) << name;
    EXPECT_EQ(list(name).itemText(1), "90;0") << name;
  }
  EXPECT_EQ(onShow(), Positions(6, 0));
  for (const char* name : {"combovarp", "Combodminor2", "TreeView1", "Command1", "Command2"})
    EXPECT_TRUE(find(name).isEnabled()) << name;
}

TEST_F(TestDialog, TestsTheLastChoicesAtOnceAndShowsTheWholeTree) {
  openFile();
  chooseSample();
  setLine(session(), Line::first, cross, minorDirection1, {1, "S", 7, 90});
  openDialog();
  EXPECT_EQ(onShow(), (Positions{1, 0, 2, 1, 2, 0}));
  // 7 * 7 over 4 * 9; 90 is not 100.
  EXPECT_EQ(shownTree(),
            (Lines{"Test Results, 4", " Main Direction:(90;0), 3", "  Number of structures, 1",
                   "   Ranges, 1", "   Sills, 1", " Minor Direction 1:(45;0), 3",
                   "  Number of structures, 1", "   Different ranges, 2", "     a 1, 2",
                   "   Wrong sills, 2", "     |C 1xy|  =< 6.0, 2", " Minor Direction 2:(0;0), 3",
                   "  Number of structures, 1", "   Ranges, 1", "   Sills, 1"}));
}

TEST_F(TestDialog, NodesHaveTheirKeysAndPictures) {
  openFile();
  chooseSample();
  setLine(session(), Line::nugget, cross, mainDirection, {1, "", 7, 0});
  openDialog();
  std::vector<TestNode> expected = crosstest(session(), kSampleChoice);
  QTreeWidgetItemIterator at(&tree());
  std::size_t found = 0;
  QList<qint64> pictures[5];
  for (; *at; ++at, ++found) {
    const QString key = (*at)->data(0, kNodeKeyRole).toString();
    const auto node = std::find_if(expected.begin(), expected.end(), [&](const TestNode& one) {
      return one.key == key.toStdString();
    });
    ASSERT_NE(node, expected.end()) << key.toStdString();
    const QTreeWidgetItem* parent = (*at)->parent();
    EXPECT_EQ(parent ? parent->data(0, kNodeKeyRole).toString().toStdString() : "", node->parent);
    EXPECT_EQ((*at)->text(0).toStdString(), node->text);
    EXPECT_FALSE((*at)->icon(0).isNull());
    EXPECT_FALSE((*at)->data(0, Qt::AccessibleDescriptionRole).toString().isEmpty());
    pictures[static_cast<int>(node->image)].append((*at)->icon(0).cacheKey());
  }
  EXPECT_EQ(found, expected.size());
  QList<qint64> kinds;
  for (const QList<qint64>& alike : pictures) {
    if (alike.isEmpty()) continue;
    EXPECT_EQ(alike.count(alike.front()), alike.size()) << "one picture for each kind";
    EXPECT_FALSE(kinds.contains(alike.front()));
    kinds.append(alike.front());
  }
  EXPECT_EQ(kinds.size(), 4);
}

}  // namespace
}  // namespace zevfit::test
