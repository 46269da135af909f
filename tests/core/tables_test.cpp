#include "session/tables.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "session/cell.h"

namespace zevfit {
namespace {

constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();

/// The message of the fault that a call ends with.
template <class Call>
std::string faultOf(const Call& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "no fault";
}

TEST(Table, HasZeroAtFirst) {
  const Table<int, 3> table{"gam"};
  for (int i = 0; i < 3; ++i) EXPECT_EQ(table(i), 0) << i;
}

TEST(Table, FaultsOutsideItsSlots) {
  Table<int, kVariableSlots> table{"gam"};
  const auto& constTable = table;
  EXPECT_NO_THROW(table(0));
  EXPECT_NO_THROW(table(41));
  for (const std::int64_t slot : {std::int64_t{-1}, std::int64_t{42}, kHuge, kLowest}) {
    EXPECT_THROW(table(slot), Fault) << slot;
    EXPECT_THROW(constTable(slot), Fault) << slot;
  }
}

TEST(Table, IsFilled) {
  Table<int, 4> table{"gam"};
  table.fill(7);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(table(i), 7) << i;
}

TEST(PairTable, HasTheVariableFirst) {
  PairTable<int> table{"gam"};
  table({41, 21}) = 1;
  table({1, 21}) = 2;
  table({21, 1}) = 3;
  EXPECT_EQ(table({41, 21}), 1);
  EXPECT_EQ(table({1, 21}), 2);
  EXPECT_EQ(table({21, 1}), 3);
  EXPECT_EQ(table({2, 0}), 0);
}

TEST(PairTable, FaultsOutsideItsSlots) {
  PairTable<double> table{"gam"};
  const auto& constTable = table;
  for (const Pair pair :
       {Pair{-1, 0}, Pair{0, -1}, Pair{42, 0}, Pair{0, 22}, Pair{1, kHuge}, Pair{kLowest, 1}}) {
    EXPECT_THROW(table(pair), Fault) << pair.variable << ", " << pair.direction;
    EXPECT_THROW(constTable(pair), Fault) << pair.variable << ", " << pair.direction;
  }
  EXPECT_NO_THROW(table({0, 0}));
  EXPECT_NO_THROW(table({41, 21}));
}

TEST(PairTable, TakesOtherWidths) {
  PairTable<std::string, 102, 42> legends{"xlegend"};
  legends({101, 41}) = "h(m)";
  EXPECT_EQ(legends({101, 41}), "h(m)");
  EXPECT_THROW(legends({102, 0}), Fault);
  EXPECT_THROW(legends({0, 42}), Fault);
}

TEST(LagTable, HasNoClassesBeforeItIsCreated) {
  LagTable<double> table{"gam"};
  EXPECT_THROW(table({1, 1}, 0), Fault);
  EXPECT_THROW(table.set({1, 1}, 0, 1), Fault);
  EXPECT_TRUE(table.written({1, 1}).empty());
}

TEST(LagTable, HasOneClassMoreThanTheNumberOfClasses) {
  LagTable<double> table{"gam"};
  table.create(3);
  EXPECT_NO_THROW(table.set({41, 21}, 4, 2.5));
  EXPECT_EQ(table({41, 21}, 4), 2.5);
  EXPECT_EQ(table({41, 21}, 0), 0);
  EXPECT_EQ(table({1, 1}, 4), 0);
  for (const std::int64_t lag : {std::int64_t{-1}, std::int64_t{5}, kHuge, kLowest}) {
    EXPECT_THROW(table({1, 1}, lag), Fault) << lag;
    EXPECT_THROW(table.set({1, 1}, lag, 1), Fault) << lag;
  }
  EXPECT_THROW(table({42, 1}, 1), Fault);
  EXPECT_THROW(table.set({1, 22}, 1, 1), Fault);
}

TEST(LagTable, ANegativeNumberOfClassesLeavesSlotZero) {
  LagTable<double> table{"gam"};
  table.create(-3);
  EXPECT_NO_THROW(table.set({1, 1}, 0, 1));
  EXPECT_THROW(table.set({1, 1}, 1, 1), Fault);
}

TEST(LagTable, AnyClaimedNumberOfClassesTakesNoMemory) {
  for (const std::int64_t classes : {std::int64_t{2000000000}, kHuge}) {
    LagTable<Cell> table{"gam"};
    table.create(classes);
    table.set({1, 1}, 2, 5);
    EXPECT_EQ(table.written({1, 1}).size(), 3U);
    EXPECT_EQ(table({1, 1}, classes).number(), 0);
    EXPECT_EQ(table({2, 3}, classes).number(), 0);
  }
}

TEST(LagTable, HoldsWhatWasWrittenUpToTheHighestClass) {
  LagTable<float> table{"gam"};
  table.create(10);
  table.set({1, 2}, 3, 18);
  table.set({1, 2}, 1, 7);
  const auto row = table.written({1, 2});
  EXPECT_EQ(std::vector<float>(row.begin(), row.end()), (std::vector<float>{0, 7, 0, 18}));
  EXPECT_TRUE(table.written({2, 1}).empty());
}

TEST(LagTable, ClearsAndCopiesWholeRows) {
  LagTable<double> table{"gam"};
  table.create(5);
  table.set({1, 1}, 5, 2.5);
  table.set({2, 1}, 1, 9);
  table.copy({1, 1}, {2, 1});
  EXPECT_EQ(table({2, 1}, 5), 2.5);
  EXPECT_EQ(table({2, 1}, 1), 0);
  table.clear({1, 1});
  EXPECT_EQ(table({1, 1}, 5), 0);
  EXPECT_EQ(table({2, 1}, 5), 2.5);
}

TEST(LagTable, TakesAWholeRowThatFits) {
  LagTable<double> table{"gam"};
  table.create(1);
  table.set({1, 1}, 2, 9);
  EXPECT_THROW(table.setRow({1, 1}, {0, 1, 2, 3}), Fault);
  EXPECT_THROW(table.setRow({42, 1}, {0, 1}), Fault);
  EXPECT_EQ(table({1, 1}, 2), 9);
  table.setRow({1, 1}, {0, 5});
  EXPECT_EQ(table({1, 1}, 1), 5);
  EXPECT_EQ(table({1, 1}, 2), 0);
  table.setRow({1, 1}, {0, 1, 2});
  EXPECT_EQ(table({1, 1}, 2), 2);
  EXPECT_THROW(LagTable<double>("gam").setRow({1, 1}, {0}), Fault);
  table.create(kHuge);
  table.setRow({1, 1}, {0, 5});
  EXPECT_EQ(table({1, 1}, 1), 5);
}

TEST(LagTable, CreatingAnewDropsTheContent) {
  LagTable<double> table{"gam"};
  table.create(5);
  table.set({1, 1}, 5, 2.5);
  table.create(5);
  EXPECT_EQ(table({1, 1}, 5), 0);
  EXPECT_TRUE(table.written({1, 1}).empty());
}

TEST(Subscript, OfATableIsNamedWithItsTable) {
  Table<std::string, kVariableSlots> names{"varname"};
  const auto& constNames = names;
  EXPECT_EQ(faultOf([&] { names(42); }), "Subscript out of range: varname(42)");
  EXPECT_EQ(faultOf([&] { constNames(-1); }), "Subscript out of range: varname(-1)");
}

TEST(Subscript, OfAPairTableIsNamedWithItsTable) {
  PairTable<Cell> sills{"c0"};
  const auto& constSills = sills;
  EXPECT_EQ(faultOf([&] { sills({43, 1}); }), "Subscript out of range: c0(43, 1)");
  EXPECT_EQ(faultOf([&] { constSills({1, -22}); }), "Subscript out of range: c0(1, -22)");
  const Pair far{kHuge, kLowest};
  EXPECT_EQ(faultOf([&] { sills(far); }),
            "Subscript out of range: c0(9223372036854775807, -9223372036854775808)");
}

TEST(Subscript, OfALagTableIsNamedWithItsTable) {
  LagTable<double> gam{"gam"};
  EXPECT_EQ(faultOf([&] { gam({1, 2}, 0); }), "Subscript out of range: gam(1, 2, 0)");
  gam.create(3);
  EXPECT_EQ(faultOf([&] { gam({1, 2}, 5); }), "Subscript out of range: gam(1, 2, 5)");
  EXPECT_EQ(faultOf([&] { gam.set({1, 2}, -1, 4); }), "Subscript out of range: gam(1, 2, -1)");
  const Pair inside{1, 2};
  EXPECT_EQ(faultOf([&] { gam.setRow(inside, std::vector<double>(7)); }),
            "Subscript out of range: gam(1, 2, 6)")
      << "the highest of the row";
  // The pair is looked at first, and alone.
  EXPECT_EQ(faultOf([&] { gam({42, 2}, 5); }), "Subscript out of range: gam(42, 2)");
  EXPECT_EQ(faultOf([&] { gam.set({1, 22}, 1, 4); }), "Subscript out of range: gam(1, 22)");
  EXPECT_EQ(faultOf([&] { gam.clear({42, 2}); }), "Subscript out of range: gam(42, 2)");
  EXPECT_EQ(faultOf([&] { gam.copy({1, 2}, {42, 2}); }), "Subscript out of range: gam(42, 2)");
}

}  // namespace
}  // namespace zevfit
