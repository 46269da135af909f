// The list of keys names controls that have them.
#include "windows/program_keys.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTreeWidget>
#include <string_view>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

QWidget* windowNamed(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == name) return window;
  return nullptr;
}

QString keysIn(const QObject& control) {
  if (const auto* action = qobject_cast<const QAction*>(&control))
    return QKeySequence::listToString(action->shortcuts());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
    return button->shortcut().toString();
  if (const auto* shortcut = qobject_cast<const QShortcut*>(&control))
    return QKeySequence::listToString(shortcut->keys());
  return {};
}

/// The controls of that name in a window that have keys; other windows of it have their own.
QStringList keysNamed(QWidget& window, const char* name) {
  QStringList found;
  for (const QObject* control : window.findChildren<QObject*>(name)) {
    const QWidget* owner = control->isWidgetType() ? static_cast<const QWidget*>(control)
                                                   : qobject_cast<QWidget*>(control->parent());
    while (qobject_cast<const QMenu*>(owner)) owner = owner->parentWidget();
    if (owner && owner->window() == &window && !keysIn(*control).isEmpty())
      found << keysIn(*control);
  }
  return found;
}

/// All windows that have keys, made at their first use.
void makeWindows(TwoPlots& plots) {
  Program& program = plots.program();
  program.open(ZEVFIT_SOURCE_DIR "/examples/meuse.zvm");
  QWidget& panel = program.control("Picture1");
  for (const char* modal : {"k2", "k3"})
    Program::inModal([&] { program.trigger(modal); }, [](QWidget& window) { window.close(); });
  Program::inModal([&] { Program::find<QPushButton>(panel, "Command4").click(); },
                   [](QWidget& window) { window.close(); });
  for (const auto& [button, window] :
       {std::pair("Command1", "cutgraph"), std::pair("Command2", "testcruz")}) {
    Program::find<QPushButton>(panel, button).click();
    if (QWidget* opened = windowNamed(window)) opened->close();
  }
  for (const char* action : {"kp", "mnudirections", "mnukeys", "k10"}) program.trigger(action);
  QApplication::processEvents();
}

TEST(ProgramKeys, AreShortcutsOfTheirControls) {
  TwoPlots plots;
  makeWindows(plots);
  int named = 0;
  for (const ProgramKey& key : programKeys()) {
    if (std::string_view(key.window).empty()) continue;
    ++named;
    QWidget* window = windowNamed(key.window);
    ASSERT_NE(window, nullptr) << key.window;
    const QStringList keys = keysNamed(*window, key.control);
    EXPECT_TRUE(keys.contains(key.keys))
        << key.window << " " << key.control << ": " << keys.join(" or ").toStdString();
  }
  EXPECT_GT(named, 30);
}

TEST(ProgramKeys, OfTheMainWindowAreDifferent) {
  QStringList all;
  for (const ProgramKey& key : programKeys())
    if (std::string_view(key.window) == "mdimod") all << QString(key.keys).split("; ");
  EXPECT_EQ(all.removeDuplicates(), 0);
}

TEST(ProgramKeys, AreListedByGroup) {
  TwoPlots plots;
  QTest::keyClick(&plots.program().window(), Qt::Key_F1, Qt::ControlModifier);
  auto& window = plots.program().control<QWidget>("keyswindow");
  EXPECT_TRUE(window.isVisible());
  const auto& list = Program::find<QTreeWidget>(window, "keyslist");
  int rows = 0;
  for (int i = 0; i < list.topLevelItemCount(); ++i) rows += list.topLevelItem(i)->childCount();
  EXPECT_EQ(rows, static_cast<int>(programKeys().size()));
  EXPECT_EQ(list.topLevelItem(0)->text(0), "File and models");
  EXPECT_EQ(list.topLevelItem(0)->child(0)->text(0), "Ctrl+O");
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace zevfit::test
