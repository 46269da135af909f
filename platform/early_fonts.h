#pragma once

#include <QFont>
#include <thread>

namespace zevfit {

/// Reads the desktop's configuration of fonts on a thread of its own, while the program connects to
/// the display. A text that comes before its end would read it a second time. Where no thread can
/// be started it is none, and the first text reads it.
std::jthread readFontsEarly();

/// Reads the list of fonts and this one on a thread of its own, behind that of their
/// configuration, while the program shows its window. For an application that is there;
/// where no thread can be started it is none, and the first text reads them.
std::jthread loadFontEarly(const QFont& font, std::jthread configuration);

}  // namespace zevfit
