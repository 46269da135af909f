#include "platform/qt_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QSpacerItem>
#include <QStringDecoder>
#include <QTreeView>
#include <algorithm>

#include "platform/font_dialog.h"
#include "platform/painter_surface.h"

namespace zevfit {

namespace {

QString toShown(std::string_view text) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  // Stateless: a character that the text's end cuts short is an error too.
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString shown = decoder(bytes);
  return decoder.hasError() ? QString::fromLatin1(bytes) : shown;
}

constexpr const char* kSuffix = "zvm";

/// Opens a file. A name that is typed without its ending gets it, unless there is a file of that
/// very name.
class OpenDialog : public QFileDialog {
 public:
  using QFileDialog::QFileDialog;

 protected:
  void accept() override {
    setDefaultSuffix(QString());
    const QStringList chosen = selectedFiles();
    if (chosen.size() == 1 && !QFile::exists(chosen.constFirst())) setDefaultSuffix(kSuffix);
    QFileDialog::accept();
  }
};

/// What a title bar has beside its text on any desktop, pixels: an icon and buttons at both ends,
/// since many centre the text.
constexpr int kBesideTitle = 160;

/// Keeps a box as wide as its title bar needs, whose type desktops make bold.
void fitTitle(QMessageBox& box) {
  QFont type = QApplication::font("QMdiSubWindowTitleBar");
  type.setBold(true);
  const int width = QFontMetrics(type).horizontalAdvance(box.windowTitle()) + kBesideTitle;
  // The box sets its own size by its rows, whenever it is laid out.
  auto* rows = qobject_cast<QGridLayout*>(box.layout());
  if (rows) rows->addItem(new QSpacerItem(width, 0), rows->rowCount(), 0, 1, rows->columnCount());
}

/// Shows a box and returns the button that was pressed.
int ask(QMessageBox::Icon icon, const QString& title, std::string_view text,
        QMessageBox::StandardButtons buttons) {
  QMessageBox box(icon, title, toShown(text), buttons, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  fitTitle(box);
  return box.exec();
}

/// Of a dialog that shows a file's name beside its size, kind and date, pixels.
constexpr int kFilesWidth = 760;

/// Makes it Qt's own dialog, whose columns are then as wide as what stands in them: by itself it
/// cuts sizes, kinds and dates.
void setUpFiles(QFileDialog& dialog) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.resize(kFilesWidth, dialog.sizeHint().height());
  const auto* files = dialog.findChild<QTreeView*>("treeView");
  if (!files) return;
  files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  files->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

QFileInfo infoOf(const std::string& path) { return QFileInfo(QFile::decodeName(path.c_str())); }

QString filterOf(const FileKind& kind) { return QString("%1 (*.%2)").arg(kind.name, kind.ending); }

/// The kind that a path is of: the chosen one, unless its ending is that of another.
std::size_t kindOf(const QString& path, std::span<const FileKind> kinds, std::size_t chosen) {
  const QString ending = QFileInfo(path).suffix().toLower();
  if (ending == kinds[chosen].ending) return chosen;
  const auto named = std::find_if(kinds.begin(), kinds.end(),
                                  [&](const FileKind& kind) { return ending == kind.ending; });
  return named == kinds.end() ? chosen : static_cast<std::size_t>(named - kinds.begin());
}

/// Runs a file dialog that starts at the file that it took last; nothing on Cancel.
std::optional<std::string> choose(QFileDialog& dialog, std::string_view pattern,
                                  std::string& last) {
  setUpFiles(dialog);
  dialog.setNameFilter("(" + toShown(pattern) + ")");
  if (!last.empty()) {
    dialog.setDirectory(infoOf(last).absolutePath());
    dialog.selectFile(infoOf(last).fileName());
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  last = QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
  return last;
}

}  // namespace

void QtDialogs::plain(std::string_view text) {
  ask(QMessageBox::NoIcon, QString(), text, QMessageBox::Ok);
}

void QtDialogs::warning(std::string_view text) {
  ask(QMessageBox::Warning, kWarningTitle, text, QMessageBox::Ok);
}

bool QtDialogs::confirm(std::string_view text) {
  return ask(QMessageBox::Question, kQuestionTitle, text, QMessageBox::Ok | QMessageBox::Cancel) ==
         QMessageBox::Ok;
}

Answer QtDialogs::question(std::string_view text) {
  const int pressed = ask(QMessageBox::Question, kQuestionTitle, text,
                          QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  if (pressed == QMessageBox::Yes) return Answer::yes;
  return pressed == QMessageBox::No ? Answer::no : Answer::cancel;
}

void QtDialogs::fatal(std::string_view text) {
  ask(QMessageBox::Critical, kWarningTitle,
      "The program has met a fault and must end: " + std::string(text), QMessageBox::Ok);
}

std::optional<std::string> QtDialogs::openFile(std::string_view title, std::string_view pattern) {
  OpenDialog dialog(QApplication::activeWindow(), toShown(title));
  dialog.setObjectName("Dialog1");
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setDefaultSuffix(kSuffix);
  return choose(dialog, pattern, lastFile_);
}

std::optional<std::string> QtDialogs::saveFile(std::string_view title, std::string_view pattern) {
  QFileDialog dialog(QApplication::activeWindow(), toShown(title));
  dialog.setObjectName("Dialog2");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(toShown(pattern).section('.', -1));
  // At first beside the file that was read.
  if (lastSaved_.empty() && !lastFile_.empty())
    dialog.setDirectory(infoOf(lastFile_).absolutePath());
  return choose(dialog, pattern, lastSaved_);
}

std::optional<ChosenFile> QtDialogs::saveFileAs(std::string_view title,
                                                std::span<const FileKind> kinds, std::size_t kind,
                                                std::string_view name) {
  QFileDialog dialog(QApplication::activeWindow(), toShown(title));
  dialog.setObjectName("Dialog3");
  setUpFiles(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  QStringList filters;
  for (const FileKind& each : kinds) filters.append(filterOf(each));
  dialog.setNameFilters(filters);
  const auto follow = [&](const QString& filter) {
    kind = static_cast<std::size_t>(std::max<qsizetype>(0, filters.indexOf(filter)));
    dialog.setDefaultSuffix(kinds[kind].ending);
  };
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
  dialog.selectNameFilter(filters.at(static_cast<qsizetype>(kind)));
  follow(dialog.selectedNameFilter());
  if (!lastFolder_.empty())
    dialog.setDirectory(QFile::decodeName(lastFolder_.c_str()));
  else if (!lastFile_.empty())
    dialog.setDirectory(infoOf(lastFile_).absolutePath());
  if (!name.empty()) dialog.selectFile(toShown(name) + '.' + kinds[kind].ending);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = dialog.selectedFiles().constFirst();
  lastFolder_ = QFile::encodeName(QFileInfo(path).absolutePath()).toStdString();
  return ChosenFile{QFile::encodeName(path).toStdString(), kindOf(path, kinds, kind)};
}

std::optional<FontChoice> QtDialogs::chooseFont(const FontChoice& start) {
  FontDialog dialog(start, toShown(start.name), QApplication::activeWindow());
  dialog.setObjectName("Dialog1");
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.choice();
}

std::optional<Colour> QtDialogs::chooseColour(Colour start) {
  QColorDialog dialog(toQColor(start), QApplication::activeWindow());
  dialog.setObjectName("Dialog1");
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return toColour(dialog.selectedColor());
}

std::string QtDialogs::heldFile() const { return lastFile_; }

void QtDialogs::holdFile(std::string_view path) { lastFile_ = path; }

}  // namespace zevfit
