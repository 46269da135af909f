#include "tests/users/invariants.h"

#include "session/fault.h"

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

Invariants::Model Invariants::modelOf(const Session& s) {
  if (s.curvar < 1 || s.curdir < 1) return {};
  Model model{s.current(), {}, {}};
  for (const Line which : kLines) {
    const ConstLineRef at = line(s, s.current(), which);
    model.sills.at(indexOf(which)) = at.sill().toText();
    model.flags.at(indexOf(which)) = at.flag();
  }
  return model;
}

double Invariants::expectedTotal(const Session& s) const {
  double total = 0;
  for (const Line which : kLines)
    total +=
        before_.flags.at(indexOf(which)).number() * line(s, s.current(), which).sill().number();
  return finite(total);
}

std::string Invariants::brokenTotal(const Session& s, bool loaded) {
  const Model now = modelOf(s);
  std::string found;
  if (!loaded && now.pair.variable >= 1 && now.pair == before_.pair && now.sills != before_.sills) {
    try {
      if (s.ctotal(now.pair) != expectedTotal(s)) found = "the total sill follows an edit";
    } catch (const Fault&) {
      // A text of a hostile file has no sum.
    }
  }
  before_ = now;
  return found;
}

std::string Invariants::broken(const Session& session, bool loaded) {
  for (const std::string& found :
       {brokenSelection(session, chosen_), brokenLimits(session), brokenTotal(session, loaded)})
    if (!found.empty()) return found;
  return "";
}

}  // namespace zevfit::test
