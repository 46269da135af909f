// Whether the models of the session are still those of the file.

#include "files/file_models.h"

#include <gtest/gtest.h>

#include "session/line.h"

namespace zevfit {
namespace {

class FileModelsTest : public testing::Test {
 protected:
  FileModelsTest() {
    resetFitState(session_);
    session_.ndir = 2;
    for (std::int64_t v = 1; v <= 3; ++v) session_.varname(v) = "v" + std::to_string(v);
    const LineRef at = line(session_, {2, 2}, Line::third);
    at.use(1);
    at.sill() = 0.5;
    at.letter() = "S";
    at.range() = 15;
    file_.take(session_, 2);
  }
  bool differ(std::int64_t variables = 2) const { return file_.differFrom(session_, variables); }

  Session session_;
  FileModels file_;
};

TEST_F(FileModelsTest, AreTheSameAtFirst) { EXPECT_FALSE(differ()); }

TEST_F(FileModelsTest, DifferInEachCellOfALineInUseAndAgreeAgain) {
  const LineRef at = line(session_, {2, 2}, Line::third);
  at.sill() = 0.25;
  EXPECT_TRUE(differ());
  at.sill() = Cell::ofText("0.5");
  EXPECT_TRUE(differ());
  at.sill() = 0.5;
  EXPECT_FALSE(differ());
  at.range() = 16;
  EXPECT_TRUE(differ());
  at.range() = 15;
  at.letter() = "E";
  EXPECT_TRUE(differ());
  at.letter() = "S";
  at.use(0);
  EXPECT_TRUE(differ());
  at.use(1);
  EXPECT_FALSE(differ());
}

TEST_F(FileModelsTest, DoNotDifferInWhatNoSaveWrites) {
  session_.c1({1, 1}) = 7;
  session_.a1({1, 1}) = 8;
  session_.model1({1, 1}) = "G";
  session_.c0({1, 1}) = 9;
  session_.use0({1, 3}) = 1;  // beyond the directions
  session_.use0({3, 1}) = 1;  // beyond the variables
  EXPECT_FALSE(differ());
  session_.use0({1, 1}) = 1;
  EXPECT_TRUE(differ());
}

TEST_F(FileModelsTest, DifferInTheirVariables) {
  EXPECT_TRUE(differ(3));
  EXPECT_TRUE(differ(1));
  session_.varname(2) = "sum";
  EXPECT_TRUE(differ());
  file_.take(session_, 2);
  EXPECT_FALSE(differ());
  session_.ndir = 3;
  EXPECT_TRUE(differ());
}

TEST_F(FileModelsTest, TakeNoMoreThanTheTablesHold) {
  session_.ndir = 1'000'000'000'000;
  FileModels file;
  file.take(session_, 1'000'000'000'000);
  EXPECT_FALSE(file.differFrom(session_, 1'000'000'000'000));
  EXPECT_FALSE(file.differFrom(session_, 41)) << "the last one that the tables hold";
  session_.ndir = -1;
  file.take(session_, -1);
  EXPECT_FALSE(file.differFrom(session_, 0));
}

}  // namespace
}  // namespace zevfit
