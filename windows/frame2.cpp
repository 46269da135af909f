#include "windows/frame2.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHideEvent>
#include <QLabel>
#include <array>
#include <utility>

#include "windows/controls.h"

namespace zevfit {

namespace {

struct HelpRow {
  const char* left;
  const char* right;
};

constexpr std::array<HelpRow, 4> kSymbols{{
    {"#", "Free number format"},
    {"0", "Fixed number format"},
    {".", "Decimal separator"},
    {"Space", "Space"},
}};

/// Of the value 123.7804.
constexpr std::array<HelpRow, 4> kExamples{{
    {"###.####", "123.7804"},
    {"###.#####", "123.7804"},
    {"###.####0", "123.78040"},
    {"###.# ###0", "123.7 8040"},
}};

QLabel* makeCell(const QString& text, const QString& name) {
  QLabel* label = named(makeLabel(text), name);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

template <std::size_t count>
QGroupBox* makeTable(const char* title, const char* prefix,
                     const std::array<HelpRow, count>& rows) {
  auto* box = new QGroupBox(title);
  auto* table = new QGridLayout(box);
  int at = 0;
  for (const HelpRow& row : rows) {
    table->addWidget(makeCell(row.left, QString("%1_%2_0").arg(prefix).arg(at)), at, 0);
    table->addWidget(makeCell(row.right, QString("%1_%2_1").arg(prefix).arg(at)), at, 1);
    ++at;
  }
  table->setColumnStretch(1, 1);
  table->setHorizontalSpacing(24);
  return box;
}

}  // namespace

Frame2::Frame2(QWidget* parent) : QDialog(parent) {
  setObjectName("Frame2");
  setWindowTitle("Format Help");
  auto* all = new QVBoxLayout(this);
  all->addWidget(makeTable("Symbols", "symbol", kSymbols));
  all->addWidget(makeTable("Examples:  123.7804", "example", kExamples));
  all->setSizeConstraint(QLayout::SetMinAndMaxSize);
}

void Frame2::hideEvent(QHideEvent* event) {
  QDialog::hideEvent(event);
  if (!event->spontaneous() && closed) closed();
}

}  // namespace zevfit
