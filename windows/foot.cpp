#include "windows/foot.h"

#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

namespace zevfit {

namespace {

constexpr const char* kLabelName = "LabelFoot";

QLabel& footLabel(QMainWindow& window) {
  if (auto* made = window.findChild<QLabel*>(kLabelName)) return *made;
  auto* label = new QLabel;
  label->setObjectName(kLabelName);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // A long path must not make the window wider.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  window.statusBar()->addWidget(label, 1);
  return *label;
}

}  // namespace

void tellAtFoot(QMainWindow& window, const std::string& note) {
  QLabel& label = footLabel(window);
  QStringList lines = label.text().split('\n', Qt::SkipEmptyParts);
  const QString line = QFile::decodeName(note.c_str());
  if (!lines.contains(line)) lines.append(line);
  label.setText(lines.join('\n'));
  label.setToolTip(label.text());
  window.statusBar()->show();
}

void clearFoot(QMainWindow& window) {
  if (!window.findChild<QStatusBar*>()) return;
  footLabel(window).clear();
  window.statusBar()->hide();
}

}  // namespace zevfit
