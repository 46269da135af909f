#pragma once

#include <utility>

#include "session/fault.h"

namespace zevfit {

/// The policy of a handler, or of a stretch of it, that a failure ends with what it has done so
/// far.
template <class Body>
void endSilently(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const Fault&) {
    return;
  }
}

}  // namespace zevfit
