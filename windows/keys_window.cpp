#include "windows/keys_window.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "windows/controls.h"
#include "windows/program_keys.h"

namespace zevfit {

namespace {

constexpr QSize kStartSize(560, 560);

/// Groups in the order of the table, each open.
void fill(QTreeWidget& list) {
  QTreeWidgetItem* group = nullptr;
  for (const ProgramKey& key : programKeys()) {
    if (!group || group->text(0) != key.group) {
      group = new QTreeWidgetItem(&list, {key.group});
      group->setFirstColumnSpanned(true);
      group->setExpanded(true);
      QFont bold = list.font();
      bold.setBold(true);
      group->setFont(0, bold);
    }
    new QTreeWidgetItem(group, {QString(key.keys).replace("; ", ", "), key.does});
  }
}

}  // namespace

KeysWindow::KeysWindow(QWidget* parent) : QDialog(parent) {
  setObjectName("keyswindow");
  setWindowTitle("Keys");
  auto* list = named(new QTreeWidget, "keyslist");
  list->setAccessibleName("Keys by group");
  list->setHeaderLabels({"Keys", "What they do"});
  list->setRootIsDecorated(false);
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  list->setUniformRowHeights(true);
  fill(*list);
  list->resizeColumnToContents(0);
  list->header()->setStretchLastSection(true);
  auto* leaving = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(leaving, &QDialogButtonBox::rejected, this, &QWidget::hide);
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(list, 1);
  rows->addWidget(leaving);
  setSizeGripEnabled(true);
  resize(kStartSize);
  list->setFocus();
}

void KeysWindow::open() {
  show();
  raise();
  activateWindow();
}

}  // namespace zevfit
