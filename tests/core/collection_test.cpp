// The handlers of the print collection: tabs, columns, clicks and the pointer on a page.

#include <gtest/gtest.h>

#include "tests/support/report_bench.h"

namespace zevfit {
namespace {

using Calls = std::vector<std::string>;

class CollectionTest : public testing::Test {
 protected:
  MemoryReportWindow& window() { return bench_.reportWindow; }
  ReportTables& tables() { return bench_.reports.tables; }
  Session& session() { return bench_.session; }

  std::size_t linesOn(const Operations& operations) { return only<LineOf>(operations).size(); }
  std::vector<TextOf> thumbnails(int slot = 0) {
    return textsNamed(bench_.page(slot).operations, kThumbnailText);
  }

  ReportBench bench_;
};

TEST_F(CollectionTest, IsLoadedWithOneColumnEachAndTheFirstPage) {
  for (int slot = 0; slot < kReports; ++slot) {
    EXPECT_EQ(tables().reportcolumns(slot), 1) << slot;
    EXPECT_EQ(window().visiblePage.at(static_cast<std::size_t>(slot)), slot == 0) << slot;
    EXPECT_TRUE(bench_.page(slot).operations.empty()) << slot;
  }
  EXPECT_EQ(bench_.reports.platewidth, 11907);
  EXPECT_EQ(window().applied, 1);
  EXPECT_EQ(window().legend, "-|-");
}

TEST_F(CollectionTest, ASmallPictureShowsTheGridFromTheStart) {
  // A clear, three lines of rows and one of columns.
  EXPECT_EQ(window().small.operations.size(), 5U);
}

TEST_F(CollectionTest, ATabShowsItsPageAndItsColumns) {
  bench_.giveColumns(3);
  window().ticked = true;
  bench_.selectTab(4);
  EXPECT_FALSE(window().ticked);
  EXPECT_EQ(window().sliderAt, 1);
  EXPECT_EQ(window().shown, 1);
  EXPECT_EQ(bench_.reports.platewidth, 11907);
  for (int slot = 0; slot < kReports; ++slot)
    EXPECT_EQ(window().visiblePage.at(static_cast<std::size_t>(slot)), slot == 3) << slot;
  bench_.selectTab(1);
  EXPECT_EQ(window().sliderAt, 3);
  EXPECT_EQ(window().shown, 3);
  EXPECT_EQ(bench_.reports.platewidth, 3969);
}

TEST_F(CollectionTest, ATabOfAsManyColumnsChangesNoSlider) {
  window().small.operations.clear();
  bench_.selectTab(2);
  EXPECT_TRUE(window().small.operations.empty());
}

TEST_F(CollectionTest, TheSliderAloneChangesTheSmallPictureAndTheNumber) {
  bench_.clickCell(1, 1);
  const Operations page = bench_.page().operations;
  window().setSlider(3);
  EXPECT_EQ(window().shown, 3);
  // Eight lines of rows and three of columns.
  EXPECT_EQ(linesOn(window().small.operations), 11U);
  EXPECT_EQ(bench_.page().operations, page);
  EXPECT_EQ(tables().reportcolumns(0), 1);
  EXPECT_EQ(window().applied, 1);
  EXPECT_TRUE(bench_.used(1, 1));
}

// 602 / 2 = 301, over 1.7387: 173.118. (852 - 4 * 173.118) / 2 = 79.764.
TEST_F(CollectionTest, TheSmallPictureHasTheGridInItsOwnSize) {
  window().setSlider(2);
  const std::vector<LineOf> lines = only<LineOf>(window().small.operations);
  ASSERT_EQ(lines.size(), 7U);
  EXPECT_NEAR(lines[0].from.y, 79.764, 0.002);
  EXPECT_NEAR(lines[1].from.y, 252.882, 0.002);
  EXPECT_EQ(lines[0].to.x, 602);
  EXPECT_EQ(lines[5].from.x, 301);
  EXPECT_EQ(window().small.operations.front(), Operation(ClearOf{kWhite}));
}

TEST_F(CollectionTest, ADraggedThumbEmptiesThePageButNotTheCells) {
  bench_.clickCell(1, 1);
  bench_.dragColumns(2);
  EXPECT_EQ(tables().reportcolumns(0), 2);
  EXPECT_EQ(window().applied, 2);
  EXPECT_TRUE(thumbnails().empty());
  EXPECT_EQ(linesOn(bench_.page().operations), 7U);
  EXPECT_TRUE(bench_.used(1, 1));
  EXPECT_EQ(window().shown, 2);
}

TEST_F(CollectionTest, WhileTheThumbIsHeldTheNumberStays) {
  window().sliderAt = 2;
  HScroll1_Scroll(bench_.reports);
  EXPECT_EQ(window().shown, 1);
  EXPECT_EQ(tables().reportcolumns(0), 2);
}

TEST_F(CollectionTest, OkAppliesTheNumberOnShowToTheSelectedReport) {
  bench_.selectTab(6);
  window().setSlider(3);
  Command1_Click(bench_.reports);
  EXPECT_EQ(tables().reportcolumns(5), 3);
  EXPECT_EQ(tables().reportcolumns(0), 1);
  EXPECT_EQ(linesOn(bench_.page(5).operations), 11U);
  EXPECT_TRUE(bench_.page(0).operations.empty());
}

TEST_F(CollectionTest, OkDoesNotTouchTheWidthOfThePlots) {
  bench_.giveColumns(3);
  EXPECT_EQ(bench_.reports.platewidth, 11907);
  bench_.clickCell(1, 1);
  EXPECT_EQ(bench_.reports.platewidth, 3969);
}

TEST_F(CollectionTest, OkEmptiesTheCellsOfItsOwnGridAlone) {
  bench_.giveColumns(3);
  for (const auto& [row, column] : {std::pair(1, 1), {2, 1}, {3, 1}, {7, 3}, {1, 2}})
    bench_.clickCell(row, column);
  bench_.selectTab(2);
  bench_.clickCell(1, 1);
  bench_.selectTab(1);
  bench_.giveColumns(1);
  EXPECT_FALSE(bench_.used(1, 1));
  EXPECT_FALSE(bench_.used(2, 1));
  EXPECT_TRUE(bench_.used(3, 1));
  EXPECT_TRUE(bench_.used(7, 3));
  EXPECT_TRUE(bench_.used(1, 2));
  EXPECT_TRUE(bench_.used(1, 1, 2));
  bench_.giveColumns(3);
  for (int row = 1; row <= 7; ++row)
    for (int column = 1; column <= 3; ++column) EXPECT_FALSE(bench_.used(row, column));
  EXPECT_TRUE(bench_.used(1, 1, 2));
}

TEST_F(CollectionTest, AClickWithoutAPlotAsksForOne) {
  for (const Pair pair : {Pair{0, 1}, Pair{1, 0}, Pair{-1, 2}}) {
    bench_.dialogs.shown.clear();
    session().setCurrent(pair);
    bench_.clickCell(1, 1);
    EXPECT_EQ(bench_.dialogs.shown, Calls{"plain: Please select variogram plot first!"});
    EXPECT_FALSE(bench_.used(1, 1));
    EXPECT_TRUE(bench_.page().operations.empty());
    EXPECT_TRUE(window().calls.empty());
  }
}

// One column: cells 3147 by 1809.973 from 416.027 on.
TEST_F(CollectionTest, AClickOnAPageWithoutAGridPlacesTheThumbnailAndDrawsTheGrid) {
  Picture1_MouseDown(bench_.reports, 1000, 3000);
  ASSERT_EQ(bench_.page().operations.size(), 5U);
  const auto placed = thumbnails();
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_EQ(placed[0].at.x, 0);
  EXPECT_NEAR(placed[0].at.y, 416.027 + 1809.973, 0.002);
  EXPECT_EQ(bench_.page().operations.front(), Operation(placed[0]));
  EXPECT_EQ(window().thumbnailSize.x, 3147);
  EXPECT_NEAR(window().thumbnailSize.y, 1809.973, 0.001);
  EXPECT_TRUE(bench_.used(2, 1));
  EXPECT_EQ(tables().celldir(2, 1, 1), kDirection);
  EXPECT_EQ(tables().cellvar(2, 1, 1), kVariable);
  EXPECT_EQ(window().calls, (Calls{"busy", "refresh 0", "ready"}));
}

TEST_F(CollectionTest, AClickBesideTheGridIsOneOnTheFirstRowOfItsColumn) {
  bench_.giveColumns(2);
  struct {
    double x, y;
    int column;
  } const rows[] = {{2000, 10, 2}, {2000, 4450, 2}, {0, 10, 1}, {9000, 10, 1}};
  for (const auto& row : rows) {
    bench_.giveColumns(2);
    Picture1_MouseDown(bench_.reports, row.x, row.y);
    EXPECT_TRUE(bench_.used(1, row.column)) << row.x << " " << row.y;
  }
}

TEST_F(CollectionTest, AClickOnAFullCellReplacesIt) {
  bench_.clickCell(1, 1);
  session().setCurrent({2, 1});
  bench_.clickCell(1, 1);
  EXPECT_EQ(tables().cellvar(1, 1, 1), 2);
  EXPECT_EQ(tables().celldir(1, 1, 1), 1);
  EXPECT_EQ(thumbnails().size(), 2U);
  EXPECT_TRUE(bench_.used(1, 1));
}

TEST_F(CollectionTest, DeleteEmptiesACell) {
  bench_.giveColumns(2);
  bench_.clickCell(2, 2);
  bench_.page(0).operations.clear();
  window().ticked = true;
  bench_.clickCell(2, 2);
  EXPECT_FALSE(bench_.used(2, 2));
  const auto boxes = only<BoxOf>(bench_.page().operations);
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_EQ(boxes[0].at.x, 1573.5);
  // 416.027 + 904.986
  EXPECT_NEAR(boxes[0].at.y, 1321.013, 0.002);
  EXPECT_EQ(boxes[0].width, 1573.5);
  EXPECT_NEAR(boxes[0].height, 904.986, 0.002);
  EXPECT_EQ(boxes[0].fill, kWhite);
  EXPECT_TRUE(thumbnails().empty());
  EXPECT_EQ(linesOn(bench_.page().operations), 7U);
  EXPECT_TRUE(window().ticked);
}

TEST_F(CollectionTest, DeleteOnAnEmptyCellChangesNothingElse) {
  bench_.clickCell(2, 1);
  window().ticked = true;
  bench_.clickCell(1, 1);
  EXPECT_FALSE(bench_.used(1, 1));
  EXPECT_TRUE(bench_.used(2, 1));
  EXPECT_EQ(thumbnails().size(), 1U);
  EXPECT_EQ(only<BoxOf>(bench_.page().operations).size(), 1U);
}

TEST_F(CollectionTest, AFaultInAThumbnailLeavesWhatWasDrawnAndTheCellInUse) {
  session().ymax(kPair) = session().ymin(kPair);
  bench_.clickCell(1, 1);
  EXPECT_TRUE(bench_.used(1, 1));
  EXPECT_EQ(window().calls.back(), "ready");
  EXPECT_TRUE(bench_.dialogs.shown.empty());
}

TEST_F(CollectionTest, ThePointerTellsWhatACellHolds) {
  bench_.giveColumns(2);
  session().setCurrent({2, 1});
  bench_.clickCell(3, 2);
  bench_.pointAt(3, 2);
  EXPECT_EQ(window().legend, "lead|0 0 N");
  bench_.pointAt(3, 1);
  EXPECT_EQ(window().legend, "|");
}

TEST_F(CollectionTest, ThePointerBesideTheGridFindsNoCell) {
  bench_.clickCell(1, 1);
  struct {
    double x, y;
  } const rows[] = {{1000, 10}, {1000, 4450}, {0, 1000}, {3148, 1000}};
  for (const auto& row : rows) {
    bench_.pointAt(1, 1);
    EXPECT_EQ(window().legend, " zinc |45 0 NE");
    Picture1_MouseMove(bench_.reports, row.x, row.y);
    EXPECT_EQ(window().legend, "|") << row.x << " " << row.y;
  }
}

TEST_F(CollectionTest, ACellOfASubscriptThatNoTableHoldsIsNone) {
  bench_.clickCell(1, 1);
  tables().cellvar(1, 1, 1) = 42;
  bench_.pointAt(1, 1);
  EXPECT_EQ(window().legend, "|");
}

TEST_F(CollectionTest, CellsNameTheVariablesOfTheFileThatIsLoadedNow) {
  bench_.clickCell(1, 1);
  session().varname(1) = "copper";
  bench_.pointAt(1, 1);
  EXPECT_EQ(window().legend, "copper|45 0 NE");
}

TEST_F(CollectionTest, IsShownByItsCommand) {
  showCollection(bench_.reports);
  EXPECT_EQ(window().calls, Calls{"shown"});
  EXPECT_TRUE(bench_.printer.calls.empty());
}

TEST_F(CollectionTest, AWindowThatCannotBeShownDropsTheDocument) {
  window().refusesToShow = true;
  showCollection(bench_.reports);
  EXPECT_EQ(bench_.dialogs.shown, Calls{"plain: Cannot print!"});
  EXPECT_EQ(bench_.printer.calls, Calls{"kill"});
}

}  // namespace
}  // namespace zevfit
