// The controls of the panel and their places.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include "windows/control_tips.h"
#include "windows/controls.h"
#include "windows/fit_panel_widgets.h"
#include "windows/panel_frame.h"
#include "windows/panel_slider.h"
#include "windows/program_keys.h"

namespace zevfit {

namespace {

constexpr int kPanelWidth = 300;
constexpr int kStartMaximum = 32767;
constexpr int kLineHeight = 24;
/// Between the parts of the panel, all of which a low screen shows at once.
constexpr int kGap = 4;

constexpr std::array<const char*, 4> kLineCaptions{"Nugget Effect", "Structure 1", "Structure 2",
                                                   "Structure 3"};
constexpr std::array<const char*, 3> kLetterNames{"est2tipo", "est3tipo", "est4tipo"};
constexpr std::array<const char*, 4> kModelCaptions{"E - Exponential", "S - Spherical",
                                                    "G - Gaussian", "P - Power"};
constexpr std::array<const char*, 4> kBoxNames{"plot1", "plot2", "plot3", "plot4"};

/// A label that shows its text as it is, found by its name.
QLabel* makeNamedLabel(const char* name, const char* caption = "") {
  return named(makeLabel(caption), name);
}

QSlider* makeSlider(const char* name, const char* accessibleName) {
  auto* slider = named(new PanelSlider, name);
  slider->setRange(0, kStartMaximum);
  slider->setFocusPolicy(Qt::StrongFocus);
  slider->setAccessibleName(accessibleName);
  return slider;
}

QLineEdit* makeField(const char* name, const char* accessibleName) {
  auto* field = named(new QLineEdit, name);
  field->setAccessibleName(accessibleName);
  return field;
}

/// A label that shows a number on a ground of its own.
QLabel* makeReadout(const char* name) {
  QLabel* label = makeNamedLabel(name);
  label->setFrameStyle(int{QFrame::Panel} | int{QFrame::Sunken});
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setMinimumWidth(90);
  label->setMargin(2);
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  return label;
}

}  // namespace

FitPanelWidgets::FitPanelWidgets(QWidget* parent) : QWidget(parent) {
  setObjectName("Picture1");
  makeLists();
  makeLines();
  makeModels();
  makeValues();
  makeButtons();
  makeMeasured();
  layOut();
  orderTabs();
  giveTips(*this);
  tellTipsAtFoot(*this);
}

void FitPanelWidgets::makeLists() {
  Label8 = makeNamedLabel("Label8", "Variable");
  Combo2 = named(new QComboBox, "Combo2");
  Label9 = makeNamedLabel("Label9", "Direction");
  Combodirvar = named(new QComboBox, "Combodirvar");
  Label8->setBuddy(Combo2);
  Label9->setBuddy(Combodirvar);
  for (QComboBox* list : {Combo2, Combodirvar}) {
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(12);
  }
  Combo2->setAccessibleName("Variable");
  Combodirvar->setAccessibleName("Direction");
}

void FitPanelWidgets::makeLines() {
  for (std::size_t i = 0; i < est.size(); ++i) {
    est[i] = named(new QRadioButton(kLineCaptions[i]), "");
    est[i]->setObjectName(QString("est%1").arg(i + 1));
    boxes_[i] = named(new QCheckBox, kBoxNames[i]);
    boxes_[i]->setAccessibleName(QString("Plot %1").arg(kLineCaptions[i]));
  }
  est[0]->setMouseTracking(true);
  for (std::size_t i = 0; i < esttipo.size(); ++i) {
    esttipo[i] = makeNamedLabel(kLetterNames[i], "-");
    esttipo[i]->setAccessibleName(controlTip(kLetterNames[i]));
    esttipo[i]->setMinimumWidth(16);
    esttipo[i]->setAlignment(Qt::AlignCenter);
  }
}

void FitPanelWidgets::makeModels() {
  for (std::size_t i = 0; i < tipo.size(); ++i) {
    tipo[i] = new QRadioButton(kModelCaptions[i]);
    tipo[i]->setObjectName(QString("tipo%1").arg(i + 1));
  }
  tipo[0]->setMouseTracking(true);
}

void FitPanelWidgets::makeValues() {
  Label18 = makeNamedLabel("Label18", "C0");
  Label21 = makeNamedLabel("Label21", "a:");
  HScrollc0 = makeSlider("HScrollc0", "Sill of the selected line");
  HScrolla = makeSlider("HScrolla", "Range of the selected structure");
  Label23 = makeNamedLabel("Label23", "Ctotal");
  Labelc = makeReadout("Labelc");
  labelvari = makeNamedLabel("labelvari", "Sill");
  labelvari->setMargin(2);
  Labelvariance = makeReadout("Labelvariance");
  boxes_[4] = named(new QCheckBox("PLot Sill"), "psill");
  setSillBackground(kLightGrey);
}

void FitPanelWidgets::makeButtons() {
  Command1 = makeIconButton("Command1", nullptr, controlTip("Command1"), {});
  Command2 = makeIconButton("Command2", nullptr, controlTip("Command2"), {});
  Command3 = makeIconButton("Command3", nullptr, controlTip("Command3"), {});
  Command4 = named(new QPushButton("[ h ]"), "Command4");
  Command5 = named(new QPushButton("PLOT"), "Command5");
  Command5->setShortcut(keysOf("Command5").value(0));
}

// These look at their font as soon as they are made, and come last: at a start it is being read.
void FitPanelWidgets::makeMeasured() {
  Frame1 = named(new PanelFrame("Select Structure"), "Frame1");
  Frame2 = named(new PanelFrame("Plot"), "Frame2");
  Frame3 = named(new PanelFrame("Select Model"), "Frame3");
  label10 = named(new PanelFrame("Model Expression"), "label10");
  Textc0 = makeField("Textc0", "Sill of the selected line");
  Texta = makeField("Texta", "Range of the selected structure");
}

void FitPanelWidgets::loadIcons() {
  Command1->setIcon(programIcon("scales"));
  Command2->setIcon(programIcon("crosstest"));
  Command3->setIcon(programIcon("grid"));
}

void FitPanelWidgets::layOut() {
  auto* lists = new QGridLayout;
  lists->addWidget(Label8, 0, 0);
  lists->addWidget(Combo2, 0, 1);
  lists->addWidget(Label9, 1, 0);
  lists->addWidget(Combodirvar, 1, 1);
  lists->setColumnStretch(1, 1);

  auto* lines = new QGridLayout(Frame1);
  auto* boxes = new QGridLayout(Frame2);
  for (std::size_t i = 0; i < est.size(); ++i) {
    const int row = static_cast<int>(i);
    lines->addWidget(est[i], row, 0);
    if (i > 0) lines->addWidget(esttipo[i - 1], row, 1);
    boxes->addWidget(boxes_[i], row, 0, Qt::AlignCenter);
    // Lines and boxes stand in two frames; rows of one height keep them side by side.
    for (QGridLayout* rows : {lines, boxes}) rows->setRowMinimumHeight(row, kLineHeight);
  }
  lines->setColumnStretch(0, 1);
  auto* choice = new QHBoxLayout;
  choice->addWidget(Frame1, 1);
  choice->addWidget(Frame2);

  auto* models = new QGridLayout(Frame3);
  for (std::size_t i = 0; i < tipo.size(); ++i)
    models->addWidget(tipo[i], static_cast<int>(i / 2), static_cast<int>(i % 2));

  auto* values = new QGridLayout(label10);
  const std::array<std::tuple<QLabel*, QLineEdit*, QSlider*>, 2> pairs{
      {{Label18, Textc0, HScrollc0}, {Label21, Texta, HScrolla}}};
  for (int i = 0; i < 2; ++i) {
    const auto& [label, text, slide] = pairs[static_cast<std::size_t>(i)];
    values->addWidget(label, 2 * i, 0);
    values->addWidget(text, 2 * i, 1);
    values->addWidget(slide, 2 * i + 1, 0, 1, 2);
  }
  values->setColumnMinimumWidth(0, 36);

  auto* sums = new QGridLayout;
  sums->addWidget(Label23, 0, 0);
  sums->addWidget(Labelc, 0, 1);
  sums->addWidget(labelvari, 1, 0);
  sums->addWidget(Labelvariance, 1, 1);
  sums->addWidget(boxes_[4], 1, 2);
  sums->setColumnStretch(1, 1);

  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {Command1, Command2, Command3, Command4})
    buttons->addWidget(button, 1);

  auto* all = new QVBoxLayout(this);
  all->setSpacing(kGap);
  all->addLayout(lists);
  all->addLayout(choice);
  all->addWidget(Frame3);
  all->addWidget(label10);
  all->addLayout(sums);
  all->addLayout(buttons);
  all->addWidget(Command5);
  all->addStretch(1);
  setFixedWidth(kPanelWidth);
}

void FitPanelWidgets::orderTabs() {
  QWidget* before = Combo2;
  const std::vector<QWidget*> order{
      Combodirvar, est[0],    boxes_[0], est[1],   boxes_[1], est[2],   boxes_[2], est[3],
      boxes_[3],   tipo[0],   tipo[1],   tipo[2],  tipo[3],   Textc0,   HScrollc0, Texta,
      HScrolla,    boxes_[4], Command1,  Command2, Command3,  Command4, Command5};
  for (QWidget* next : order) {
    QWidget::setTabOrder(before, next);
    before = next;
  }
}

}  // namespace zevfit
