#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "session/structure_view.h"

namespace zevfit {

/// Three variables of a file, two directions, two classes. A value tells where it belongs: variable
/// 2, direction 1, class 2 has the semivariance 212, the distance 2120 and 21200 pairs.
inline Session structureSample() {
  Session session;
  session.nvar = session.nvarfile = 3;
  session.ndir = session.nclass = 2;
  session.hlag.create(2);
  session.gam.create(2);
  session.npairs.create(2);
  resetFitState(session);
  const char* const names[] = {"zinc", " lead", "copper"};
  for (int v = 1; v <= 3; ++v) {
    session.varname(v) = names[v - 1];
    session.variance(v) = v;
    for (int d = 1; d <= 2; ++d) {
      for (int c = 1; c <= 2; ++c) {
        const int place = 100 * v + 10 * d + c;
        session.gam.set({v, d}, c, place);
        session.hlag.set({v, d}, c, 10 * place);
        session.npairs.set({v, d}, c, static_cast<float>(100 * place));
      }
      session.hmax({v, d}) = 1000 * v + d;
      session.gmax({v, d}) = 100 * v + d;
      session.gmin({v, d}) = 10 * v + d;
    }
  }
  return session;
}

inline void tick(Session& session, std::initializer_list<int> variables) {
  session.addflag.fill(0);
  for (const int v : variables) session.addflag(v) = true;
}

inline void expectRefused(const std::optional<Refusal>& refusal, const std::string& warning,
                          bool focus) {
  ASSERT_TRUE(refusal);
  EXPECT_EQ(refusal->warning, warning);
  EXPECT_EQ(refusal->focus, focus);
}

/// Creates a variable in the window of a file that shows the number of its variables.
inline std::optional<Refusal> createIn(Session& session, std::string_view name) {
  return createVariable(session, name, static_cast<double>(session.nvarfile));
}

}  // namespace zevfit
