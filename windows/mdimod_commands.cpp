// The menus, the toolbar and the buttons of the main window, each with its command.
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QToolBar>

#include "windows/control_tips.h"
#include "windows/controls.h"
#include "windows/fit_panel_widgets.h"
#include "windows/mdimod.h"
#include "windows/plot_area.h"
#include "windows/program_keys.h"
#include "windows/tools_menu.h"

namespace zevfit {

const std::vector<mdimod::Command>& mdimod::toolbarCommands() {
  static const std::vector<Command> commands{
      {"k1", "Open ", "Open Data File (*.ZVM)", "open", false, &mdimod::mnudatprn},
      {"k2", "View File", "See Structure of Data File", "view", true, &mdimod::viewFile},
      {"k3", "Results", "Results from Interactive Fit", "results", true, &mdimod::showResults},
      {"k4", "", "", "", false, nullptr},
      {"k5", "Casc.", "Title Cascade", "cascade", false, &mdimod::mnucascade},
      {"k6", "Vert.", "Title Vertical", "vertical", false, &mdimod::mnuvertical},
      {"k7", "Horiz.", "Title Horizontal", "horizontal", false, &mdimod::mnuhorizontal},
      {"k8", "Copy", "Copy Variogram Plot to Clipboard", "copy", true, &mdimod::copyPlot},
      {"k10", "Format", "Graph Format", "format", true, &mdimod::openFormat},
      {"k11", "Models", "Save current models with input data file.", "models", true,
       &mdimod::gravando},
      {"kp", "Print", "Print current variogram plot", "print", true, &mdimod::showReports},
      {"kmais", "Zoom +", "Enlarge current variogram plot", "zoom-in", true, &mdimod::zoomIn},
      {"kmenos", "Zoom -", "Reduce current variogram plot", "zoom-out", true, &mdimod::zoomOut},
  };
  return commands;
}

QAction* mdimod::addEntry(QMenu* menu, const char* name, const char* caption,
                          void (mdimod::*action)()) {
  QAction* entry = menu->addAction(caption);
  entry->setObjectName(name);
  connect(entry, &QAction::triggered, this,
          [this, action] { guarded(faults_, [&] { (this->*action)(); }); });
  return entry;
}

void mdimod::makeMenus() {
  addEntry(menuBar()->addMenu("Exit "), "mnuvoltar", "&Return to Main Menu", &mdimod::mnuvoltar);
  addEntry(menuBar()->addMenu("Input Data"), "mnudatprn", "&Input File (*.ZVM)",
           &mdimod::mnudatprn);
  QMenu* arrange = menuBar()->addMenu("Arrange");
  addEntry(arrange, "mnucascade", "&Cascade", &mdimod::mnucascade);
  addEntry(arrange, "mnuvertical", "&Vertical", &mdimod::mnuvertical);
  addEntry(arrange, "mnuhorizontal", "&Horizontal", &mdimod::mnuhorizontal);
  addEntry(menuBar()->addMenu("&About"), "mnuabout2", "About", &mdimod::mnuabout2);
}

void mdimod::makeToolbar() {
  Toolbar1 = addToolBar("Toolbar1");
  Toolbar1->setObjectName("Toolbar1");
  Toolbar1->setMovable(false);
  Toolbar1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  Toolbar1->setIconSize({24, 24});
  setContextMenuPolicy(Qt::NoContextMenu);
  const QIcon blank = blankIcon();
  for (const Command& command : toolbarCommands()) {
    QAction* action = *command.icon == '\0' ? Toolbar1->addSeparator()
                                            : Toolbar1->addAction(blank, command.caption);
    action->setObjectName(command.key);
    action->setToolTip(command.tip);
    action->setStatusTip(withKey(command.key, command.tip));
    action->setShortcuts(keysOf(command.key));
    // Tab reaches the button; a click leaves the focus where it is.
    if (QWidget* button = Toolbar1->widgetForAction(action); button && !action->isSeparator()) {
      button->setFocusPolicy(Qt::TabFocus);
      button->setAccessibleName(command.tip);
    }
    connect(action, &QAction::triggered, this,
            [this, &command] { guarded(faults_, [&] { run(command); }); });
    if (!action->isSeparator()) icons_.emplace_back(action, command.icon);
  }
}

void mdimod::makeButtons() {
  const std::initializer_list<std::pair<const char*, void (mdimod::*)()>> buttons{
      {"Command1", &mdimod::openScales},
      {"Command2", &mdimod::openTest},
      {"Command4", &mdimod::openLegend}};
  for (const auto& [name, action] : buttons)
    connect(panel_->findChild<QPushButton*>(name), &QPushButton::clicked, this,
            [this, action = action] { guarded(faults_, [&] { (this->*action)(); }); });
}

void mdimod::addShortcut(QWidget& window, const char* name, void (QMdiArea::*way)()) {
  auto* keys = new QShortcut(&window);
  keys->setObjectName(name);
  keys->setKeys(keysOf(name));
  connect(keys, &QShortcut::activated, area_, way);
}

// Qt itself only has Ctrl+Tab.
void mdimod::makeShortcuts(QWidget& window) {
  addShortcut(window, "nextplot", &QMdiArea::activateNextSubWindow);
  addShortcut(window, "formerplot", &QMdiArea::activatePreviousSubWindow);
}

void mdimod::makeTools() {
  tools_ = std::make_unique<ToolsMenu>(*this, *area_, *fit_, dialogs_, manual_, faults_);
  tools_->plotGone = [this] { renewFoot(); };
  for (const char* list : {"Combo2", "Combodirvar"})
    connect(panel_->findChild<QComboBox*>(list), &QComboBox::currentIndexChanged, tools_.get(),
            [this] { tools_->follow(); });
}

}  // namespace zevfit
