// The controls of the dialog of the test of coregionalization and their places.
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "windows/controls.h"
#include "windows/lined_tree.h"
#include "windows/testcruz.h"

namespace zevfit {

namespace {

constexpr QSize kLeastTree(340, 320);
constexpr QSize kStartSize(760, 520);
/// The gamma and its index, in parts of the desktop's letters.
constexpr double kGammaSize = 1.6;
constexpr double kIndexSize = 0.9;
constexpr const char* kLongestIndex = "XY";

constexpr std::array<const char*, 4> kImageNames{"test-passed", "test-failed", "test-fault",
                                                 "test-root"};

QComboBox* makeList(const char* name, const char* accessibleName) {
  auto* list = named(new QComboBox, name);
  list->setAccessibleName(accessibleName);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(12);
  return list;
}

QPushButton* makeButton(const char* name, const char* caption, const QKeySequence& shortcut) {
  auto* button = named(new QPushButton(caption), name);
  button->setShortcut(shortcut);
  button->setAutoDefault(false);
  return button;
}

QLabel* makeLetter(const char* name, const QString& text, double size, Qt::Alignment alignment) {
  QLabel* label = named(makeLabel(text), name);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * size);
  label->setFont(font);
  label->setAlignment(alignment);
  return label;
}

/// A gamma with its index: the names of both labels, and the index.
struct Symbol {
  const char* gamma;
  const char* index;
  const char* letters;
};

QLayout* makeSymbol(const Symbol& symbol) {
  QLabel* index =
      makeLetter(symbol.index, symbol.letters, kIndexSize, Qt::AlignLeft | Qt::AlignBottom);
  // The lists end alike, whatever the index.
  index->setMinimumWidth(index->fontMetrics().horizontalAdvance(kLongestIndex));
  auto* letters = new QHBoxLayout;
  letters->setSpacing(0);
  letters->addWidget(makeLetter(symbol.gamma, QChar(0x03B3), kGammaSize, Qt::AlignCenter));
  letters->addWidget(index);
  return letters;
}

QGroupBox* makeFrame(const char* name, const char* title) {
  return named(new QGroupBox(title), name);
}

}  // namespace

void testcruz::makeControls() {
  Frame3 = makeFrame("Frame3", "Primary Variable:    Semivariogram");
  Frame4 = makeFrame("Frame4", "Secondary Variable:    Semivariogram");
  Frame1 = makeFrame("Frame1", "Cross- Semivariogram");
  Frame6 = makeFrame("Frame6", "Main Direction");
  Frame8 = makeFrame("Frame8", "Minor Direction 1");
  Frame7 = makeFrame("Frame7", "Minor Direction 2");
  Frame5 = makeFrame("Frame5", "Test Results");
  combovarp = makeList("combovarp", "Primary Variable");
  combovarsec = makeList("combovarsec", "Secondary Variable");
  Combovarcruz = makeList("Combovarcruz", "Cross- Semivariogram");
  Combodmain = makeList("Combodmain", "Main Direction");
  Combodminor1 = makeList("Combodminor1", "Minor Direction 1");
  Combodminor2 = makeList("Combodminor2", "Minor Direction 2");
  TreeView1 = named(new LinedTree, "TreeView1");
  TreeView1->setAccessibleName("Test Results");
  TreeView1->setMinimumSize(kLeastTree);
  for (std::size_t i = 0; i < kImageNames.size(); ++i) listaviso[i] = programIcon(kImageNames[i]);
  Command1 = makeButton("Command1", "Test", {"Alt+T"});
  Command1->setToolTip("Test the chosen variables and directions");
  Command1->setDefault(true);
  Command2 = makeButton("Command2", "Exit", {"Alt+E"});
  Command2->setToolTip("Back to the fit; the choices are kept");
}

void testcruz::layOut() {
  auto* choice = new QVBoxLayout;
  const auto addVariable = [&](QGroupBox* frame, QComboBox* list, const Symbol& symbol,
                               const char* caption) {
    auto* row = new QHBoxLayout(frame);
    if (caption) {
      QLabel* label = makeLabel(caption);
      label->setBuddy(list);
      row->addWidget(label);
    }
    row->addWidget(list, 1);
    row->addLayout(makeSymbol(symbol));
    choice->addWidget(frame);
  };
  addVariable(Frame3, combovarp, {"Label4", "Label7", "X"}, "Variable:");
  addVariable(Frame4, combovarsec, {"Label5", "Label8", "Y"}, "Variable:");
  addVariable(Frame1, Combovarcruz, {"Label3", "Label6", kLongestIndex}, nullptr);
  for (const auto& [frame, list] :
       {std::pair{Frame6, Combodmain}, {Frame8, Combodminor1}, {Frame7, Combodminor2}}) {
    (new QHBoxLayout(frame))->addWidget(list);
    choice->addWidget(frame);
  }
  choice->addStretch(1);

  (new QHBoxLayout(Frame5))->addWidget(TreeView1);

  auto* upper = new QHBoxLayout;
  upper->addLayout(choice);
  upper->addWidget(Frame5, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Command1);
  buttons->addWidget(Command2);

  auto* all = new QVBoxLayout(this);
  all->addLayout(upper, 1);
  all->addLayout(buttons);
  resize(kStartSize);
}

void testcruz::orderTabs() {
  QWidget* before = combovarp;
  for (QWidget* next :
       std::initializer_list<QWidget*>{combovarsec, Combovarcruz, Combodmain, Combodminor1,
                                       Combodminor2, TreeView1, Command1, Command2}) {
    QWidget::setTabOrder(before, next);
    before = next;
  }
}

}  // namespace zevfit
