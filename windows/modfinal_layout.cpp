// The controls of the results window and their places.
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "windows/controls.h"
#include "windows/modfinal.h"
#include "windows/results_grid.h"

namespace zevfit {

namespace {

constexpr QSize kStartSize(1120, 640);
constexpr QSize kLeastTable(760, 170);
constexpr int kListCharacters = 24;

struct AxisControls {
  const char* fields;
  const char* option;
  const char* caption;
};
constexpr std::array<AxisControls, kAxes.size()> kControls{{
    {"main", "Option3d4", "Main Direction"},
    {"minor1", "Option3d5", "Minor Direction 1"},
    {"minor2", "Option3d6", "Minor Direction 2"},
}};
constexpr const char* kOptionTip =
    "Click here and then click on the grid above to transfer the parameters quickly!";
constexpr std::array<const char*, kAxisEntries> kColumns{"Azimuth", "Dip", "a1", "a2", "a3"};

QLabel* makeHeading(const char* text) {
  QLabel* label = makeLabel(text);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

QFrame* makeRule() {
  auto* rule = new QFrame;
  rule->setFrameStyle(int{QFrame::HLine} | int{QFrame::Sunken});
  return rule;
}

}  // namespace

void modfinal::makeControls() {
  Combovarver = named(new QComboBox, "Combovarver");
  Combovarver->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  Combovarver->setMinimumContentsLength(kListCharacters);
  Combovarver->setAccessibleName("Select Variable");
  Label29 = named(makeLabel(QString()), "Label29");
  Label29->setFrameStyle(int{QFrame::Panel} | int{QFrame::Sunken});
  Label29->setMargin(3);
  Label29->setMinimumWidth(fontMetrics().averageCharWidth() * kListCharacters);
  gridsairmod = named(new ResultsGrid, "gridsairmod",
                      "Results from interactive fit for all directions of selected variable ");
  gridsairmod->setAccessibleName("Models of all directions");
  gridsairmod->setMinimumSize(kLeastTable);
  Labelnote = named(makeLabel(QString()), "Labelnote");
  // A long line neither widens the window nor pushes the table.
  Labelnote->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  Command1 = makeIconButton("Command1", "back", "Back to the interactive Fit", {"Alt+Left"});
  Command2 = named(new QPushButton("Save As"), "Command2",
                   "Save kriging parameters to your output file *.ZVP");
  Command2->setShortcut({"Alt+S"});
  Command2->setAutoDefault(false);
}

void modfinal::makeFields() {
  for (const Axis axis : kAxes) {
    const auto at = static_cast<std::size_t>(axis);
    const AxisControls& controls = kControls.at(at);
    options_.at(at) = named(new QRadioButton(controls.caption), controls.option, kOptionTip);
    options_.at(at)->setIcon(axisIcon(axis));
    options_.at(at)->setBackgroundRole(QPalette::Window);
    for (std::size_t entry = 0; entry < kAxisEntries; ++entry) {
      QLineEdit* field = named(new QLineEdit, QString("%1_%2").arg(controls.fields).arg(entry));
      field->setAccessibleName(QString("%1, %2").arg(controls.caption, kColumns.at(entry)));
      fields_.at(at).at(entry) = field;
    }
  }
}

QGridLayout* modfinal::layOutFields() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->addWidget(makeLabel("Direction"), 0, 0);
  for (int entry = 0; entry < static_cast<int>(kAxisEntries); ++entry) {
    grid->addWidget(makeLabel(kColumns.at(static_cast<std::size_t>(entry))), 0, entry + 1);
    grid->setColumnStretch(entry + 1, 1);
  }
  for (int row = 0; row < static_cast<int>(kAxes.size()); ++row) {
    const auto at = static_cast<std::size_t>(row);
    grid->addWidget(options_.at(at), row + 1, 0);
    int column = 1;
    for (QLineEdit* field : fields_.at(at)) grid->addWidget(field, row + 1, column++);
  }
  return grid;
}

void modfinal::layOut() {
  auto* choice = new QHBoxLayout;
  QLabel* variable = makeLabel("Select Variable :");
  variable->setBuddy(Combovarver);
  for (QWidget* next :
       std::initializer_list<QWidget*>{variable, Combovarver, makeLabel("Variance :"), Label29})
    choice->addWidget(next);
  choice->insertSpacing(2, 24);
  choice->addStretch(1);

  auto* leaving = new QHBoxLayout;
  leaving->addWidget(Command1);
  leaving->addStretch(1);
  leaving->addWidget(Command2);

  auto* all = new QVBoxLayout(this);
  all->addWidget(makeHeading("Results From Interactive Fit"));
  all->addLayout(choice);
  all->addWidget(gridsairmod, 1);
  all->addWidget(Labelnote);
  all->addWidget(
      makeLabel("Select a direction below, then click the C0 of a row: the row's ranges, "
                "azimuth and dip go into its fields."));
  all->addWidget(makeRule());
  all->addWidget(makeHeading("Define and Save Kriging Parameters to ouput file *.ZVP"));
  all->addLayout(layOutFields());
  all->addLayout(leaving);
  resize(kStartSize);
}

void modfinal::orderTabs() {
  std::vector<QWidget*> order{Combovarver, gridsairmod};
  for (const auto axis : {0U, 1U, 2U}) {
    order.push_back(options_.at(axis));
    order.insert(order.end(), fields_.at(axis).begin(), fields_.at(axis).end());
  }
  order.insert(order.end(), {Command1, Command2});
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

}  // namespace zevfit
