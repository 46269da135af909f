#include "windows/frmzevfit.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <algorithm>

#include "files/variogram_reader.h"
#include "session/fault.h"
#include "session/number_reading.h"
#include "session/policy.h"
#include "windows/grid.h"
#include "windows/keys.h"
#include "windows/list_choice.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

constexpr std::int64_t kLastVariable = kVariableSlots - 1;
constexpr std::int64_t kLastDirection = kDirectionSlots - 1;
/// More rows than these a grid refuses, unless a file really has as many classes.
constexpr std::int64_t kMostRows = 1000;
/// Column of the tick pictures.
constexpr int kTickColumn = 1;
constexpr int kTickedRole = Qt::UserRole;

/// Chooses the first entry, without the list's handler; false for an empty list, which has none.
bool selectFirst(QComboBox& list) {
  if (list.count() == 0) return false;
  const QSignalBlocker quiet(list);
  list.setCurrentIndex(0);
  return true;
}

void addEntry(QComboBox& list, std::string_view entry) {
  const QSignalBlocker quiet(list);
  const int chosen = list.currentIndex();
  list.addItem(toQString(entry));
  list.setCurrentIndex(chosen);
}

void clearList(QComboBox& list) {
  const QSignalBlocker quiet(list);
  list.clear();
}

std::int64_t classesRead(const Session& session) {
  std::size_t most = 0;
  for (int variable = 1; variable <= kLastVariable; ++variable) {
    for (int direction = 1; direction <= kLastDirection; ++direction)
      most = std::max(most, session.hlag.written({variable, direction}).size());
  }
  return static_cast<std::int64_t>(most);
}

/// Gives a grid a heading and `rows`; it keeps what it has if that is no number for it.
void setRows(Grid& grid, std::int64_t rows, std::int64_t most) {
  if (rows >= 0 && rows <= most) grid.setRowCount(static_cast<int>(rows) + 1);
}

/// The rows under the heading, as far as the grid has them.
int lastRow(const Grid& grid, std::int64_t rows) {
  return static_cast<int>(std::min<std::int64_t>(rows, grid.rowCount() - 1));
}

/// A caption that shows an ampersand as one.
QString plainCaption(QString text) { return text.replace('&', "&&"); }

std::vector<std::string> names(std::int64_t count, const auto& table) {
  std::vector<std::string> result;
  for (std::int64_t i = 1; i <= count; ++i) result.push_back(table(i));
  return result;
}

}  // namespace

frmzevfit::frmzevfit(Session& session, Messages& messages, FileChooser& chooser,
                     StructureHost& host, const FaultReport& faults, QWidget* parent)
    : QDialog(parent),
      session_(session),
      messages_(messages),
      chooser_(chooser),
      host_(host),
      faults_(faults) {
  setObjectName("frmzevfit");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setSizeGripEnabled(true);
  makeControls();
  layOut();
  orderTabs();
  connectHandlers();
}

void frmzevfit::connectHandlers() {
  const auto handler = [this](void (frmzevfit::*body)()) {
    return [this, body] { guarded(faults_, [&] { (this->*body)(); }); };
  };
  const auto onList = [&](QComboBox& list, void (frmzevfit::*body)()) {
    onChoice(list, [run = handler(body)](int) { run(); });
  };
  onList(*Combovar, &frmzevfit::Combovar_Click);
  onList(*Combodirvalues, &frmzevfit::Combodirvalues_Click);
  connect(grid1, &Grid::cellClicked, this,
          [this](int row) { guarded(faults_, [&] { grid1_Click(row); }); });
  connect(adicionar, &QPushButton::clicked, this, handler(&frmzevfit::adicionar_Click));
  connect(remove, &QPushButton::clicked, this, handler(&frmzevfit::remove_Click));
  connect(Command1, &QPushButton::clicked, this, handler(&frmzevfit::Command1_Click));
  connect(Command2, &QPushButton::clicked, this, handler(&frmzevfit::Command2_Click));
}

void frmzevfit::fill(const std::string& path) {
  const QString shownPath = QFile::decodeName(path.c_str());
  Labelnumerovar->setText(QString::number(session_.nvar));
  Labelnumerodir->setText(QString::number(session_.ndir));
  fillNames();
  gridcabeca->setTitle("Data Structure of File :  " +
                       plainCaption(QFileInfo(shownPath).fileName()));
  setRows(*gridresults, session_.nclass, std::max(kMostRows, classesRead(session_)));
  host_.clearVariables();
  fillDirections();
  fillVariableRows();
  selectFirstEntries();
  setWindowTitle(toTitle("Filename (*.ZVM): " + shownPath));
  fillHeadings();
  endSilently([&] { showClasses({1, 1}); });
}

void frmzevfit::fillNames() {
  clearList(*Combovar);
  for (std::int64_t i = 1; i <= std::min(session_.nvar, kLastVariable); ++i)
    addEntry(*Combovar, session_.varname(i));
}

void frmzevfit::fillDirections() {
  clearList(*Combodirvalues);
  for (std::int64_t i = 1; i <= std::min(session_.ndir, kLastDirection); ++i)
    addEntry(*Combodirvalues, directionEntry(session_, i));
}

void frmzevfit::fillVariableRows() {
  setRows(*grid1, session_.nvar, kMostRows);
  for (int row = 1; row <= lastRow(*grid1, session_.nvar); ++row) {
    if (row <= kLastVariable) grid1->setText(row, 0, toQString(session_.varname(row)));
    setTick(row, false);
  }
}

void frmzevfit::selectFirstEntries() {
  endSilently([&] {
    if (selectFirst(*Combovar)) Combovar_Click();
  });
  endSilently([&] {
    // The choice of a variable has chosen the first direction already; no change, no event.
    if (Combodirvalues->currentIndex() == 0) return;
    if (selectFirst(*Combodirvalues)) Combodirvalues_Click();
  });
}

void frmzevfit::fillHeadings() {
  gridresults->setHeading({" Class Dist. ", "     h   ", "  Gamma(h) ", " N (Points) "});
  grid1->setHeading({"Variable ", " Add "});
}

void frmzevfit::reopen() {
  // A file that claims more than the tables have is not listed whole: it stays refused.
  if (session_.nvarfile <= kLastVariable) session_.nvar = listed();
  showModal();
}

std::int64_t frmzevfit::listed() const { return Combovar->count(); }

void frmzevfit::showModal() {
  setWindowState(windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized));
  Combovar->setFocus();
  exec();
}

void frmzevfit::Combovar_Click() {
  session_.datavar = Combovar->currentIndex() + 1;
  Label5[0]->setText(Combovar->currentText());
  Label5[1]->setText(toQString(session_.variance(session_.datavar).toText()));
  if (selectFirst(*Combodirvalues)) Combodirvalues_Click();
}

void frmzevfit::Combodirvalues_Click() {
  if (Combovar->currentText().isEmpty())
    return messages_.warning("You Must Select a Variable First !");
  showClasses({session_.datavar, Combodirvalues->currentIndex() + 1});
}

void frmzevfit::showClasses(Pair pair) {
  for (int lag = 1; lag <= lastRow(*gridresults, session_.nclass); ++lag) {
    const ClassRow shown = classRow(session_, pair, lag);
    int column = 0;
    for (const std::string& text : {shown.caption, shown.h, shown.gamma, shown.pairs})
      gridresults->setText(lag, column++, toQString(text));
  }
  for (int column = 1; column < gridresults->columnCount(); ++column)
    gridresults->alignPoints(column);
}

void frmzevfit::grid1_Click(int row) {
  // A file may claim more variables than the tables have.
  if (row == 0 || row > kLastVariable) return;
  grid1->setCurrentCell(row, kTickColumn);
  const bool ticked = grid1->data(row, kTickColumn, kTickedRole).toBool();
  session_.addflag(row) = !ticked;
  setTick(row, !ticked);
}

void frmzevfit::setTick(int row, bool ticked) {
  grid1->setPicture(row, kTickColumn, ticked ? Picturegrid : Picturegrid2,
                    ticked ? "ticked" : "not ticked");
  grid1->setData(row, kTickColumn, kTickedRole, ticked);
}

void frmzevfit::refuse(const Refusal& refusal) {
  messages_.warning(refusal.warning);
  if (refusal.focus) activateWindow();
}

void frmzevfit::adicionar_Click() {
  const double shown = leadingNumber(toBytes(Labelnumerovar->text()));
  const std::string typed = toBytes(Text2->text());
  const bool isLatin1 = toQString(typed) == Text2->text();
  if (const auto refusal = createVariable(session_, typed, shown, isLatin1))
    return refuse(*refusal);
  const std::string& name = session_.varname(session_.nvar);
  const int row = static_cast<int>(session_.nvar);
  setRows(*grid1, session_.nvar, kMostRows);
  addEntry(*Combovar, name);
  grid1->setText(row, 0, toQString(name));
  grid1->setText(row, kTickColumn, QString());
  Text2->clear();
}

void frmzevfit::remove_Click() {
  if (const auto refusal = removeVariable(session_, toBytes(Label5[0]->text())))
    return refuse(*refusal);
  {
    const QSignalBlocker quiet(*Combovar);
    Combovar->removeItem(static_cast<int>(session_.datavar) - 1);
  }
  // The tables have moved down already, whether or not the window is accepted: a save counts the
  // entries of that list.
  host_.removeVariable(static_cast<int>(session_.datavar) - 1);
  grid1->setText(static_cast<int>(session_.datavar), 0, QString());
  // Names move up by one row, pictures stay where they are.
  for (std::int64_t i = session_.datavar; i <= session_.nvar; ++i)
    grid1->setText(static_cast<int>(i), 0, toQString(session_.varname(i)));
  grid1->setRowCount(grid1->rowCount() - 1);
  for (QLabel* label : Label5) label->clear();
  if (selectFirst(*Combovar)) Combovar_Click();
}

void frmzevfit::leave() {
  host_.enableMain();
  hide();
}

void frmzevfit::Command1_Click() {
  hide();
  host_.enableMain();
  // The dialog comes up once more, but nothing takes up what is chosen there.
  endSilently([&] { chooser_.openFile(kOpenTitle, kOpenPattern); });
  host_.focusMain();
}

void frmzevfit::Command2_Click() {
  // The lists of a file that claims more than the tables have could not be filled.
  if (session_.nvar > kLastVariable || session_.ndir > kLastDirection)
    return messages_.warning(kBadFileText);
  session_.dragging = false;
  host_.enableMain();
  fillHostLists();
  attempt(
      [&] {
        chooseFirstSubject();
        host_.enableFitControls();
        hide();
        host_.startFit();
      },
      [&] {
        while (QGuiApplication::overrideCursor()) QGuiApplication::restoreOverrideCursor();
        messages_.warning(kBadFileText);
      });
}

void frmzevfit::fillHostLists() {
  host_.fillDirections(names(session_.ndir, session_.dirname));
  if (session_.ndir > 0) host_.selectDirection(0);
  session_.testprimary = session_.testsecondary = session_.testcross = 0;
  session_.testmain = session_.testminor1 = session_.testminor2 = 0;
  host_.fillVariables(names(session_.nvar, session_.varname));
}

void frmzevfit::chooseFirstSubject() {
  host_.selectVariable(0);
  if (const auto variable = startPair(session_))
    host_.selectVariable(static_cast<int>(*variable) - 1);
}

void frmzevfit::reject() {
  guarded(faults_, [&] { leave(); });
}

void frmzevfit::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

void frmzevfit::keyPressEvent(QKeyEvent* event) {
  if (!isEnter(event->key())) return QDialog::keyPressEvent(event);
  // Enter presses the button that has the focus, never another.
  if (auto* button = qobject_cast<QPushButton*>(focusWidget())) button->click();
}

}  // namespace zevfit
