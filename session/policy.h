#pragma once

#include <exception>
#include <utility>

namespace zevfit {

/// Runs the body, which a fault, or the end of the memory, ends with what it has done so far.
/// Around a handler this is the policy to end silently; around a statement it is the policy to drop
/// it and go on with the next.
template <class Body>
void endSilently(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace zevfit
