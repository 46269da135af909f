// An error of the program itself in a handler of the panel is seen; a fault is dropped.

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSlider>
#include <QTest>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/sliders.h"
#include "tests/support/panel_on_screen.h"
#include "tests/support/run_to_end.h"
#include "windows/boundary.h"
#include "windows/fit_panel_widgets.h"

namespace zevfit {
namespace {

// A policy drops what the data make happen, not an error of the program itself: that one reaches
// the boundary of the event through every handler on its way.
class PanelError : public PanelOnScreen {
 protected:
  PanelError() {
    clickOption("est2");
    panel.setCaption(Caption::Labelvariance, "4.568");
    plotter.onDraw = [] { throw std::logic_error("an error of the program"); };
  }

  void expectToEnd(const std::function<void()>& action) {
    EXPECT_EQ(test::runToEnd(action), kFatalExitCode);
    EXPECT_EQ(ended, std::vector<std::string>{"an error of the program"});
  }
};

TEST_F(PanelError, OfAChangedTextEndsTheProgram) {
  expectToEnd([this] { click("Labelvariance"); });
  EXPECT_EQ(session.c1(kPair).number(), 4.568) << "what came before it";
}

TEST_F(PanelError, OfAKeyOnASliderEndsTheProgram) {
  find<QSlider>("HScrolla")->setFocus(Qt::TabFocusReason);
  expectToEnd([this] { QTest::keyClick(find<QSlider>("HScrolla"), Qt::Key_Right); });
}

TEST_F(PanelError, OfEnterInAFieldEndsTheProgram) {
  for (const char* field : {"Textc0", "Texta"}) {
    expectToEnd([&] { QTest::keyClick(find<QWidget>(field), Qt::Key_Return); });
    ended.clear();
  }
}

TEST_F(PanelError, AFaultInItsPlaceIsDropped) {
  plotter.onDraw = [] { throw Fault("Division by zero"); };
  EXPECT_EQ(test::runToEnd([this] { click("Labelvariance"); }), 0);
  EXPECT_EQ(ended, std::vector<std::string>{});
}

}  // namespace
}  // namespace zevfit
