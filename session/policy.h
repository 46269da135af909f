#pragma once

#include <utility>

#include "session/fault.h"

namespace zevfit {

/// Runs the body, which a fault ends with what it has done so far. Around a handler this is the
/// policy to end silently; around a statement it is the policy to drop it and go on with the next.
template <class Body>
void endSilently(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const Fault&) {
    return;
  }
}

}  // namespace zevfit
