// A file that the command has computed, in the program: each of its numbers is that of the report,
// and every pair is plotted.
#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"
#include "tests/support/test_dialog.h"

namespace zevfit::test {
namespace {

using Json = nlohmann::json;

/// Nothing but the question for the file.
const std::vector<std::string> kAsked{"open: Input Data File (*.ZVM)|*.ZVM"};

class ComputedFile : public TestDialog {
 protected:
  /// Two variables and their cross in four directions, of points that come with the program; one
  /// class has no pair.
  Json compute() {
    const std::string command =
        "'" ZEVFIT_ZVM "' compute '" ZEVFIT_SOURCE_DIR "/examples/meuse.csv' '" + file() +
        "' --json --x x --y y --var zinc,lead --log zinc,lead"
        " --cross all --lag 30 --lags 40 --dir '0;0' --dir '45;0' --dir '90;0' --dir '135;0' >'" +
        report() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    return Json::parse(contentOf(report()));
  }
  std::string file() { return folder() + "/computed.zvm"; }
  std::string report() { return folder() + "/report.json"; }

  void plot(int v, int d) {
    program_.control<QComboBox>("Combo2").setCurrentIndex(v - 1);
    program_.control<QComboBox>("Combodirvar").setCurrentIndex(d - 1);
    program_.control<QAbstractButton>("Command5").click();
    QApplication::processEvents();
    EXPECT_EQ(session().plotted(), (Pair{v, d}));
  }

  /// Numbers of the file have fifteen digits.
  static void expectSame(double read, double told) {
    EXPECT_NEAR(read, told, 1e-14 * std::fabs(told));
  }
};

TEST_F(ComputedFile, OpensWithTheNumbersOfItsReport) {
  const Json report = compute();
  program_.open(file());
  EXPECT_EQ(program_.dialogs().shown, kAsked);
  const Session& session = this->session();
  ASSERT_EQ(session.nvar, 3);
  ASSERT_EQ(session.ndir, 4);
  ASSERT_EQ(session.nclass, 40);
  std::size_t at = 0;
  bool hasEmpty = false;
  for (std::int64_t v = 1; v <= 3; ++v) {
    const Json& variable = report.at("variables").at(static_cast<std::size_t>(v - 1));
    EXPECT_EQ(session.varname(v), variable.at("name"));
    expectSame(session.variance(v).number(), variable.at("variance"));
    for (std::int64_t d = 1; d <= 4; ++d) {
      const Json& classes = report.at("semivariograms").at(at++).at("classes");
      for (std::int64_t k = 1; k <= 40; ++k) {
        const Json& lag = classes.at(static_cast<std::size_t>(k - 1));
        expectSame(session.hlag({v, d}, k).number(), lag.at("distance"));
        expectSame(session.gam({v, d}, k), lag.at("semivariance"));
        EXPECT_EQ(session.npairs({v, d}, k), lag.at("pairs").get<float>());
        hasEmpty = hasEmpty || lag.at("pairs") == 0;
      }
    }
  }
  EXPECT_TRUE(hasEmpty);
}

TEST_F(ComputedFile, IsPlottedInEveryDirection) {
  compute();
  program_.open(file());
  for (int v = 1; v <= 3; ++v)
    for (int d = 1; d <= 4; ++d) plot(v, d);
  EXPECT_EQ(program_.dialogs().shown, kAsked);
}

TEST_F(ComputedFile, IsFreeOfErrors) {
  compute();
  // Warnings of classes with few pairs leave the exit code at 0.
  EXPECT_EQ(std::system(("'" ZEVFIT_ZVM "' check -q '" + file() + "' >/dev/null").c_str()), 0);
}

}  // namespace
}  // namespace zevfit::test
