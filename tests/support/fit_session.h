#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fitting/classes.h"
#include "session/session.h"

namespace zevfit::test {

/// A session with so many variables of variance 1 and these directions, without classes.
inline Session emptyFile(std::int64_t variables, const std::vector<std::string>& directions,
                         std::int64_t classes) {
  Session session;
  session.nvar = variables;
  session.ndir = static_cast<std::int64_t>(directions.size());
  session.nclass = classes;
  session.hlag.create(classes);
  session.gam.create(classes);
  session.npairs.create(classes);
  resetFitState(session);
  for (std::int64_t d = 1; d <= session.ndir; ++d)
    session.dirname(d) = directions[static_cast<std::size_t>(d - 1)];
  for (std::int64_t v = 1; v <= variables; ++v) {
    session.varname(v) = "v" + std::to_string(v);
    session.variance(v) = 1.0;
  }
  return session;
}

inline void setClasses(Session& session, Pair pair, const fitting::Classes& classes) {
  std::int64_t lag = 0;
  for (const fitting::LagClass& one : classes) {
    session.hlag.set(pair, ++lag, one.distance);
    session.gam.set(pair, lag, one.semivariance);
    session.npairs.set(pair, lag, static_cast<float>(one.pairs));
  }
}

}  // namespace zevfit::test
