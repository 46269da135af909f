#pragma once

#include <cstdint>
#include <string>

#include "session/line.h"
#include "tests/support/variogram_text.h"

namespace zevfit::test {

/// Takes from the models what a save takes: lines that are not used lose their values.
inline void dropUnused(Session& session) {
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    for (std::int64_t d = 1; d <= session.ndir; ++d) {
      for (const Line which : kLines) {
        const LineRef at = line(session, {v, d}, which);
        if (at.used() != 0) continue;
        at.sill() = 0;
        if (which == Line::nugget) continue;
        at.letter() = "-";
        at.range() = 1e-04;
      }
    }
  }
}

/// The models of all pairs, one a line.
inline std::string modelTexts(const Session& session) {
  std::string text;
  for (std::int64_t v = 1; v <= session.nvar; ++v)
    for (std::int64_t d = 1; d <= session.ndir; ++d) text += modelText(session, {v, d}) + "\n";
  return text;
}

/// All that a file holds of a session but its models, numbers as their texts.
inline std::string dataText(const Session& session) {
  std::string text = session.filetag + "\n" + std::to_string(session.nvar) + " " +
                     std::to_string(session.ndir) + " " + std::to_string(session.nclass) + "\n";
  for (std::int64_t d = 1; d <= session.ndir; ++d) text += session.dirname(d) + "\n";
  for (std::int64_t v = 1; v <= session.nvar; ++v) {
    text += session.varname(v) + ": " + session.variance(v).toText() + "\n";
    for (std::int64_t d = 1; d <= session.ndir; ++d)
      for (std::int64_t lag = 1; lag <= session.nclass; ++lag)
        text += classText(session, {v, d}, lag) + "\n";
  }
  return text;
}

}  // namespace zevfit::test
