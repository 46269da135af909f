#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "model/fit.h"
#include "session/dialogs.h"
#include "windows/boundary.h"
#include "windows/start_model.h"

class QAction;
class QMainWindow;
class QMdiArea;
class QMenu;

namespace zevfit {

class AllDirections;
class Formod;
class KeysWindow;
class Manual;

/// The menu Tools of the main window with the windows that it opens. An entry is enabled when it
/// can do something.
class ToolsMenu : public QObject {
 public:
  ToolsMenu(QMainWindow& window, QMdiArea& area, Fit& fit, Dialogs& dialogs, Manual& manual,
            const FaultReport& faults);
  ~ToolsMenu() override;

  /// The session or the active plot may have changed.
  void follow();
  /// The tables hold another file.
  void takeFile() { start_.forget(); }

  /// Called behind the end of a plot, of which the area does not tell where it is the last one.
  std::function<void()> plotGone;

 protected:
  /// Takes notice of plots that are closed: the area does not tell when its last one is.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// An entry; its keys are those of its name.
  struct Tool {
    const char* name;
    const char* caption;
    const char* tip;
    bool (ToolsMenu::*ready)() const;
    void (ToolsMenu::*run)();
  };
  static const std::vector<Tool>& tools();

  void enableEntries();
  Formod* activePlot() const;
  bool hasPlot() const;
  bool hasVariable() const;
  bool hasPair() const { return start_.isReady(); }
  bool always() const { return true; }
  void savePicture();
  void showAllDirections();
  void startModel() { start_.run(); }
  void openManual();
  void showKeys();

  QMainWindow& window_;
  QMdiArea& area_;
  Fit& fit_;
  Dialogs& dialogs_;
  Manual& manual_;
  const FaultReport& faults_;
  StartModel start_;
  std::vector<std::pair<QAction*, const Tool*>> entries_;
  AllDirections* directions_ = nullptr;
  KeysWindow* keys_ = nullptr;
  std::size_t pictureKind_ = 0;
};

}  // namespace zevfit
