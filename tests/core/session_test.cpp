#include "session/session.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "session/fault.h"

namespace zevfit {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

TEST(Session, StartsWithAxisLegends) {
  const Session session;
  for (int variable = 0; variable <= 101; ++variable) {
    for (int direction = 0; direction <= 41; ++direction) {
      const bool filled = variable >= 1 && variable <= 100 && direction >= 1 && direction <= 40;
      ASSERT_EQ(session.xlegend(variable, direction), filled ? "h( )" : "")
          << variable << ", " << direction;
    }
  }
}

TEST(Session, StartsEmpty) {
  const Session session;
  EXPECT_EQ(session.inputfile, "");
  EXPECT_EQ(session.filetag, "");
  EXPECT_FALSE(session.loaded);
  EXPECT_EQ(session.nvar + session.nvarfile + session.ndir + session.nclass, 0);
  EXPECT_EQ(session.curvar, 0);
  EXPECT_EQ(session.curdir, 0);
  EXPECT_EQ(session.dragging, 0);
  EXPECT_EQ(session.showsill(1, 1), 0);
  EXPECT_EQ(session.model1(1, 1), "");
  EXPECT_EQ(session.a1(1, 1).number(), 0);
}

TEST(GraphStyle, StartsWithTheColoursOfAPlot) {
  const Session session;
  EXPECT_EQ(session.style.cores.Label1, 0);
  EXPECT_EQ(session.style.cores.Label2, 32768);
  EXPECT_EQ(session.style.cores.Label3, 16711680);
  EXPECT_EQ(session.style.cores.Label4, 255);
  EXPECT_EQ(session.style.cores.Label5, 16777215);
  EXPECT_EQ(session.axiscolor, session.style.cores.Label1);
}

TEST(GraphStyle, StartsWithTheFontsAndPatternsOfAPlot) {
  const Session session;
  const FormatSamples& samples = session.style.Formfont;
  const float sizes[] = {10.0F, 7.8F, 7.8F};
  const char* const captions[] = {"10", "7.8", "7.8"};
  for (std::size_t i = 0; i < 3; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(samples.Label2[i].fontname, "Times New Roman");
    EXPECT_EQ(samples.Label2[i].caption, "Times New Roman");
    EXPECT_EQ(samples.Label2[i].fontsize, sizes[i]);
    EXPECT_EQ(samples.Label3[i].caption, captions[i]);
    EXPECT_EQ(samples.Label3[i].fontsize, sizes[i]);
  }
  EXPECT_EQ(samples.formato[0], "#0.#0 ");
  EXPECT_EQ(samples.formato[1], "####.#0");
}

// One cell of every table that a reset touches: how it is spoilt and what it must be then.
struct ResetRow {
  const char* name;
  std::function<void(Session&, int, int)> spoil;
  std::function<bool(const Session&, int, int)> isReset;
};

ResetRow cellRow(const char* name, PairTable<Cell> Session::*table, double reset) {
  return {name, [=](Session& s, int v, int d) { (s.*table)(v, d) = Cell::ofText("x"); },
          [=](const Session& s, int v, int d) {
            const Cell& cell = (s.*table)(v, d);
            return !cell.isText() && cell.number() == reset;
          }};
}

template <class T, class Value>
ResetRow valueRow(const char* name, PairTable<T> Session::*table, Value spoilt, Value reset) {
  return {name, [=](Session& s, int v, int d) { (s.*table)(v, d) = T(spoilt); },
          [=](const Session& s, int v, int d) { return (s.*table)(v, d) == T(reset); }};
}

const std::vector<ResetRow>& resetRows() {
  static const std::vector<ResetRow> rows{cellRow("use0", &Session::use0, 0),
                                          cellRow("use1", &Session::use1, 0),
                                          cellRow("use2", &Session::use2, 0),
                                          cellRow("c0", &Session::c0, 0),
                                          cellRow("c1", &Session::c1, 0),
                                          cellRow("c2", &Session::c2, 0),
                                          cellRow("c3", &Session::c3, 0),
                                          cellRow("a1", &Session::a1, 1e-05),
                                          cellRow("a2", &Session::a2, 1e-05),
                                          cellRow("a3", &Session::a3, 1e-05),
                                          valueRow("use3", &Session::use3, 1, 0),
                                          valueRow("showsill", &Session::showsill, 0, 1),
                                          valueRow("model0", &Session::model0, "S", "-"),
                                          valueRow("model1", &Session::model1, "S", "-"),
                                          valueRow("model2", &Session::model2, "S", "-"),
                                          valueRow("model3", &Session::model3, "S", "-"),
                                          valueRow("ctotal", &Session::ctotal, 5.0, 0.0),
                                          valueRow("hmax", &Session::hmax, 5.0, 0.0),
                                          valueRow("gmax", &Session::gmax, 5.0, -1e-200),
                                          valueRow("gmin", &Session::gmin, 5.0, 1e+200),
                                          valueRow("ymax", &Session::ymax, 5.0, 0.0),
                                          valueRow("ymin", &Session::ymin, 5.0, 0.0),
                                          valueRow("xmax", &Session::xmax, 5.0, 0.0)};
  return rows;
}

void spoilAll(Session& session) {
  for (const ResetRow& row : resetRows()) {
    for (int v = 0; v < kVariableSlots; ++v) {
      for (int d = 0; d < kDirectionSlots; ++d) row.spoil(session, v, d);
    }
  }
}

TEST(Reset, SetsVariables1To40AndDirections1To20) {
  Session session;
  spoilAll(session);
  resetFitState(session);
  for (const ResetRow& row : resetRows()) {
    for (int v = 1; v <= 40; ++v) {
      for (int d = 1; d <= 20; ++d) {
        ASSERT_TRUE(row.isReset(session, v, d)) << row.name << " of " << v << ", " << d;
      }
    }
  }
}

TEST(Reset, LeavesSlots0And41And21) {
  Session session;
  spoilAll(session);
  resetFitState(session);
  const std::pair<int, int> untouched[] = {{41, 1},  {41, 20}, {1, 21}, {40, 21},
                                           {41, 21}, {0, 1},   {1, 0}};
  for (const ResetRow& row : resetRows()) {
    for (const auto& [v, d] : untouched) {
      EXPECT_FALSE(row.isReset(session, v, d)) << row.name << " of " << v << ", " << d;
    }
  }
}

TEST(Reset, LeavesTheRestOfTheSession) {
  Session session;
  session.atyped(1, 1) = 1;
  session.c0typed(1, 1) = 1;
  session.xlegend(1, 1) = "h(m)";
  session.ymax0(1, 1) = 3;
  session.ymin0(1, 1) = -3;
  session.varname(1) = "zinc";
  session.variance(1) = 2;
  session.addflag(1) = 1;
  session.nvar = 1;
  session.hlag.create(2);
  session.hlag.set(1, 1, 1, 94);
  resetFitState(session);
  EXPECT_EQ(session.atyped(1, 1), 1);
  EXPECT_EQ(session.c0typed(1, 1), 1);
  EXPECT_EQ(session.xlegend(1, 1), "h(m)");
  EXPECT_EQ(session.ymax0(1, 1), 3);
  EXPECT_EQ(session.ymin0(1, 1), -3);
  EXPECT_EQ(session.varname(1), "zinc");
  EXPECT_EQ(session.variance(1).number(), 2);
  EXPECT_EQ(session.addflag(1), 1);
  EXPECT_EQ(session.nvar, 1);
  EXPECT_EQ(session.hlag(1, 1, 1).number(), 94);
}

TEST(Flags, OfEachLineHaveTheirTable) {
  Session session;
  session.use0(2, 3) = 1;
  session.use1(2, 3) = 2;
  session.use2(2, 3) = 3;
  session.use3(2, 3) = 4;
  for (int line = 0; line < kLines; ++line) EXPECT_EQ(flag(session, line, 2, 3), line + 1);
  EXPECT_EQ(flag(session, 0, 3, 2), 0);
}

TEST(Flags, AreStoredInTheirTable) {
  Session session;
  for (int line = 0; line < kLines; ++line) setFlag(session, line, 2, 3, line + 1);
  EXPECT_EQ(session.use0(2, 3).number(), 1);
  EXPECT_EQ(session.use1(2, 3).number(), 2);
  EXPECT_EQ(session.use2(2, 3).number(), 3);
  EXPECT_EQ(session.use3(2, 3), 4);
}

TEST(Flags, MayBeTextsButForStructure3) {
  Session session;
  for (int line = 0; line < 3; ++line) {
    setFlag(session, line, 1, 1, Cell::ofText("yes"));
    EXPECT_THROW(flag(session, line, 1, 1), Fault) << line;
  }
  EXPECT_EQ(session.use2(1, 1).toText(), "yes");
  setFlag(session, 3, 1, 1, 1);
  EXPECT_THROW(setFlag(session, 3, 1, 1, Cell::ofText("yes")), Fault);
  EXPECT_EQ(session.use3(1, 1), 1);
}

TEST(Flags, OfStructure3HaveSixteenBits) {
  Session session;
  setFlag(session, 3, 1, 1, 0.5);
  EXPECT_EQ(session.use3(1, 1), 0);
  setFlag(session, 3, 1, 1, 1.5);
  EXPECT_EQ(session.use3(1, 1), 2);
  setFlag(session, 0, 1, 1, 0.5);
  EXPECT_EQ(flag(session, 0, 1, 1), 0.5);
  EXPECT_THROW(setFlag(session, 3, 1, 1, 32768), Fault);
  EXPECT_EQ(session.use3(1, 1), 2);
}

TEST(Flags, FaultOutsideTheTables) {
  Session session;
  EXPECT_THROW(flag(session, 0, 42, 1), Fault);
  EXPECT_THROW(flag(session, 3, 1, 22), Fault);
  EXPECT_THROW(flag(session, -1, 1, 1), Fault);
  EXPECT_THROW(flag(session, 4, 1, 1), Fault);
  EXPECT_THROW(setFlag(session, 4, 1, 1, 1), Fault);
  EXPECT_THROW(setFlag(session, 1, -1, 1, 1), Fault);
}

TEST(TotalSill, AddsTheTickedSillsWhateverTheirLetters) {
  Session session;
  const double sills[] = {0.25, 0.5, 1, 2};
  // Ticked lines as bits, nugget first, and the sum of the sills in the same order.
  for (int ticked = 0; ticked < 16; ++ticked) {
    double expected = 0;
    for (int line = 0; line < kLines; ++line) {
      const auto at = static_cast<std::size_t>(line);
      const int isTicked = ticked >> line & 1;
      setFlag(session, line, 4, 2, isTicked);
      (session.*kSillTable[at])(4, 2) = sills[at];
      if (isTicked) expected += sills[at];
    }
    EXPECT_EQ(totalSill(session, 4, 2), expected) << ticked;
    EXPECT_EQ(hasModel(session, 4, 2), ticked != 0) << ticked;
  }
  EXPECT_EQ(totalSill(session, 2, 4), 0);
}

TEST(TotalSill, FaultsOnATextOrAnOverflow) {
  Session session;
  session.c1(1, 1) = Cell::ofText("n.a.");
  EXPECT_THROW(totalSill(session, 1, 1), Fault);
  session.c1(1, 1) = 0;
  session.use2(1, 1) = Cell::ofText("n.a.");
  EXPECT_THROW(totalSill(session, 1, 1), Fault);
  EXPECT_THROW(hasModel(session, 1, 1), Fault);
  session.use2(1, 1) = 1;
  session.use1(1, 1) = 1;
  session.c1(1, 1) = kLargest;
  session.c2(1, 1) = kLargest;
  EXPECT_THROW(totalSill(session, 1, 1), Fault);
}

TEST(HasModel, AddsTheFlags) {
  Session session;
  session.use0(1, 1) = 1;
  session.use3(1, 1) = -1;
  EXPECT_FALSE(hasModel(session, 1, 1));
}

}  // namespace
}  // namespace zevfit
