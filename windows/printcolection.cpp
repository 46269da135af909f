#include "windows/printcolection.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRubberBand>
#include <QScreen>
#include <QSlider>
#include <QTabBar>
#include <algorithm>

#include "platform/picture_box.h"
#include "report/page_grid.h"
#include "report/printing.h"
#include "windows/keys.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

/// The size that the window takes at each activation, twips.
constexpr double kWindowWidth = 5532, kWindowHeight = 5772;

/// A window that the desktop keeps in front of the main one.
constexpr Qt::WindowFlags kInFront = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                     Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;

std::size_t toIndex(int slot) { return static_cast<std::size_t>(slot); }

void showText(QLabel& label, std::string_view text) {
  label.setText(toQString(text));
  label.setToolTip(label.text());
  label.repaint();
}

/// The keys that go from cell to cell.
struct Arrow {
  int key, rows, columns;
};
constexpr std::array<Arrow, 4> kArrows{
    {{Qt::Key_Up, -1, 0}, {Qt::Key_Down, 1, 0}, {Qt::Key_Left, 0, -1}, {Qt::Key_Right, 0, 1}}};

}  // namespace

printcolection::printcolection(Fit& fit, PlotWindows& plots, Printer& printer,
                               const FaultReport& faults, QWidget* mainWindow)
    : QWidget(mainWindow, kInFront), reports_{fit, plots, printer, *this}, faults_(faults) {
  setObjectName("printcolection");
  setWindowTitle("Print Preview");
  makeControls();
  layOut();
  connectControls();
  guarded(faults_, [&] { Form_Load(reports_); });
}

void printcolection::connectControls() {
  const auto run = [this](void (*handler)(Collection&)) {
    guarded(faults_, [&] { handler(reports_); });
  };
  connect(TabStrip1, &QTabBar::currentChanged, this, [run] { run(TabStrip1_Click); });
  // The tab on show, clicked again.
  connect(TabStrip1, &QTabBar::tabBarClicked, this, [this, run](int tab) {
    if (tab == TabStrip1->currentIndex()) run(TabStrip1_Click);
  });
  connect(HScroll1, &QSlider::valueChanged, this, [run] { run(HScroll1_Change); });
  connect(HScroll1, &QSlider::sliderMoved, this, [run] { run(HScroll1_Scroll); });
  connect(Command1, &QPushButton::clicked, this, [run] { run(Command1_Click); });
  connect(printar, &QPushButton::clicked, this, [run] { run(printar_Click); });
  for (PictureBox* page : Picture1) page->installEventFilter(this);
}

void printcolection::open(QPoint place) {
  const QRect screen = parentWidget()->screen()->availableGeometry();
  const QSize size(toPixels(kWindowWidth), toPixels(kWindowHeight));
  if (!testAttribute(Qt::WA_Moved))
    move(std::clamp(place.x(), screen.left(),
                    std::max(screen.left(), screen.right() - size.width())),
         std::clamp(place.y(), screen.top(),
                    std::max(screen.top(), screen.bottom() - size.height())));
  showCollection(reports_);
}

void printcolection::showNormally() {
  showNormal();
  raise();
  activateWindow();
}

void printcolection::closeEvent(QCloseEvent* event) {
  event->ignore();
  hide();
}

void printcolection::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return void(close());
  QWidget::keyPressEvent(event);
}

bool printcolection::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !isMinimized())
    resize(toPixels(kWindowWidth), toPixels(kWindowHeight));
  return QWidget::event(event);
}

bool printcolection::eventFilter(QObject* watched, QEvent* event) {
  bool taken = false;
  if (std::find(Picture1.begin(), Picture1.end(), watched) != Picture1.end())
    guarded(faults_, [&] { taken = pageEvent(*event); });
  return taken || QWidget::eventFilter(watched, event);
}

bool printcolection::pageEvent(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove: {
      const QPointF at = static_cast<const QMouseEvent&>(event).position() * kTwipsPerPixel;
      const bool press = event.type() == QEvent::MouseButtonPress;
      markKeyCell(false);
      (press ? Picture1_MouseDown : Picture1_MouseMove)(reports_, at.x(), at.y());
      return press;
    }
    case QEvent::KeyPress:
      return pageKey(static_cast<const QKeyEvent&>(event).key());
    case QEvent::FocusOut:
      markKeyCell(false);
      return false;
    default:
      return false;
  }
}

bool printcolection::pageKey(int key) {
  if (isPress(key)) {
    moveKeyCell(0, 0);
    atKeyCell(Picture1_MouseDown);
    atKeyCell(Picture1_MouseMove);
    return true;
  }
  const auto arrow = std::ranges::find(kArrows, key, &Arrow::key);
  if (arrow == kArrows.end()) return false;
  moveKeyCell(arrow->rows, arrow->columns);
  return true;
}

void printcolection::moveKeyCell(int rows, int columns) {
  const int across = reports_.tables.reportcolumns(tab() - 1);
  // The first key only shows where the cell is.
  const bool shown = keyMark_->isVisible();
  keyColumn_ = std::clamp(keyColumn_ + (shown ? columns : 0), 1, across);
  keyRow_ =
      std::clamp(keyRow_ + (shown ? rows : 0), 1, int{reports_.tables.rowsforcolumns(across - 1)});
  markKeyCell(true);
  atKeyCell(Picture1_MouseMove);
}

void printcolection::atKeyCell(void (*handler)(Collection&, double, double)) {
  const PageGrid grid = selectedGrid(reports_);
  handler(reports_, grid.left(keyColumn_) + grid.cellWidth / 2,
          grid.above(keyRow_) + grid.cellHeight / 2);
}

void printcolection::markKeyCell(bool marked) {
  if (marked) {
    const PageGrid grid = selectedGrid(reports_);
    const QPoint corner = Picture1.at(toIndex(tab() - 1))->pos();
    keyMark_->setGeometry(QRect(toPixels(grid.left(keyColumn_)), toPixels(grid.above(keyRow_)),
                                toPixels(grid.cellWidth), toPixels(grid.cellHeight))
                              .translated(corner));
    keyMark_->raise();
  }
  keyMark_->setVisible(marked);
}

int printcolection::tab() const { return TabStrip1->currentIndex() + 1; }

void printcolection::setSlider(int columns) { HScroll1->setValue(columns); }

int printcolection::slider() const { return HScroll1->sliderPosition(); }

void printcolection::showColumns(int columns) {
  shown_ = columns;
  Label5->setNum(columns);
}

int printcolection::appliedColumns() const { return Label1->text().toInt(); }

void printcolection::applyColumns(int columns) { Label1->setNum(columns); }

bool printcolection::deleteTicked() const { return Check1->isChecked(); }

void printcolection::setDeleteTicked(bool ticked) { Check1->setChecked(ticked); }

void printcolection::showPage(int slot, bool visible) {
  markKeyCell(false);
  Picture1.at(toIndex(slot))->setVisible(visible);
}

Surface& printcolection::page(int slot) { return Picture1.at(toIndex(slot))->surface(); }

void printcolection::refreshPage(int slot) { Picture1.at(toIndex(slot))->repaint(); }

Surface& printcolection::settings() { return Picture2->surface(); }

Surface& printcolection::thumbnail(double width, double height) {
  Picture3->setSizeTwips(width, height);
  apagar->setSizeTwips(width, height);
  apagar->surface().clear(kWhite);
  return Picture3->surface();
}

void printcolection::pasteThumbnail(int slot, double left, double top) {
  Picture1.at(toIndex(slot))->paste(Picture3->image(), left, top);
}

void printcolection::pasteBlank(int slot, double left, double top) {
  Picture1.at(toIndex(slot))->paste(apagar->image(), left, top);
}

void printcolection::showLegend(std::string_view variable, std::string_view direction) {
  showText(*Labelvar, variable);
  showText(*Labeldir, direction);
}

void printcolection::setBarMaximum(int maximum) { Bar1->setMaximum(maximum); }

void printcolection::setBarValue(int value) {
  Bar1->setValue(value);
  Bar1->repaint();
}

void printcolection::setBusy(bool busy) {
  if (!busy) return busy_.reset();
  if (!busy_) busy_.emplace();
}

}  // namespace zevfit
