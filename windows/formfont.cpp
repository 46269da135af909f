#include "windows/formfont.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <utility>

#include "model/graph_format.h"
#include "windows/boundary.h"
#include "windows/click_label.h"
#include "windows/cores.h"
#include "windows/frame2.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

Formfont::Formfont(Fit& fit, PlotWindows& windows, StyleChooser& chooser, const FaultReport& faults,
                   QWidget* parent)
    : QDialog(parent), fit_(fit), chooser_(chooser), faults_(faults), windows_(windows) {
  setObjectName("Formfont");
  setWindowTitle("Graphic - Format");
  makeControls();
  layOut();
  connectHandlers();
}

Formfont::~Formfont() {
  // The end of the windows over this one must not call it any more.
  help_->closed = nullptr;
  colours_->closed = nullptr;
}

void Formfont::connectHandlers() {
  const auto handler = [this](void (Formfont::*body)()) {
    return [this, body] { guarded(faults_, [&] { (this->*body)(); }); };
  };
  for (std::size_t row = 0; row < Label2.size(); ++row)
    Label2[row]->clicked = [this, row] { guarded(faults_, [&] { Label2_Click(row); }); };
  // The boxes hold the patterns: each drawing reads what stands in them.
  for (std::size_t i = 0; i < formato.size(); ++i)
    connect(formato[i], &QLineEdit::textChanged, this, [this, i](const QString& text) {
      fit_.session.style.Formfont.formato.at(i) = toBytes(text);
    });
  connect(Command1, &QPushButton::clicked, this, handler(&Formfont::Command1_Click));
  connect(Command2, &QPushButton::clicked, this, handler(&Formfont::Command2_Click));
  connect(Command3, &QPushButton::clicked, this, handler(&Formfont::Command3_Click));
  connect(Command4, &QPushButton::clicked, this, handler(&Formfont::Command4_Click));
  connect(Command5, &QPushButton::clicked, this, handler(&Formfont::Command5_Click));
  help_->closed = [this] { comeBack(); };
  colours_->closed = [this] { comeBack(); };
  Picture1->installEventFilter(this);
}

void Formfont::setPictureSize(double width, double height) {
  Picture1->setSizeTwips(width, height);
}

void Formfont::open() {
  keepFormat(fit_.session);
  showFormat();
  before_ = parentWidget()->focusWidget();
  parentWidget()->setEnabled(false);
  setEnabled(true);
  // The call of activated() stands for the activation that comes later.
  ownAbove_ = true;
  show();
  raise();
  activateWindow();
  guarded(faults_, [this] { activated(); });
}

void Formfont::setAside() {
  aside_ = isVisible();
  coloursAside_ = colours_->isVisible();
  for (QWidget* window : std::initializer_list<QWidget*>{this, help_, colours_}) window->hide();
}

void Formfont::bringBack() {
  if (!std::exchange(aside_, false)) return;
  ownAbove_ = true;
  show();
  if (coloursAside_) return colours_->open();
  setEnabled(true);
}

bool Formfont::event(QEvent* event) {
  if (event->type() == QEvent::WindowDeactivate)
    ownAbove_ = asking_ || help_->isVisible() || colours_->isVisible();
  if (event->type() == QEvent::WindowActivate && !ownAbove_ && isVisible())
    guarded(faults_, [this] { activated(); });
  return QDialog::event(event);
}

bool Formfont::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Picture1 && event->type() == QEvent::MouseButtonRelease) {
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (Picture1->rect().contains(mouse.position().toPoint()))
      guarded(faults_, [this] { preview(); });
  }
  if (watched == Picture1 && event->type() == QEvent::KeyPress &&
      static_cast<const QKeyEvent&>(*event).key() == Qt::Key_Space)
    guarded(faults_, [this] { preview(); });
  return QDialog::eventFilter(watched, event);
}

void Formfont::activated() {
  bold_ = true;
  preview();
}

void Formfont::preview() {
  zevfit::preview(fit_, windows_, *this, previewrunning);
  Picture1->update();
}

void Formfont::Label2_Click(std::size_t row) {
  const QScopedValueRollback asking(asking_, true);
  if (chooseFont(fit_.session.style.Formfont, row, chooser_, fit_.messages)) showFont(row);
}

void Formfont::Command1_Click() {
  setDefaultFormat(fit_.session);
  showFormat();
  preview();
  help_->hide();
}

void Formfont::Command2_Click() {
  if (const auto fault = patternFault(fit_.session.style.Formfont.formato)) {
    const QScopedValueRollback asking(asking_, true);
    return fit_.messages.plain(*fault);
  }
  leave();
  if (!previewrunning) plotOrWarn(fit_);
}

void Formfont::Command3_Click() {
  restoreFormat(fit_.session);
  leave();
  parentWidget()->activateWindow();
}

void Formfont::Command4_Click() {
  setEnabled(false);
  help_->setEnabled(true);
  help_->show();
  help_->raise();
  help_->activateWindow();
}

void Formfont::Command5_Click() {
  setEnabled(false);
  colours_->open();
}

void Formfont::reject() {
  guarded(faults_, [this] { Command3_Click(); });
}

void Formfont::comeBack() {
  if (!isVisible()) return;
  setEnabled(true);
  activateWindow();
}

void Formfont::leave() {
  parentWidget()->setEnabled(true);
  hide();
  help_->hide();
  if (before_) before_->setFocus(kQuietFocus);
}

void Formfont::showFormat() {
  for (std::size_t row = 0; row < Label2.size(); ++row) showFont(row);
  for (std::size_t i = 0; i < formato.size(); ++i)
    formato[i]->setText(toQString(fit_.session.style.Formfont.formato.at(i)));
}

void Formfont::showFont(std::size_t row) {
  const FormatSamples& samples = fit_.session.style.Formfont;
  const FontSample& name = samples.Label2.at(row);
  Label2[row]->setText(toQString(name.caption));
  Label2[row]->setFont(toQFont({name.fontname, name.fontsize}));
  const FontSample& size = samples.Label3.at(row);
  Label3[row]->setText(toQString(size.caption));
  Label3[row]->setFont(toQFont({size.fontname, size.fontsize}));
}

}  // namespace zevfit
