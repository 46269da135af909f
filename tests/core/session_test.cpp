#include "session/session.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "session/fault.h"

namespace zevfit {
namespace {

TEST(Session, StartsWithAxisLegends) {
  const Session session;
  for (int variable = 0; variable <= 101; ++variable) {
    for (int direction = 0; direction <= 41; ++direction) {
      const bool filled = variable >= 1 && variable <= 100 && direction >= 1 && direction <= 40;
      ASSERT_EQ(session.xlegend({variable, direction}), filled ? "h( )" : "")
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
  EXPECT_FALSE(session.dragging);
  EXPECT_FALSE(session.showsill({1, 1}));
  EXPECT_EQ(session.model1({1, 1}), "");
  EXPECT_EQ(session.a1({1, 1}).number(), 0);
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
  std::function<void(Session&, Pair)> spoil;
  std::function<bool(const Session&, Pair)> isReset;
};

ResetRow cellRow(const char* name, PairTable<Cell> Session::*table, double reset) {
  return {name, [=](Session& s, Pair pair) { (s.*table)(pair) = Cell::ofText("x"); },
          [=](const Session& s, Pair pair) {
            const Cell& cell = (s.*table)(pair);
            return !cell.isText() && cell.number() == reset;
          }};
}

template <class Tables, class T, class Value>
ResetRow valueRow(const char* name, PairTable<T> Tables::*table, Value spoilt, Value reset) {
  return {name, [=](Session& s, Pair pair) { (s.*table)(pair) = T(spoilt); },
          [=](const Session& s, Pair pair) { return (s.*table)(pair) == T(reset); }};
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
                                          valueRow("showsill", &Session::showsill, false, true),
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
      for (int d = 0; d < kDirectionSlots; ++d) row.spoil(session, {v, d});
    }
  }
}

/// The message of the fault that a call ends with.
std::string faultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "no fault";
}

TEST(Session, NamesItsTablesInFaults) {
  Session session;
  const std::string outside = "Subscript out of range: ";
  for (const ResetRow& row : resetRows())
    EXPECT_EQ(faultOf([&] { row.spoil(session, {43, 1}); }), outside + row.name + "(43, 1)");
  const Pair inside{1, 2}, beyond{1, 22}, wide{22, 42};
  const struct {
    const char* subscript;
    std::function<void()> read;
  } rows[] = {{"varname(43)", [&] { session.varname(43); }},
              {"dirname(22)", [&] { session.dirname(22); }},
              {"variance(-1)", [&] { session.variance(-1); }},
              {"addflag(42)", [&] { session.addflag(42); }},
              {"hlag(1, 2, 3)", [&] { session.hlag(inside, 3); }},
              {"gam(1, 2, 3)", [&] { session.gam(inside, 3); }},
              {"npairs(1, 2, 3)", [&] { session.npairs(inside, 3); }},
              {"atyped(1, 22)", [&] { session.atyped(beyond); }},
              {"c0typed(1, 22)", [&] { session.c0typed(beyond); }},
              {"ymax0(1, 22)", [&] { session.ymax0(beyond); }},
              {"ymin0(1, 22)", [&] { session.ymin0(beyond); }},
              {"xlegend(22, 42)", [&] { session.xlegend(wide); }},
              {"curveh(101)", [&] { session.curveh(101); }},
              {"curvegam(101)", [&] { session.curvegam(101); }},
              {"curverow of the nugget(101)", [&] { session.curverow[0](101); }},
              {"curverow of structure 1(101)", [&] { session.curverow[1](101); }},
              {"curverow of structure 2(101)", [&] { session.curverow[2](101); }},
              {"curverow of structure 3(101)", [&] { session.curverow[3](101); }}};
  for (const auto& row : rows) EXPECT_EQ(faultOf(row.read), outside + row.subscript);
}

TEST(Reset, SetsVariables1To40AndDirections1To20) {
  Session session;
  spoilAll(session);
  resetFitState(session);
  for (const ResetRow& row : resetRows()) {
    for (int v = 1; v <= 40; ++v) {
      for (int d = 1; d <= 20; ++d) {
        ASSERT_TRUE(row.isReset(session, {v, d})) << row.name << " of " << v << ", " << d;
      }
    }
  }
}

TEST(Reset, LeavesSlots0And41And21) {
  Session session;
  spoilAll(session);
  resetFitState(session);
  const Pair untouched[] = {{41, 1}, {41, 20}, {1, 21}, {40, 21}, {41, 21}, {0, 1}, {1, 0}};
  for (const ResetRow& row : resetRows()) {
    for (const Pair pair : untouched) {
      EXPECT_FALSE(row.isReset(session, pair))
          << row.name << " of " << pair.variable << ", " << pair.direction;
    }
  }
}

TEST(Reset, LeavesTheRestOfTheSession) {
  Session session;
  session.atyped({1, 1}) = true;
  session.c0typed({1, 1}) = true;
  session.xlegend({1, 1}) = "h(m)";
  session.ymax0({1, 1}) = 3;
  session.ymin0({1, 1}) = -3;
  session.varname(1) = "zinc";
  session.variance(1) = 2;
  session.addflag(1) = true;
  session.nvar = 1;
  session.hlag.create(2);
  session.hlag.set({1, 1}, 1, 94);
  resetFitState(session);
  EXPECT_TRUE(session.atyped({1, 1}));
  EXPECT_TRUE(session.c0typed({1, 1}));
  EXPECT_EQ(session.xlegend({1, 1}), "h(m)");
  EXPECT_EQ(session.ymax0({1, 1}), 3);
  EXPECT_EQ(session.ymin0({1, 1}), -3);
  EXPECT_EQ(session.varname(1), "zinc");
  EXPECT_EQ(session.variance(1).number(), 2);
  EXPECT_TRUE(session.addflag(1));
  EXPECT_EQ(session.nvar, 1);
  EXPECT_EQ(session.hlag({1, 1}, 1).number(), 94);
}

}  // namespace
}  // namespace zevfit
