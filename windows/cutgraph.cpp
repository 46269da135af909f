#include "windows/cutgraph.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "windows/click_label.h"
#include "windows/controls.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

constexpr int kFieldWidth = 130;

QLineEdit* makeField(const char* name, const char* spoken) {
  auto* field = named(new QLineEdit, name);
  field->setMinimumWidth(kFieldWidth);
  field->setAccessibleName(spoken);
  return field;
}

ClickLabel* makeReal(const char* name, const char* hint) {
  auto* label = named(new ClickLabel, name, hint);
  label->setMinimumWidth(kFieldWidth);
  return label;
}

}  // namespace

cutgraph::cutgraph(Fit& fit, const FaultReport& faults, std::function<void()> activatePlot,
                   QWidget* parent)
    : QDialog(parent),
      fit_(fit),
      faults_(faults),
      activatePlot_(std::move(activatePlot)),
      outside_(*this, [this] { hide(); }) {
  setObjectName("cutgraph");
  makeControls();
  layOut();
  orderTabs();
  Labelxm->clicked = [this] { novoxmax->setText(Labelxm->text()); };
  Labelym->clicked = [this] { novoymax->setText(Labelym->text()); };
  connect(Command2, &QPushButton::clicked, this, [this] { guarded(faults_, [this] { save(); }); });
  connect(Command1, &QPushButton::clicked, this, &QWidget::hide);
}

void cutgraph::makeControls() {
  Label3_0 = named(makeLabel(kScaleDistanceCaption), "Label3_0");
  Label3_1 = named(makeLabel(kScaleLimitCaption), "Label3_1");
  novoxmax = makeField("novoxmax", "New maximum of the distance axis");
  novoymax = makeField("novoymax", "New limit of the semivariance axis");
  Label3_0->setBuddy(novoxmax);
  Label3_1->setBuddy(novoymax);
  Labelxm = makeReal("Labelxm", "Click here to set the curreny X-Maximum to the real one");
  Labelym = makeReal("Labelym", "Click here to set the current Y-Maximum to the real one");
  Command2 = makeIconButton("Command2", "continue", "Save new X-Maximum and Y-Maximum", {"Alt+S"});
  Command1 = makeIconButton("Command1", "cancel", "Cancel this Options", {"Alt+C"});
  Command2->setDefault(true);
}

void cutgraph::layOut() {
  auto* rows = new QGridLayout(this);
  int row = 0;
  for (const auto& [label, field, real] :
       {std::tuple(Label3_0, novoxmax, Labelxm), std::tuple(Label3_1, novoymax, Labelym)}) {
    rows->addWidget(label, row, 0);
    rows->addWidget(field, row, 1);
    rows->addWidget(real, row, 2);
    ++row;
  }
  auto* leaving = new QHBoxLayout;
  leaving->addStretch(1);
  leaving->addWidget(Command2);
  leaving->addWidget(Command1);
  rows->addLayout(leaving, row, 0, 1, 3);
  rows->setColumnStretch(1, 1);
  rows->setSizeConstraint(QLayout::SetMinAndMaxSize);
}

// From field to field, and to what is clicked behind them.
void cutgraph::orderTabs() {
  const std::initializer_list<QWidget*> order{novoxmax, novoymax, Labelxm,
                                              Labelym,  Command2, Command1};
  QWidget* before = nullptr;
  for (QWidget* next : order) {
    if (before) setTabOrder(before, next);
    before = next;
  }
}

// Not modal to the window system, which would keep the clicks elsewhere that are to close it; the
// main window is disabled instead.
void cutgraph::open() {
  takeTexts();
  if (!Command1_Click(fit_, texts_)) return;
  showTexts();
  before_ = parentWidget()->focusWidget();
  parentWidget()->setEnabled(false);
  setEnabled(true);
  novoxmax->setFocus();
  outside_.watch();
  show();
  raise();
  activateWindow();
}

bool cutgraph::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !telling_) activated();
  if (event->type() == QEvent::WindowDeactivate && !telling_) deactivated();
  return QDialog::event(event);
}

void cutgraph::activated() {
  guarded(faults_, [this] {
    takeTexts();
    cutgraph_Activate(fit_.session, texts_);
    showTexts();
  });
}

// The click that took the focus may be still to come.
void cutgraph::deactivated() {
  if (!isVisible()) return;
  hide();
  outside_.awaitClick();
}

void cutgraph::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  outside_.unwatch();
  parentWidget()->setEnabled(true);
  if (before_) before_->setFocus(kQuietFocus);
}

void cutgraph::save() {
  takeTexts();
  telling_ = true;
  const bool stored = cutgraph_Command2_Click(fit_.session, fit_.messages, texts_);
  telling_ = false;
  if (!stored) return activateWindow();
  hide();
  activatePlot_();
}

void cutgraph::showTexts() {
  setWindowTitle(toTitle(toQString(texts_.caption)));
  novoxmax->setText(toQString(texts_.novoxmax));
  Labelxm->setText(toQString(texts_.Labelxm));
  if (!texts_.Label3_1.empty()) Label3_1->setText(toQString(texts_.Label3_1));
  novoymax->setText(toQString(texts_.novoymax));
  Labelym->setText(toQString(texts_.Labelym));
}

void cutgraph::takeTexts() {
  texts_.novoxmax = toBytes(novoxmax->text());
  texts_.novoymax = toBytes(novoymax->text());
}

}  // namespace zevfit
