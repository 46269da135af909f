#pragma once

#include <array>
#include <string>

#include "session/cell.h"
#include "session/line.h"
#include "session/session.h"

namespace zevfit::test {

/// What must hold of the session whatever a user does, from event to event.
class Invariants {
 public:
  /// The first that does not hold; empty when all do. `loaded`: a file was read since the call
  /// before.
  std::string broken(const Session& session, bool loaded);
  /// Whether the total sill of the current pair has followed what became of its sills since the
  /// call before. A box that is ticked, also by a drawing, leaves the total as it is until the next
  /// edit: to be called behind each change of the field of the sill and of a box, too.
  std::string brokenTotal(const Session& session, bool loaded);

 private:
  /// The current pair, its sills, and its flags as they stand.
  struct Model {
    Pair pair;
    std::array<std::string, kLines.size()> sills;
    std::array<Cell, kLines.size()> flags;
  };
  static Model modelOf(const Session& session);
  /// The sum of the sills of now, each times its flag of the call before. Throws Fault for a text.
  double expectedTotal(const Session& session) const;

  bool chosen_ = false;  ///< a line has been selected
  Model before_;
};

}  // namespace zevfit::test
