#pragma once

#include <new>
#include <utility>

#include "session/fault.h"

namespace zevfit {

/// The result of the body or, where a fault or the end of the memory ends it, that of `failure`.
/// Any other exception is an error of the program itself and passes to the caller.
template <class Body, class Failure>
auto attempt(Body&& body, Failure&& failure) {
  try {
    return std::forward<Body>(body)();
  } catch (const Fault&) {
    return std::forward<Failure>(failure)();
  } catch (const std::bad_alloc&) {
    return std::forward<Failure>(failure)();
  }
}

/// Runs the body, which a fault, or the end of the memory, ends with what it has done so far.
/// Around a handler this is the policy to end silently; around a statement it is the policy to drop
/// it and go on with the next.
template <class Body>
void endSilently(Body&& body) {
  attempt([&] { std::forward<Body>(body)(); }, [] {});
}

}  // namespace zevfit
