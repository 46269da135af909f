#include "windows/testcruz.h"

#include <QComboBox>
#include <QEvent>
#include <QPushButton>
#include <QTreeWidget>
#include <map>

#include "session/fault.h"
#include "session/messages.h"
#include "windows/boundary.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

/// The pictures in words, in their order, for those who don't see them.
constexpr std::array<const char*, 4> kImageWords{"passed", "failed", "direction with a fault",
                                                 "results"};

std::size_t imageIndex(NodeImage image) { return static_cast<std::size_t>(image) - 1; }

/// Empties a list and gives it the entries 1 to `count` of a table.
void fill(QComboBox& list, std::int64_t count, const auto& table) {
  list.clear();
  for (std::int64_t i = 1; i <= count; ++i) list.addItem(toQString(table(i)));
}

}  // namespace

testcruz::testcruz(Session& session, Messages& messages, const FaultReport& faults,
                   QWidget& mainWindow)
    : QDialog(&mainWindow),
      session_(session),
      messages_(messages),
      faults_(faults),
      mainWindow_(mainWindow) {
  setObjectName("testcruz");
  setWindowTitle("Test - Cross Semivariogram");
  setSizeGripEnabled(true);
  makeControls();
  layOut();
  orderTabs();
  connect(Command1, &QPushButton::clicked, this,
          [this] { guarded(faults_, [&] { Command1_Click(); }); });
  connect(Command2, &QPushButton::clicked, this, [this] { reject(); });
}

const std::array<testcruz::Choice, 6>& testcruz::choices() {
  static constexpr std::array<Choice, 6> table{{{&testcruz::combovarp, &Session::testprimary},
                                                {&testcruz::combovarsec, &Session::testsecondary},
                                                {&testcruz::Combovarcruz, &Session::testcross},
                                                {&testcruz::Combodmain, &Session::testmain},
                                                {&testcruz::Combodminor1, &Session::testminor1},
                                                {&testcruz::Combodminor2, &Session::testminor2}}};
  return table;
}

bool testcruz::requireEntries() const {
  // Without a file the lists have no entry to choose, which is a fault.
  const bool fits = session_.nvar >= 1 && session_.nvar < kVariableSlots && session_.ndir >= 1 &&
                    session_.ndir < kDirectionSlots;
  if (!fits && session_.loaded) messages_.warning(kBadFileText);
  return fits || !session_.loaded;
}

void testcruz::start() {
  if (!requireEntries()) return;
  TreeView1->clear();
  fillLists();
  choosePositions();
  run({session_.testcross, session_.testprimary, session_.testsecondary, session_.testmain,
       session_.testminor1, session_.testminor2});
  focusBefore_ = mainWindow_.focusWidget();
  show();
  mainWindow_.setEnabled(false);
  // A window that lies over the main one is disabled with it.
  setEnabled(true);
  activateWindow();
  combovarp->setFocus();
}

void testcruz::fillLists() {
  for (QComboBox* list : {combovarp, combovarsec, Combovarcruz})
    fill(*list, session_.nvar, session_.varname);
  for (QComboBox* list : {Combodmain, Combodminor1, Combodminor2})
    fill(*list, session_.ndir, session_.dirname);
}

void testcruz::choosePositions() {
  for (const Choice& choice : choices()) {
    QComboBox& list = *(this->*choice.list);
    int& position = session_.*choice.position;
    if (list.count() == 0) throw Fault("Invalid list position");
    // Kept from a file with more entries, after which another was opened but not accepted.
    if (position >= list.count()) position = 0;
    list.setCurrentIndex(position);
  }
}

// A text in a model is warned of, and the tree stays as it was; any other fault goes on.
void testcruz::run(const CrossChoice& choice) {
  try {
    showTree(crosstest(session_, choice));
  } catch (const Fault&) {
    const auto illegal = illegalCell(session_, choice);
    if (!illegal) throw;
    messages_.warning(*illegal);
  }
}

void testcruz::showTree(const std::vector<TestNode>& nodes) {
  TreeView1->clear();
  std::map<std::string, QTreeWidgetItem*> items{{"", TreeView1->invisibleRootItem()}};
  for (const TestNode& node : nodes) {
    auto* item = new QTreeWidgetItem(items.at(node.parent), {toQString(node.text)});
    item->setIcon(0, listaviso.at(imageIndex(node.image)));
    item->setData(0, kNodeKeyRole, toQString(node.key));
    item->setData(0, kNodeImageRole, static_cast<int>(node.image));
    item->setData(0, Qt::AccessibleDescriptionRole, kImageWords.at(imageIndex(node.image)));
    items[node.key] = item;
  }
  TreeView1->expandAll();
}

void testcruz::Command1_Click() {
  session_.testcross = Combovarcruz->currentIndex();
  session_.testmain = Combodmain->currentIndex();
  session_.testminor1 = Combodminor1->currentIndex();
  session_.testminor2 = Combodminor2->currentIndex();
  // The two variables are read for this run alone; they are kept when the dialog is left.
  run({session_.testcross, combovarp->currentIndex(), combovarsec->currentIndex(),
       session_.testmain, session_.testminor1, session_.testminor2});
}

void testcruz::leave() {
  for (const Choice& choice : choices())
    session_.*choice.position = (this->*choice.list)->currentIndex();
  mainWindow_.setEnabled(true);
  hide();
  if (focusBefore_) focusBefore_->setFocus(kQuietFocus);
}

void testcruz::reject() {
  guarded(faults_, [&] { leave(); });
}

bool testcruz::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) TreeView1->expandAll();
  return QDialog::event(event);
}

}  // namespace zevfit
