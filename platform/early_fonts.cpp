#include "platform/early_fonts.h"

#include <dlfcn.h>

#include <QFontMetrics>
#include <system_error>
#include <utility>

namespace zevfit {

namespace {

std::jthread started(auto work) {
  try {
    return std::jthread(std::move(work));
  } catch (const std::system_error&) {
    return {};
  }
}

}  // namespace

std::jthread readFontsEarly() {
  return started([] {
    // Of the library fontconfig, which Qt brings along where it takes its fonts from there.
    using Initialise = int (*)();
    if (const auto init = reinterpret_cast<Initialise>(::dlsym(RTLD_DEFAULT, "FcInit"))) init();
  });
}

std::jthread loadFontEarly(const QFont& font, std::jthread configuration) {
  // Its own copy: fonts that share their data share what they have loaded, too.
  return started([description = font.toString(), before = std::move(configuration)]() mutable {
    if (before.joinable()) before.join();
    QFont own{QString()};
    own.fromString(description);
    QFontMetrics(own).horizontalAdvance("zevFIT");
  });
}

}  // namespace zevfit
