// The files that come with the program, and those that its scripts make: what they hold is what
// their rules say.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "coreg/crosstest.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "session/line.h"
#include "tests/support/same_tables.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/scripted_dialogs.h"

namespace zevfit {
namespace {

namespace fs = std::filesystem;
using test::classText;
using test::contentOf;
using test::modelText;

fs::path example(const char* name) { return fs::path(ZEVFIT_SOURCE_DIR) / "examples" / name; }

Session loaded(const fs::path& file) {
  Session session;
  EXPECT_TRUE(readVariogramFile(file, session)) << file;
  return session;
}

struct ClosePipe {
  void operator()(std::FILE* pipe) const { ::pclose(pipe); }
};

/// Runs a script of the examples with a file as its argument; what it says, nothing when all is
/// well.
std::string runScript(const char* script, const fs::path& made) {
  const std::string command = "python3 '" + example(script).string() + "' '" + made.string() +
                              "' 2>&1 || echo failed with code $?";
  const std::unique_ptr<std::FILE, ClosePipe> pipe(::popen(command.c_str(), "r"));
  if (!pipe) return "no shell";
  std::string said;
  std::array<char, 500> part{};
  while (const std::size_t got = std::fread(part.data(), 1, part.size(), pipe.get()))
    said.append(part.data(), got);
  return said;
}

struct Limits {
  Pair pair;
  double hmax, gmax, gmin, ymax;  ///< ymin is 0 for all
};

void expectLimits(const Session& session, const Limits& limits) {
  const auto& [pair, hmax, gmax, gmin, ymax] = limits;
  SCOPED_TRACE(testing::Message() << pair.variable << ' ' << pair.direction);
  EXPECT_EQ(session.hmax(pair), hmax);
  EXPECT_EQ(session.gmax(pair), gmax);
  EXPECT_EQ(session.gmin(pair), gmin);
  EXPECT_DOUBLE_EQ(session.ymax(pair), ymax);
  EXPECT_EQ(session.ymin(pair), 0);
}

TEST(Ore, HoldsThreeVariablesInSpace) {
  const Session session = loaded(example("ore.zvm"));
  EXPECT_EQ(session.filetag, "zevra");
  EXPECT_FALSE(session.hasmodel);
  EXPECT_EQ(session.nvar, 3);
  EXPECT_EQ(session.ndir, 4);
  EXPECT_EQ(session.nclass, 12);
  const char* const variables[] = {"copper", "gold", "copper-gold"};
  for (int v = 1; v <= 3; ++v) EXPECT_EQ(session.varname(v), variables[v - 1]);
  const char* const directions[] = {"40;30", "130;0", "40;-60", "85;0"};
  for (int d = 1; d <= 4; ++d) EXPECT_EQ(session.dirname(d), directions[d - 1]);
  EXPECT_EQ(session.variance(1).number(), 1.18);
  EXPECT_EQ(session.variance(2).number(), 2.15);
  EXPECT_EQ(session.variance(3).number(), 0.88);
}

TEST(Ore, FollowsItsRule) {
  const Session session = loaded(example("ore.zvm"));
  // Distance 20 less a tenth; 18/60 = 0.3 gives 0.45 - 0.0135 = 0.4365, 18/160 = 0.1125 gives
  // 0.16875 - 0.000712 = 0.168038; 0.2 + 0.4 * 0.4365 + 0.6 * 0.168038 = 0.475423, and 3 percent
  // more are 0.489686.
  EXPECT_EQ(classText(session, {1, 1}, 1), "18 0.4897 18");
  // Distance 8 * 5 and a tenth of 5; beyond both ranges 0.5 + 0.8 + 0.7, and 2 percent more; 4
  // pairs more than in the first direction.
  EXPECT_EQ(classText(session, {2, 3}, 8), "40.5 2.04 128");
  // Distance 12 * 8 and a tenth of 8; 0.1 + 0.3 + 0.5 less 3 percent.
  EXPECT_EQ(classText(session, {3, 4}, 12), "96.8 0.873 40");
}

TEST(Ore, HasItsLimits) {
  const Session session = loaded(example("ore.zvm"));
  const Limits all[] = {
      // Above the variance of 1.18, 1.06 times the highest of 1.2 and 6 percent.
      {{1, 1}, 240, 1.272, 0.4897, 1.34832},
      // At most 2 and 6 percent: below the variance, so 1.06 times 2.15.
      {{2, 4}, 96.8, 2.12, 0.8011, 2.279},
      // 1.06 times 0.954, which is 0.9 and 6 percent.
      {{3, 3}, 59, 0.954, 0.3597, 1.01124},
  };
  for (const Limits& limits : all) expectLimits(session, limits);
}

TEST(Ore, IsWhatItsScriptMakes) {
  const test::ScratchFolder folder;
  ASSERT_EQ(runScript("make_ore.py", folder / "ore.zvm"), "");
  EXPECT_EQ(contentOf(folder / "ore.zvm"), contentOf(example("ore.zvm")));
}

TEST(Holes, AreWhatTheirScriptMakes) {
  const test::ScratchFolder folder;
  ASSERT_EQ(runScript("make_holes.py", folder / "holes.csv"), "");
  EXPECT_EQ(contentOf(folder / "holes.csv"), contentOf(example("holes.csv")));
}

/// The models of a variable: what stands before the sill of its last structure, that sill, which
/// is another one at 45 degrees, and its range in each direction.
struct Fitted {
  const char* before;
  const char* sill;
  const char* sillAt45;
  std::array<const char*, 4> ranges;
};

constexpr const char* kNothing = "0 0 0 - 0 0.0001 0 - 0 0.0001 0 - 0 0.0001";
/// On steps of the range slider, of which each direction has 32000 up to 20 times its hmax.
constexpr std::array<const char*, 4> kRanges{"1249.979", "1799.627", "1000.371", "749.927"};
constexpr std::array<const char*, 4> kShortRanges{"299.632", "299.769", "299.608", "300.377"};

const Fitted kFitted[] = {
    {"1 0.09 1 S ", "0.66", "0.44", kRanges},
    {"1 0.09 1 S ", "0.54", "0.38", kRanges},
    {"0 0 1 E 0.12 short 1 S ", "0.23", "0.1", kRanges},
    {"1 0.65 1 S ", "1.4", "1.1", {"1400.299", "1799.627", "1200.445", nullptr}},
    {"1 0.075 1 S ", "0.59", "0.4", kRanges},
    {"1 0.05 1 S ", "0.42", "0.24", kRanges},
    {"", "", "", {nullptr, nullptr, nullptr, nullptr}},
};

/// The 14 fields; the structures behind the last one are not used.
std::string modelOf(const Fitted& fitted, std::int64_t direction) {
  const char* range = fitted.ranges.at(static_cast<std::size_t>(direction - 1));
  if (!range) return kNothing;
  std::string model = fitted.before;
  if (const std::size_t at = model.find("short"); at != std::string::npos)
    model.replace(at, 5, kShortRanges.at(static_cast<std::size_t>(direction - 1)));
  model += direction == 2 ? fitted.sillAt45 : fitted.sill;
  model += std::string(" ") + range;
  while (std::count(model.begin(), model.end(), ' ') < 13) model += " 0 - 0 0.0001";
  return model;
}

TEST(MeuseFitted, HoldsTheModels) {
  const Session session = loaded(example("meuse-fitted.zvm"));
  EXPECT_EQ(session.filetag, "zevRA1");
  EXPECT_TRUE(session.hasmodel);
  for (std::int64_t v = 1; v <= 7; ++v)
    for (std::int64_t d = 1; d <= 4; ++d)
      EXPECT_EQ(modelText(session, {v, d}), modelOf(kFitted[v - 1], d)) << v << ' ' << d;
}

// A sill beyond the axis has no place on its slider, so that its plot would stay unfinished.
TEST(MeuseFitted, HasItsSillsWithinTheAxes) {
  const Session session = loaded(example("meuse-fitted.zvm"));
  for (std::int64_t v = 1; v <= 7; ++v)
    for (std::int64_t d = 1; d <= 4; ++d)
      for (const Line which : kLines) {
        const double sill = line(session, {v, d}, which).sill().number();
        EXPECT_GE(sill, session.ymin({v, d})) << v << ' ' << d;
        EXPECT_LE(sill, session.ymax({v, d})) << v << ' ' << d;
      }
}

TEST(MeuseFitted, HasTheDataOfTheOtherFile) {
  Session plain = loaded(example("meuse.zvm"));
  const Session fitted = loaded(example("meuse-fitted.zvm"));
  plain.filetag = "zevRA1";
  EXPECT_EQ(test::dataText(fitted), test::dataText(plain));
  expectLimits(
      fitted,
      {{1, 1}, 1614.17777265153, 0.945892127574433, 0.183934510417175, 1.06 * 0.945892127574433});
}

TEST(MeuseFitted, IsWhatASaveWrites) {
  const test::ScratchFolder folder;
  const fs::path file = folder / "meuse-fitted.zvm";
  fs::copy_file(example("meuse-fitted.zvm"), file);
  Session session = loaded(file);
  acceptLoad(session, file);
  test::ScriptedDialogs dialogs;
  ModelSaver(folder.path()).gravando(session, 7, dialogs);
  ASSERT_EQ(dialogs.shown.back(), test::savedBox(file.string()));
  EXPECT_EQ(contentOf(file), contentOf(example("meuse-fitted.zvm")));
}

// Zinc, lead and their cross variable at 45, 135 and 0 degrees: one spherical structure with the
// same range in a direction; 0.075^2 = 0.005625 is below 0.09^2 = 0.0081, 0.59^2 = 0.3481 below
// 0.66 * 0.54 = 0.3564, and at 45 degrees 0.4^2 = 0.16 below 0.44 * 0.38 = 0.1672.
TEST(MeuseFitted, PassesTheTestOfCoregionalization) {
  const Session session = loaded(example("meuse-fitted.zvm"));
  const auto nodes = crosstest(session, {4, 0, 1, 1, 3, 0});
  ASSERT_EQ(nodes.size(), 4U);
  for (std::size_t i = 1; i < nodes.size(); ++i) EXPECT_EQ(nodes[i].image, NodeImage::passed) << i;
}

/// The classes of the large file by its own rule. The generator is one that the library has, too.
class LargeRule {
 public:
  void expectClass(const Session& session, Pair pair, std::int64_t k) {
    const double h = 100 * static_cast<double>(k) + 40 * (draw() - 0.5);
    const double ratio = std::min(1.0, h / (5000 + 500 * static_cast<double>(pair.direction)));
    const double spherical = 1.5 * ratio - 0.5 * ratio * ratio * ratio;
    const double gamma =
        static_cast<double>(pair.variable) * (0.1 + 0.9 * spherical) * (0.9 + 0.2 * draw());
    // Two and four decimals; the model is that of the rounded distance, which makes less than
    // 0.005 * 1.1 * 40 * 0.9 * 1.5 / 5500 = 0.00006 of difference.
    EXPECT_NEAR(session.hlag(pair, k).number(), h, 0.005001);
    EXPECT_NEAR(session.gam(pair, k), gamma, 0.00012);
    EXPECT_EQ(session.npairs(pair, k), 30 + std::floor(970 * draw()));
  }

 private:
  double draw() { return static_cast<double>(chance_()) / 2147483647.0; }

  std::minstd_rand0 chance_{1};
};

class Large : public testing::Test {
 protected:
  Large() {
    EXPECT_EQ(runScript("make_large.py", file()), "");
    session_ = loaded(file());
  }

  fs::path file() const { return folder_ / "large.zvm"; }

  test::ScratchFolder folder_;
  Session session_;
};

TEST_F(Large, FillsTheTables) {
  EXPECT_EQ(session_.nvar, 40);
  EXPECT_EQ(session_.ndir, 20);
  EXPECT_EQ(session_.nclass, 250);
  EXPECT_EQ(session_.varname(1), "variable 1");
  EXPECT_EQ(session_.varname(40), "variable 40");
  EXPECT_EQ(session_.dirname(1), "0;0");
  EXPECT_EQ(session_.dirname(20), "171;0");
  EXPECT_EQ(session_.variance(40).number(), 40);
  // The first draws are 16807, 282475249 and 1622650073 in 2147483647: 0.0000078, 0.1315378 and
  // 0.7556053. Distance 100 - 20 and a trace; 80/5500 = 0.0145455 gives 0.0218166, 0.1 + 0.9 times
  // that is 0.119635, and times 0.9263076 it is 0.110819; 30 + 732.9 pairs.
  EXPECT_EQ(classText(session_, {1, 1}, 1), "80 0.1108 762");
  LargeRule rule;
  for (std::int64_t v = 1; v <= 40; ++v)
    for (std::int64_t d = 1; d <= 20; ++d)
      for (std::int64_t k = 1; k <= 250; ++k) rule.expectClass(session_, {v, d}, k);
}

// Variance v; the plateau of v at 0.9 to 1.1 times is reached from a range of at most 15,000 on, in
// 100 classes and more, of which some lie above v. The last class is the farthest by at least 60.
TEST_F(Large, HasItsLimits) {
  for (const Pair pair : {Pair{1, 1}, Pair{17, 9}, Pair{40, 20}}) {
    double highest = 0, lowest = 1e9;
    for (int k = 1; k <= 250; ++k) {
      highest = std::max(highest, session_.gam(pair, k));
      lowest = std::min(lowest, session_.gam(pair, k));
    }
    EXPECT_GT(highest, pair.variable);
    expectLimits(session_,
                 {pair, session_.hlag(pair, 250).number(), highest, lowest, 1.06 * highest});
  }
}

TEST(LargeScript, MakesTheSameBytesEachTime) {
  const test::ScratchFolder folder;
  for (const char* name : {"one.zvm", "two.zvm"})
    ASSERT_EQ(runScript("make_large.py", folder / name), "");
  EXPECT_EQ(contentOf(folder / "one.zvm"), contentOf(folder / "two.zvm"));
}

}  // namespace
}  // namespace zevfit
