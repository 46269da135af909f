#include "windows/formabout.h"

#include <QApplication>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <array>

#include "windows/keys.h"

namespace zevfit {

namespace {

constexpr QSize kPictureSize(420, 260);
/// Distance from the top of the main window at start, in logical pixels.
constexpr int kStartTop = 40;
/// What only a user brings about: from then on an activation is no longer part of the start.
constexpr std::array kUserEvents{QEvent::KeyPress, QEvent::MouseMove, QEvent::MouseButtonPress,
                                 QEvent::Wheel, QEvent::ApplicationDeactivate};

/// Paints itself at the resolution of whatever screen it is on.
class AboutPicture : public QWidget {
 public:
  explicit AboutPicture(QWidget* parent) : QWidget(parent), icon_(":/icons/about.svg") {
    setObjectName("Image1");
    setAccessibleName("zevFIT: variogram models, fitted by eye");
    resize(kPictureSize);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    icon_.paint(&painter, rect());
  }

 private:
  QIcon icon_;
};

}  // namespace

formabout::formabout(QWidget* mainWindow)
    : QWidget(mainWindow, Qt::Dialog | Qt::FramelessWindowHint),
      mainWindow_(mainWindow),
      Image1(new AboutPicture(this)) {
  setObjectName("formabout");
  setWindowTitle("About zevFIT");
  Image1->installEventFilter(this);
  fitPicture();
}

void formabout::fitPicture() {
  Image1->move(0, 0);
  resize(Image1->size());
}

void formabout::centre() {
  QRect place(QPoint(), size());
  place.moveCenter(QRect(mainWindow_->mapToGlobal(QPoint()), mainWindow_->size()).center());
  move(place.topLeft());
}

void formabout::showAtStart() {
  fitPicture();
  centre();
  move(x(), mainWindow_->mapToGlobal(QPoint()).y() + kStartTop);
  setAttribute(Qt::WA_ShowWithoutActivating);
  starting_ = true;
  QApplication::instance()->installEventFilter(this);
  show();
}

void formabout::endStart() {
  starting_ = false;
  QApplication::instance()->removeEventFilter(this);
}

void formabout::showCentred() {
  endStart();
  setAttribute(Qt::WA_ShowWithoutActivating, false);
  fitPicture();
  centre();
  show();
  raise();
  activateWindow();
}

void formabout::activated() {
  // Some window systems activate a new window even if asked not to: that is no reason to leave the
  // place of the start. Others do not, and the first activation is the user's.
  const bool byStart = starting_;
  endStart();
  if (byStart) return;
  fitPicture();
  centre();
}

bool formabout::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) activated();
  if (event->type() == QEvent::Hide) endStart();
  return QWidget::event(event);
}

bool formabout::eventFilter(QObject* watched, QEvent* event) {
  if (starting_ && std::ranges::find(kUserEvents, event->type()) != kUserEvents.end()) endStart();
  if (watched == Image1 && event->type() == QEvent::MouseButtonRelease) hide();
  return QWidget::eventFilter(watched, event);
}

void formabout::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape || isPress(event->key())) return hide();
  QWidget::keyPressEvent(event);
}

}  // namespace zevfit
