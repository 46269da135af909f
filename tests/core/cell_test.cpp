#include "session/cell.h"

#include <gtest/gtest.h>

#include "session/fault.h"

namespace zevfit {
namespace {

TEST(Cell, IsZeroAtFirst) {
  EXPECT_FALSE(Cell().isText());
  EXPECT_EQ(Cell().number(), 0);
}

TEST(Cell, KeepsANumber) {
  const Cell cell = 2.5;
  EXPECT_FALSE(cell.isText());
  EXPECT_EQ(cell.number(), 2.5);
  EXPECT_EQ(cell.toText(), "2.5");
}

TEST(Cell, KeepsATextAsItStood) {
  const Cell cell = Cell::ofText(" n.a. ");
  EXPECT_TRUE(cell.isText());
  EXPECT_EQ(cell.toText(), " n.a. ");
}

TEST(Cell, KeepsAnEmptyTextApartFromANumber) {
  const Cell cell = Cell::ofText("");
  EXPECT_TRUE(cell.isText());
  EXPECT_EQ(cell.toText(), "");
  EXPECT_THROW(cell.number(), Fault);
}

TEST(Cell, ATextHasNoNumber) { EXPECT_THROW(Cell::ofText("12x").number(), Fault); }

TEST(Cell, CopiesAreIndependent) {
  Cell original = Cell::ofText("first");
  const Cell copy = original;
  original = Cell::ofText("second");
  EXPECT_EQ(copy.toText(), "first");
  EXPECT_EQ(original.toText(), "second");
}

TEST(Cell, ANumberReplacesATextAndBack) {
  Cell cell = Cell::ofText("n.a.");
  const Cell number = 7;
  cell = number;
  EXPECT_FALSE(cell.isText());
  EXPECT_EQ(cell.number(), 7);
  const Cell text = Cell::ofText("n.a.");
  cell = text;
  EXPECT_EQ(cell.toText(), "n.a.");
}

TEST(Cell, SurvivesAssignmentToItself) {
  Cell cell = Cell::ofText("kept");
  const Cell& same = cell;
  cell = same;
  EXPECT_EQ(cell.toText(), "kept");
}

// A text of megabytes, copied to every place of the model tables, once filled the memory.
TEST(Cell, CopiesShareOneText) {
  const Cell original = Cell::ofText("much");
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is tested.
  const Cell copy = original;
  Cell assigned = 7;
  assigned = copy;
  ASSERT_NE(original.text(), nullptr);
  EXPECT_EQ(*original.text(), "much");
  EXPECT_EQ(copy.text(), original.text());
  EXPECT_EQ(assigned.text(), original.text());
  EXPECT_EQ(Cell(7).text(), nullptr);
}

TEST(Cell, TakesSixteenBytes) { EXPECT_LE(sizeof(Cell), 16U); }

}  // namespace
}  // namespace zevfit
