#include "platform/early_fonts.h"

#include <dlfcn.h>

#include <system_error>

namespace zevfit {

std::jthread readFontsEarly() {
  try {
    return std::jthread([] {
      // Of the library fontconfig, which Qt brings along where it takes its fonts from there.
      using Initialise = int (*)();
      if (const auto init = reinterpret_cast<Initialise>(::dlsym(RTLD_DEFAULT, "FcInit"))) init();
    });
  } catch (const std::system_error&) {
    return {};
  }
}

}  // namespace zevfit
