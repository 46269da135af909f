#pragma once

#include <QPushButton>
#include <QString>

class QComboBox;
class QLabel;

namespace zevfit {

/// Gives a control its name and, where it has one, its hint.
template <class Widget>
Widget* named(Widget* widget, const QString& name, const char* hint = nullptr) {
  widget->setObjectName(name);
  if (hint) widget->setToolTip(hint);
  return widget;
}

/// A label that shows its text as it is.
QLabel* makeLabel(const QString& text);

/// A button without a caption: an icon of the program's own (none yet: a blank one), the hint also
/// as accessible name.
QPushButton* makeIconButton(const char* name, const char* icon, const char* hint,
                            const QKeySequence& shortcut);

/// The icon ":/icons/NAME.svg".
QIcon programIcon(const char* name);
/// Keeps the place of an icon that is loaded later.
QIcon blankIcon();

}  // namespace zevfit
