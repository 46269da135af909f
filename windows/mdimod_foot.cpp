// What the main window tells at its foot.
#include <QFile>
#include <QMdiArea>
#include <QStatusTipEvent>

#include "files/rescue.h"
#include "session/policy.h"
#include "windows/foot.h"
#include "windows/mdimod.h"
#include "windows/plot_area.h"

namespace zevfit {

namespace {

constexpr const char* kTwoFilesText =
    "The last file could not be read to its end: the tables hold parts of two files. Open a good "
    "file.";

}  // namespace

void mdimod::hint(HintTopic topic, std::string_view text) {
  foot_->showHint(topic,
                  QFile::decodeName(QByteArray(text.data(), static_cast<qsizetype>(text.size()))));
}

std::optional<double> mdimod::shownMisfit() const {
  auto* plot = dynamic_cast<Formod*>(area_->currentSubWindow());
  return plot && plot->appeared() ? plot->misfit() : std::nullopt;
}

void mdimod::renewFoot() {
  if (std::exchange(footDue_, true)) return;
  const auto renew = [this] {
    footDue_ = false;
    const bool differ =
        session_.loaded && attempt([&] { return fileModels_.differFrom(session_, savedCount()); },
                                   [] { return true; });
    foot_->showFile(session_.inputfile, differ);
    foot_->showMisfit(shownMisfit());
  };
  QMetaObject::invokeMethod(this, renew, Qt::QueuedConnection);
}

// The toolkit's own way would hide the rest of the foot.
bool mdimod::event(QEvent* event) {
  if (event->type() != QEvent::StatusTip || !foot_) return QMainWindow::event(event);
  foot_->showTip(static_cast<QStatusTipEvent*>(event)->tip());
  return true;
}

void mdimod::tellOfRescue() {
  if (const auto note = takeRescueNote(folder_)) tellAtFoot(*this, *note);
}

void mdimod::tellOfHalf(const std::string& path) {
  if (!session_.loaded)
    return tellAtFoot(*this, "The file " + path +
                                 " could not be read to its end: the tables hold a part of it. "
                                 "Open a good file.");
  unsaved_.disregard(session_, variableCount());
  tellAtFoot(*this, kTwoFilesText);
  // A save would now write parts of two files over the former one: it is kept once more.
  saver_.startFile();
}

}  // namespace zevfit
