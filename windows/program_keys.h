#pragma once

#include <QKeySequence>
#include <QList>
#include <span>

namespace zevfit {

/// Keys of the program, as its menus and the list of keys have them.
struct ProgramKey {
  const char* group;    ///< under which they are listed
  const char* window;   ///< that has them; empty: keys of the desktop, which no control names
  const char* control;  ///< action, button or shortcut that they press
  const char* keys;     ///< parted by "; "
  const char* does;
};

/// All keys, those of a group side by side.
std::span<const ProgramKey> programKeys();
/// The keys of a control of the main window; none for one that has no row.
QList<QKeySequence> keysOf(const char* control);

}  // namespace zevfit
