#include "tests/users/invariants.h"

#include "session/fault.h"
#include "session/line.h"

namespace zevfit::test {

namespace {

std::string brokenSelection(const Session& s, bool& chosen) {
  chosen = chosen || s.sel.has_value();
  return chosen && !s.sel ? "exactly one line is selected" : "";
}

std::string brokenLimits(const Session& s) {
  if (s.curvar < 0 || s.curvar >= kVariableSlots) return "the current variable is in the tables";
  if (s.curdir < 0 || s.curdir >= kDirectionSlots) return "the current direction is in the tables";
  return "";
}

}  // namespace

Invariants::Sills Invariants::sillsOf(const Session& s) {
  if (s.curvar < 1 || s.curdir < 1) return {};
  Sills sills{s.current(), ""};
  for (const Line which : kLines) sills.texts += line(s, s.current(), which).sill().toText() + " ";
  return sills;
}

std::string Invariants::brokenTotal(const Session& s, bool loaded) {
  const Sills before = before_;
  before_ = sillsOf(s);
  const bool samePair = before.pair == before_.pair;
  if (loaded || before_.pair.variable < 1 || !samePair || before == before_) return "";
  try {
    const double total = totalSill(s, s.current());
    return s.ctotal(s.current()) == total ? "" : "the total sill follows an edit";
  } catch (const Fault&) {
    return "";  // a text of a hostile file has no sum
  }
}

std::string Invariants::broken(const Session& session, bool loaded) {
  for (const std::string& found :
       {brokenSelection(session, chosen_), brokenLimits(session), brokenTotal(session, loaded)})
    if (!found.empty()) return found;
  return "";
}

}  // namespace zevfit::test
