// The fit by eye of the tutorial: its values, typed over the start models of its commands, make the
// example that its later commands go on with.
#include <gtest/gtest.h>

#include <QComboBox>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <sstream>

#include "tests/support/program.h"
#include "tests/support/temporary_folder.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = ZEVFIT_SOURCE_DIR;

std::string tutorial() { return contentOf(kRoot / "docs/tutorial.md"); }

/// The first line of the page that begins so, without the beginning.
std::string lineBehind(const std::string& beginning) {
  const std::string page = tutorial();
  const std::size_t at = page.find('\n' + beginning);
  if (at == page.npos) return "";
  const std::size_t from = at + 1 + beginning.size();
  return page.substr(from, page.find('\n', from) - from);
}

/// Of the table of the page: nugget, sill, and the ranges of the four directions.
using Typed = std::array<std::string, 6>;

Typed typedFor(const std::string& variable) {
  std::istringstream row(lineBehind("| " + variable + " |"));
  Typed typed;
  for (std::string& value : typed) std::getline(row >> std::ws, value, ' ').ignore(1);
  return typed;
}

class TutorialFit : public testing::Test, protected TemporaryFolder {
 protected:
  void runCommandsUpToTheFit() {
    fs::copy(kRoot / "examples/meuse.csv", folder());
    for (const char* verb : {"compute", "fit"}) {
      const std::string command = "cd '" + folder() + "' && '" ZEVFIT_ZVM "' " + verb +
                                  lineBehind(std::string("    $ zvm ") + verb) + " >report";
      ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }
  }
  /// A session of its own, with the file of the fit.
  void begin() {
    hand_ = {};
    program_.emplace(folder());
    program_->open(file());
  }
  std::string file() const { return path("start.zvm"); }
  void choose(int v, int d) {
    hand_.choose(program_->control<QComboBox>("Combo2"), v);
    hand_.choose(program_->control<QComboBox>("Combodirvar"), d);
    hand_.click(program_->control("Command5"));
    EXPECT_EQ(program_->session().plotted(), (Pair{v + 1, d + 1}));
  }
  void select(const char* line) {
    hand_.clickMark(program_->control(line));
    QApplication::processEvents();
  }
  void type(const char* field, const std::string& value) {
    hand_.typeAndEnter(program_->control(field), value.c_str());
  }
  void save() {
    program_->trigger("k11");
    EXPECT_EQ(program_->dialogs().shown.back(), "plain: Models saved to file:" + file());
  }
  void forEveryPair(const std::function<void(int, int)>& step) {
    for (int v = 0; v < 3; ++v)
      for (int d = 0; d < 4; ++d) {
        choose(v, d);
        step(v, d);
      }
  }

  std::optional<Program> program_;
  tour::Hand hand_;
};

TEST_F(TutorialFit, MakesTheExample) {
  runCommandsUpToTheFit();
  begin();
  const std::array<Typed, 3> typed{typedFor("zinc"), typedFor("lead"), typedFor("zinc-lead")};
  forEveryPair([&](int v, int d) {
    const Typed& values = typed.at(static_cast<std::size_t>(v));
    select("est1");
    type("Textc0", values[0]);
    select("est2");
    type("Textc0", values[1]);
    type("Texta", values.at(2 + static_cast<std::size_t>(d)));
  });
  save();
  // In the next session a look brings the ranges to the steps of their sliders.
  begin();
  forEveryPair([&](int, int) {
    select("est1");
    select("est2");
  });
  save();
  EXPECT_EQ(contentOf(file()), contentOf(kRoot / "examples/meuse-by-eye.zvm"));
}

}  // namespace
}  // namespace zevfit::test
