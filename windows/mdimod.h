#pragma once

#include <QMainWindow>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/file_models.h"
#include "files/unsaved.h"
#include "files/variogram_reader.h"
#include "files/variogram_writer.h"
#include "model/fit.h"
#include "plot/drawing/drawing_depth.h"
#include "session/dialogs.h"
#include "session/session.h"
#include "windows/boundary.h"
#include "windows/chosen_wheel.h"
#include "windows/frmzevfit.h"
#include "windows/manual.h"
#include "windows/plot_window_table.h"

class QAction;
class QToolBar;

namespace zevfit {

class FileDrop;
class FitPanelWidgets;
class Foot;
class Orthogonality;
class PlotArea;
class Printer;
class cutgraph;
class Formfont;
class formabout;
class legenda;
class modfinal;
class printcolection;
class testcruz;
class ToolsMenu;

/// The main window: owns the session, the panel, the plot windows and the commands, and hands them
/// to each other.
class mdimod : public QMainWindow, public Plotter, public Hints, public StructureHost {
 public:
  /// The window and nothing in it: what it shows is text for the most part, and a start shows the
  /// window before it has read the fonts. `folder`: the program's own, for its files.
  mdimod(Dialogs& dialogs, Printer& printer, const Orthogonality& orthogonality,
         std::filesystem::path folder);
  ~mdimod() override;

  /// Puts the panel, the area of the plots, the menus and the foot into the window; to be called
  /// once.
  void furnish();

  Session& session() { return session_; }
  /// Gives the program and its buttons their icons, which are blank until then: the first picture
  /// of the window does not wait for them.
  void loadIcons();
  /// Shows the about window over the main window, as a start does.
  void showAbout();
  /// The manual, which needs something to open it with.
  Manual& manual() { return manual_; }
  /// Keeps the models and ends the program, without a question, by a signal that asked for it.
  void endBySignal(int signal);

  void plotvariogram() override;
  void hint(HintTopic topic, std::string_view text) override;

  void clearVariables() override;
  void enableMain() override;
  void focusMain() override;
  void fillDirections(const std::vector<std::string>& names) override;
  void fillVariables(const std::vector<std::string>& names) override;
  void removeVariable(int position) override;
  void selectDirection(int position) override;
  void selectVariable(int position) override;
  void enableFitControls() override;
  void startFit() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  /// A command of a menu or the toolbar.
  struct Command {
    const char* key;
    const char* caption;
    const char* tip;
    const char* icon;
    bool needsFile;
    void (mdimod::*action)();  ///< nothing for the separator
  };
  static const std::vector<Command>& toolbarCommands();

  /// All that `furnish` puts into the window.
  void makeContent();
  void makeMenus();
  void makeToolbar();
  /// Keys of a window of the program that do something with the plots.
  void addShortcut(QWidget& window, const char* name, void (QMdiArea::*way)());
  /// Those that go from plot to plot.
  void makeShortcuts(QWidget& window);
  QAction* addEntry(QMenu* menu, const char* name, const char* caption, void (mdimod::*action)());
  void run(const Command& command);

  void mnuvoltar();
  void mnudatprn();
  void mnucascade();
  void mnuvertical();
  void mnuhorizontal();
  void mnuabout2();
  void viewFile();
  void showResults();
  void gravando();
  void copyPlot();
  void zoomIn();
  void zoomOut();
  void showReports();
  void windowActivated(QMdiSubWindow* window);
  /// The same of the plot that is the active one already.
  void activateAgain();
  /// The data structure window, made at its first use.
  frmzevfit& structure();
  formabout& about();
  modfinal& results();
  void makeButtons();
  /// The menu Tools, which follows the lists of the panel too.
  void makeTools();
  /// The windows of the axes, of the format and of the test, made at their first use.
  void openScales();
  void openLegend();
  void openFormat();
  void openTest();
  printcolection& reports();
  bool chooseFile(std::string& path);
  /// Reads a chosen file, and shows what it holds.
  void load(const std::string& path);
  /// Writes the models into the program's folder, as a program that must end does; the path.
  std::optional<std::string> keepModels();
  void reportFault(std::string_view fault);
  /// The variables that a save would write; those of the file as long as it would write none.
  std::int64_t savedCount() const;
  /// The variables of the loaded file and those derived from them.
  std::int64_t variableCount() const;
  /// Keeps what differs from the loaded file; what is to be told where it can't.
  std::optional<std::string> keepUnsaved();
  /// Says, until a file is loaded, where the models of the last rescue are.
  void tellOfRescue();
  /// A good load.
  void takeFile();
  /// Says, until a file is loaded, what a load that failed half way has left in the tables.
  void tellOfHalf(const std::string& path);
  /// Brings the foot up to date once the events under way have ended, however often it is asked.
  void renewFoot();
  /// That of the plot on show, as it was drawn.
  std::optional<double> shownMisfit() const;

  Dialogs& dialogs_;
  /// Keeps the models and tells of a fault that ends the program.
  const FaultReport faults_;
  Printer& printer_;
  const Orthogonality& orthogonality_;
  Session session_;
  std::filesystem::path folder_;
  const ChosenWheel wheel_;
  ModelSaver saver_;
  Unsaved unsaved_;
  FileModels fileModels_;
  Manual manual_;
  PlotArea* area_ = nullptr;
  FitPanelWidgets* panel_ = nullptr;
  Foot* foot_ = nullptr;
  bool footDue_ = false;  ///< it is about to be brought up to date
  QToolBar* Toolbar1 = nullptr;
  std::unique_ptr<PlotWindowTable> windows_;
  std::unique_ptr<Fit> fit_;
  std::unique_ptr<frmzevfit> structure_;
  std::unique_ptr<formabout> about_;
  std::unique_ptr<modfinal> results_;
  std::unique_ptr<cutgraph> scales_;
  std::unique_ptr<legenda> legend_;
  std::unique_ptr<Formfont> format_;
  std::unique_ptr<printcolection> reports_;
  std::unique_ptr<testcruz> test_;
  std::vector<std::pair<QAction*, const char*>> icons_;  ///< the names of those to be loaded
  std::unique_ptr<ToolsMenu> tools_;
  bool ending_ = false;  ///< the question of the end has been answered
  DrawingDepth depth_;
  std::unique_ptr<FileDrop> drop_;
};

}  // namespace zevfit
