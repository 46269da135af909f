#include "windows/formod.h"

#include <QAction>
#include <QCloseEvent>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QLayout>
#include <QMdiArea>
#include <QMenu>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "plot/drawing/plot_variogram.h"
#include "plot/window/direction_events.h"
#include "plot/window/handles.h"
#include "windows/control_tips.h"
#include "windows/guide_line.h"
#include "windows/quiet_focus.h"
#include "windows/texts.h"

namespace zevfit {

namespace {

/// Handles and tag are written in this type.
constexpr float kOverlayPoints = 10.5F;

constexpr QColor kHandleGround(0xEF, 0xEF, 0xEF);

/// The least size of a content: the box of its plot is then ten pixels high.
constexpr QSize kLeastContent(120, 90);

/// The content of a plot window.
class Content : public QWidget {
 public:
  QSize sizeHint() const override { return wanted; }
  QSize minimumSizeHint() const override { return kLeastContent; }
  QSize wanted;
};

}  // namespace

Formod::Formod(Fit& fit, DirectionWindows& windows, const FaultReport& faults,
               std::function<void()> endDelete)
    : fit_(fit),
      windows_(windows),
      faults_(faults),
      endDelete_(std::move(endDelete)),
      form_(new Content) {
  setObjectName("Formod");
  setWindowIcon(QIcon(":/icons/app.svg"));
  setAttribute(Qt::WA_DeleteOnClose, false);
  form_->setAutoFillBackground(true);
  // The right button drags sills; behind a fast move from its icon the frame would open its menu.
  form_->setContextMenuPolicy(Qt::PreventContextMenu);
  setWidget(form_);
  leaveKeysToTheMainWindow();
  Picture4 = new PictureBox(form_);
  Picture4->setObjectName("Picture4");
  Picture4->setFocusPolicy(Qt::ClickFocus);
  Label6 = new QLabel("title", form_);
  Label6->setObjectName("Label6");
  Line1 = makeGuide("Line1");
  Line2 = makeGuide("Line2");
  for (int i = 0; i < 4; ++i) {
    const auto at = static_cast<std::size_t>(i);
    estru[at] = makeOverlay(QString("estru_%1").arg(i), kHandleCaptions[at], true);
  }
  Label1 = makeOverlay("Label1", QString(), false);
  giveTips(*form_);
  Label6->hide();
  Picture4->setMouseTracking(true);
  for (QLabel* handle : estru) handle->setMouseTracking(true);
  keepFocusOnPicture();
  connect(this, &QMdiSubWindow::windowStateChanged, this, [this](auto /*before*/, auto now) {
    if (!now.testFlag(Qt::WindowActive)) {
      cut_ = std::exchange(down_, nullptr);
      pressed_ = nullptr;
    }
    // The toolkit sizes a window of another state while it is hidden.
    follow();
  });
  for (QWidget* watched : std::initializer_list<QWidget*>{form_, Picture4, Label1, estru[0],
                                                          estru[1], estru[2], estru[3]})
    watched->installEventFilter(this);
}

// A press beside the picture, on a handle or on the frame, would otherwise take the focus from it,
// at which the handles hide.
void Formod::keepFocusOnPicture() {
  setFocusProxy(Picture4);
  for (QWidget* part :
       std::initializer_list<QWidget*>{form_, Label1, estru[0], estru[1], estru[2], estru[3]}) {
    part->setFocusPolicy(Qt::ClickFocus);
    part->setFocusProxy(Picture4);
  }
}

// The main window has them wherever the focus is; keys of two of its controls press neither. The
// menu still shows them.
void Formod::leaveKeysToTheMainWindow() {
  for (QAction* entry : systemMenu()->actions())
    if (!entry->shortcut().isEmpty()) entry->setShortcutContext(Qt::WidgetShortcut);
}

QLabel* Formod::makeOverlay(const QString& name, const QString& text, bool bold) {
  auto* label = new QLabel(text, form_);
  label->setObjectName(name);
  label->setFont(toQFont({kPlotFont, kOverlayPoints, bold}));
  label->setTextFormat(Qt::PlainText);
  label->setAutoFillBackground(true);
  label->setFrameStyle(QFrame::Box | QFrame::Plain);
  label->adjustSize();
  label->hide();
  return label;
}

GuideLine* Formod::makeGuide(const QString& name) {
  auto* guide = new GuideLine(form_);
  guide->setObjectName(name);
  guide->hide();
  return guide;
}

void Formod::load() {
  loaded_ = true;
  appeared_ = false;
  setWindowState(Qt::WindowNoState);
  Picture4->move(0, 0);
  Form_Load(*this);
}

// The close of the window has closed its content too, which its own showing does not bring back.
void Formod::appear() {
  appeared_ = true;
  const QScopedValueRollback fitting(fitting_, true);
  form_->show();
  show();
  fitFrame();
}

void Formod::restore() {
  const QuietFocus focus(*this);
  {
    const QScopedValueRollback fitting(fitting_, true);
    showNormal();
  }
  takeSize();
}

QSize Formod::nominalContent() const {
  return {toPixels(width_ - kFrameWidth), toPixels(height_ - kFrameHeight)};
}

void Formod::setSize(double width, double height) {
  const QScopedValueRollback fitting(fitting_, true);
  if (isMaximized() || isMinimized()) showNormal();
  width_ = std::max(width, kLeastContent.width() * kTwipsPerPixel + kFrameWidth);
  height_ = std::max(height, kLeastContent.height() * kTwipsPerPixel + kFrameHeight);
  fitFrame();
}

void Formod::fitFrame() {
  const QSize wanted = nominalContent();
  static_cast<Content*>(form_)->wanted = wanted;
  const QScopedValueRollback fitting(fitting_, true);
  adjustSize();
  layout()->activate();
  resize(size() + wanted - form_->size());
  layout()->activate();
}

std::string Formod::caption() const { return caption_; }

void Formod::setCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  setWindowTitle(toQString(caption));
}

void Formod::setOverlayColours(Colour foreground, Colour background) {
  const std::pair wanted(foreground, background);
  if (overlayColours_ == wanted) return;
  overlayColours_ = wanted;
  QPalette lines = palette();
  lines.setColor(QPalette::WindowText, toQColor(foreground));
  // The ground of the handles is not the desktop's: dark letters stay readable in a dark theme.
  lines.setColor(QPalette::Window, kHandleGround);
  for (QLabel* handle : estru) handle->setPalette(lines);
  for (GuideLine* guide : {Line1, Line2}) guide->setPalette(lines);
  QPalette tag = lines;
  tag.setColor(QPalette::Window, toQColor(background));
  Label1->setPalette(tag);
}

double Formod::measureTitle(std::string_view text, const Font& font) {
  if (titleFont_ != font || Label6->text() != toQString(text)) {
    titleFont_ = font;
    Label6->setFont(toQFont(font));
    Label6->setText(toQString(text));
    Label6->adjustSize();
  }
  return Label6->width() * kTwipsPerPixel;
}

void Formod::setPictureSize(double width, double height) { Picture4->setSizeTwips(width, height); }

void Formod::toFront() {
  if (!isVisible() || !mdiArea() || mdiArea()->activeSubWindow() == this) return;
  const QuietFocus focus(*this);
  mdiArea()->setActiveSubWindow(this);
  raise();
}

void Formod::closeEvent(QCloseEvent* event) {
  loaded_ = false;
  QMdiSubWindow::closeEvent(event);
}

void Formod::hideEvent(QHideEvent* event) {
  QMdiSubWindow::hideEvent(event);
  if (!loaded_ && mdiArea()) activateFormer();
}

void Formod::activateFormer() {
  const auto history = mdiArea()->subWindowList(QMdiArea::ActivationHistoryOrder);
  const auto former = std::find_if(history.rbegin(), history.rend(), [](const auto* window) {
    return window->isVisible() && !window->isMinimized();
  });
  // Without one none is active, the closed window neither.
  mdiArea()->setActiveSubWindow(former != history.rend() ? *former : nullptr);
}

void Formod::resizeEvent(QResizeEvent* event) {
  QMdiSubWindow::resizeEvent(event);
  follow();
}

void Formod::takeSize() {
  if (fitting_ || !appeared() || isMinimized()) return;
  layout()->activate();
  if (form_->size() == nominalContent()) return;
  width_ = form_->width() * kTwipsPerPixel + kFrameWidth;
  height_ = form_->height() * kTwipsPerPixel + kFrameHeight;
}

void Formod::follow() {
  takeSize();
  if (fitting_ || !appeared() || !isVisible() || isMinimized()) return;
  if (!mdiArea() || mdiArea()->currentSubWindow() != this) return;
  if (Picture4->size() == form_->size()) return;
  guarded(faults_, [this] { redrawPlot(fit_, *this); });
}

}  // namespace zevfit
