// What the users look for, in a session by itself.
#include "tests/users/invariants.h"

#include <gtest/gtest.h>

namespace zevfit::test {
namespace {

constexpr Pair kPair{1, 1};

/// A pair whose nugget 0.5 counts 98 times, as a file may have it, and structure 1 of sill 40 once.
class TotalSill : public testing::Test {
 protected:
  TotalSill() {
    session_.setCurrent(kPair);
    at(Line::nugget).use(98);
    at(Line::nugget).sill() = 30;
    at(Line::first).use(1);
    at(Line::first).sill() = 40;
    look();
  }
  LineRef at(Line which) { return line(session_, kPair, which); }
  std::string look(bool loaded = false) { return invariants_.brokenTotal(session_, loaded); }
  void edit(double total) {
    at(Line::nugget).sill() = 0.5;
    session_.ctotal(kPair) = total;
  }

  Session session_;
  Invariants invariants_;
};

constexpr const char* kBroken = "the total sill follows an edit";

TEST_F(TotalSill, IsTheSumBehindAnEdit) {
  edit(49 + 40);
  EXPECT_EQ(look(), "");
  edit(90);
  EXPECT_EQ(look(), "") << "nothing was edited";
}

TEST_F(TotalSill, ThatStaysBehindAnEditIsFound) {
  edit(0);
  EXPECT_EQ(look(), kBroken);
}

// As where Enter follows what is typed, and the drawing sets the box of a flag that is not 1.
TEST_F(TotalSill, ThatIsLeftByATickBehindTheEditIsNone) {
  edit(49 + 40);
  at(Line::nugget).use(0);
  EXPECT_EQ(look(), "");
}

TEST_F(TotalSill, OfTheTicksBeforeTheLastLookIsFound) {
  at(Line::nugget).use(0);
  EXPECT_EQ(look(), "");
  edit(49 + 40);
  EXPECT_EQ(look(), kBroken);
}

TEST_F(TotalSill, OfATextOrOfAFileJustReadIsNotAskedFor) {
  at(Line::first).sill() = Cell::ofText("yes");
  edit(0);
  EXPECT_EQ(look(), "");
  at(Line::first).sill() = 40;
  EXPECT_EQ(look(true), "");
}

}  // namespace
}  // namespace zevfit::test
