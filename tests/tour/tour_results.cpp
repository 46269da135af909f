// The second half of a tour: what is made of the models.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

#include "report/page_grid.h"
#include "tests/tour/tour.h"

namespace zevfit::tour {

namespace {

constexpr const char* kQuestion = "zevRA: Program zevFIT";

struct Pair {
  int variable, direction;
};

/// The plots of the report, row by row: zinc in all directions, copper in two, the cross variable
/// and the sum.
constexpr int kReportColumns = 2, kReportRows = 4;
constexpr Pair kReport[kReportRows][kReportColumns] = {
    {{1, 1}, {1, 2}}, {{1, 3}, {1, 4}}, {{3, 1}, {3, 2}}, {{5, 2}, {8, 1}}};

}  // namespace

void Tour::save() {
  answers_.expectBox(kQuestion, "Save  current models to file: " + path(kModelFile));
  answers_.expectBox("", "Models saved to file:" + path(kModelFile));
  press("k11");
}

/// The test finds the sill and the range, which are then put right.
void Tour::testTogether() {
  hand_.click(panel("Command2"));
  auto& test = open(window_, "testcruz");
  for (const auto& [list, position] : {std::pair("combovarsec", 1),
                                       {"Combovarcruz", 4},
                                       {"Combodmain", 1},
                                       {"Combodminor1", 3},
                                       {"Combodminor2", 3}})
    hand_.choose(find<QComboBox>(test, list), position);
  hand_.click(find(test, "Command1"));
  album_.keep(test, "testcruz-failed");
  hand_.click(find(test, "Command2"));

  choosePair({5, 2});
  fitStructure("tipo2", "0.4", "1800");
  hand_.click(panel("Command2"));
  album_.keep(open(window_, "testcruz"), "testcruz");
  hand_.click(find(test, "Command2"));
}

/// The model in another colour.
void Tour::format() {
  choosePair({1, 1});
  press("k10");
  auto& format = open(window_, "Formfont");
  hand_.click(find(format, "Command4"));
  auto& help = open(format, "Frame2");
  album_.keep(help, "Frame2");
  hand_.key(help, Qt::Key_Escape);
  hand_.click(find(format, "Command5"));
  auto& colours = open(format, "cores");
  hand_.clickMark(find(colours, "Option3"));
  answers_.expect("Select Color", [this](QWidget& dialog) {
    for (auto* field : dialog.findChildren<QLineEdit*>())
      if (field->text().startsWith('#')) hand_.typeAndEnter(*field, "#8000c0");
    hand_.key(dialog, Qt::Key_Return);
  });
  hand_.click(find(colours, "Command1"));
  album_.keep(colours, "cores");
  hand_.click(find(colours, "Command2"));
  hand_.click(find<QWidget>(format, "Picture1"));
  album_.keep(format, "Formfont");
  hand_.click(find(format, "Command2"));
}

/// A sum has the axis of its parts, which its values leave; a new scale shows them. The distance
/// gets its unit.
void Tour::scaleAndLegend() {
  choosePair({8, 1});
  hand_.click(panel("Command1"));
  auto& scales = open(window_, "cutgraph");
  hand_.type(find<QLineEdit>(scales, "novoxmax"), "1700");
  hand_.type(find<QLineEdit>(scales, "novoymax"), "2");
  album_.keep(scales, "cutgraph");
  hand_.click(find(scales, "Command2"));
  plotAgain();
  fitNugget("0.18");
  fitStructure("tipo2", "1.2", "1250");

  answers_.expect("Variogram  (0;0)", [this](QWidget& legend) {
    hand_.type(find<QLineEdit>(legend, "Text1"), "m");
    album_.keep(legend, "legenda");
    hand_.click(find(legend, "Command2"));
  });
  hand_.click(panel("Command4"));
  album_.keep(plot(), "Formod-sum");
}

void Tour::takeRow(QWidget& results, const char* option, int direction) {
  hand_.clickMark(find(results, option));
  auto& grid = find<QTableWidget>(results, "gridsairmod");
  hand_.clickAt(*grid.viewport(), grid.visualItemRect(grid.item(direction + 1, 1)).center());
}

/// Main along 45 degrees, both minor directions along 135.
void Tour::results() {
  answers_.expect("Results From  Interactive Fit", [this](QWidget& results) {
    takeRow(results, "Option3d4", 2);
    takeRow(results, "Option3d5", 4);
    takeRow(results, "Option3d6", 4);
    album_.keep(results, "modfinal");
    answers_.expectFile("Save Output File (*.ZVP)", path(kKrigingFile));
    answers_.expectBox("", QString("File  ' %1 '  is saved, you can go on to simulation/kriging "
                                   "modules.")
                               .arg(kKrigingFile));
    hand_.click(find(results, "Command2"));
    hand_.click(find(results, "Command1"));
  });
  press("k3");
}

/// Eight plots on a sheet, printed into a file.
void Tour::report() {
  press("kp");
  auto& reports = open(window_, "printcolection");
  find<QSlider>(reports, "HScroll1").setFocus(Qt::TabFocusReason);
  hand_.key(reports, Qt::Key_Right);
  hand_.click(find(reports, "Command1"));
  const PageGrid grid = pageGrid(3147, 4452, kReportColumns, kReportRows);
  auto& page = find<QWidget>(reports, "Picture1_0");
  for (int row = 1; row <= kReportRows; ++row)
    for (int column = 1; column <= kReportColumns; ++column) {
      const Pair& pair = kReport[row - 1][column - 1];
      choosePair({pair.variable, pair.direction});
      hand_.clickAt(page, QPointF((grid.left(column) + grid.cellWidth / 2) / 15,
                                  (grid.above(row) + grid.cellHeight / 2) / 15)
                              .toPoint());
    }
  album_.keep(reports, "printcolection");
  answers_.expect("Print", [this](QWidget& dialog) {
    auto& printers = find<QComboBox>(dialog, "printers");
    hand_.choose(printers, printers.count() - 1);
    hand_.typeAndEnter(find<QLineEdit>(dialog, "filename"), qPrintable(path(kReportFile)));
  });
  hand_.click(find(reports, "printar"));
  reports.close();
}

/// By the menu; the settings are kept.
void Tour::end() {
  answers_.expectBox(kQuestion, "Save configuration data file to zevFIT.INI ?");
  QMenuBar& menus = *window_.menuBar();
  hand_.clickAt(menus, menus.actionGeometry(menus.actions().constFirst()).center());
  QWidget* menu = QApplication::activePopupWidget();
  if (!menu) fail("no menu comes up", menus);
  hand_.key(*menu, Qt::Key_Down);
  hand_.key(*menu, Qt::Key_Return);
  if (window_.isVisible() || !answers_.done()) fail("does not end", window_);
}

}  // namespace zevfit::tour
