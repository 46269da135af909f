#include "windows/legenda.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <string>

#include "windows/controls.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

constexpr int kFieldWidth = 160;

}  // namespace

legenda::legenda(Fit& fit, const FaultReport& faults, QWidget* parent)
    : QDialog(parent), fit_(fit), faults_(faults) {
  setObjectName("legenda");
  setWindowTitle(kLegendCaption);
  Label1 = named(makeLabel(kLegendLabel), "Label1");
  Text1 = named(new QLineEdit, "Text1");
  Text1->setMinimumWidth(kFieldWidth);
  Text1->setAccessibleName("Units of the distance");
  Label1->setBuddy(Text1);
  Command2 = makeIconButton("Command2", "continue", "Save this legend", {"Alt+S"});
  Command1 = makeIconButton("Command1", "cancel", "Cancel", {"Alt+C"});
  Command2->setDefault(true);
  layOut();
  connect(Command2, &QPushButton::clicked, this, [this] { guarded(faults_, [this] { save(); }); });
  connect(Command1, &QPushButton::clicked, this, &QWidget::hide);
}

void legenda::layOut() {
  auto* rows = new QGridLayout(this);
  rows->addWidget(Label1, 0, 0);
  rows->addWidget(Text1, 0, 1);
  auto* leaving = new QHBoxLayout;
  leaving->addStretch(1);
  leaving->addWidget(Command2);
  leaving->addWidget(Command1);
  rows->addLayout(leaving, 1, 0, 1, 2);
  rows->setColumnStretch(1, 1);
  rows->setSizeConstraint(QLayout::SetMinAndMaxSize);
}

void legenda::open() {
  std::string caption;
  if (!Command4_Click(fit_, caption)) return;
  setWindowTitle(toTitle(toQString(caption)));
  Text1->setFocus();
  exec();
}

// A legend that is refused is gone from the box; the window stays.
void legenda::save() {
  const std::string text = toBytes(Text1->text());
  if (legenda_Command2_Click(fit_.session, fit_.messages, text)) {
    hide();
    return plotOrWarn(fit_);
  }
  Text1->clear();
  Text1->setFocus();
}

}  // namespace zevfit
