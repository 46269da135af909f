#include "windows/modfinal.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include "windows/boundary.h"
#include "windows/keys.h"
#include "windows/list_choice.h"
#include "windows/results_grid.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

constexpr const char* kPlaneText = "In two dimensions Minor 1 and Minor 2 take the same row.";

}  // namespace

modfinal::modfinal(Session& session, Messages& messages, FileChooser& chooser,
                   const Orthogonality& orthogonality, const FaultReport& faults, QWidget* parent)
    : QDialog(parent),
      session_(session),
      messages_(messages),
      chooser_(chooser),
      orthogonality_(orthogonality),
      faults_(faults) {
  setObjectName("modfinal");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  makeControls();
  makeFields();
  layOut();
  orderTabs();
  connectHandlers();
  connectFields();
}

void modfinal::connectHandlers() {
  onChoice(*Combovarver, [this](int) { guarded(faults_, [&] { Combovarver_Click(); }); });
  connect(gridsairmod, &Grid::cellClicked, this, [this](int row, int column) {
    guarded(faults_, [&] { gridsairmod_Click(row, column); });
  });
  connect(Command1, &QPushButton::clicked, this, &QWidget::hide);
  connect(Command2, &QPushButton::clicked, this,
          [this] { guarded(faults_, [&] { Command2_Click(); }); });
}

void modfinal::connectFields() {
  for (const Axis axis : kAxes) {
    QRadioButton* option = options_.at(static_cast<std::size_t>(axis));
    const auto chosen = [this, axis, option] {
      if (option->isChecked()) Option_Click(axis);
    };
    connect(option, &QRadioButton::toggled, this, chosen);
    // An option that looks chosen from the last time, clicked anew.
    connect(option, &QRadioButton::clicked, this, chosen);
    for (std::size_t entry = 0; entry < kAxisEntries; ++entry)
      connect(field(axis, entry), &QLineEdit::textChanged, this, [this, axis, entry] {
        sourceOfField(axis, entry) = shown_;
        guarded(faults_, [&] { fields_Change(axis); });
      });
  }
}

void modfinal::prepare(int variables) {
  setWindowTitle("Results From  Interactive Fit");
  session_.targetdir.reset();
  const QSignalBlocker quiet(Combovarver);
  Combovarver->clear();
  for (int i = 1; i <= variables; ++i) Combovarver->addItem(toQString(session_.varname(i)));
  rows_ = emptyResults(session_);
  gridsairmod->setResults(rows_);
  shown_ = {};
  Label29->clear();
  showMarks();
  // Without variables the table stays as it is.
  if (Combovarver->count() == 0) return;
  Combovarver->setCurrentIndex(0);
  Combovarver_Click();
}

void modfinal::showModal() {
  setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
  Combovarver->setFocus();
  exec();
}

std::string modfinal::text(Axis axis, std::size_t entry) const {
  return toBytes(field(axis, entry)->text());
}

void modfinal::setText(Axis axis, std::size_t entry, std::string_view text) {
  // Also where the text stays the same, which is no change.
  sourceOfField(axis, entry) = shown_;
  field(axis, entry)->setText(toQString(text));
}

QLineEdit* modfinal::field(Axis axis, std::size_t entry) const {
  return fields_.at(static_cast<std::size_t>(axis)).at(entry);
}

void modfinal::Combovarver_Click() {
  const int variable = Combovarver->currentIndex() + 1;
  if (const auto illegal = fillResults(session_, variable, rows_)) {
    illegal_ = *illegal;
    messages_.warning(illegal_);
    const QSignalBlocker quiet(Combovarver);
    return Combovarver->setCurrentIndex(static_cast<int>(shown_.variable) - 1);
  }
  shown_ = sourceOf(session_, variable);
  Label29->setText(toQString(session_.variance(variable).toText()));
  gridsairmod->setResults(rows_);
  showMarks();
  gridsairmod->setCurrentCell(gridsairmod->rowCount() - 1, 0);
}

void modfinal::gridsairmod_Click(int row, int column) {
  if (row < ResultsGrid::kHeadingRows || column != ResultsGrid::kClickColumn) return;
  const int direction = row - ResultsGrid::kHeadingRows + 1;
  if (const auto refused = rowRefusal(session_, direction)) return messages_.warning(*refused);
  gridsairmod->setCurrentCell(row, 0);
  transferRow(session_, rows_.at(static_cast<std::size_t>(direction - 1)), direction, *this,
              rowcells);
  if (session_.targetdir == Axis::main) sources_.row = shown_;
  showMarks();
}

void modfinal::Option_Click(Axis axis) { session_.targetdir = axis; }

void modfinal::fields_Change(Axis axis) {
  checkRanges(*this, axis, messages_);
  showMarks();
}

void modfinal::showMarks() {
  for (int direction = 1; direction <= static_cast<int>(rows_.size()); ++direction) {
    std::vector<Axis> axes;
    for (const Axis axis : kAxes)
      if (isAxis(*this, axis, session_.dirname(direction))) axes.push_back(axis);
    gridsairmod->setMarks(direction, axes);
  }
  const bool otherTotals = showOtherTotals();
  showOtherFields();
  showNote(otherTotals);
}

bool modfinal::showOtherTotals() {
  bool any = false;
  for (int direction = 1; direction <= static_cast<int>(rows_.size()); ++direction) {
    const ResultRow& row = rows_.at(static_cast<std::size_t>(direction - 1));
    const bool other =
        shown_.variable != 0 && hasOtherTotal(session_, {shown_.variable, direction}, row);
    gridsairmod->setOtherTotal(direction, other);
    any = any || other;
  }
  return any;
}

void modfinal::showOtherFields() {
  for (const Axis axis : kAxes) {
    for (std::size_t entry = 0; entry < kAxisEntries; ++entry) {
      const ResultSource& source = sourceOfField(axis, entry);
      const bool other = isOther(source, shown_);
      QPalette colours;
      if (other) colours.setColor(QPalette::Base, otherTint(colours.color(QPalette::Base)));
      field(axis, entry)->setPalette(colours);
      field(axis, entry)->setToolTip(other ? "From " + sourceText(source) : QString());
    }
  }
  // The row that is written has no controls of its own.
  QRadioButton* main = options_.at(static_cast<std::size_t>(Axis::main));
  const bool other = isOther(sources_.row, shown_);
  QPalette colours;
  if (other) colours.setColor(QPalette::Window, otherTint(colours.color(QPalette::Window)));
  main->setPalette(colours);
  main->setAutoFillBackground(other);
}

QString modfinal::sourceText(const ResultSource& source) const {
  QString name = toQString(source.name).trimmed();
  if (source.file == shown_.file) return name;
  return name + " of " + QFileInfo(QFile::decodeName(source.file.c_str())).fileName();
}

void modfinal::showNote(bool otherTotals) {
  QStringList sentences;
  if (otherTotals) sentences << "* CTOTAL is not the sum of the row's ticked sills.";
  for (const OtherSource& other : otherSources(sources_, shown_)) {
    QStringList parts;
    for (const std::string& part : other.parts) parts << toQString(part);
    sentences << QString("From %1, not from the variable on show: %2.")
                     .arg(sourceText(other.source), parts.join(", "));
  }
  if (isInPlane(session_)) sentences << kPlaneText;
  Labelnote->setText(sentences.join("  "));
  Labelnote->setToolTip(Labelnote->text().toHtmlEscaped());
}

ResultSource& modfinal::sourceOfField(Axis axis, std::size_t entry) {
  return sources_.fields.at(static_cast<std::size_t>(axis)).at(entry);
}

AxisTexts modfinal::textsOf(Axis axis) const {
  AxisTexts texts;
  for (std::size_t entry = 0; entry < kAxisEntries; ++entry) texts.at(entry) = text(axis, entry);
  return texts;
}

void modfinal::Command2_Click() {
  // No variable could be shown: there is none to save, for the same reason.
  if (Combovarver->count() > 0 && Combovarver->currentIndex() < 0)
    return messages_.warning(illegal_);
  saveKrigingFile({session_.filetag, toBytes(Combovarver->currentText()), textsOf(Axis::main),
                   textsOf(Axis::minor1), textsOf(Axis::minor2), rowcells},
                  orthogonality_, messages_, chooser_);
}

void modfinal::reject() { hide(); }

void modfinal::closeEvent(QCloseEvent* event) {
  event->ignore();
  hide();
}

void modfinal::keyPressEvent(QKeyEvent* event) {
  if (!isEnter(event->key())) return QDialog::keyPressEvent(event);
  // Enter presses the button that has the focus, never another.
  if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
}

}  // namespace zevfit
