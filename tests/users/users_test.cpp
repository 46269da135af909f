// Somebody does anything whatever to the whole program, for a number of events and seeds: it ends
// when it is told to or by a fault that is meant to end it, in an orderly way, and never anything
// but a save changes a variogram file. Set by the environment:
//
//     ZEVFIT_USERS   "SEEDS EVENTS"; a few and some hundred without it
//     ZEVFIT_USER    the first seed; 1 without it
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <set>

#include "files/orthogonality.h"
#include "tests/support/recording_printer.h"
#include "tests/users/user.h"
#include "windows/boundary.h"
#include "windows/mdimod.h"

namespace zevfit::test {
namespace {

struct Extent {
  int seeds = 3, events = 300, first = 1;
};

Extent extent() {
  Extent asked;
  if (const char* users = std::getenv("ZEVFIT_USERS")) {
    std::istringstream in(users);
    in >> asked.seeds >> asked.events;
  }
  if (const char* first = std::getenv("ZEVFIT_USER")) asked.first = std::atoi(first);
  return asked;
}

/// Faults that no handler catches, each as the message names it.
const std::set<std::string> kFatal{"Overflow", "Division by zero", "Invalid slider position",
                                   "Drawings do not settle"};
/// The one that names its case behind.
constexpr const char* kFatalBeginning = "Subscript out of range: ";
/// But for a variable beyond the tables, which is refused.
constexpr const char* kNoSuchVariable = "Subscript out of range: varname";

bool isFatal(const std::string& fault) {
  return kFatal.count(fault) == 1 ||
         (fault.starts_with(kFatalBeginning) && !fault.starts_with(kNoSuchVariable));
}

/// One run of the program, from its start to its end.
struct OneRun {
  explicit OneRun(UsersDesk& desk)
      : dialogs(desk), window(dialogs, printer, angles, desk.programFolder()) {
    window.furnish();
    window.loadIcons();
    window.show();
    window.showAbout();
  }
  WatchedDialogs dialogs;
  RecordingPrinter printer;
  const AngleTest angles;
  mdimod window;
};

class Users : public testing::TestWithParam<int> {};

TEST_P(Users, LeaveAProgramThatEndsInOrder) {
  const auto seed = static_cast<unsigned>(GetParam());
  UsersDesk desk(seed);
  Chance chance(seed);
  int eventsLeft = extent().events;
  int runs = 0;
  User user(desk, chance, eventsLeft);
  while (user.broken().empty() && (eventsLeft > 0 || runs == 0)) {
    ++runs;
    OneRun run(desk);
    user.sitDown(run.window, run.dialogs);
    const int code = QApplication::exec();
    if (!user.broken().empty()) break;
    if (run.dialogs.fault.empty()) {
      EXPECT_EQ(code, 0) << user.lastEvents();
      continue;
    }
    std::cout << "ended by '" << run.dialogs.fault << "'" << std::endl;
    EXPECT_EQ(code, kFatalExitCode);
    EXPECT_TRUE(isFatal(run.dialogs.fault)) << run.dialogs.fault << "\n" << user.lastEvents();
  }
  EXPECT_EQ(user.broken(), "") << user.lastEvents();
  EXPECT_EQ(desk.changedFile(), "");
  std::cout << extent().events << " events in " << runs << " runs" << std::endl;
}

INSTANTIATE_TEST_SUITE_P(Seeds, Users,
                         testing::Range(extent().first, extent().first + extent().seeds));

}  // namespace
}  // namespace zevfit::test
