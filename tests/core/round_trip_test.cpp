// What is written reads back: random sessions, and a real file.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <random>
#include <string>

#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "session/line.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "tests/support/model_lines.h"
#include "tests/support/same_tables.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/writing.h"

namespace zevfit::test {
namespace {

/// Random sessions, the same ones on every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}

  int upTo(int most) { return static_cast<int>(engine_() % (static_cast<unsigned>(most) + 1)); }
  bool once(int in) { return upTo(in - 1) == 0; }

  /// Any size, with at most 15 digits, as a file can hold it.
  double number() {
    const double digits = std::ldexp(static_cast<double>(engine_()), upTo(20)) / 1000003.0;
    const double sized = digits * std::pow(10, upTo(1) == 0 ? 0 : upTo(60) - 30);
    return leadingNumber(generalText(once(3) ? -sized : sized));
  }
  Cell cell() { return once(12) ? Cell::ofText(once(2) ? "n.a." : "1e999") : Cell(number()); }
  float pairs() { return once(9) ? 0.5F + 1e9F / 3 : static_cast<float>(upTo(9'999'999)); }
  std::string name() {
    const std::string letters = "abcXYZ 09-_;.()/\"'\xE3\t";
    std::string text(1, "azAZ09-(."[upTo(8)]);
    for (int left = upTo(12); left > 0; --left)
      text += letters[static_cast<std::size_t>(upTo(static_cast<int>(letters.size()) - 1))];
    return text;
  }

 private:
  std::mt19937 engine_;
};

void throwModel(Dice& dice, Session& session, Pair pair) {
  for (const Line which : kLines) {
    const LineRef at = line(session, pair, which);
    at.use(dice.upTo(1));
    at.sill() = dice.cell();
    if (which == Line::nugget) continue;
    at.range() = dice.cell();
    at.letter() = std::string(1, "SEGP-"[dice.upTo(4)]);
  }
}

void throwClasses(Dice& dice, Session& session, Pair pair) {
  for (std::int64_t lag = 1; lag <= session.nclass; ++lag) {
    session.hlag.set(pair, lag, dice.cell());
    session.gam.set(pair, lag, dice.number());
    session.npairs.set(pair, lag, dice.pairs());
  }
}

Session throwSession(Dice& dice) {
  Session session;
  session.nvar = dice.once(8) ? 41 : dice.upTo(4);
  session.ndir = dice.once(8) ? 21 : dice.upTo(4);
  session.nclass = dice.upTo(9);
  session.hlag.create(session.nclass);
  session.gam.create(session.nclass);
  session.npairs.create(session.nclass);
  for (std::int64_t d = 1; d <= session.ndir; ++d) session.dirname(d) = dice.name();
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    session.varname(v) = dice.name();
    session.variance(v) = dice.cell();
    for (std::int64_t d = 1; d <= session.ndir; ++d) {
      throwClasses(dice, session, {v, d});
      throwModel(dice, session, {v, d});
    }
  }
  return session;
}

TEST(RoundTrip, OfRandomSessionsGivesTheSameTables) {
  for (unsigned seed = 1; seed <= 40; ++seed) {
    Dice dice(seed);
    Session session = throwSession(dice);
    const std::int64_t variables = session.nvar;
    const std::string bytes = written(session, variables);
    session.nvar = variables;
    session.filetag = "zevRA1";
    Session again;
    ASSERT_TRUE(readVariogramBytes(bytes, again)) << "seed " << seed;
    ASSERT_EQ(dataText(again), dataText(session)) << "seed " << seed;
    dropUnused(session);
    ASSERT_EQ(modelTexts(again), modelTexts(session)) << "seed " << seed;
    // And the same bytes once more.
    ASSERT_EQ(written(again, variables, bytes), bytes) << "seed " << seed;
  }
}

std::filesystem::path meuse() {
  return std::filesystem::path(ZEVFIT_SOURCE_DIR) / "examples/meuse.zvm";
}

TEST(Meuse, ReadsAsItStands) {
  Session session;
  ASSERT_TRUE(readVariogramFile(meuse(), session));
  EXPECT_EQ(session.filetag, "zevra");
  EXPECT_FALSE(session.hasmodel);
  EXPECT_EQ(session.nvar, 7);
  EXPECT_EQ(session.ndir, 4);
  EXPECT_EQ(session.nclass, 14);
  EXPECT_EQ(session.varname(1), "ln zinc");
  EXPECT_EQ(session.varname(7), "lead-copp");
  EXPECT_EQ(session.dirname(4), "135;0");
  EXPECT_EQ(session.variance(1).number(), 0.517227323420493);
  EXPECT_EQ(classText(session, {1, 1}, 1), "94.2307076789621 0.268312293736626 18");
  EXPECT_EQ(classText(session, {1, 2}, 1), "89.483017605091 0.117443637121727 14");
  EXPECT_EQ(session.hmax({1, 1}), 1614.17777265153);
  EXPECT_EQ(session.gmax({1, 1}), 0.945892127574433);
  EXPECT_EQ(session.gmin({1, 1}), 0.183934510417175);
  // The highest value lies above the variance, the lowest above 0.
  EXPECT_DOUBLE_EQ(session.ymax({1, 1}), 1.06 * 0.945892127574433);
  EXPECT_EQ(session.ymin({1, 1}), 0);
}

TEST(Meuse, SaveAndReloadKeepEveryTable) {
  const ScratchFolder folder;
  const std::filesystem::path file = folder / "meuse.zvm";
  std::filesystem::copy_file(meuse(), file);
  Session session;
  ASSERT_TRUE(readVariogramFile(file, session));
  acceptLoad(session, file);
  setNugget(session, {1, 1}, 0.05);
  setStructure(session, {1, 1}, Line::first, "S", 0.65, 1100.5);
  ScriptedDialogs dialogs;
  ModelSaver(folder.path()).gravando(session, 7, dialogs);
  ASSERT_EQ(dialogs.shown.back(), savedBox(file.string()));

  // The file itself keeps its lines up to the models, but for the tag.
  std::string old = contentOf(meuse());
  old.replace(old.find("zevra"), 5, "zevRA1");
  EXPECT_TRUE(contentOf(file).starts_with(old));

  Session again;
  ASSERT_TRUE(readVariogramFile(file, again));
  session.filetag = "zevRA1";
  EXPECT_EQ(dataText(again), dataText(session));
  for (const auto table : {&Session::hmax, &Session::gmax, &Session::gmin, &Session::ymax,
                           &Session::ymin, &Session::ymax0, &Session::ymin0})
    for (int v = 1; v <= 7; ++v)
      for (int d = 1; d <= 4; ++d) EXPECT_EQ((again.*table)({v, d}), (session.*table)({v, d}));
  EXPECT_EQ(modelText(again, {1, 1}), "1 0.05 1 S 0.65 1100.5" + unusedText(2));
  EXPECT_EQ(modelText(again, {7, 4}), unusedModelText());
}

}  // namespace
}  // namespace zevfit::test
