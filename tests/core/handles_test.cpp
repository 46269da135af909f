#include <gtest/gtest.h>

#include <string>

#include "plot/window/handles.h"
#include "session/fault.h"
#include "session/line.h"
#include "tests/support/model_lines.h"

namespace zevfit {

static void PrintTo(const Point& point, std::ostream* out) {
  *out << "(" << point.x << ", " << point.y << ")";
}

namespace {

// The standard picture: the box goes from 800 to 5668 and from 600 to 3120.
constexpr PlotBox kBox{6468, 3720};
// A unit of distance is 48.68 wide, one of semivariance 252 high.
constexpr PlotMap kMap{kBox, 100, 0, 10};

TEST(Handles, BoxContainsItsEdges) {
  struct {
    const char* name;
    Point at;
    bool inside;
  } const rows[] = {
      {"upper left corner", {800, 600}, true}, {"lower right corner", {5668, 3120}, true},
      {"middle", {3000, 2000}, true},          {"left of it", {799.9, 2000}, false},
      {"right of it", {5668.1, 2000}, false},  {"above it", {3000, 599.9}, false},
      {"below it", {3000, 3120.1}, false},
  };
  for (const auto& row : rows) EXPECT_EQ(contains(kBox, row.at), row.inside) << row.name;
}

TEST(Handles, KeepTheMouseInTheBox) {
  struct {
    const char* name;
    Point at, held;
  } const rows[] = {
      {"inside", {3000, 2000}, {3000, 2000}},
      {"lower right corner", {5668, 3120}, {5668, 3120}},
      {"far below", {3000, 90000}, {3000, 3120}},
      {"far to the right", {90000, 2000}, {5668, 2000}},
      {"far above", {3000, -90000}, {3000, 600}},
      {"far to the left", {-90000, 2000}, {800, 2000}},
      {"past two edges", {-1, 3121}, {800, 3120}},
      {"past the other two", {5669, 599}, {5668, 600}},
  };
  for (const auto& row : rows) EXPECT_EQ(heldInside(kBox, row.at), row.held) << row.name;
}

TEST(Handles, UpperAndLeftEdgeWinInABoxOfNoSize) {
  // The box of this picture would go from 800 to 200 and from 600 to 400.
  const PlotBox box{1000, 1000};
  for (const Point at : {Point{0, 0}, Point{500, 500}, Point{3000, 3000}})
    EXPECT_EQ(heldInside(box, at), (Point{800, 600}));
}

TEST(Handles, ReadTheSillFromTheHeight) {
  struct {
    const char* name;
    double ymin, ymax, y, sill;
  } const rows[] = {
      {"bottom", 0, 10, 3120, 0},
      {"top", 0, 10, 600, 10},
      {"quarter", 0, 10, 2490, 2.5},  // (2490 - 3120) / (600 - 3120) = 0.25
      {"one unit", 0, 10, 2868, 1},
      {"bottom of a negative axis", -4, 12, 3120, -4},
      {"top of a negative axis", -4, 12, 600, 12},
      {"middle of a negative axis", -4, 12, 1860, 4},  // 0.5 * 16 - 4
      {"outside, as it is not clamped here", 0, 10, 348, 11},
  };
  for (const auto& row : rows)
    EXPECT_DOUBLE_EQ(sillAt({kBox, 100, row.ymin, row.ymax}, row.y), row.sill) << row.name;
}

TEST(Handles, ReadTheRangeFromTheWidth) {
  struct {
    const char* name;
    double xmax, x, range;
  } const rows[] = {
      {"left edge", 100, 800, 0},        {"right edge", 100, 5668, 100},
      {"quarter", 100, 2017, 25},  // (2017 - 800) / 4868 = 0.25
      {"of a shorter axis", 8, 2017, 2}, {"no axis yet", 0, 2017, 0},
  };
  for (const auto& row : rows)
    EXPECT_DOUBLE_EQ(rangeAt({kBox, row.xmax, 0, 10}, row.x), row.range) << row.name;
}

TEST(Handles, EdgesReadExactly) {
  const PlotMap map{kBox, 1234.56789, 0, 0.123456789};
  EXPECT_EQ(sillAt(map, 3120), 0);
  EXPECT_EQ(sillAt(map, 600), 0.123456789);
  EXPECT_EQ(rangeAt(map, 800), 0);
  EXPECT_EQ(rangeAt(map, 5668), 1234.56789);
  // In doubles 0.3 - -0.1 - 0.1 is more than 0.3.
  EXPECT_EQ(sillAt({kBox, 1, -0.1, 0.3}, 600), 0.3);
  EXPECT_EQ(sillAt({kBox, 1, -0.1, 0.3}, 3120), -0.1);
}

TEST(Handles, InverseMapsUndoTheMaps) {
  const PlotMap map{{4431, 2917}, 73.5, -1.25, 6.5};
  for (const double value : {0.0, 0.7, 3.3, 6.5}) {
    EXPECT_NEAR(sillAt(map, map.y(value)), value, 1e-12);
    EXPECT_NEAR(rangeAt(map, map.x(value)), value, 1e-12);
  }
}

TEST(Handles, BoxOfNoHeightOrWidthIsAFault) {
  EXPECT_THROW(sillAt({{6468, 1200}, 100, 0, 10}, 600), Fault);
  EXPECT_THROW(rangeAt({{1600, 3720}, 100, 0, 10}, 800), Fault);
}

TEST(Handles, WriteWhatTheAxisOfTheDragSays) {
  struct {
    Line handle;
    DragAxis dragaxis;
    bool sill;
  } const rows[] = {
      {Line::nugget, DragAxis::unset, true},  {Line::nugget, DragAxis::range, true},
      {Line::nugget, DragAxis::sill, true},   {Line::first, DragAxis::sill, true},
      {Line::first, DragAxis::range, false},  {Line::first, DragAxis::unset, false},
      {Line::second, DragAxis::sill, true},   {Line::second, DragAxis::range, false},
      {Line::second, DragAxis::unset, false}, {Line::third, DragAxis::sill, true},
      {Line::third, DragAxis::range, false},  {Line::third, DragAxis::unset, false},
  };
  for (const auto& row : rows) {
    const std::string name = "handle " + std::to_string(indexOf(row.handle)) + " axis " +
                             std::to_string(static_cast<int>(row.dragaxis));
    const DragTarget target = dragTarget(row.handle, row.dragaxis);
    EXPECT_EQ(target.upright, row.sill) << name;
    EXPECT_EQ(target.field, row.sill ? Field::c0 : Field::a) << name;
    EXPECT_STREQ(target.pattern, row.sill ? "#####.###" : "####.###") << name;
  }
}

constexpr Pair kPair{1, 2};

/// All lines in use.
Session modelOfAllLines(double range, double sill) {
  Session session;
  setNugget(session, kPair, sill);
  for (const Line structure : kStructures) setStructure(session, kPair, structure, "", sill, range);
  return session;
}

TEST(Handles, StandAtRangeAndSillOfTheirLine) {
  // The sill 2.5 stands at 3120 - 630. The range 25 stands at 800 + 0.25 * 4868, for structures 2
  // and 3 at 800 + 0.25 * 4068, since their axis ends at 4868.
  const Session session = modelOfAllLines(25, 2.5);
  const Point expected[] = {{2400, 2490}, {2017, 2490}, {1817, 2490}, {1817, 2490}};
  for (const Line handle : kLines) {
    const auto place = handlePlace(session, kMap, handle, kPair);
    ASSERT_TRUE(place) << indexOf(handle);
    EXPECT_EQ(*place, expected[indexOf(handle)]) << indexOf(handle);
  }
  EXPECT_FALSE(handleForm(Line::nugget).leftOfPlace);
  EXPECT_TRUE(handleForm(Line::first).leftOfPlace);
  EXPECT_FALSE(handleForm(Line::second).leftOfPlace);
  EXPECT_FALSE(handleForm(Line::third).leftOfPlace);
}

TEST(Handles, StayHiddenOutsideTheBoxWithTheirOwnRightEnd) {
  struct {
    const char* name;
    double range, sill;
    bool shown[4];
  } const rows[] = {
      {"the corner of zero", 0, 0, {true, true, true, true}},
      {"the far corner", 100, 10, {true, true, true, true}},
      {"past the right end", 100.01, 5, {true, false, false, false}},
      {"before the left end", -0.01, 5, {true, false, false, false}},
      {"above", 50, 10.01, {false, false, false, false}},
      {"below", 50, -0.01, {false, false, false, false}},
  };
  for (const auto& row : rows) {
    const Session session = modelOfAllLines(row.range, row.sill);
    for (const Line handle : kLines)
      EXPECT_EQ(handlePlace(session, kMap, handle, kPair).has_value(), row.shown[indexOf(handle)])
          << row.name << ", handle " << indexOf(handle);
  }
}

TEST(Handles, OfTheNuggetNeedsRoomForItsFixedPlace) {
  const Session session = modelOfAllLines(0, 5);
  // The right end of the first picture is at 2400, of the second just before.
  EXPECT_TRUE(handlePlace(session, {{3200, 3720}, 100, 0, 10}, Line::nugget, kPair));
  EXPECT_FALSE(handlePlace(session, {{3199, 3720}, 100, 0, 10}, Line::nugget, kPair));
}

TEST(Handles, StayHiddenWithoutTheirLine) {
  for (const Line handle : kLines) {
    Session session = modelOfAllLines(25, 2.5);
    line(session, kPair, handle).use(0);
    EXPECT_FALSE(handlePlace(session, kMap, handle, kPair)) << indexOf(handle);
  }
}

bool placingFaults(const Session& session, const PlotMap& map, Line handle) {
  try {
    handlePlace(session, map, handle, kPair);
    return false;
  } catch (const Fault&) {
    return true;
  }
}

TEST(Handles, FaultOnlyWhereTheirLineNeedsTheValue) {
  struct {
    const char* name;
    double xmax, ymax;
    bool faults[4];
  } const rows[] = {
      {"no distance axis", 0, 10, {false, true, true, true}},
      {"no semivariance axis", 100, 0, {true, true, true, true}},
  };
  const Session session = modelOfAllLines(25, 2.5);
  for (const auto& row : rows) {
    for (const Line handle : kLines) {
      const PlotMap map{kBox, row.xmax, 0, row.ymax};
      EXPECT_EQ(placingFaults(session, map, handle), row.faults[indexOf(handle)])
          << row.name << indexOf(handle);
    }
  }
}

TEST(Handles, FaultAtATextInPlaceOfANumber) {
  for (const Line handle : kLines) {
    Session session = modelOfAllLines(25, 2.5);
    line(session, kPair, handle).sill() = Cell::ofText("n.a.");
    EXPECT_THROW(handlePlace(session, kMap, handle, kPair), Fault) << indexOf(handle);
  }
  for (const Line handle : kStructures) {
    Session session = modelOfAllLines(25, 2.5);
    line(session, kPair, handle).range() = Cell::ofText("n.a.");
    EXPECT_THROW(handlePlace(session, kMap, handle, kPair), Fault) << indexOf(handle);
  }
}

}  // namespace
}  // namespace zevfit
