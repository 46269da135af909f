// The kriging file against the road of the program: the plots of all directions are opened, the
// results filled, three rows clicked and the file composed. A line that the panel shows settles on
// the steps of the sliders; the file that zvm reads may lie between them.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "files/kriging_file.h"
#include "files/variogram_reader.h"
#include "model/results.h"
#include "plot/window/activation.h"
#include "session/numbers.h"
#include "tests/support/memory_axis_fields.h"
#include "tests/support/plot_bench.h"
#include "tests/zvm/exchange/exchange_sample.h"

namespace zevfit::exchange {
namespace {

using test::MemoryAxisFields;

/// Opens the plot of every direction, and each window becomes the active one.
void openAll(PlotBench& bench) {
  for (std::int64_t direction = 1; direction <= bench.session.ndir; ++direction) {
    bench.session.setCurrent({1, direction});
    bench.plotvariogram();
    activatePlotWindow(bench.fit, bench.window({1, direction}));
  }
}

AxisTexts textsOf(const MemoryAxisFields& fields, Axis axis) {
  AxisTexts texts;
  for (std::size_t entry = 0; entry < kAxisEntries; ++entry)
    texts.at(entry) = fields.text(axis, entry);
  return texts;
}

/// What the results window writes after openAll.
std::string byHand(PlotBench& bench, std::array<std::int64_t, 3> picks) {
  openAll(bench);
  Session& session = bench.session;
  std::vector<ResultRow> rows = emptyResults(session);
  EXPECT_EQ(fillResults(session, 1, rows), std::nullopt);
  MemoryAxisFields fields;
  RowCells rowcells;
  for (const Axis axis : kAxes) {
    const std::int64_t direction = picks.at(static_cast<std::size_t>(axis));
    session.targetdir = axis;
    transferRow(session, rows.at(static_cast<std::size_t>(direction - 1)), direction, fields,
                rowcells);
  }
  return composeKrigingFile({session.filetag, session.varname(1), textsOf(fields, Axis::main),
                             textsOf(fields, Axis::minor1), textsOf(fields, Axis::minor2),
                             rowcells});
}

/// A model block whose structures stand along all directions, with ranges and sills of their own.
class RandomFile {
 public:
  RandomFile(unsigned seed, std::string_view letters) : source_(seed), letters_(letters) {}

  Session session() {
    Session session;
    std::string text = "t\nzevRA1\n1\n v\xe9 \n4\n2\n0;0\n90;0\n0;90\n45;0\n2.5\n";
    for (int direction = 0; direction < 4; ++direction) text += "10 1 9\n500 2 9\n";
    EXPECT_TRUE(readVariogramBytes(text + models(), session));
    acceptLoad(session, "v.zvm");
    return session;
  }

 private:
  int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(source_); }
  double number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(source_);
  }

  std::string models() {
    const int structures = 1 + below(3);
    std::string letters;
    for (int at = 0; at < structures; ++at)
      letters += letters_.at(static_cast<std::size_t>(below(static_cast<int>(letters_.size()))));
    const double exponent = number(0.1, 2);
    const bool hasNugget = below(2) == 0;
    std::string text;
    for (int direction = 0; direction < 4; ++direction) {
      text += hasNugget ? "1\n" + generalText(number(0, 1)) + "\n" : "0\n0\n";
      for (int at = 0; at < 3; ++at) text += structure(letters, at, exponent);
    }
    return text;
  }

  std::string structure(const std::string& letters, int at, double exponent) {
    if (at >= static_cast<int>(letters.size())) return "0\n-\n0\n0.0001\n";
    const char letter = letters[static_cast<std::size_t>(at)];
    const double range = letter == 'P' ? exponent : below(20) == 0 ? 0 : number(1, 3000);
    return "1\n" + std::string(1, letter) + "\n" + generalText(number(0, 2)) + "\n" +
           generalText(range) + "\n";
  }

  std::mt19937 source_;
  std::string_view letters_;
};

void expectSameBytes(PlotBench& bench, unsigned seed) {
  const Session session = bench.session;
  Request request = requestFor(Target::zvp);
  request.minor2 = 3;
  EXPECT_EQ(exportModel(session, request).text, byHand(bench, {1, 2, 3})) << seed;
  request.minor2.reset();
  EXPECT_EQ(exportModel(session, request).text, byHand(bench, {1, 2, 2})) << seed;
  request.main = 2;
  request.minor1 = 3;
  request.minor2 = 1;
  EXPECT_EQ(exportModel(session, request).text, byHand(bench, {2, 3, 1})) << seed;
}

TEST(KrigingTarget, HasTheBytesOfTheResultsWindow) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    PlotBench bench;
    bench.session = RandomFile(seed, "SEGP").session();
    bench.session.modelshown = true;
    expectSameBytes(bench, seed);
  }
}

// Structure 1 is on the panel and has settled before. Exponents would settle on one of their own in
// each direction.
TEST(KrigingTarget, HasThemWithALineOnThePanel) {
  for (unsigned seed = 1; seed <= 25; ++seed) {
    PlotBench bench;
    bench.session = RandomFile(seed, "SEG").session();
    for (int round = 0; round < 3; ++round) openAll(bench);
    EXPECT_EQ(bench.session.sel, Line::first);
    expectSameBytes(bench, seed);
  }
}

TEST(KrigingTarget, IsThis) {
  EXPECT_EQ(exported(exampleFile(), Target::zvp),
            "ZGRD\r\nzevRA1\r\nln zinc\r\n 45 \r\n 0 \r\n 3 \r\n 0.1 \r\n0.9\r\n"
            "1             0.5            1000         2.5           2.5\r\n"
            "2             0.3            250.5        1.            1.\r\n"
            " 135 \r\n 0 \r\n 135 \r\n 0 \r\n");
}

TEST(KrigingTarget, IsRefusedWhereTheWindowRefusesIt) {
  Session session = exampleFile();
  Request request = requestFor(Target::zvp);
  request.minor1.reset();
  EXPECT_EQ(
      refusalOf(session, request),
      "Main / Minor 1 directions are not orthogonals ! Without --minor1 that is Main; a kriging "
      "file takes two at right angles.");
  request.minor1 = request.main;
  EXPECT_EQ(refusalOf(session, request), "Main / Minor 1 directions are not orthogonals !");
  for (const std::int64_t direction : {1, 2}) {
    session.use1({1, direction}) = 0;
    session.use2({1, direction}) = 0;
  }
  EXPECT_EQ(refusalOf(session, requestFor(Target::zvp)),
            "File ' meuse.zvm ' have no parameters, please run  zevFIT program!");
}

TEST(KrigingTarget, WarnsOfAGap) {
  Session session = exampleFile();
  for (const std::int64_t direction : {1, 2}) session.use1({1, direction}) = 0;
  Request request = requestFor(Target::zvp);
  EXPECT_EQ(exportModel(session, request).warnings,
            Warnings{"ln zinc: an unused structure stands before a used one; a kriging file with "
                     "such a gap has no structures"});
}

}  // namespace
}  // namespace zevfit::exchange
