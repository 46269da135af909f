#include "windows/tools_menu.h"

#include <QAction>
#include <QApplication>
#include <QChildEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>

#include "windows/all_directions.h"
#include "windows/foot.h"
#include "windows/formod.h"
#include "windows/keys_window.h"
#include "windows/manual.h"
#include "windows/program_keys.h"
#include "windows/save_picture.h"

namespace zevfit {

const std::vector<ToolsMenu::Tool>& ToolsMenu::tools() {
  static const std::vector<Tool> tools{
      {"mnupicture", "&Save picture...", "Save the current plot as SVG, PDF or PNG",
       &ToolsMenu::hasPlot, &ToolsMenu::savePicture},
      {"mnudirections", "All &directions", "Show all directions of the current variable",
       &ToolsMenu::hasVariable, &ToolsMenu::showAllDirections},
      {"mnustart", "S&tart model", "Fit a model to the current plot; once more takes it back",
       &ToolsMenu::hasPair, &ToolsMenu::startModel},
      {"mnumanual", "&Manual", "Open the manual at the section of the window", &ToolsMenu::always,
       &ToolsMenu::openManual},
      {"mnukeys", "&Keys", "List the keys of the program", &ToolsMenu::always,
       &ToolsMenu::showKeys},
  };
  return tools;
}

ToolsMenu::ToolsMenu(QMainWindow& window, QMdiArea& area, Fit& fit, Dialogs& dialogs,
                     Manual& manual, const FaultReport& faults)
    : window_(window),
      area_(area),
      fit_(fit),
      dialogs_(dialogs),
      manual_(manual),
      faults_(faults),
      start_(
          fit,
          [this] {
            Formod* plot = activePlot();
            return plot ? plot->misfit() : std::nullopt;
          },
          [this](const std::string& text) { hintAtFoot(window_, text); }) {
  QMenu* menu = window.menuBar()->addMenu("&Tools");
  menu->setObjectName("mnutools");
  menu->setToolTipsVisible(true);
  for (const Tool& tool : tools()) {
    QAction* entry = menu->addAction(tool.caption);
    entry->setObjectName(tool.name);
    entry->setToolTip(tool.tip);
    entry->setShortcuts(keysOf(tool.name));
    // A key that is held opens a window once.
    entry->setAutoRepeat(false);
    connect(entry, &QAction::triggered, this,
            [this, &tool] { guarded(faults_, [&] { (this->*tool.run)(); }); });
    entries_.emplace_back(entry, &tool);
  }
  connect(menu, &QMenu::aboutToShow, this, [this] { follow(); });
  connect(&area, &QMdiArea::subWindowActivated, this, [this] { follow(); });
  area.viewport()->installEventFilter(this);
  follow();
}

ToolsMenu::~ToolsMenu() {
  delete directions_;
  delete keys_;
}

void ToolsMenu::follow() {
  enableEntries();
  if (directions_) directions_->follow();
}

void ToolsMenu::enableEntries() {
  for (const auto& [entry, tool] : entries_) entry->setEnabled((this->*tool->ready)());
}

// At the time of the event a child is not yet what it is going to be.
bool ToolsMenu::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ChildAdded)
    static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
  const auto* plot = event->type() == QEvent::Hide ? dynamic_cast<const Formod*>(watched) : nullptr;
  if (plot && !plot->loaded()) {
    enableEntries();
    if (plotGone) plotGone();
  }
  return QObject::eventFilter(watched, event);
}

Formod* ToolsMenu::activePlot() const {
  auto* plot = dynamic_cast<Formod*>(area_.activeSubWindow());
  return plot && plot->appeared() ? plot : nullptr;
}

bool ToolsMenu::hasPlot() const { return activePlot() != nullptr; }

bool ToolsMenu::hasVariable() const { return fit_.session.loaded && fit_.session.curvar >= 1; }

void ToolsMenu::savePicture() {
  Formod* plot = activePlot();
  if (plot) zevfit::savePicture(window_, *plot, fit_.session, dialogs_, pictureKind_);
}

void ToolsMenu::showAllDirections() {
  if (!directions_) directions_ = new AllDirections(fit_.session, faults_, &window_);
  directions_->open();
}

void ToolsMenu::openManual() { manual_.open(QApplication::focusWidget()); }

void ToolsMenu::showKeys() {
  if (!keys_) keys_ = new KeysWindow(&window_);
  keys_->open();
}

}  // namespace zevfit
