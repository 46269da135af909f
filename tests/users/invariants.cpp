#include "tests/users/invariants.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "session/fault.h"

namespace zevfit::test {

namespace {

bool isFlag(std::int64_t value) { return value == 0 || value == 1; }

std::string brokenSelection(const Session& s, bool& chosen) {
  if (!std::all_of(s.sel.begin(), s.sel.end(), isFlag)) return "a selection is 0 or 1";
  const int selected = std::accumulate(s.sel.begin(), s.sel.end(), 0);
  chosen = chosen || selected > 0;
  return chosen && selected != 1 ? "exactly one line is selected" : "";
}

std::string brokenLimits(const Session& s) {
  if (s.curvar < 0 || s.curvar >= kVariableSlots) return "the current variable is in the tables";
  if (s.curdir < 0 || s.curdir >= kDirectionSlots) return "the current direction is in the tables";
  if (!isFlag(s.plot3state) || !isFlag(s.plot4state)) return "the states of the boxes flip";
  if (!std::all_of(s.dragsel.begin(), s.dragsel.end(), isFlag)) return "a handle is held or not";
  if (s.targetdir < 0 || s.targetdir > 3) return "there are three blocks of directions";
  if (!isFlag(s.hasmodel) || !isFlag(s.modelshown) || !isFlag(s.dragging))
    return "a mark is 0 or 1";
  for (int v = 1; v < kVariableSlots; ++v)
    if (!isFlag(s.addflag(v))) return "a tick is 0 or 1";
  return "";
}

}  // namespace

Invariants::Sills Invariants::sillsOf(const Session& s) {
  if (s.curvar < 1 || s.curdir < 1) return {};
  Sills sills{s.curvar, s.curdir, ""};
  for (const auto& table : kSillTable) sills.texts += (s.*table)(s.curvar, s.curdir).toText() + " ";
  return sills;
}

std::string Invariants::brokenTotal(const Session& s, bool loaded) {
  const Sills before = before_;
  before_ = sillsOf(s);
  const bool samePair =
      before.variable == before_.variable && before.direction == before_.direction;
  if (loaded || before_.variable < 1 || !samePair || before == before_) return "";
  try {
    const double total = totalSill(s, s.curvar, s.curdir);
    return s.ctotal(s.curvar, s.curdir) == total ? "" : "the total sill follows an edit";
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
