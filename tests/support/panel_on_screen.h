#pragma once

#include <gtest/gtest.h>

#include <QRadioButton>
#include <QTest>
#include <string>
#include <vector>

#include "tests/support/fit_fixture.h"
#include "windows/fit_panel_widgets.h"

namespace zevfit {

/// The panel on the screen over a loaded file, with its controls by name.
class PanelOnScreen : public testing::Test {
 protected:
  PanelOnScreen() {
    panel.connectTo(fit, faults);
    panel.fillList(List::Combo2, {"zinc", "lead", "copper"});
    panel.fillList(List::Combodirvar, {"0;0", "45;0", "90;0", "135;0"});
    panel.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&panel)) << "the focus goes to active windows alone";
    session.setCurrent(kPair);
  }

  template <class Control>
  Control* find(const char* name) {
    auto* control = panel.findChild<Control*>(name);
    EXPECT_NE(control, nullptr) << name;
    return control;
  }
  void click(const char* name) { QTest::mouseClick(find<QWidget>(name), Qt::LeftButton); }
  /// An option answers where its caption is.
  void clickOption(const char* name) { find<QRadioButton>(name)->click(); }
  /// On the mark of an option, as a click is: the empty ground beside it is no part of it.
  void doubleClick(const char* name) {
    auto* option = find<QWidget>(name);
    const QPoint mark(8, option->height() / 2);
    QTest::mouseClick(option, Qt::LeftButton, {}, mark);
    QTest::mouseDClick(option, Qt::LeftButton, {}, mark);
  }

  /// On the empty ground at the far end of an option's row.
  void doubleClickBeside(const char* name) {
    auto* option = find<QWidget>(name);
    QTest::mouseDClick(option, Qt::LeftButton, {},
                       QPoint(option->width() - 2, option->height() / 2));
  }
  bool& typedSill() { return session.c0typed(kPair); }
  bool& typedRange() { return session.atyped(kPair); }

  static constexpr Pair kPair = FitFixture::kPair;

  // The sample of the core's tests, on the widgets in place of its own panel.
  FitFixture sample;
  Session& session = sample.session;
  RecordingPlotter& plotter = sample.plotter;
  std::vector<std::string> ended;  ///< the faults that end the program
  const FaultReport faults = [this](std::string_view fault) { ended.emplace_back(fault); };
  FitPanelWidgets panel;
  Fit fit{session, panel, plotter, sample.dialogs};
};

}  // namespace zevfit
