// How a tour goes through the windows, and its first half: the file, and the models.
#include "tests/tour/tour.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>
#include <QWindow>

namespace zevfit::tour {

namespace {

constexpr QSize kWindowSize(1210, 760);
constexpr int kWait = 5000;  // milliseconds for a window to appear

/// The directions of the file, as the list counts them.
constexpr int kNorth = 1, kNorthEast = 2, kSouthEast = 4;
/// Its variables, and the sum that the tour makes.
constexpr int kZinc = 1, kLead = 2, kCopper = 3, kZincLead = 5;

constexpr const char* kRanges[] = {"1250", "1800", "1000", "750"};

}  // namespace

Tour::Tour(std::filesystem::path folder)
    : folder_(std::move(folder)),
      window_(dialogs_, printer_, angleTest_, folder_),
      greeting_(window_),
      album_(QString::fromStdString(folder_.string())) {}

void Tour::play() {
  start();
  openAndAdd();
  fitZinc();
  fitCopperBySlider();
  fitCopperByHandle();
  fitTogether();
  scaleAndLegend();
  save();
  testTogether();
  save();
  format();
  results();
  report();
  end();
}

QString Tour::path(const char* name) const {
  return QString::fromStdString((folder_ / name).string());
}

QWidget& Tour::open(QWidget& over, const char* name) {
  auto& opened = find<QWidget>(over, name);
  if (!QTest::qWaitForWindowExposed(&opened, kWait)) fail("does not appear", opened);
  QApplication::processEvents();
  return opened;
}

QWidget& Tour::plot() {
  QMdiSubWindow* active = find<QMdiArea>(window_, "Area").activeSubWindow();
  if (!active) fail("no plot", window_);
  return *active;
}

void Tour::press(const char* key) {
  auto& toolbar = find<QToolBar>(window_, "Toolbar1");
  QWidget* button = toolbar.widgetForAction(&find<QAction>(window_, key));
  if (!button) fail(key, window_);
  hand_.click(*button);
}

void Tour::choose(const char* option) {
  auto& button = panel(option);
  button.isChecked() ? hand_.doubleClickMark(button) : hand_.clickMark(button);
}

void Tour::choosePair(Pair pair) {
  hand_.choose(panel<QComboBox>("Combo2"), static_cast<int>(pair.variable) - 1);
  hand_.choose(panel<QComboBox>("Combodirvar"), static_cast<int>(pair.direction) - 1);
  // Puts the pair's own nugget into the field: one that holds a sill beyond the axis of the pair
  // has no place on its slider, and nothing would be drawn.
  choose("est1");
  plotAgain();
}

void Tour::plotAgain() { hand_.click(panel("Command5")); }

void Tour::pageUp(const char* slider, int times) {
  auto& groove = panel<QSlider>(slider);
  for (int i = 0; i < times; ++i) hand_.clickAt(groove, {groove.width() - 2, groove.height() / 2});
}

void Tour::fitNugget(const char* value) {
  choose("est1");
  if (!panel("plot1").isChecked()) hand_.clickMark(panel("plot1"));
  hand_.typeAndEnter(panel<QLineEdit>("Textc0"), value);
}

void Tour::fitStructure(const char* model, const char* sill, const char* range) {
  choose("est2");
  choose(model);
  hand_.type(panel<QLineEdit>("Texta"), range);
  hand_.typeAndEnter(panel<QLineEdit>("Textc0"), sill);
}

/// The program comes up with its greeting, which a click hides.
void Tour::start() {
  window_.show();
  window_.resize(kWindowSize);
  if (!QTest::qWaitForWindowExposed(&window_, kWait)) fail("does not appear", window_);
  if (!QTest::qWaitFor([&] { return window_.findChild<QWidget*>("formabout"); }, kWait))
    fail("no greeting", window_);
  auto& about = open(window_, "formabout");
  album_.keep(window_, "mdimod-start");
  album_.keep(about, "formabout");
  hand_.click(about);
}

/// The file is chosen, looked at, and gets the sum of two of its variables.
void Tour::openAndAdd() {
  answers_.expectFile("Input Data File (*.ZVM)", path(kModelFile));
  answers_.expect("Filename (*.ZVM): " + path(kModelFile), [this](QWidget& structure) {
    album_.keep(structure, "frmzevfit");
    look(structure);
    addUp(structure);
    album_.keep(structure, "frmzevfit-sum");
    hand_.click(find(structure, "Command2"));
  });
  press("k1");
}

void Tour::look(QWidget& structure) {
  hand_.choose(find<QComboBox>(structure, "Combovar"), kZincLead - 1);
  hand_.choose(find<QComboBox>(structure, "Combodirvalues"), kSouthEast - 1);
  album_.keep(structure, "frmzevfit-look");
}

void Tour::addUp(QWidget& structure) {
  auto& variables = find<QTableWidget>(structure, "grid1");
  for (const int variable : {kZinc, kLead})
    hand_.clickAt(*variables.viewport(),
                  variables.visualItemRect(variables.item(variable, 1)).center());
  hand_.type(find<QLineEdit>(structure, "Text2"), "zinc+lead");
  hand_.click(find(structure, "adicionar"));
  auto& shown = find<QComboBox>(structure, "Combovar");
  hand_.choose(shown, shown.count() - 1);
}

/// Options and fields: a nugget and a spherical structure in each direction. At 45 degrees the sill
/// is another one.
void Tour::fitZinc() {
  album_.keep(window_, "mdimod-opened");
  for (int direction = 1; direction <= 4; ++direction) {
    choosePair({kZinc, direction});
    fitNugget("0.09");
    fitStructure("tipo2", direction == kNorthEast ? "0.44" : "0.66", kRanges[direction - 1]);
    if (direction == 1) album_.keep(plot(), "Formod");
  }
  album_.keep(window_, "mdimod");
  press("k5");
  album_.keep(window_, "mdimod-cascade");
}

/// Sliders alone, by their pages.
void Tour::fitCopperBySlider() {
  choosePair({kCopper, kNorthEast});
  choose("est1");
  hand_.clickMark(panel("plot1"));
  pageUp("HScrollc0", 3);
  choose("est2");
  choose("tipo1");
  pageUp("HScrollc0", 14);
  pageUp("HScrolla", 1);
  album_.keep(window_, "mdimod-slider");
}

/// A slider for the nugget, the fields for a first structure, and its handle for a better one: the
/// left button takes the range, the right one the sill. In the end a click on a data point tells
/// its pairs.
void Tour::fitCopperByHandle() {
  choosePair({kCopper, kNorth});
  choose("est1");
  hand_.clickMark(panel("plot1"));
  pageUp("HScrollc0", 2);
  fitStructure("tipo2", "0.2", "800");
  auto& picture = find<QWidget>(plot(), "Picture4");
  auto& handle = find<QWidget>(plot(), "estru_1");
  hand_.clickAt(picture, {20, 20});
  album_.keep(plot(), "Formod-handles");
  hand_.press(handle, {2, 2}, Qt::LeftButton);
  hand_.drag(picture, {304, 100});
  album_.keep(plot(), "Formod-range");
  hand_.release(Qt::LeftButton);
  hand_.press(handle, {2, 2}, Qt::RightButton);
  hand_.drag(picture, {304, 86});
  album_.keep(plot(), "Formod-sill");
  hand_.release(Qt::RightButton);
}

/// Lead and the cross variable like zinc. One cross sill is too large, and one range another one.
void Tour::fitTogether() {
  struct Fit {
    int variable;
    const char *nugget, *sill, *sillAt45;
  };
  for (const Fit& fit : {Fit{kLead, "0.09", "0.54", "0.38"}, {kZincLead, "0.075", "0.59", "0.45"}})
    for (int direction = 1; direction <= 4; ++direction) {
      choosePair({fit.variable, direction});
      fitNugget(fit.nugget);
      const bool at45 = direction == kNorthEast;
      const bool wrong = at45 && fit.variable == kZincLead;
      fitStructure("tipo2", at45 ? fit.sillAt45 : fit.sill,
                   wrong ? "1700" : kRanges[direction - 1]);
    }
}

}  // namespace zevfit::tour
