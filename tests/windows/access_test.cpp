// Each window by its keys and for a screen reader: what takes the focus has a name and a role, and
// the tab order follows the eye.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <algorithm>
#include <functional>

#include "tests/support/coreg_sample.h"
#include "tests/support/program.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

const std::string kMeuse = ZEVFIT_SOURCE_DIR "/examples/meuse.zvm";

/// A window, and how it comes up.
struct WindowRow {
  const char* name;
  const char* command;  ///< an action, or a button of the panel
  bool modal;
  const char* button = "";  ///< of the window that the command brings up
};

const WindowRow kWindows[] = {{"mdimod", "", false},
                              {"frmzevfit", "k2", true},
                              {"modfinal", "k3", true},
                              {"Formfont", "k10", false},
                              {"cores", "k10", false, "Command5"},
                              {"Frame2", "k10", false, "Command4"},
                              {"printcolection", "kp", false},
                              {"cutgraph", "Command1", false},
                              {"legenda", "Command4", true},
                              {"testcruz", "Command2", false},
                              {"formabout", "mnuabout2", false},
                              {"alldirections", "mnudirections", false},
                              {"keyswindow", "mnukeys", false}};

class Access : public testing::TestWithParam<WindowRow> {
 protected:
  Access() : program_(folder_.path().toStdString()) { program_.open(kMeuse); }

  /// Runs a check on the window of the row while that is up.
  void onWindow(const std::function<void(QWidget&)>& check) {
    const WindowRow& row = GetParam();
    bool met = false;
    const auto look = [&] {
      if (met) return;
      for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() != row.name || !window->isVisible()) continue;
        met = true;
        window->activateWindow();
        QApplication::processEvents();
        check(*window);
        if (row.modal) hand_.key(*window, Qt::Key_Escape);
        return;
      }
    };
    QTimer looking;
    QObject::connect(&looking, &QTimer::timeout, look);
    if (row.modal) looking.start(0);
    open(row.command);
    if (*row.button != 0)
      hand_.click(Program::find<QWidget>(program_.control("Formfont"), row.button));
    if (!row.modal) look();
    EXPECT_TRUE(met) << "no such window";
  }

  QTemporaryDir folder_;
  Program program_;

 private:
  void open(const QString& command) {
    if (command.isEmpty()) return;
    // Other windows have buttons of these names too.
    QWidget& panel = *program_.window().centralWidget();
    if (command.startsWith("Command"))
      return hand_.click(Program::find<QPushButton>(panel, qPrintable(command)));
    auto& action = program_.control<QAction>(qPrintable(command));
    QWidget* button = program_.control<QToolBar>("Toolbar1").widgetForAction(&action);
    button ? hand_.click(*button) : openByMenu(action);
  }
  void openByMenu(QAction& entry) {
    QMenuBar& bar = *program_.window().menuBar();
    const QList<QAction*> titles = bar.actions();
    const auto title = std::find_if(titles.begin(), titles.end(), [&](const QAction* each) {
      return each->menu()->actions().contains(&entry);
    });
    ASSERT_NE(title, titles.end());
    hand_.clickAt(bar, bar.actionGeometry(*title).center());
    QMenu& menu = *(*title)->menu();
    ASSERT_TRUE(menu.isVisible());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(&entry).center());
    QApplication::processEvents();
  }

  tour::Hand hand_;
};

bool takesTab(const QWidget& control) {
  return control.isVisible() && control.isEnabled() &&
         (control.focusPolicy() & Qt::TabFocus) != 0 && control.focusProxy() == nullptr;
}

/// What Tab leads through, from the first on.
std::vector<QWidget*> chain(QWidget& window) {
  std::vector<QWidget*> found;
  for (QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain())
    if (at->window() == &window && takesTab(*at)) found.push_back(at);
  return found;
}

std::string called(const QWidget& control) {
  return std::string(control.metaObject()->className()) + " " + control.objectName().toStdString();
}

TEST_P(Access, WhatTakesTheFocusHasANameAndARole) {
  onWindow([](QWidget& window) {
    for (QWidget* control : chain(window)) {
      QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
      ASSERT_NE(face, nullptr) << called(*control);
      EXPECT_NE(face->role(), QAccessible::NoRole) << called(*control);
      EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty()) << called(*control);
    }
  });
}

TEST_P(Access, AllThatCanBePressedIsReachedByTabOrKeys) {
  onWindow([](QWidget& window) {
    const std::vector<QWidget*> reached = chain(window);
    for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
      if (button->window() != &window || !button->isVisible() || !button->isEnabled()) continue;
      // Of options in a group the chosen one is reached, and the arrows lead to the others; title
      // bars have the keys of the desktop.
      if (qobject_cast<QRadioButton*>(button) || button->objectName().isEmpty()) continue;
      EXPECT_TRUE(std::count(reached.begin(), reached.end(), button) == 1 ||
                  !button->shortcut().isEmpty())
          << called(*button);
    }
  });
}

TEST_P(Access, TheTabOrderFollowsTheEye) {
  onWindow([](QWidget& window) {
    const std::vector<QWidget*> order = chain(window);
    for (std::size_t i = 1; i < order.size(); ++i) {
      const QRect before(order[i - 1]->mapTo(&window, QPoint()), order[i - 1]->size());
      const QRect next(order[i]->mapTo(&window, QPoint()), order[i]->size());
      EXPECT_FALSE(next.bottom() < before.top() && next.right() < before.left())
          << called(*order[i - 1]) << " leads up and left to " << called(*order[i]);
    }
  });
}

/// What a user who cannot see the window is told of a control.
std::string toldOf(QWidget& control) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&control);
  return face ? face->text(QAccessible::Name).trimmed().toStdString() : "";
}

TEST_P(Access, HasANameItselfAndSoHasEachPictureInIt) {
  onWindow([](QWidget& window) {
    EXPECT_FALSE(window.windowTitle().isEmpty());
    EXPECT_NE(toldOf(window), "");
    for (QLabel* label : window.findChildren<QLabel*>()) {
      // A colour in a frame.
      const bool shows = label->text().isEmpty() && label->frameShape() == QFrame::Box;
      if (label->window() == &window && label->isVisible() && shows) {
        EXPECT_NE(toldOf(*label), "") << called(*label);
      }
    }
  });
}

INSTANTIATE_TEST_SUITE_P(Windows, Access, testing::ValuesIn(kWindows),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace zevfit::test
