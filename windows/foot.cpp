#include "windows/foot.h"

#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

namespace zevfit {

namespace {

constexpr const char* kNotes = "LabelFoot";
constexpr const char* kHint = "LabelHint";

QLabel& footLabel(QMainWindow& window, const char* name) {
  if (auto* made = window.findChild<QLabel*>(name)) return *made;
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // A long path must not make the window wider.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  window.statusBar()->addWidget(label, 1);
  return *label;
}

}  // namespace

void tellAtFoot(QMainWindow& window, const std::string& note) {
  QLabel& label = footLabel(window, kNotes);
  QStringList lines = label.text().split('\n', Qt::SkipEmptyParts);
  const QString line = QFile::decodeName(note.c_str());
  if (!lines.contains(line)) lines.append(line);
  label.setText(lines.join('\n'));
  label.setToolTip(label.text());
  window.statusBar()->show();
}

void hintAtFoot(QMainWindow& window, const std::string& hint) {
  QLabel& label = footLabel(window, kHint);
  label.setText(QFile::decodeName(hint.c_str()));
  label.setToolTip(label.text());
  if (!hint.empty()) window.statusBar()->show();
}

void clearFoot(QMainWindow& window) {
  if (!window.findChild<QStatusBar*>()) return;
  footLabel(window, kNotes).clear();
  footLabel(window, kHint).clear();
  window.statusBar()->hide();
}

}  // namespace zevfit
