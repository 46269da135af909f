#include "windows/cores.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "model/graph_format.h"
#include "platform/picture_box.h"
#include "windows/controls.h"

namespace zevfit {

namespace {

constexpr std::array<const char*, 5> kCaptions{"Legends", "Variogram", "Model", "Variance",
                                               "Background"};
constexpr QSize kSwatch(90, 22);

}  // namespace

cores::cores(Session& session, StyleChooser& chooser, const FaultReport& faults, QWidget* parent)
    : QDialog(parent), session_(session), chooser_(chooser), faults_(faults) {
  setObjectName("cores");
  setWindowTitle("Define Colors");
  makeControls();
  layOut();
  const auto handler = [this](void (cores::*body)()) {
    return [this, body] { guarded(faults_, [&] { (this->*body)(); }); };
  };
  connect(Command1, &QPushButton::clicked, this, handler(&cores::Command1_Click));
  connect(Command2, &QPushButton::clicked, this, handler(&cores::Command2_Click));
  connect(Command3, &QPushButton::clicked, this, handler(&cores::Command3_Click));
}

void cores::makeControls() {
  for (std::size_t i = 0; i < Option.size(); ++i) {
    Option[i] = named(new QRadioButton(kCaptions[i]), QString("Option%1").arg(i + 1));
    Label[i] = named(new QLabel, QString("Label%1").arg(i + 1));
    Label[i]->setFixedSize(kSwatch);
    Label[i]->setFrameStyle(int{QFrame::Box} | int{QFrame::Plain});
    Label[i]->setAutoFillBackground(true);
  }
  Option[0]->setChecked(true);
  Command1 = makeIconButton("Command1", "colours", "Select Color", {"Alt+S"});
  Command3 = makeIconButton("Command3", "defaults", "Default colors", {"Alt+D"});
  Command2 = makeIconButton("Command2", "continue", "Save and Exit", {"Ctrl+Return"});
}

void cores::layOut() {
  auto* rows = new QGridLayout(this);
  for (std::size_t i = 0; i < Option.size(); ++i) {
    rows->addWidget(Option[i], static_cast<int>(i), 0);
    rows->addWidget(Label[i], static_cast<int>(i), 1);
  }
  auto* leaving = new QHBoxLayout;
  leaving->addWidget(Command1);
  leaving->addWidget(Command3);
  leaving->addStretch(1);
  leaving->addWidget(Command2);
  rows->addLayout(leaving, static_cast<int>(Option.size()), 0, 1, 2);
  rows->setColumnStretch(0, 1);
  rows->setHorizontalSpacing(24);
  leaving->setSpacing(8);
  rows->setSizeConstraint(QLayout::SetMinAndMaxSize);
}

void cores::open() {
  showSwatches();
  setEnabled(true);
  show();
  raise();
  activateWindow();
}

void cores::showSwatches() {
  for (std::size_t i = 0; i < Label.size(); ++i) {
    const QColor colour = toQColor(swatch(session_.style.cores, i + 1));
    QPalette colours = Label[i]->palette();
    colours.setColor(QPalette::Window, colour);
    Label[i]->setPalette(colours);
    Label[i]->setAccessibleName(QString("%1: %2").arg(kCaptions[i], colour.name()));
  }
}

void cores::Command1_Click() {
  const auto chosen = std::find_if(Option.begin(), Option.end(),
                                   [](const QRadioButton* option) { return option->isChecked(); });
  if (chosen == Option.end()) return;
  chooseColour(session_.style.cores, static_cast<std::size_t>(chosen - Option.begin()) + 1,
               chooser_, held_);
  showSwatches();
}

// The grid keeps its colour.
void cores::Command3_Click() {
  session_.style.cores = ColourSwatches();
  showSwatches();
}

void cores::Command2_Click() {
  session_.axiscolor = session_.style.cores.ink();
  leave();
}

void cores::reject() {
  session_.style.cores = ColourSwatches();
  Option[0]->setChecked(true);
  held_ = kBlack;
  leave();
}

// Escape does nothing here: closing the window loses the colours.
void cores::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) QDialog::keyPressEvent(event);
}

void cores::leave() {
  hide();
  if (closed) closed();
}

}  // namespace zevfit
