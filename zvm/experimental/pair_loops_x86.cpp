// The loops on x86: four pairs at a time where the processor can, else two.
#include <array>

#include "zvm/experimental/pair_loop_bodies.h"

namespace zevfit::zvm {

namespace {

template <auto Loop>
struct Wide;
template <class... Of, void (*Loop)(Of...)>
struct Wide<Loop> {
  [[gnu::flatten, gnu::target("avx2")]] static void run(Of... of) { Loop(of...); }
};

constexpr std::array kLoops{kLoopsOn<Plain>, kLoopsOn<Wide>};

}  // namespace

std::span<const PairLoops> pairLoops() {
  const std::span all(kLoops);
  return __builtin_cpu_supports("avx2") ? all : all.first(1);
}

}  // namespace zevfit::zvm
