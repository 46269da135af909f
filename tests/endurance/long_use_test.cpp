// A day's work of the whole program: memory stays flat, and no window, handle of a file or control
// is left behind. Set by the environment:
//
//     ZEVFIT_LONG_USE   the share of the full length in hundredths; 100 without it
#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSlider>
#include <QTimer>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>

#include "tests/support/program.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {
namespace {

constexpr int kRedraws = 100'000;
constexpr int kLoads = 1'000;
constexpr int kOpenings = 1'000;
constexpr double kFlat = 1.02;
/// Before the memory is first looked at, so that what is made once has been made.
constexpr int kWarmUpShare = 5;

int scaled(int times) {
  const char* share = std::getenv("ZEVFIT_LONG_USE");
  return share ? times * std::atoi(share) / 100 : times;
}

/// What a program holds.
struct Held {
  double memory = 0;  ///< bytes in the memory
  double heap = 0;    ///< of them handed out
  std::ptrdiff_t files = 0;
  qsizetype controls = 0, windows = 0;
};

double residentBytes() {
  std::ifstream in("/proc/self/statm");
  double all = 0, resident = 0;
  in >> all >> resident;
  return resident * 4096;
}

Held held() {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
  ::malloc_trim(0);
  return {residentBytes(), static_cast<double>(::mallinfo2().uordblks),
          std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}),
          QApplication::allWidgets().size(), QApplication::topLevelWidgets().size()};
}

/// Does something so often, after a while of the same, and compares what is held.
void repeat(int times, const std::function<void(int)>& once) {
  for (int i = 0; i < times / kWarmUpShare; ++i) once(i);
  const Held before = held();
  for (int i = 0; i < times; ++i) once(i);
  const Held after = held();
  std::cout << times << " times: memory " << after.memory / before.memory << ", heap "
            << after.heap / before.heap << " of that before" << std::endl;
  EXPECT_LE(after.memory, before.memory * kFlat);
  EXPECT_LE(after.heap, before.heap * kFlat);
  EXPECT_LE(after.files, before.files);
  EXPECT_EQ(after.controls, before.controls);
  EXPECT_EQ(after.windows, before.windows);
}

class LongUse : public testing::Test {
 protected:
  LongUse() : program_(folder_.path()) {
    putFile(small_, sampleFile("zevra"));
    program_.open(meuse_);
    program_.control<QAbstractButton>("Command5").click();
  }
  /// Closes all windows but the main one; true when none was open.
  bool closeOne() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible() || window == &program_.window()) continue;
      window->close();
      return false;
    }
    return true;
  }
  /// Runs what opens a window, and closes it; a modal one from within.
  void openAndClose(const std::function<void()>& open) {
    QTimer::singleShot(0, &program_.window(), [&] { closeOne(); });
    open();
    while (!closeOne()) QApplication::processEvents();
    ASSERT_TRUE(program_.window().isEnabled());
  }

  ScratchFolder folder_;
  const std::filesystem::path small_ = folder_ / "small.zvm";
  const std::string meuse_ = std::string(ZEVFIT_SOURCE_DIR) + "/examples/meuse.zvm";
  Program program_;
};

TEST_F(LongUse, Redraws) {
  program_.control<QAbstractButton>("est1").click();
  program_.control<QAbstractButton>("plot1").click();
  auto& slider = program_.control<QSlider>("HScrollc0");
  slider.setFocus(Qt::TabFocusReason);
  auto& picture = program_.control("Picture4");
  const int middle = (slider.minimum() + slider.maximum()) / 2;
  double drawn = -1;
  repeat(scaled(kRedraws), [&](int i) {
    slider.setValue(middle + i % 2 * 100);
    picture.repaint();
    const double before = std::exchange(drawn, program_.session().curvegam(50));
    if (drawn == before) throw std::runtime_error("no curve was drawn");
  });
}

TEST_F(LongUse, Loads) {
  repeat(scaled(kLoads), [&](int i) {
    program_.open(i % 2 == 0 ? small_.string() : meuse_);
    program_.dialogs().shown.clear();
  });
}

TEST_F(LongUse, WindowsOfCommands) {
  repeat(scaled(kOpenings), [&](int) {
    for (const char* command : {"k2", "k3", "k10", "kp", "mnuabout2"})
      openAndClose([&] { program_.trigger(command); });
    for (const char* button : {"Command1", "Command2", "Command4"})
      openAndClose([&] { program_.control<QAbstractButton>(button).click(); });
    program_.dialogs().shown.clear();
  });
}

TEST_F(LongUse, PlotWindows) {
  auto& area = program_.control<QMdiArea>("Area");
  repeat(scaled(kOpenings), [&](int) {
    program_.control<QAbstractButton>("Command5").click();
    ASSERT_NE(area.activeSubWindow(), nullptr);
    program_.trigger("kmais");
    program_.trigger("k8");
    area.activeSubWindow()->close();
    QApplication::processEvents();
  });
}

}  // namespace
}  // namespace zevfit::test
