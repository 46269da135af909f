// What the main window tells at its foot.
#include <QFile>

#include "files/rescue.h"
#include "model/misfit.h"
#include "session/policy.h"
#include "windows/foot.h"
#include "windows/mdimod.h"

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

void mdimod::renewFoot() {
  if (std::exchange(footDue_, true)) return;
  const auto renew = [this] {
    footDue_ = false;
    const bool differ =
        session_.loaded && attempt([&] { return fileModels_.differFrom(session_, savedCount()); },
                                   [] { return true; });
    foot_->showFile(session_.inputfile, differ);
    const Pair shown = session_.plotted();
    foot_->showMisfit(
        attempt([&] { return windows_->isOpen(shown) ? misfit(session_, shown) : std::nullopt; },
                [] { return std::optional<double>(); }));
  };
  QMetaObject::invokeMethod(this, renew, Qt::QueuedConnection);
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
