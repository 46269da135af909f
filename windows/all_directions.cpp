#include "windows/all_directions.h"

#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QSplitter>
#include <QVBoxLayout>

#include "platform/picture_box.h"
#include "platform/picture_file.h"
#include "plot/overlay/looks.h"
#include "windows/controls.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

constexpr QSize kStartSize(900, 560);
constexpr QSize kLeastPicture(240, 180);
/// Of a sample in the legend, logical pixels.
constexpr QSize kSample(48, 18);
/// Samples are painted for the finest screens.
constexpr double kSampleScale = 2;

QIcon sampleOf(const Look& look, Colour paper) {
  const QSizeF twips = QSizeF(kSample) * kTwipsPerPixel;
  const QByteArray png = pngPicture(twips, kSampleScale, [&](Surface& surface) {
    surface.clear(paper);
    drawSample(surface, look, 0, twips.height() / 2, twips.width());
  });
  QPixmap sample;
  sample.loadFromData(png);
  sample.setDevicePixelRatio(kSampleScale);
  QIcon icon(sample);
  // The colour tells directions apart, also in the chosen entry.
  icon.addPixmap(sample, QIcon::Selected);
  return icon;
}

}  // namespace

AllDirections::AllDirections(const Session& session, const FaultReport& faults, QWidget* parent)
    : QDialog(parent),
      session_(session),
      faults_(faults),
      frame_(new QWidget),
      picture_(new PictureBox(frame_)),
      legend_(new QListWidget) {
  setObjectName("alldirections");
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  picture_->setObjectName("overlay");
  frame_->setMinimumSize(kLeastPicture);
  frame_->installEventFilter(this);
  makeLegend();
  layOut();
  pending_.setSingleShot(true);
  pending_.setInterval(0);
  connect(&pending_, &QTimer::timeout, this, [this] { guarded(faults_, [this] { draw(); }); });
}

void AllDirections::makeLegend() {
  legend_->setObjectName("legend");
  legend_->setAccessibleName("Directions");
  legend_->setIconSize(kSample);
  legend_->setUniformItemSizes(true);
  connect(legend_, &QListWidget::itemChanged, this, [this] { follow(); });
}

void AllDirections::layOut() {
  auto* beside = new QWidget;
  auto* column = new QVBoxLayout(beside);
  column->setContentsMargins(0, 0, 0, 0);
  QLabel* caption = makeLabel("&Directions");
  caption->setBuddy(legend_);
  column->addWidget(caption);
  column->addWidget(legend_, 1);
  auto* buttons = new QHBoxLayout;
  auto* all = named(new QPushButton("&All"), "showall", "Show all directions");
  auto* none = named(new QPushButton("&None"), "shownone", "Show no direction");
  for (QPushButton* button : {all, none}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  column->addLayout(buttons);
  connect(all, &QPushButton::clicked, this, [this] { tickAll(Qt::Checked); });
  connect(none, &QPushButton::clicked, this, [this] { tickAll(Qt::Unchecked); });
  auto* parts = new QSplitter;
  parts->addWidget(frame_);
  parts->addWidget(beside);
  parts->setStretchFactor(0, 1);
  parts->setCollapsible(0, false);
  parts->setSizes({kStartSize.width() * 3 / 4, kStartSize.width() / 4});
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(parts);
  resize(kStartSize);
  legend_->setFocus();
}

void AllDirections::open() {
  show();
  raise();
  activateWindow();
}

void AllDirections::follow() {
  if (isVisible()) pending_.start();
}

void AllDirections::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  guarded(faults_, [this] { draw(); });
}

bool AllDirections::eventFilter(QObject* watched, QEvent* event) {
  if (watched == frame_ && event->type() == QEvent::Resize) {
    picture_->setSizeTwips(frame_->width() * kTwipsPerPixel, frame_->height() * kTwipsPerPixel);
    follow();
  }
  return QDialog::eventFilter(watched, event);
}

void AllDirections::tickAll(Qt::CheckState state) {
  for (int row = 0; row < legend_->count(); ++row) legend_->item(row)->setCheckState(state);
}

void AllDirections::fillLegend() {
  QStringList names;
  if (session_.loaded)
    for (std::int64_t d = 1; d <= directionCount(session_); ++d)
      names.append(toQString(session_.dirname(d)));
  if (names == names_) return;
  names_ = names;
  sampleColours_.reset();
  legend_->clear();
  for (const QString& name : names) {
    auto* entry = new QListWidgetItem(name, legend_);
    entry->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    entry->setCheckState(Qt::Checked);
  }
  if (!names.isEmpty()) legend_->setCurrentRow(0);
}

void AllDirections::paintSamples() {
  const std::pair colours(session_.style.cores.ink(), session_.style.cores.paper());
  if (sampleColours_ == colours) return;
  sampleColours_ = colours;
  for (int row = 0; row < legend_->count(); ++row)
    legend_->item(row)->setIcon(sampleOf(lookOf(row + 1, colours.first), colours.second));
}

Directions AllDirections::shown() const {
  Directions found;
  for (int row = 0; row < legend_->count(); ++row)
    if (legend_->item(row)->checkState() == Qt::Checked)
      found.set(static_cast<std::size_t>(row) + 1);
  return found;
}

void AllDirections::draw() {
  {
    const QSignalBlocker quiet(legend_);
    fillLegend();
    paintSamples();
  }
  const std::int64_t variable = session_.curvar;
  const bool isThere = session_.loaded && variable >= 1 && variable < kVariableSlots;
  const QString title =
      isThere ? "All directions of " + toQString(session_.varname(variable)) : "All directions";
  setWindowTitle(toTitle(title));
  picture_->setAccessibleName(title);
  if (!isThere) return picture_->surface().clear(session_.style.cores.paper());
  drawOverlay(session_, {.variable = variable, .shown = shown()}, picture_->surface(),
              picture_->widthTwips(), picture_->heightTwips());
}

}  // namespace zevfit
