// What is in the main window, and its place.
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

#include "windows/file_drop.h"
#include "windows/fit_panel_widgets.h"
#include "windows/foot.h"
#include "windows/mdimod.h"
#include "windows/plot_area.h"
#include "windows/printcolection.h"
#include "windows/tools_menu.h"

namespace zevfit {

void mdimod::furnish() {
  guarded(faults_, [this] { makeContent(); });
}

void mdimod::makeContent() {
  panel_ = new FitPanelWidgets;
  foot_ = new Foot;
  area_ = new PlotArea;
  area_->setObjectName("Area");

  auto* scroller = new QScrollArea;
  scroller->setWidget(panel_);
  // Its controls take the focus, and it follows them.
  scroller->setFocusPolicy(Qt::NoFocus);
  scroller->setWidgetResizable(true);
  scroller->setFrameShape(QFrame::NoFrame);
  scroller->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroller->setFixedWidth(panel_->width() + scroller->verticalScrollBar()->sizeHint().width());
  auto* middle = new QWidget;
  auto* row = new QHBoxLayout(middle);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(scroller);
  row->addWidget(area_, 1);
  setCentralWidget(middle);
  setStatusBar(foot_);

  fit_ = std::make_unique<Fit>(Fit{session_, *panel_, *this, dialogs_, *this});
  windows_ = std::make_unique<PlotWindowTable>(*area_, *fit_, faults_, [this] {
    if (reports_) reports_->endDelete();
  });
  panel_->QWidget::setEnabled(false);
  panel_->connectTo(*fit_, faults_);
  panel_->handled = [this] { renewFoot(); };
  connect(area_, &QMdiArea::subWindowActivated, this,
          [this](QMdiSubWindow* window) { windowActivated(window); });
  makeMenus();
  makeToolbar();
  makeButtons();
  makeShortcuts(*this);
  addShortcut(*this, "closeplot", &QMdiArea::closeActiveSubWindow);
  makeTools();
  drop_ = std::make_unique<FileDrop>(*this, faults_, [this](const std::string& path) {
    dialogs_.holdFile(path);
    load(path);
  });
  tellOfRescue();
  // As in a window that becomes the active one with its controls; they come up in the next turn.
  const auto giveFocus = [this] {
    if (isActiveWindow() && !focusWidget()) focusNextChild();
  };
  QMetaObject::invokeMethod(this, giveFocus, Qt::QueuedConnection);
}

}  // namespace zevfit
