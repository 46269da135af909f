// The table of results, and what a click on one of its rows carries into the fields of the axes.
#include "model/results.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "session/fault.h"
#include "tests/support/memory_axis_fields.h"
#include "tests/support/model_lines.h"

namespace zevfit {
namespace {

using test::MemoryAxisFields;
using Texts = std::vector<std::string>;

constexpr std::int64_t kVariable = 2;

/// Five directions of variable 2: all lines; the nugget alone; nothing; structure 2 alone, with a
/// smaller range than what came before; structures 1 and 3.
Session sample() {
  Session session;
  resetFitState(session);
  session.nvar = 3;
  session.ndir = 5;
  const char* names[] = {"0;0", "45;0", "90;0", "135;-30", " -45;30 "};
  for (int direction = 1; direction <= 5; ++direction)
    session.dirname(direction) = names[direction - 1];
  setNugget(session, {kVariable, 1}, 0.1);
  setStructure(session, {kVariable, 1}, Line::first, "S", 0.5, 100);
  setStructure(session, {kVariable, 1}, Line::second, "E", 0.25, 1400.5);
  setStructure(session, {kVariable, 1}, Line::third, "G", 1.0 / 3, 1e-5);
  session.ctotal({kVariable, 1}) = 1.25;
  setNugget(session, {kVariable, 2}, 0.2);
  session.ctotal({kVariable, 2}) = 0.2;
  setStructure(session, {kVariable, 4}, Line::second, "P", 3, 200);
  setStructure(session, {kVariable, 5}, Line::first, "S", 2, 50);
  setStructure(session, {kVariable, 5}, Line::third, "-", 4, 60);
  session.ctotal({kVariable, 5}) = 6;
  return session;
}

Texts shown(const ResultRow& row) { return {row.begin(), row.end()}; }

std::vector<ResultRow> filled(const Session& session, std::int64_t variable = kVariable) {
  std::vector<ResultRow> rows = emptyResults(session);
  EXPECT_EQ(fillResults(session, variable, rows), std::nullopt);
  return rows;
}

TEST(Results, RowsHoldDashesBeforeAVariableIsShown) {
  const std::vector<ResultRow> rows = emptyResults(sample());
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(shown(rows[1]),
            (Texts{"45;0", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-"}));
  EXPECT_EQ(rows[4][0], " -45;30 ");
}

TEST(Results, DirectionsBeyondTheTablesAreAFault) {
  Session session;
  for (const std::int64_t count : {std::int64_t{22}, std::int64_t{1} << 40, std::int64_t{-1}}) {
    session.ndir = count;
    EXPECT_THROW(emptyResults(session), Fault) << count;
  }
  session.ndir = 21;
  EXPECT_EQ(emptyResults(session).size(), 21U);
  session.ndir = 0;
  EXPECT_EQ(emptyResults(session).size(), 0U);
}

TEST(Results, EachLineShowsItsCellsOrDashes) {
  const std::vector<ResultRow> rows = filled(sample());
  EXPECT_EQ(shown(rows[0]), (Texts{"0;0", "0.1", "S", "0.5", "100", "E", "0.25", "1400.5", "G",
                                   "0.333333333333333", "1E-05", "1.25", "1400.5"}));
  // 1400.5 is left over from the direction before.
  EXPECT_EQ(shown(rows[1]),
            (Texts{"45;0", "0.2", "-", "-", "-", "-", "-", "-", "-", "-", "-", "0.2", "1400.5"}));
  EXPECT_EQ(shown(rows[2]),
            (Texts{"90;0", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-", "-"}));
  // 200 is not greater than what direction 1 has left; the total was never computed.
  EXPECT_EQ(shown(rows[3]),
            (Texts{"135;-30", "-", "-", "-", "-", "P", "3", "200", "-", "-", "-", "0", "1400.5"}));
  // Structure 1 sets it back to its own range, which structure 3 exceeds.
  EXPECT_EQ(shown(rows[4]),
            (Texts{" -45;30 ", "-", "S", "2", "50", "-", "-", "-", "-", "4", "60", "6", "60"}));
}

TEST(Results, EachStructureAloneAddsToTheMark) {
  for (const Line structure : kStructures) {
    Session session;
    resetFitState(session);
    session.ndir = 2;
    setStructure(session, {kVariable, 1}, structure, "E", 2, 30);
    session.ctotal({kVariable, 1}) = 2;
    const std::vector<ResultRow> rows = filled(session);
    EXPECT_EQ(rows[0][11] + " " + rows[0][12], "2 30") << indexOf(structure);
    EXPECT_EQ(rows[1][11] + " " + rows[1][12], "- -") << indexOf(structure);
  }
}

TEST(Results, TheLargestRangeIsNothingUntilAStructureHasOne) {
  Session session;
  resetFitState(session);
  session.ndir = 2;
  session.use0({kVariable, 1}) = 1;
  EXPECT_EQ(filled(session)[0][12], "");
  // A range that is not above 0 is none.
  for (const double range : {0.0, -5.0}) {
    setStructure(session, {kVariable, 1}, Line::second, "S", 1, range);
    EXPECT_EQ(filled(session)[0][12], "") << range;
  }
  // That of structure 1 counts whatever it is, and then -5 is greater.
  setStructure(session, {kVariable, 1}, Line::first, "S", 1, -7);
  EXPECT_EQ(filled(session)[0][12], "-5");
  session.use2({kVariable, 1}) = 0;
  EXPECT_EQ(filled(session)[0][12], "-7");
}

TEST(Results, ADifferentVariableReplacesAllRows) {
  const Session session = sample();
  std::vector<ResultRow> rows = filled(session);
  EXPECT_EQ(fillResults(session, 3, rows), std::nullopt);
  for (const ResultRow& row : rows)
    for (std::size_t column = 1; column < row.size(); ++column)
      EXPECT_EQ(row.at(column), "-") << row[0] << ", " << column;
}

TEST(Results, ALineWithAnotherFlagKeepsWhatItShows) {
  Session session = sample();
  std::vector<ResultRow> rows = filled(session);
  session.use0({3, 1}) = 2;
  session.use2({3, 1}) = 2;
  EXPECT_EQ(fillResults(session, 3, rows), std::nullopt);
  EXPECT_EQ(shown(rows[0]),
            (Texts{"0;0", "0.1", "-", "-", "-", "E", "0.25", "1400.5", "-", "-", "-", "-", "-"}));
}

TEST(Results, TextsStandAsTheFileHasThem) {
  Session session = sample();
  session.c0({kVariable, 2}) = Cell::ofText("low");
  session.c1({kVariable, 5}) = Cell::ofText("much");
  session.a1({kVariable, 1}) = Cell::ofText("far");
  session.use2({kVariable, 1}) = 0;
  session.use3({kVariable, 1}) = 0;
  session.ndir = 2;
  const std::vector<ResultRow> rows = filled(session);
  EXPECT_EQ(rows[0][4], "far");
  EXPECT_EQ(rows[0][12], "far");
  EXPECT_EQ(rows[1][1], "low");
  EXPECT_EQ(rows[1][12], "far");
}

struct TextRow {
  const char* what;
  PairTable<Cell> FitTables::*table;
  std::int64_t direction;
  const char* warning;
};

const TextRow kTexts[] = {
    {"flag of the nugget", &FitTables::use0, 5,
     "Illegal value for flag of Nugget Effect in Direction (-45;30): yes!"},
    {"flag of a structure", &FitTables::use1, 2,
     "Illegal value for flag of Structure 1 in Direction (45;0): yes!"},
    {"flag of structure 2", &FitTables::use2, 3,
     "Illegal value for flag of Structure 2 in Direction (90;0): yes!"},
    {"range that is compared", &FitTables::a2, 1,
     "Illegal value for range 'a2' in Direction (0;0): yes!"},
    {"range that later ones are compared with", &FitTables::a1, 5,
     "Illegal value for range 'a1' in Direction (-45;30): yes!"},
};

TEST(Results, ATextIsNoFlagAndCannotBeCompared) {
  for (const TextRow& row : kTexts) {
    Session session = sample();
    (session.*row.table)({kVariable, row.direction}) = Cell::ofText("yes");
    std::vector<ResultRow> rows = emptyResults(session);
    rows[0][1] = "before";
    const std::vector<ResultRow> before = rows;
    EXPECT_EQ(fillResults(session, kVariable, rows), row.warning) << row.what;
    EXPECT_EQ(rows, before) << row.what;
  }
  EXPECT_THROW(filled(sample(), kVariableSlots), Fault);
}

TEST(Results, ATotalIsAnotherOneThanTheSumOfItsTickedSills) {
  Session session = sample();
  const auto other = [&] {
    std::vector<bool> marks;
    const std::vector<ResultRow> rows = filled(session);
    for (std::int64_t direction = 1; direction <= 5; ++direction)
      marks.push_back(hasOtherTotal(session, {kVariable, direction},
                                    rows.at(static_cast<std::size_t>(direction - 1))));
    return marks;
  };
  // 0.1 + 0.5 + 0.25 + 1 / 3 is not 1.25; direction 3 has no model; that of direction 4 is 0.
  EXPECT_EQ(other(), (std::vector<bool>{true, false, false, true, false}));
  session.ctotal({kVariable, 1}) = 0.1 + 0.5 + 0.25 + 1.0 / 3;
  session.ctotal({kVariable, 4}) = 3;
  EXPECT_EQ(other(), std::vector<bool>(5, false));
  // A sill of a line that is not ticked takes no part, whatever it is.
  session.c2({kVariable, 5}) = Cell::ofText("much");
  EXPECT_FALSE(other()[4]);
  session.c3({kVariable, 5}) = Cell::ofText("much");
  EXPECT_TRUE(other()[4]);
  session.use0({kVariable, 2}) = 2;
  EXPECT_FALSE(other()[1]) << "no line is ticked, no total shown";
  session.c0({kVariable, 4}) = 1e308;
  session.c1({kVariable, 4}) = 1e308;
  session.use0({kVariable, 4}) = session.use1({kVariable, 4}) = 1;
  EXPECT_TRUE(other()[3]) << "a sum beyond all numbers";
}

/// The session of the sample, its rows and the fields.
struct Window {
  void click(std::int64_t direction, std::optional<Axis> target) {
    session.targetdir = target;
    transferRow(session, rows.at(static_cast<std::size_t>(direction - 1)), direction, fields,
                rowcells);
  }
  Texts main() const { return fields.all(Axis::main); }
  Texts minor1() const { return fields.all(Axis::minor1); }
  Texts minor2() const { return fields.all(Axis::minor2); }

  Session session = sample();
  std::vector<ResultRow> rows = filled(session);
  MemoryAxisFields fields;
  RowCells rowcells;
};

const Texts kEmpty{"", "", "", "", ""};
const Texts kFirstRow{"0", "0", "100", "1400.5", "1E-05"};
const Texts kFourthRow{"135", "-30", "-", "200", "-"};
const Texts kFifthRow{"-45", "30", "50", "-", "60"};

TEST(ResultsTransfer, WithoutATargetNothingIsCopied) {
  Window window;
  window.click(1, std::nullopt);
  EXPECT_EQ(window.main(), kEmpty);
  EXPECT_EQ(window.minor1(), kEmpty);
  EXPECT_EQ(window.minor2(), kEmpty);
  EXPECT_EQ(window.rowcells, RowCells());
}

TEST(ResultsTransfer, AFirstPickForMainFillsAllThree) {
  Window window;
  window.click(5, Axis::main);
  EXPECT_EQ(window.main(), kFifthRow);
  EXPECT_EQ(window.minor1(), kFifthRow);
  EXPECT_EQ(window.minor2(), kFifthRow);
  EXPECT_EQ(window.rowcells,
            (RowCells{"", "-", "1", "2", "50", "-", "-", "-", "-", "4", "60", "6", "60"}));
}

TEST(ResultsTransfer, EachLetterHasItsCodeInItsColumn) {
  Window window;
  window.click(1, Axis::main);
  EXPECT_EQ(window.rowcells, (RowCells{"", "0.1", "1", "0.5", "100", "2", "0.25", "1400.5", "3",
                                       "0.333333333333333", "1E-05", "1.25", "1400.5"}));
  window.click(4, Axis::main);
  EXPECT_EQ(window.rowcells,
            (RowCells{"", "-", "-", "-", "-", "4", "3", "200", "-", "-", "-", "0", "1400.5"}));
  // A letter elsewhere, and one that is none, stand as they are.
  window.rows[0] = {"0;0", "S", "s", "E", "G", "SE", "P", "S", " P", "E", "G", "S", "E"};
  window.click(1, Axis::main);
  EXPECT_EQ(window.rowcells,
            (RowCells{"", "S", "s", "E", "G", "SE", "P", "S", " P", "E", "G", "S", "E"}));
}

TEST(ResultsTransfer, ALaterPickForMainLeavesFilledMinorsAlone) {
  Window window;
  window.click(1, Axis::main);
  window.click(5, Axis::main);
  EXPECT_EQ(window.main(), kFifthRow);
  EXPECT_EQ(window.minor1(), kFirstRow);
  EXPECT_EQ(window.minor2(), kFirstRow);
  EXPECT_EQ(window.rowcells[4], "50");
}

TEST(ResultsTransfer, PicksForTheMinorsFillTheirOwnFieldsAlone) {
  Window window;
  window.click(1, Axis::main);
  const RowCells before = window.rowcells;
  window.click(4, Axis::minor1);
  window.click(5, Axis::minor2);
  EXPECT_EQ(window.main(), kFirstRow);
  EXPECT_EQ(window.minor1(), kFourthRow);
  EXPECT_EQ(window.minor2(), kFifthRow);
  EXPECT_EQ(window.rowcells, before);
}

TEST(ResultsTransfer, AMinorPickedBeforeMainStays) {
  Window window;
  window.click(5, Axis::minor1);
  EXPECT_EQ(window.main(), kEmpty);
  EXPECT_EQ(window.rowcells, RowCells());
  window.click(1, Axis::main);
  EXPECT_EQ(window.main(), kFirstRow);
  EXPECT_EQ(window.minor1(), kFifthRow);
  EXPECT_EQ(window.minor2(), kFirstRow);
}

// Direction 2 has a nugget alone, so its ranges are "-" and count as 0: the minors stay unset as
// long as their angles are 0 too.
TEST(ResultsTransfer, RangesOfDashesCountAsNoughts) {
  Window window;
  window.session.dirname(2) = "0;0";
  window.click(2, Axis::main);
  const Texts dashes{"0", "0", "-", "-", "-"};
  EXPECT_EQ(window.main(), dashes);
  EXPECT_EQ(window.minor1(), dashes);
  window.click(5, Axis::main);
  EXPECT_EQ(window.minor1(), kFifthRow);
  EXPECT_EQ(window.minor2(), kFifthRow);
  EXPECT_TRUE(window.fields.dialogs.shown.empty());
}

struct PriorRow {
  const char* what;
  Texts before, after;
};

// Minor 1 as it stands before direction 5 (-45;30 with 50, none, 60) is picked for Main.
const PriorRow kPrior[] = {
    {"noughts", {"0", "0", "0", "0", "0"}, kFifthRow},
    {"texts", {"x", "-", "abc", "", "-"}, kFifthRow},
    {"an azimuth alone", {"7", "0", "", "", ""}, {"7", "0", "", "", ""}},
    {"a dip alone", {"0", "7", "", "", ""}, {"0", "7", "", "", ""}},
    {"another range", {"0", "0", "", "", "1"}, {"0", "0", "", "", "1"}},
    {"the ranges of Main, as numbers",
     {"", "", "50.0", "0", "60"},
     {"-45", "30", "50.0", "0", "60"}},
    {"two of the ranges of Main", {"", "", "50", "1", "60"}, {"", "", "50", "1", "60"}},
};

TEST(ResultsTransfer, MinorsFollowAPickForMainByWhatTheyHold) {
  for (const PriorRow& row : kPrior) {
    for (const Axis minor : {Axis::minor1, Axis::minor2}) {
      Window window;
      window.fields.put(minor, row.before);
      window.click(5, Axis::main);
      EXPECT_EQ(window.fields.all(minor), row.after) << row.what;
    }
  }
}

TEST(ResultsTransfer, ANegativeRangeIsWarnedOfInEachFieldItFills) {
  Window window;
  window.rows[0][7] = "-3";
  window.click(1, Axis::main);
  EXPECT_EQ(window.fields.dialogs.shown,
            (Texts{"warning: Illegal value for range 'a2' of Main Direction!",
                   "warning: Illegal value for range 'a2' of minor1 Direction!",
                   "warning: Illegal value for range 'a2' of minor2 Direction!"}));
  const Texts corrected{"0", "0", "100", "0", "1E-05"};
  EXPECT_EQ(window.main(), corrected);
  EXPECT_EQ(window.minor2(), corrected);
  EXPECT_EQ(window.rowcells[7], "-3") << "the row stands as the table shows it";
}

TEST(ResultsTransfer, ANameWithoutASeparatorIsAFaultWhateverTheTarget) {
  const std::optional<Axis> targets[] = {std::nullopt, Axis::main, Axis::minor1, Axis::minor2};
  for (const std::optional<Axis> target : targets) {
    const int index = target ? static_cast<int>(*target) : -1;
    Window window;
    window.session.dirname(1) = " Omni ";
    EXPECT_EQ(rowRefusal(window.session, 1), "Direction (Omni) has no azimuth and dip, as in 0;0.");
    EXPECT_THROW(window.click(1, target), Fault) << index;
    EXPECT_EQ(window.rowcells, RowCells()) << index;
    for (const Axis axis : kAxes) EXPECT_EQ(window.fields.all(axis), kEmpty) << index;
  }
  EXPECT_EQ(rowRefusal(sample(), 5), std::nullopt);
  EXPECT_THROW(rowRefusal(sample(), kDirectionSlots), Fault);
}

}  // namespace
}  // namespace zevfit
