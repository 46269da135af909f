#pragma once

#include <QFont>
#include <thread>

namespace zevfit {

/// Reads the desktop's configuration of fonts on a thread of its own, while the program connects to
/// the display. To be awaited before the first text, which would read it a second time. Where
/// no thread can be started it is none, and the first text reads it.
std::jthread readFontsEarly();

/// Reads the list of fonts and this one on a thread of its own, while the program makes its window.
/// For an application that is there, with the configuration read; where no thread can be
/// started it is none, and the first text reads them.
std::jthread loadFontEarly(const QFont& font);

}  // namespace zevfit
