#include "windows/mdimod.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QIcon>
#include <QScreen>
#include <QStyle>

#include "files/parameter_file.h"
#include "files/rescue.h"
#include "files/saveini.h"
#include "model/settling.h"
#include "plot/drawing/plot_variogram.h"
#include "plot/window/activation.h"
#include "plot/window/zoom.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "windows/arrangement.h"
#include "windows/controls.h"
#include "windows/cutgraph.h"
#include "windows/file_drop.h"
#include "windows/fit_panel_widgets.h"
#include "windows/foot.h"
#include "windows/formabout.h"
#include "windows/formfont.h"
#include "windows/legenda.h"
#include "windows/modfinal.h"
#include "windows/plot_area.h"
#include "windows/printcolection.h"
#include "windows/save_picture.h"
#include "windows/testcruz.h"
#include "windows/texts.h"
#include "windows/tools_menu.h"
#include "windows/wait_cursor.h"

namespace zevfit {

namespace {

/// Two plots stand side by side in it.
constexpr QSize kStartSize(1240, 760);

QStringList toQStrings(const std::vector<std::string>& texts) {
  QStringList made;
  for (const std::string& text : texts) made.append(toQString(text));
  return made;
}

}  // namespace

mdimod::mdimod(Dialogs& dialogs, Printer& printer, const Orthogonality& orthogonality,
               std::filesystem::path folder)
    : dialogs_(dialogs),
      faults_([this](std::string_view fault) { reportFault(fault); }),
      printer_(printer),
      orthogonality_(orthogonality),
      folder_(std::move(folder)),
      saver_(folder_),
      unsaved_(folder_, settleAsShown),
      manual_(dialogs, faults_) {
  setObjectName("mdimod");
  setWindowTitle("zevFIT");
  resize(kStartSize);
  // A window that is closed at once writes them.
  if (const auto path = loadParameters(folder_, session_.style)) dialogs_.holdFile(*path);
}

mdimod::~mdimod() {
  // The controls go before what their handlers work on.
  delete takeCentralWidget();
}

frmzevfit& mdimod::structure() {
  if (!structure_)
    structure_ = std::make_unique<frmzevfit>(session_, dialogs_, dialogs_, *this, faults_, this);
  return *structure_;
}

formabout& mdimod::about() {
  if (!about_) about_ = std::make_unique<formabout>(this);
  return *about_;
}

printcolection& mdimod::reports() {
  if (!reports_) {
    reports_ = std::make_unique<printcolection>(*fit_, *windows_, printer_, faults_, this);
    makeShortcuts(*reports_);
  }
  return *reports_;
}

modfinal& mdimod::results() {
  if (!results_)
    results_ =
        std::make_unique<modfinal>(session_, dialogs_, dialogs_, orthogonality_, faults_, this);
  return *results_;
}

void mdimod::loadIcons() {
  QApplication::setWindowIcon(programIcon("app"));
  for (const auto& [action, name] : icons_) action->setIcon(programIcon(name));
  panel_->loadIcons();
}

void mdimod::showAbout() { about().showAtStart(); }

std::int64_t mdimod::variableCount() const {
  // Neither the list of the panel nor, behind a save, the count of the session knows them all.
  return structure_ ? structure_->listed() : 0;
}

std::int64_t mdimod::savedCount() const {
  const int listed = panel_->listCount(List::Combo2);
  return listed > 0 ? listed : session_.nvarfile;
}

std::optional<std::string> mdimod::keepUnsaved() {
  return unsaved_.keep(session_, variableCount());
}

std::optional<std::string> mdimod::keepModels() {
  const auto kept = writeRescue(session_, variableCount(), folder_);
  return kept ? std::optional(kept->string()) : std::nullopt;
}

void mdimod::reportFault(std::string_view fault) {
  const auto kept = keepModels();
  dialogs_.fatal(std::string(fault) + (kept ? "\n\nThe models are kept in " + *kept : ""));
}

void mdimod::endBySignal(int signal) {
  keepModels();
  QCoreApplication::exit(kSignalExitCode + signal);
}

void mdimod::openScales() {
  if (!scales_)
    scales_ = std::make_unique<cutgraph>(
        *fit_, faults_, [this] { activateAgain(); }, this);
  scales_->open();
}

void mdimod::openFormat() {
  if (!format_) format_ = std::make_unique<Formfont>(*fit_, *windows_, dialogs_, faults_, this);
  format_->open();
}

void mdimod::openLegend() {
  if (!legend_) legend_ = std::make_unique<legenda>(*fit_, faults_, this);
  legend_->open();
}

void mdimod::openTest() {
  if (!test_) test_ = std::make_unique<testcruz>(session_, dialogs_, faults_, *this);
  test_->start();
}

void mdimod::run(const Command& command) {
  if (command.needsFile && !requireFile(*fit_)) return;
  if (command.action) (this->*command.action)();
  renewFoot();
}

void mdimod::mnuvoltar() {
  saver_.closeFiles();
  if (!saveini(session_.style, dialogs_.heldFile(), folder_, 0, 0, dialogs_)) return;
  ending_ = true;
  close();
}

void mdimod::closeEvent(QCloseEvent* event) {
  event->ignore();
  // Some window systems let the user close a disabled window.
  if (!isEnabled()) return;
  guarded(faults_, [&] {
    saver_.closeFiles();
    if (!ending_) ending_ = closeRequest(session_.style, dialogs_.heldFile(), folder_, dialogs_);
    if (!ending_) return;
    // No foot would be read any more.
    if (const auto lost = keepUnsaved()) dialogs_.plain(*lost);
    event->accept();
    // Another window on show must not keep the program.
    QCoreApplication::exit(0);
  });
}

void mdimod::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  // Behind the format window the main one is disabled: it has to come back with it.
  if (!isMinimized()) return format_ ? format_->bringBack() : void();
  for (QWidget* window : std::initializer_list<QWidget*>{structure_.get(), results_.get(),
                                                         scales_.get(), legend_.get()})
    if (window) window->hide();
  if (format_) format_->setAside();
}

bool mdimod::chooseFile(std::string& path) {
  for (;;) {
    const std::optional<std::string> chosen = dialogs_.openFile("Input Data File (*.ZVM)", "*.ZVM");
    if (!chosen) return false;
    path = *chosen;
    if (hasVariogramExtension(std::filesystem::path(path).filename().string())) return true;
    dialogs_.plain("Illegal Type of Input Data File!");
  }
}

void mdimod::mnudatprn() {
  std::string path;
  if (chooseFile(path)) load(path);
}

void mdimod::load(const std::string& path) {
  Load outcome = Load::refused;
  std::optional<std::string> lost;
  {
    const WaitCursor wait;
    outcome = loadVariogramFile(path, session_, [&] { lost = keepUnsaved(); });
    if (outcome == Load::good) structure().fill(path);
  }
  if (outcome == Load::good) takeFile();
  if (outcome == Load::halfWay) tellOfHalf(path);
  if (lost) tellAtFoot(*this, *lost);
  renewFoot();
  tools_->follow();
  tellOfRescue();
  if (outcome != Load::good) return dialogs_.warning(kBadFileText);
  structure().showModal();
  renewFoot();
}

void mdimod::takeFile() {
  about().hide();
  saver_.startFile();
  fileModels_.take(session_, variableCount());
  tools_->takeFile();
  clearFoot(*this);
}

void mdimod::viewFile() { structure().reopen(); }

void mdimod::showResults() {
  // A failure ends without the window.
  endSilently([&] {
    results().prepare(panel_->listCount(List::Combo2));
    results().showModal();
  });
}

void mdimod::gravando() {
  const int listed = panel_->listCount(List::Combo2);
  const auto note = saver_.gravando(session_, toInt16(listed), dialogs_);
  if (saver_.hasSaved()) fileModels_.take(session_, listed);
  if (note) tellAtFoot(*this, *note);
}

void mdimod::copyPlot() {
  auto* plot = dynamic_cast<Formod*>(area_->activeSubWindow());
  {
    const WaitCursor wait;
    QGuiApplication::clipboard()->clear();
    if (plot) QGuiApplication::clipboard()->setMimeData(clipboardPicture(*plot, session_));
  }
  if (!plot) dialogs_.plain("Please Select Variogram Plot you want to copy to Clipboard!");
}

void mdimod::zoomIn() {
  kmais(session_, *this, dialogs_, *windows_, screen()->size().width() * kTwipsPerPixel);
}

void mdimod::zoomOut() { kmenos(session_, *this, dialogs_, *windows_); }

void mdimod::showReports() {
  // Its title bar stays below the toolbar.
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  reports().open(area_->mapToGlobal(QPoint(0, title)));
}

void mdimod::mnuabout2() { about().showCentred(); }

void mdimod::mnucascade() { cascadePlots(*area_); }

void mdimod::mnuvertical() { tilePlots(*area_, Qt::Horizontal); }

void mdimod::mnuhorizontal() { tilePlots(*area_, Qt::Vertical); }

void mdimod::clearVariables() { panel_->fillList(List::Combo2, {}); }

void mdimod::enableMain() { setEnabled(true); }

void mdimod::focusMain() {
  show();
  raise();
  activateWindow();
}

void mdimod::fillDirections(const std::vector<std::string>& names) {
  panel_->fillList(List::Combodirvar, toQStrings(names));
}

void mdimod::fillVariables(const std::vector<std::string>& names) {
  panel_->fillList(List::Combo2, toQStrings(names));
}

void mdimod::removeVariable(int position) { panel_->removeEntry(List::Combo2, position); }

void mdimod::selectDirection(int position) { panel_->setListPosition(List::Combodirvar, position); }

void mdimod::selectVariable(int position) { panel_->setListPosition(List::Combo2, position); }

void mdimod::enableFitControls() { panel_->QWidget::setEnabled(true); }

void mdimod::startFit() {
  if (isMinimized()) showMaximized();
  focusMain();
  panel_->focusPlotButton();
}

void mdimod::plotvariogram() {
  // A window appears once it is loaded, also when its drawing fails.
  struct Appearance {
    PlotWindowTable& windows;
    ToolsMenu& tools;
    Pair subject;
    ~Appearance() {
      windows.showDrawn(subject);
      tools.follow();
    }
  } const appearance{*windows_, *tools_, session_.current()};
  renewFoot();
  const DrawingDepth::Level level(depth_);
  zevfit::plotvariogram(*fit_, *windows_);
}

void mdimod::activateAgain() {
  auto* plot = dynamic_cast<Formod*>(area_->currentSubWindow());
  if (plot && plot->appeared()) windowActivated(plot);
}

void mdimod::windowActivated(QMdiSubWindow* window) {
  auto* plot = dynamic_cast<Formod*>(window);
  if (plot) guarded(faults_, [&] { activatePlotWindow(*fit_, *plot); });
}

}  // namespace zevfit
