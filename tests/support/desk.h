#pragma once

#include <gtest/gtest.h>

#include <QKeySequence>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/modal_steps.h"
#include "tests/support/two_plots.h"
#include "tests/tour/hand.h"
#include "windows/manual.h"

namespace zevfit::test {

using Steps = std::function<void(QWidget&)>;

/// A user before two plots, with a hand for the mouse and for keys.
class Desk : public TwoPlots {
 public:
  Desk() {
    main().manual().setFolder(ZEVFIT_SOURCE_DIR "/docs");
    main().manual().setOpener([this](const QString&) { return ++openings > 0; });
    main().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main()));
    boxes().clear();
  }

  mdimod& main() { return program().window(); }
  std::vector<std::string>& boxes() { return program().dialogs().shown; }
  std::string box() { return boxes().empty() ? "none" : boxes().back(); }
  QWidget& in(const char* name) { return program().control(name); }
  bool shows(const char* window) {
    auto* found = main().findChild<QWidget*>(window);
    return found && found->isVisible();
  }

  static void send(QWidget& window, const QKeySequence& keys) {
    const QKeyCombination key = keys[0];
    QTest::keyClick(window.windowHandle(), key.key(), key.keyboardModifiers());
    // A button that keys press comes up a little later.
    EXPECT_TRUE(QTest::qWaitFor([&window] { return !hasButtonDown(window); }));
    QApplication::processEvents();
  }
  /// To the main window, as the one in front.
  void send(const QKeySequence& keys) {
    if (QApplication::activeWindow() != &main()) main().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&main()));
    send(main(), keys);
  }
  /// Presses Tab until the control has the focus.
  static void tabTo(QWidget& control) {
    QWidget& window = *control.window();
    for (int presses = 0; presses < 100 && !control.hasFocus(); ++presses)
      send(window, QKeySequence(Qt::Key_Tab));
    EXPECT_TRUE(control.hasFocus()) << control.objectName().toStdString();
  }
  /// What brings a modal window up, and what is done in it before it is closed.
  static void during(const std::function<void()>& opening, const Steps& steps) {
    duringModal(opening, [&](QWidget& modal) {
      QApplication::processEvents();
      steps(modal);
      modal.close();
    });
  }
  void inData(const Steps& steps) {
    during([this] { send(QKeySequence("Ctrl+D")); }, steps);
  }
  void inResults(const Steps& steps) {
    during([this] { send(QKeySequence("Ctrl+R")); }, steps);
  }
  void inLegend(const Steps& steps) {
    during([this] { hand.click(in("Command4")); }, steps);
  }
  QWidget& openScales() {
    hand.click(in("Command1"));
    return in("cutgraph");
  }
  QWidget& open(const char* keys, const char* window) {
    send(QKeySequence(keys));
    in(window).activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&in(window)));
    return in(window);
  }
  QWidget& openFormat() { return open("Ctrl+F", "Formfont"); }

  static bool hasButtonDown(const QWidget& window) {
    const auto buttons = window.findChildren<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(),
                       [](const QAbstractButton* button) { return button->isDown(); });
  }

  tour::Hand hand;
  int openings = 0;  ///< of the manual
};

/// Sees that Escape closes a window that is open.
inline void expectLeft(QWidget& window, const char* what) {
  ASSERT_TRUE(window.isVisible()) << what;
  Desk::send(window, QKeySequence(Qt::Key_Escape));
  EXPECT_FALSE(window.isVisible()) << what;
}

}  // namespace zevfit::test
