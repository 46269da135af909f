#include "session/line.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <stdexcept>

#include "session/fault.h"

namespace zevfit {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr Pair kPair{2, 3};
/// The lines whose flags are cells.
constexpr std::array kWide{Line::nugget, Line::first, Line::second};

/// A number of its own for each line.
double numberOf(Line which) { return static_cast<double>(indexOf(which)) + 1; }

TEST(Lines, StandInTheirOrder) {
  for (std::size_t i = 0; i < kLines.size(); ++i) EXPECT_EQ(indexOf(kLines[i]), i);
  for (std::size_t i = 0; i < kStructures.size(); ++i) EXPECT_EQ(kStructures[i], kLines[i + 1]);
  EXPECT_EQ(kLines.size(), kStructures.size() + 1);
}

TEST(Line, ReadsTheSillOfItsTable) {
  Session session;
  session.c0(kPair) = 1;
  session.c1(kPair) = 2;
  session.c2(kPair) = 3;
  session.c3(kPair) = 4;
  for (const Line which : kLines) {
    EXPECT_EQ(line(session, kPair, which).sill().number(), numberOf(which));
    EXPECT_EQ(line(session, kPair.exchanged(), which).sill().number(), 0);
  }
}

TEST(Line, WritesTheSillOfItsTable) {
  Session session;
  for (const Line which : kLines) line(session, kPair, which).sill() = numberOf(which);
  EXPECT_EQ(session.c0(kPair).number(), 1);
  EXPECT_EQ(session.c1(kPair).number(), 2);
  EXPECT_EQ(session.c2(kPair).number(), 3);
  EXPECT_EQ(session.c3(kPair).number(), 4);
}

TEST(Line, ReadsTheRangeOfItsTable) {
  Session session;
  session.a1(kPair) = 2;
  session.a2(kPair) = 3;
  session.a3(kPair) = 4;
  for (const Line structure : kStructures) {
    EXPECT_EQ(line(session, kPair, structure).range().number(), numberOf(structure));
    EXPECT_EQ(line(session, kPair.exchanged(), structure).range().number(), 0);
  }
}

TEST(Line, WritesTheRangeOfItsTable) {
  Session session;
  for (const Line structure : kStructures)
    line(session, kPair, structure).range() = numberOf(structure);
  EXPECT_EQ(session.a1(kPair).number(), 2);
  EXPECT_EQ(session.a2(kPair).number(), 3);
  EXPECT_EQ(session.a3(kPair).number(), 4);
}

TEST(Line, ReadsTheLetterOfItsTable) {
  Session session;
  session.model0(kPair) = "P";
  session.model1(kPair) = "S";
  session.model2(kPair) = "E";
  session.model3(kPair) = "G";
  EXPECT_EQ(line(session, kPair, Line::first).letter(), "S");
  EXPECT_EQ(line(session, kPair, Line::second).letter(), "E");
  EXPECT_EQ(line(session, kPair, Line::third).letter(), "G");
  for (const Line structure : kStructures)
    EXPECT_EQ(line(session, kPair.exchanged(), structure).letter(), "");
}

TEST(Line, WritesTheLetterOfItsTable) {
  Session session;
  line(session, kPair, Line::first).letter() = "S";
  line(session, kPair, Line::second).letter() = "E";
  line(session, kPair, Line::third).letter() = "G";
  EXPECT_EQ(session.model0(kPair), "");
  EXPECT_EQ(session.model1(kPair), "S");
  EXPECT_EQ(session.model2(kPair), "E");
  EXPECT_EQ(session.model3(kPair), "G");
}

TEST(Line, ReadsWithoutWritingToo) {
  Session session;
  const Session& shown = session;
  for (const Line structure : kStructures) {
    const LineRef at = line(session, kPair, structure);
    at.sill() = 1.5;
    at.range() = 2.5;
    at.letter() = "P";
    at.use(1);
    const ConstLineRef same = line(shown, kPair, structure);
    EXPECT_EQ(same.sill().number(), 1.5) << indexOf(structure);
    EXPECT_EQ(same.range().number(), 2.5) << indexOf(structure);
    EXPECT_EQ(same.letter(), "P") << indexOf(structure);
    EXPECT_EQ(same.flag().number(), 1) << indexOf(structure);
    EXPECT_EQ(same.used(), 1) << indexOf(structure);
    EXPECT_TRUE(same.isOn()) << indexOf(structure);
  }
}

TEST(Line, ANuggetHasNoRangeAndNoLetter) {
  Session session;
  const Session& shown = session;
  EXPECT_THROW(line(session, kPair, Line::nugget).range(), std::logic_error);
  EXPECT_THROW(line(session, kPair, Line::nugget).letter(), std::logic_error);
  EXPECT_THROW(line(shown, kPair, Line::nugget).range(), std::logic_error);
  EXPECT_THROW(line(shown, kPair, Line::nugget).letter(), std::logic_error);
}

TEST(Line, FaultsOutsideTheTables) {
  Session session;
  for (const Pair outside : {Pair{42, 1}, Pair{1, 22}, Pair{-1, 1}, Pair{1, -1}}) {
    for (const Line which : kLines) {
      SCOPED_TRACE(indexOf(which));
      const LineRef at = line(session, outside, which);
      EXPECT_THROW(at.flag(), Fault);
      EXPECT_THROW(at.used(), Fault);
      EXPECT_THROW(at.isOn(), Fault);
      EXPECT_THROW(at.use(1), Fault);
      EXPECT_THROW(at.sill(), Fault);
      if (which == Line::nugget) continue;
      EXPECT_THROW(at.range(), Fault);
      EXPECT_THROW(at.letter(), Fault);
    }
  }
}

TEST(Flags, OfEachLineHaveTheirTable) {
  Session session;
  session.use0(kPair) = 1;
  session.use1(kPair) = 2;
  session.use2(kPair) = 3;
  session.use3(kPair) = 4;
  for (const Line which : kLines) {
    EXPECT_EQ(line(session, kPair, which).used(), numberOf(which));
    EXPECT_EQ(line(session, kPair, which).flag().number(), numberOf(which));
    EXPECT_EQ(line(session, kPair.exchanged(), which).used(), 0);
  }
}

TEST(Flags, AreStoredInTheirTable) {
  Session session;
  for (const Line which : kLines) line(session, kPair, which).use(numberOf(which));
  EXPECT_EQ(session.use0(kPair).number(), 1);
  EXPECT_EQ(session.use1(kPair).number(), 2);
  EXPECT_EQ(session.use2(kPair).number(), 3);
  EXPECT_EQ(session.use3(kPair), 4);
}

TEST(Flags, AreOnAtOneAlone) {
  Session session;
  for (const Line which : kLines) {
    const LineRef at = line(session, kPair, which);
    for (const double flag : {0.0, 1.0, 2.0, -1.0}) {
      at.use(flag);
      EXPECT_EQ(at.isOn(), flag == 1) << indexOf(which) << ", " << flag;
    }
  }
  line(session, kPair, Line::first).use(0.5);
  EXPECT_FALSE(line(session, kPair, Line::first).isOn());
}

TEST(Flags, MayBeTextsButForStructure3) {
  Session session;
  for (const Line which : kWide) {
    const LineRef at = line(session, kPair, which);
    at.use(Cell::ofText("yes"));
    EXPECT_EQ(at.flag().toText(), "yes") << indexOf(which);
    EXPECT_TRUE(at.flag().isText()) << indexOf(which);
    EXPECT_THROW(at.used(), Fault) << indexOf(which);
    EXPECT_THROW(at.isOn(), Fault) << indexOf(which);
  }
  EXPECT_EQ(session.use2(kPair).toText(), "yes");
  const LineRef third = line(session, kPair, Line::third);
  third.use(1);
  EXPECT_THROW(third.use(Cell::ofText("yes")), Fault);
  EXPECT_EQ(session.use3(kPair), 1);
}

TEST(Flags, OfStructure3HaveSixteenBits) {
  Session session;
  const LineRef third = line(session, kPair, Line::third);
  third.use(0.5);
  EXPECT_EQ(session.use3(kPair), 0);
  third.use(1.5);
  EXPECT_EQ(session.use3(kPair), 2);
  EXPECT_THROW(third.use(32768), Fault);
  EXPECT_THROW(third.use(-32769), Fault);
  EXPECT_EQ(session.use3(kPair), 2);
  third.use(32767);
  EXPECT_EQ(third.used(), 32767);
  third.use(-32768);
  EXPECT_EQ(third.used(), -32768);
}

TEST(Flags, OfTheOthersHoldAnyNumber) {
  Session session;
  for (const Line which : kWide)
    for (const double flag : {0.5, 32768.0, -1e300}) {
      line(session, kPair, which).use(flag);
      EXPECT_EQ(line(session, kPair, which).used(), flag) << indexOf(which);
    }
}

TEST(TotalSill, AddsTheTickedSillsWhateverTheirLetters) {
  Session session;
  const double sills[] = {0.25, 0.5, 1, 2};
  // Ticked lines as bits, nugget first, and the sum of the sills in the same order.
  for (unsigned ticked = 0; ticked < 16; ++ticked) {
    double expected = 0;
    for (const Line which : kLines) {
      const bool isTicked = (ticked >> indexOf(which) & 1) != 0;
      const LineRef at = line(session, {4, 2}, which);
      at.use(isTicked);
      at.sill() = sills[indexOf(which)];
      if (isTicked) expected += sills[indexOf(which)];
    }
    EXPECT_EQ(totalSill(session, {4, 2}), expected) << ticked;
    EXPECT_EQ(hasModel(session, {4, 2}), ticked != 0) << ticked;
  }
  EXPECT_EQ(totalSill(session, {2, 4}), 0);
}

TEST(TotalSill, FaultsOnATextOrAnOverflow) {
  Session session;
  session.c1({1, 1}) = Cell::ofText("n.a.");
  EXPECT_THROW(totalSill(session, {1, 1}), Fault);
  session.c1({1, 1}) = 0;
  session.use2({1, 1}) = Cell::ofText("n.a.");
  EXPECT_THROW(totalSill(session, {1, 1}), Fault);
  EXPECT_THROW(hasModel(session, {1, 1}), Fault);
  session.use2({1, 1}) = 1;
  session.use1({1, 1}) = 1;
  session.c1({1, 1}) = kLargest;
  session.c2({1, 1}) = kLargest;
  EXPECT_THROW(totalSill(session, {1, 1}), Fault);
}

TEST(HasModel, AddsTheFlags) {
  Session session;
  session.use0({1, 1}) = 1;
  session.use3({1, 1}) = -1;
  EXPECT_FALSE(hasModel(session, {1, 1}));
}

}  // namespace
}  // namespace zevfit
