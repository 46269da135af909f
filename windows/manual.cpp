#include "windows/manual.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <array>
#include <string_view>

#include "files/output_file.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr const char* kMainSection = "the-main-window";
constexpr const char* kMessageSection = "messages";

constexpr auto kSections = std::to_array<ManualSection>({
    {"mdimod", kMainSection},
    {"formabout", kMainSection},
    {"Formod", "plots"},
    {"alldirections", "all-directions"},
    {"frmzevfit", "data-structure"},
    {"modfinal", "results-and-the-kriging-file"},
    {"testcruz", "test-of-coregionalization"},
    {"cutgraph", "axes-and-legend"},
    {"legenda", "axes-and-legend"},
    {"Formfont", "format-and-colours"},
    {"Frame2", "format-and-colours"},
    {"cores", "format-and-colours"},
    {"printcolection", "reports"},
    {"keyswindow", "keys"},
});

/// The manual and the pages that it leads to.
constexpr std::array kPages{"manual",   "dragging",    "file-formats", "zvm",
                            "tutorial", "drill-holes", "large"};

/// Where the pages lie, seen from the folder of the program: as installed, in an archive, and in
/// the tree of the sources.
constexpr std::array kFolders{"../share/zevfit/manual", "manual", "../../docs"};

constexpr const char* kHead =
    "<head><meta charset=\"utf-8\"><title>zevFIT</title><style>"
    "body{font-family:sans-serif;line-height:1.5;max-width:52em;margin:2em auto;padding:0 1em;"
    "background:#fff;color:#222}"
    "h1,h2,h3{line-height:1.2}table{border-collapse:collapse}td,th{border:1px solid #bbb;"
    "padding:0 .6em;vertical-align:top}pre{background:#f3f3f3;padding:.5em;overflow-x:auto}"
    "img{max-width:100%}a{color:#0645ad}</style></head><body>";

QString readText(const QString& path) {
  return QString::fromStdString(readWhole(QFile::encodeName(path).toStdString()));
}

void writeText(const QString& path, const QString& text) {
  saveWhole(QFile::encodeName(path).toStdString(), text.toStdString());
}

/// A browser is told of a section by a page that leads there: what opens files for a desktop drops
/// the section of an address.
QString leadTo(const QString& anchor) {
  return QString(
             "<!DOCTYPE html><html><head><meta http-equiv=\"refresh\" "
             "content=\"0; url=manual.html#%1\"></head><body>"
             "<a href=\"manual.html#%1\">Manual</a></body></html>")
      .arg(anchor);
}

QString folderBesideProgram() {
  for (const char* folder : kFolders) {
    QString path = QCoreApplication::applicationDirPath() + "/" + folder;
    if (QFile::exists(path + "/manual.md")) return path;
  }
  return {};
}

void giveAnchors(QTextDocument& document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() == 0) continue;
    QTextCharFormat format;
    format.setAnchor(true);
    format.setAnchorNames({anchorOf(block.text())});
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(format);
  }
}

/// Qt makes a paragraph of each line of code, and of what stands in a cell of a table.
void joinCode(QString& page) {
  page.replace(
      QRegularExpression("<(p|pre)( [^>]*)?>"
                         "<span style=\" font-family:'monospace';\">([^<]*)</span></\\1>(?!</td>)"),
      "<pre>\\3</pre>");
  page.replace(QRegularExpression("</pre>\\s*<(p|pre)( [^>]*)?><br /></\\1>\\s*<pre>"), "\n\n");
  page.replace(QRegularExpression("</pre>\\s*<pre>"), "\n");
}

}  // namespace

std::span<const ManualSection> manualSections() { return kSections; }

const char* manualAnchor(const QWidget* control) {
  for (const QWidget* at = control; at; at = at->parentWidget()) {
    if (qobject_cast<const QMessageBox*>(at)) return kMessageSection;
    const auto row =
        std::find_if(kSections.begin(), kSections.end(), [at](const ManualSection& section) {
          return at->objectName() == QLatin1String(section.window);
        });
    if (row != kSections.end()) return row->anchor;
  }
  return kMainSection;
}

QString anchorOf(const QString& heading) {
  QString anchor = heading.toLower();
  anchor.replace(' ', '-');
  anchor.remove(QRegularExpression("[^a-z0-9_-]"));
  return anchor;
}

QString toPage(const QString& markdown, const QString& folder) {
  QString text = markdown;
  text.replace(QRegularExpression("<img src=\"([^\"]*)\"[^>]* alt=\"([^\"]*)\">"), "![\\2](\\1)");
  QTextDocument document;
  document.setMarkdown(text);
  giveAnchors(document);
  QString page = document.toHtml();
  page.replace(
      QRegularExpression("<head>.*<body[^>]*>", QRegularExpression::DotMatchesEverythingOption),
      kHead);
  // Sizes and margins are left to the style of the page.
  page.replace(QRegularExpression("<(p|li|ol|ul|h[1-6]|td|table)( [^>]*)?>"), "<\\1>");
  page.replace(
      QRegularExpression(" (font-size:[a-z-]+|text-decoration: underline|color:#[0-9a-f]+);"), "");
  joinCode(page);
  page.replace("src=\"", "src=\"" + QUrl::fromLocalFile(folder).toString() + "/");
  page.replace(QRegularExpression("href=\"([a-z-]+)\\.md"), "href=\"\\1.html");
  return page;
}

Manual::Manual(Messages& messages, const FaultReport& faults)
    : messages_(messages), faults_(faults) {
  qApp->installEventFilter(this);
}

bool Manual::makePages() {
  if (pages_) return true;
  const QString folder = folder_.isEmpty() ? folderBesideProgram() : folder_;
  auto made = std::make_unique<QTemporaryDir>();
  const bool whole = attempt(
      [&] {
        for (const char* page : kPages)
          writeText(made->filePath(QString(page) + ".html"),
                    toPage(readText(folder + "/" + page + ".md"), folder));
        return true;
      },
      [] { return false; });
  if (whole) pages_ = std::move(made);
  return whole;
}

void Manual::open(const QWidget* from) {
  if (!makePages()) return messages_.plain("The manual is not there.");
  const QString anchor = manualAnchor(from);
  const QString path = pages_->filePath("at-" + anchor + ".html");
  const bool opened = attempt(
      [&] {
        writeText(path, leadTo(anchor));
        return opener_ && opener_(path);
      },
      [] { return false; });
  if (!opened)
    messages_.plain("Cannot open the manual: " + pages_->filePath("manual.html").toStdString());
}

bool Manual::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (key.key() != Qt::Key_F1 || key.modifiers() != Qt::NoModifier) return false;
  // A key that is held opens it once.
  if (!key.isAutoRepeat()) guarded(faults_, [&] { open(static_cast<QWidget*>(watched)); });
  return true;
}

}  // namespace zevfit
