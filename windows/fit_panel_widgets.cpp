#include "windows/fit_panel_widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>
#include <utility>

#include "model/fields.h"
#include "model/selection.h"
#include "model/sliders.h"
#include "platform/picture_box.h"
#include "session/fault.h"
#include "session/line.h"
#include "windows/keys.h"
#include "windows/list_choice.h"
#include "windows/program_keys.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

bool isDarkGround(const QColor& ground) { return qGray(ground.rgb()) < 128; }

/// Black as on paper. On a dark desktop, where white ones are what the eye looks for, these on a
/// ground that is not light.
QColor lettersOn(const QColor& ground, const QPalette& desktop) {
  const bool isDark = isDarkGround(desktop.color(QPalette::Window));
  return isDark && isDarkGround(ground) ? Qt::white : Qt::black;
}

bool isClick(const QEvent& event, const QWidget& on) {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  return mouse.button() == Qt::LeftButton && on.rect().contains(mouse.position().toPoint());
}

/// A double click re-applies an option that its first click has chosen, or that was chosen before.
bool isOptionDoubleClick(const QEvent& event, const QObject& on) {
  const auto* option = qobject_cast<const QRadioButton*>(&on);
  return static_cast<const QMouseEvent&>(event).button() == Qt::LeftButton && option &&
         option->isChecked();
}

/// The event counts as the one that a reaction waits for. A filter sees the mouse on disabled
/// controls too; these do nothing.
bool counts(const QEvent& event, const QObject& on) {
  if (!static_cast<const QWidget&>(on).isEnabled()) return false;
  if (event.type() == QEvent::MouseButtonRelease)
    return isClick(event, static_cast<const QWidget&>(on));
  if (event.type() == QEvent::MouseButtonDblClick) return isOptionDoubleClick(event, on);
  if (event.type() == QEvent::FocusIn)
    return isRealFocus(static_cast<const QFocusEvent&>(event).reason());
  return true;
}

// Handlers that take a part of what a reaction is given.
void clickSill(Fit& fit) { Textc0_Click(fit.session); }
void clickRange(Fit& fit) { Texta_Click(fit.session, fit.messages); }
void focusPlot(Fit& fit) { Command5_GotFocus(fit.plotter); }

}  // namespace

void FitPanelWidgets::connectTo(Fit& fit, const FaultReport& faults) {
  fit_ = &fit;
  faults_ = &faults;
  connectValues();
  connectChoices();
  connectReactions();
}

void FitPanelWidgets::run(void (*handler)(Fit&)) {
  handle([&] { handler(*fit_); });
}

void FitPanelWidgets::handle(const std::function<void()>& handler) {
  guarded(*faults_, handler);
  if (handled) handled();
}

void FitPanelWidgets::connectValues() {
  // What the user changes in a field counts as a click into it, before the change is taken.
  connect(Textc0, &QLineEdit::textEdited, this, [this] { run(clickSill); });
  connect(Texta, &QLineEdit::textEdited, this, [this] { run(clickRange); });
  connect(Textc0, &QLineEdit::textChanged, this, [this] { run(Textc0_Change); });
  connect(Texta, &QLineEdit::textChanged, this, [this] { run(Texta_Change); });
  connect(HScrollc0, &QSlider::valueChanged, this, [this] { run(HScrollc0_Change); });
  connect(HScrolla, &QSlider::valueChanged, this, [this] { run(HScrolla_Change); });
  const auto onList = [this](QComboBox* list, void (*handler)(Fit&)) {
    onChoice(*list, [this, handler](int entry) {
      if (entry >= 0) run(handler);
    });
  };
  onList(Combo2, Combo2_Click);
  onList(Combodirvar, Combodirvar_Click);
  connect(Command3, &QPushButton::clicked, this, [this] { run(Command3_Click); });
  connect(Command5, &QPushButton::clicked, this, [this] { run(Command5_Click); });
  auto* variance = new QShortcut(keysOf("takevariance").value(0), this);
  variance->setObjectName("takevariance");
  connect(variance, &QShortcut::activated, this, [this] { run(Labelvariance_Click); });
}

void FitPanelWidgets::connectChoices() {
  for (const Line which : kLines)
    connect(est.at(indexOf(which)), &QRadioButton::toggled, this, [this, which](bool on) {
      if (on) handle([&] { est_Click(*fit_, which); });
    });
  for (std::size_t i = 0; i < kTipoForms.size(); ++i)
    connect(tipo.at(i), &QRadioButton::toggled, this, [this, i](bool on) {
      if (on) handle([&] { tipo_Click(*fit_, kTipoForms.at(i)); });
    });
  for (std::size_t i = 0; i < boxes_.size(); ++i)
    connect(boxes_[i], &QCheckBox::toggled, this,
            [this, i] { handle([&] { box_Click(*fit_, static_cast<Box>(i)); }); });
}

void FitPanelWidgets::connectReactions() {
  reactions_ = {
      {Textc0, QEvent::MouseButtonRelease, clickSill},
      {Texta, QEvent::MouseButtonRelease, clickRange},
      {Labelvariance, QEvent::MouseButtonRelease, Labelvariance_Click},
      {HScrollc0, QEvent::FocusIn, HScrollc0_GotFocus},
      {HScrolla, QEvent::FocusIn, HScrolla_GotFocus},
      {Command5, QEvent::FocusIn, focusPlot},
      {est[0], QEvent::MouseMove, est1_MouseMove},
      {tipo[0], QEvent::MouseMove, tipo1_MouseMove},
      {est[0], QEvent::MouseButtonDblClick, [](Fit& fit) { est_Click(fit, Line::nugget); }},
      {est[1], QEvent::MouseButtonDblClick, [](Fit& fit) { est_Click(fit, Line::first); }},
      {est[2], QEvent::MouseButtonDblClick, [](Fit& fit) { est_Click(fit, Line::second); }},
      {est[3], QEvent::MouseButtonDblClick, [](Fit& fit) { est_Click(fit, Line::third); }},
      {tipo[0], QEvent::MouseButtonDblClick, [](Fit& fit) { tipo_DblClick(fit, kTipoForms[0]); }},
      {tipo[1], QEvent::MouseButtonDblClick, [](Fit& fit) { tipo_DblClick(fit, kTipoForms[1]); }},
      {tipo[2], QEvent::MouseButtonDblClick, [](Fit& fit) { tipo_DblClick(fit, kTipoForms[2]); }},
      {tipo[3], QEvent::MouseButtonDblClick, [](Fit& fit) { tipo_DblClick(fit, kTipoForms[3]); }},
      {Textc0, QEvent::KeyPress, nullptr},
      {Texta, QEvent::KeyPress, nullptr},
  };
  for (const Reaction& reaction : reactions_) reaction.control->installEventFilter(this);
  window()->installEventFilter(this);
}

bool FitPanelWidgets::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) boxCame_ = true;
  if (watched == Command5 && event->type() == QEvent::MouseButtonPress &&
      std::exchange(stalePress_, false))
    return true;
  const bool plotFocus = watched == Command5 && event->type() == QEvent::FocusIn;
  if (plotFocus) boxCame_ = false;
  for (const Reaction& reaction : reactions_) {
    if (reaction.control != watched || reaction.event != event->type()) continue;
    if (!counts(*event, *watched)) continue;
    if (event->type() == QEvent::KeyPress)
      onKey(static_cast<const QKeyEvent*>(event)->key());
    else
      run(reaction.handler);
  }
  if (plotFocus) plotFocused(*event);
  return QWidget::eventFilter(watched, event);
}

// A box that the drawing has brought up took the release of the press that gave the focus; the
// press itself is still to come, and would leave the button down.
void FitPanelWidgets::plotFocused(const QEvent& focus) {
  plotFocusRan_ = true;
  const bool pressed = static_cast<const QFocusEvent&>(focus).reason() == Qt::MouseFocusReason;
  stalePress_ = boxCame_ && pressed;
}

void FitPanelWidgets::onKey(int key) {
  guarded(*faults_, [&] { Text_KeyDown(fit_->plotter, isEnter(key) ? kEnterKeyCode : 0); });
}

void FitPanelWidgets::fillList(List which, const QStringList& entries) {
  QComboBox* filled = list(which);
  const QSignalBlocker blocker(filled);
  filled->clear();
  filled->addItems(entries);
  filled->setCurrentIndex(-1);
}

int FitPanelWidgets::listCount(List which) const { return list(which)->count(); }

void FitPanelWidgets::removeEntry(List which, int position) {
  QComboBox* from = list(which);
  if (position >= from->count()) return;
  const int chosen = from->currentIndex();
  {
    const QSignalBlocker blocker(from);
    from->removeItem(position);
    if (chosen >= position) from->setCurrentIndex(-1);
  }
  if (chosen >= position) from->setCurrentIndex(chosen == position ? 0 : chosen - 1);
}

std::string FitPanelWidgets::text(Field which) const { return toBytes(field(which)->text()); }

void FitPanelWidgets::setText(Field which, std::string_view text) {
  field(which)->setText(toQString(text));
}

int FitPanelWidgets::position(Slider which) const { return slider(which)->value(); }

void FitPanelWidgets::setPosition(Slider which, int position) {
  QSlider* moved = slider(which);
  if (position < moved->minimum() || position > moved->maximum())
    throw Fault("Invalid slider position");
  moved->setValue(position);
}

void FitPanelWidgets::setMinimum(Slider which, int minimum) { slider(which)->setMinimum(minimum); }

void FitPanelWidgets::setMaximum(Slider which, int maximum) { slider(which)->setMaximum(maximum); }

void FitPanelWidgets::setSmallChange(Slider which, int step) { slider(which)->setSingleStep(step); }

void FitPanelWidgets::setLargeChange(Slider which, int step) { slider(which)->setPageStep(step); }

std::string FitPanelWidgets::caption(Caption which) const {
  if (which == Caption::label10) return toBytes(label10->title());
  const std::array<QLabel*, 5> labels{nullptr, Label18, Label21, Labelc, Labelvariance};
  return toBytes(labels.at(static_cast<std::size_t>(which))->text());
}

void FitPanelWidgets::setCaption(Caption which, std::string_view text) {
  if (which == Caption::label10) return label10->setTitle(toQString(text));
  const std::array<QLabel*, 5> labels{nullptr, Label18, Label21, Labelc, Labelvariance};
  labels.at(static_cast<std::size_t>(which))->setText(toQString(text));
}

void FitPanelWidgets::setSillBackground(Colour colour) {
  const QColor ground = toQColor(colour);
  if (Labelc->autoFillBackground() && Labelc->palette().color(QPalette::Window) == ground) return;
  paintSill(ground);
}

void FitPanelWidgets::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) paintSill(Labelc->palette().color(QPalette::Window));
}

void FitPanelWidgets::paintSill(const QColor& ground) {
  for (QLabel* label : {Labelc, labelvari}) {
    QPalette coloured = label->palette();
    coloured.setColor(QPalette::Window, ground);
    // Neither ground is the desktop's.
    coloured.setColor(QPalette::WindowText, lettersOn(ground, palette()));
    label->setPalette(coloured);
    label->setAutoFillBackground(true);
  }
}

std::string FitPanelWidgets::letter(Line structure) const {
  return toBytes(esttipo.at(indexOf(structure) - 1)->text());
}

void FitPanelWidgets::setLetter(Line structure, std::string_view letter) {
  esttipo.at(indexOf(structure) - 1)->setText(toQString(letter));
}

bool FitPanelWidgets::ticked(Box which) const { return box(which)->isChecked(); }

void FitPanelWidgets::setTicked(Box which, bool ticked) { box(which)->setChecked(ticked); }

void FitPanelWidgets::selectLine(Line line) { est.at(indexOf(line))->setChecked(true); }

void FitPanelWidgets::setEnabled(Control control, bool enabled) {
  if (control == Control::tipos) {
    for (QRadioButton* option : tipo) option->setEnabled(enabled);
    return;
  }
  const std::array<QWidget*, 4> widgets{Textc0, Texta, HScrollc0, HScrolla};
  widgets.at(static_cast<std::size_t>(control))->setEnabled(enabled);
}

int FitPanelWidgets::listPosition(List which) const { return list(which)->currentIndex(); }

void FitPanelWidgets::setListPosition(List which, int position) {
  if (position < -1 || position >= list(which)->count()) throw Fault("Invalid list position");
  list(which)->setCurrentIndex(position);
}

void FitPanelWidgets::setLineTip(std::string_view text) { est[0]->setToolTip(toQString(text)); }

void FitPanelWidgets::setModelTip(std::string_view text) { tipo[0]->setToolTip(toQString(text)); }

void FitPanelWidgets::focusPlotButton() {
  plotFocusRan_ = false;
  Command5->setFocus(Qt::OtherFocusReason);
  // While another window is still active the event would come only with the window's activation,
  // which is no event of the button; the handler runs now.
  if (!plotFocusRan_) run(focusPlot);
}

}  // namespace zevfit
