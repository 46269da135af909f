#include "windows/controls.h"

#include <QIcon>
#include <QKeySequence>
#include <QLabel>
#include <QPixmap>

namespace zevfit {

namespace {

constexpr QSize kIconSize(24, 24);

}  // namespace

QLabel* makeLabel(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QIcon programIcon(const char* name) { return QIcon(QString(":/icons/%1.svg").arg(name)); }

QIcon blankIcon() {
  QPixmap blank(kIconSize);
  blank.fill(Qt::transparent);
  return QIcon(blank);
}

QPushButton* makeIconButton(const char* name, const char* icon, const char* hint,
                            const QKeySequence& shortcut) {
  auto* button =
      named(new QPushButton(icon ? programIcon(icon) : blankIcon(), QString()), name, hint);
  button->setAccessibleName(hint);
  button->setIconSize(kIconSize);
  button->setShortcut(shortcut);
  button->setAutoDefault(false);
  return button;
}

}  // namespace zevfit
