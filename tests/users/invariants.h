#pragma once

#include <string>

#include "session/session.h"

namespace zevfit::test {

/// What must hold of the session whatever a user does, from event to event.
class Invariants {
 public:
  /// The first that does not hold; empty when all do. `loaded`: a file was read since the call
  /// before.
  std::string broken(const Session& session, bool loaded);

 private:
  /// The sills of the current pair as a text, and the pair.
  struct Sills {
    Pair pair;
    std::string texts;
    bool operator==(const Sills&) const = default;
  };
  static Sills sillsOf(const Session& session);
  std::string brokenTotal(const Session& session, bool loaded);

  bool chosen_ = false;  ///< a line has been selected
  Sills before_;
};

}  // namespace zevfit::test
