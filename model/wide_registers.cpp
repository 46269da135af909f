#include "model/wide_registers.h"

namespace zevfit {

#if defined(__x86_64__)

namespace {

[[gnu::target("avx"), gnu::noinline]] void emptyUpperHalves() { __builtin_ia32_vzeroupper(); }

}  // namespace

void emptyWideRegisters() {
  if (__builtin_cpu_supports("avx")) emptyUpperHalves();
}

#else

void emptyWideRegisters() {}

#endif

}  // namespace zevfit
