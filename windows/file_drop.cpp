#include "windows/file_drop.h"

#include <QApplication>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <optional>
#include <utility>

#include "files/variogram_reader.h"

namespace zevfit {

namespace {

/// The one variogram file that is dragged; nothing for anything else.
std::optional<std::string> fileOf(const QMimeData& dragged) {
  const QList<QUrl> urls = dragged.urls();
  if (urls.size() != 1 || !urls.constFirst().isLocalFile()) return std::nullopt;
  const QFileInfo file(urls.constFirst().toLocalFile());
  const std::string name = QFile::encodeName(file.fileName()).toStdString();
  if (!file.isFile() || !hasVariogramExtension(name)) return std::nullopt;
  return QFile::encodeName(file.filePath()).toStdString();
}

bool isDrag(const QEvent& event) {
  return event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove ||
         event.type() == QEvent::Drop;
}

}  // namespace

FileDrop::FileDrop(QWidget& window, const FaultReport& faults,
                   std::function<void(const std::string&)> open)
    : window_(window), faults_(faults), open_(std::move(open)) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
  // They take drops of their own.
  for (QLineEdit* field : window.findChildren<QLineEdit*>()) field->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event) {
  if (!isDrag(*event)) return false;
  auto& drag = static_cast<QDropEvent&>(*event);
  // A text may go into a field.
  if (watched != &window_ && !drag.mimeData()->hasUrls()) return false;
  if (!isOpenTo(drag)) {
    event->ignore();
    return true;
  }
  drag.setDropAction(Qt::CopyAction);
  drag.accept();
  if (event->type() == QEvent::Drop) drop(drag);
  return true;
}

bool FileDrop::isOpenTo(const QDropEvent& drag) const {
  const bool isFree = window_.isEnabled() && !QApplication::activeModalWidget();
  return isFree && drag.possibleActions().testFlag(Qt::CopyAction) && fileOf(*drag.mimeData());
}

// The program that the file comes from waits until the event has been answered.
void FileDrop::drop(const QDropEvent& event) {
  QTimer::singleShot(0, this, [this, path = *fileOf(*event.mimeData())] {
    if (window_.isEnabled() && !QApplication::activeModalWidget())
      guarded(faults_, [&] { open_(path); });
  });
}

}  // namespace zevfit
