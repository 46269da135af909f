#include "platform/qt_dialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>
#include <QStringDecoder>

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

QFileInfo infoOf(const std::string& path) { return QFileInfo(QFile::decodeName(path.c_str())); }

/// Runs a file dialog that starts at the file that it took last; nothing on Cancel.
std::optional<std::string> choose(QFileDialog& dialog, std::string_view pattern,
                                  std::string& last) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
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
