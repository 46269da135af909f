// The controls of the print collection and their places.
#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QProxyStyle>
#include <QPushButton>
#include <QRubberBand>
#include <QSlider>
#include <QTabBar>
#include <QVBoxLayout>

#include "platform/picture_box.h"
#include "windows/controls.h"
#include "windows/printcolection.h"

namespace zevfit {

namespace {

/// Between the edges of the tab, the page and the frames, twips.
constexpr double kGap = 200;
constexpr int kBarHeight = 14;

/// Room for six captions side by side in the width that the window has.
class NarrowTabs : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    return metric == PM_TabBarTabHSpace ? kTabMargin
                                        : QProxyStyle::pixelMetric(metric, option, widget);
  }

 private:
  static constexpr int kTabMargin = 8;
};

/// A layout with little room between its parts, for the height that the window has.
template <class Layout>
Layout* narrow(Layout* layout) {
  layout->setContentsMargins(8, 3, 8, 4);
  layout->setSpacing(3);
  return layout;
}

PictureBox* makePicture(const QString& name, double width, double height, QWidget* parent) {
  auto* picture = named(new PictureBox(parent), name);
  picture->setSizeTwips(width, height);
  picture->surface().clear(kWhite);
  return picture;
}

/// A border around pictures that are `width` by `height`.
QFrame* makePaper(double width, double height) {
  auto* paper = new QFrame;
  paper->setFrameStyle(int{QFrame::Box} | int{QFrame::Plain});
  paper->setLineWidth(1);
  paper->setFixedSize(toPixels(width) + 2, toPixels(height) + 2);
  return paper;
}

QLabel* makeBold(const char* name, const char* text) {
  QLabel* label = named(makeLabel(text), name);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

}  // namespace

void printcolection::makeControls() {
  TabStrip1 = named(new QTabBar, "TabStrip1");
  auto* style = new NarrowTabs;
  style->setParent(TabStrip1);
  TabStrip1->setStyle(style);
  TabStrip1->setUsesScrollButtons(true);
  TabStrip1->setExpanding(false);
  TabStrip1->setElideMode(Qt::ElideNone);
  paper_ = makePaper(kPageWidth, kPageHeight);
  for (int slot = 0; slot < kReports; ++slot) {
    TabStrip1->addTab(QString("Report %1").arg(slot + 1));
    PictureBox* page =
        makePicture(QString("Picture1_%1").arg(slot), kPageWidth, kPageHeight, paper_);
    page->move(1, 1);
    page->setMouseTracking(true);
    page->setFocusPolicy(Qt::StrongFocus);
    page->setAccessibleName(QString("Page of report %1").arg(slot + 1));
    page->setAccessibleDescription("The arrow keys choose a cell, the blank key fills it");
    Picture1.at(static_cast<std::size_t>(slot)) = page;
  }
  keyMark_ = new QRubberBand(QRubberBand::Rectangle, paper_);
  HScroll1 = named(new QSlider(Qt::Horizontal), "HScroll1");
  HScroll1->setAccessibleName("Columns");
  HScroll1->setRange(1, 3);
  HScroll1->setPageStep(1);
  HScroll1->setTracking(false);
  Label3 = named(makeLabel("Columns:"), "Label3");
  Label3->setBuddy(HScroll1);
  Label5 = makeBold("Label5", "1");
  Label1 = named(makeLabel("1"), "Label1");
  Command1 = named(new QPushButton("OK"), "Command1");
  Command1->setAutoDefault(false);
  Check1 = named(new QCheckBox("Delete"), "Check1");
  Labelvar = makeBold("Labelvar", "-");
  Labeldir = makeBold("Labeldir", "-");
  // Long names neither widen the window nor the frame.
  for (QLabel* label : {Labelvar, Labeldir})
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  printar = named(new QPushButton("Print"), "printar", "Print the selected Report");
  printar->setShortcut({"Ctrl+P"});
  printar->setAutoDefault(false);
  Bar1 = named(new QProgressBar, "Bar1");
  Bar1->setRange(0, 1);
  Bar1->setValue(0);
  Bar1->setTextVisible(false);
  Bar1->setFixedHeight(kBarHeight);
  Bar1->setAccessibleName("Printed columns");
  Picture3 = makePicture("Picture3", kPageWidth, kPageHeight, this);
  apagar = makePicture("apagar", kPageWidth, kPageHeight, this);
  for (QWidget* outOfSight : std::initializer_list<QWidget*>{Label1, Picture3, apagar}) {
    outOfSight->setParent(this);
    outOfSight->hide();
  }
}

QGroupBox* printcolection::makeSettings() {
  auto* frame = new QGroupBox("Settings");
  auto* places = narrow(new QGridLayout(frame));
  QFrame* border = makePaper(kSettingsWidth, kSettingsHeight);
  Picture2 = makePicture("Picture2", kSettingsWidth, kSettingsHeight, border);
  Picture2->move(1, 1);
  places->addWidget(Label3, 0, 0);
  places->addWidget(Label5, 0, 1);
  places->addWidget(HScroll1, 1, 0, 1, 2);
  places->addWidget(border, 2, 0, Qt::AlignLeft | Qt::AlignTop);
  places->addWidget(Command1, 2, 1, Qt::AlignBottom);
  Command1->setMinimumWidth(Command1->fontMetrics().horizontalAdvance("OK") * 2);
  places->setColumnStretch(1, 1);
  return frame;
}

QGroupBox* printcolection::makeImage() {
  auto* frame = new QGroupBox("Image");
  auto* places = narrow(new QVBoxLayout(frame));
  places->addWidget(Check1);
  return frame;
}

QGroupBox* printcolection::makeLegend() {
  auto* frame = new QGroupBox("Legend");
  auto* places = narrow(new QVBoxLayout(frame));
  places->setSpacing(0);
  places->addWidget(makeLabel("Variable:"));
  places->addWidget(Labelvar);
  places->addWidget(makeLabel("Direction:"));
  places->addWidget(Labeldir);
  return frame;
}

void printcolection::layOut() {
  auto* side = new QVBoxLayout;
  side->setSpacing(4);
  for (QGroupBox* frame : {makeSettings(), makeImage(), makeLegend()}) side->addWidget(frame);
  side->addStretch(1);
  side->addWidget(printar);
  side->addWidget(Bar1);
  const int gap = toPixels(kGap);
  auto* middle = new QHBoxLayout;
  middle->setContentsMargins(gap - 1, gap - 1, gap - 1, gap - 1);
  middle->setSpacing(gap - 1);
  middle->addWidget(paper_, 0, Qt::AlignLeft | Qt::AlignTop);
  middle->addLayout(side, 1);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  all->addWidget(TabStrip1);
  all->addLayout(middle, 1);
  QWidget* before = TabStrip1;
  for (QWidget* next : std::initializer_list<QWidget*>{Picture1[0], Picture1[1], Picture1[2],
                                                       Picture1[3], Picture1[4], Picture1[5],
                                                       HScroll1, Command1, Check1, printar}) {
    QWidget::setTabOrder(before, next);
    before = next;
  }
}

}  // namespace zevfit
