// The controls of the data structure window and their places.
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "windows/controls.h"
#include "windows/frmzevfit.h"
#include "windows/grid.h"

namespace zevfit {

namespace {

/// Room for the longest name that a new variable can have.
constexpr int kNameWidth = 100;
constexpr QSize kLeastList(400, 100);
constexpr QSize kLeastTable(500, 300);
constexpr QSize kStartSize(1040, 660);

/// A label whose text comes from the file.
QLabel* makeReadout(const QString& name) {
  QLabel* label = named(makeLabel(QString()), name);
  label->setFrameStyle(int{QFrame::Panel} | int{QFrame::Sunken});
  label->setMargin(3);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return label;
}

QComboBox* makeList(const char* name) {
  auto* list = named(new QComboBox, name);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(12);
  return list;
}

/// A row of a frame: the caption, and the control that it tells of.
void addRow(QGridLayout& rows, const char* caption, QWidget* control) {
  QLabel* label = makeLabel(caption);
  label->setBuddy(control);
  // A label is read out with its own text, which a name would hide.
  if (control->focusPolicy() != Qt::NoFocus)
    control->setAccessibleName(QString(caption).remove(':').simplified());
  const int row = rows.rowCount();
  rows.addWidget(label, row, 0);
  rows.addWidget(control, row, 1);
  rows.setColumnStretch(1, 1);
}

}  // namespace

void frmzevfit::makeControls() {
  gridcabeca = named(new QGroupBox("Data File "), "gridcabeca");
  Labelnumerovar = makeReadout("Labelnumerovar");
  Labelnumerodir = makeReadout("Labelnumerodir");
  Combovar = makeList("Combovar");
  Combodirvalues = makeList("Combodirvalues");
  Label5 = {makeReadout("Label5_0"), makeReadout("Label5_1")};
  gridresults = named(new Grid({2, 3, 3, 2}), "gridresults",
                      "List of data of experimental variogram from the selected variable and "
                      "direction");
  grid1 = named(new Grid({1, 1}), "grid1", "List of the existing variables");
  gridresults->setAccessibleName("Lag classes");
  grid1->setAccessibleName("Variables");
  Picturegrid = programIcon("ticked");
  Picturegrid2 = programIcon("unticked");
  Text2 = named(new QLineEdit, "Text2", "Input variable name");
  Text2->setMinimumWidth(kNameWidth);
  adicionar = makeIconButton("adicionar", "add",
                             "Add newly defined variable to current variable list", {"Alt+A"});
  remove = makeIconButton("remove", "remove", "Remove selected variable from current variable list",
                          {"Alt+R"});
  Command1 = makeIconButton("Command1", "back", "Back to Open Data File Menu", {"Alt+Left"});
  Command2 =
      makeIconButton("Command2", "continue", "Continue and Save these  Options", {"Ctrl+Return"});
}

void frmzevfit::layOut() {
  auto* structure = new QGroupBox("Data File Structure");
  auto* counts = new QGridLayout(structure);
  addRow(*counts, "Number of Variables:", Labelnumerovar);
  addRow(*counts, "Number of Directions:", Labelnumerodir);

  auto* choice = new QGroupBox("Select  Variable/Direction");
  auto* choices = new QGridLayout(choice);
  addRow(*choices, "See Variable      :", Combovar);
  addRow(*choices, "See Direction     :", Combodirvalues);
  addRow(*choices, "Variable Selected  :", Label5[0]);
  addRow(*choices, "Sill                         :", Label5[1]);

  auto* creation = new QGroupBox("Create Variable");
  auto* creations = new QGridLayout(creation);
  addRow(*creations, "Variable Name    :", Text2);
  creations->addWidget(adicionar, creations->rowCount() - 1, 2);

  auto* removal = new QGroupBox("Remove Variable");
  auto* removals = new QHBoxLayout(removal);
  removals->addWidget(remove, 0, Qt::AlignCenter);

  auto* derived = new QHBoxLayout;
  derived->addWidget(creation, 1);
  derived->addWidget(removal);

  auto* side = new QVBoxLayout;
  side->addWidget(structure);
  side->addWidget(choice);
  side->addWidget(grid1, 1);
  side->addLayout(derived);
  grid1->setMinimumSize(kLeastList);

  auto* classes = new QVBoxLayout(gridcabeca);
  classes->addWidget(gridresults);
  gridresults->setMinimumHeight(kLeastTable.height());
  // Its own least width, so that a long file name in the heading does not widen the window.
  gridcabeca->setMinimumWidth(kLeastTable.width());

  auto* leaving = new QHBoxLayout;
  leaving->addWidget(Command1);
  leaving->addStretch(1);
  leaving->addWidget(Command2);

  auto* all = new QGridLayout(this);
  all->addLayout(side, 0, 0);
  all->addWidget(gridcabeca, 0, 1);
  all->addLayout(leaving, 1, 0, 1, 2);
  all->setColumnStretch(1, 1);
  resize(kStartSize);
}

void frmzevfit::orderTabs() {
  QWidget* before = Combovar;
  for (QWidget* next : std::initializer_list<QWidget*>{Combodirvalues, gridresults, grid1, Text2,
                                                       adicionar, remove, Command1, Command2}) {
    QWidget::setTabOrder(before, next);
    before = next;
  }
}

}  // namespace zevfit
