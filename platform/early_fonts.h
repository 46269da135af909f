#pragma once

#include <thread>

namespace zevfit {

/// Reads the desktop's configuration of fonts on a thread of its own, while the program connects to
/// the display. To be awaited before the first text, which would read it a second time. Where
/// no thread can be started it is none, and the first text reads it.
std::jthread readFontsEarly();

}  // namespace zevfit
