#include "session/structure_view.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "session/illegal_value.h"
#include "session/line.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr std::size_t kLongestName = 10;
/// Characters that end a name in a file, or that a quoted one can't have.
constexpr std::string_view kNotInNames = ",\"\t";
constexpr std::int64_t kLastSlot = kVariableSlots - 1;

/// The last variable of the tables: a file may claim more.
std::int64_t lastVariable(const Session& session) { return std::min(session.nvar, kLastSlot); }

std::int64_t tickedVariables(const Session& session) {
  std::int64_t ticked = 0;
  for (std::int64_t k = 1; k <= lastVariable(session); ++k) ticked += session.addflag(k);
  return ticked;
}

bool isTaken(const Session& session, std::string_view name) {
  for (std::int64_t k = 1; k <= lastVariable(session); ++k) {
    if (trimmedLeft(session.varname(k)) == name) return true;
  }
  return false;
}

std::optional<Refusal> refusedTicks(const Session& session, double shownVariables) {
  const std::int64_t ticked = tickedVariables(session);
  if (ticked == 1 || shownVariables == 1) return Refusal{" Cannot Add same variable. ", true};
  if (ticked == 0) return Refusal{" Please select variables to add. ", true};
  return std::nullopt;
}

std::optional<Refusal> refusedName(const Session& session, std::string_view name, bool isLatin1) {
  if (name.empty()) return Refusal{"Please choose a name for this new variable!", false};
  if (name.size() > kLongestName) return Refusal{"Name too long, choose another one!", true};
  if (!isLatin1 || name.find_first_of(kNotInNames) != std::string_view::npos)
    return Refusal{"Name has a character that the file cannot hold, choose another one!", true};
  if (!isTaken(session, name)) return std::nullopt;
  return Refusal{" Name  (" + std::string(name) + ")  already exists. Please choose another one.",
                 true};
}

std::vector<std::int64_t> ticked(const Session& session) {
  std::vector<std::int64_t> variables;
  for (std::int64_t k = 1; k <= session.nvar; ++k)
    if (session.addflag(k)) variables.push_back(k);
  return variables;
}

/// The variance of a summand is a text, or takes that of the sum beyond all numbers.
std::optional<Refusal> refusedVariances(const Session& session) {
  double sum = 0;
  for (const std::int64_t k : ticked(session)) {
    const Cell& variance = session.variance(k);
    if (!variance.isText()) sum += variance.number();
    if (!variance.isText() && std::isfinite(sum)) continue;
    return Refusal{
        illegalValue("variance of " + std::string(trimmed(session.varname(k))), variance.toText()),
        true};
  }
  return std::nullopt;
}

/// The same of a class, whose semivariances are no texts.
std::optional<Refusal> refusedClasses(const Session& session, std::int64_t direction) {
  std::vector<double> sums;
  for (const std::int64_t k : ticked(session)) {
    const std::span<const double> added = session.gam.written({k, direction});
    sums.resize(std::max(sums.size(), added.size()));
    for (std::size_t at = 1; at < added.size(); ++at) {
      sums[at] += added[at];
      if (std::isfinite(sums[at])) continue;
      const std::string what = "Gamma(h) of Class" + signedText(static_cast<std::int64_t>(at)) +
                               " in Direction (" +
                               std::string(trimmed(session.dirname(direction))) + ") of " +
                               std::string(trimmed(session.varname(k)));
      return Refusal{illegalValue(what, generalText(added[at])), true};
    }
  }
  return std::nullopt;
}

std::optional<Refusal> refusedSums(const Session& session) {
  if (auto refusal = refusedVariances(session)) return refusal;
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction)
    if (auto refusal = refusedClasses(session, direction)) return refusal;
  return std::nullopt;
}

void clearSlot(Session& session, std::int64_t slot) {
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
    session.gam.clear({slot, direction});
    session.hlag.clear({slot, direction});
    session.npairs.clear({slot, direction});
    session.gmax({slot, direction}) = 0;
    session.hmax({slot, direction}) = 0;
  }
  session.variance(slot) = 0;
}

// The axis limits seen so far. They run on across directions and variables, so that a direction
// which does not go beyond an earlier one gets no limits of its own.
struct RunningBounds {
  double upper = -1e-200;
  double lower = 1e+200;
};

void addLimits(Session& session, std::int64_t slot, std::int64_t k, std::int64_t direction,
               RunningBounds& bounds) {
  if (session.ymax({k, direction}) > bounds.upper) {
    bounds.upper = session.ymax({k, direction});
    session.ymax({slot, direction}) = bounds.upper;
    session.ymax0({slot, direction}) = bounds.upper;
  }
  if (session.ymin({k, direction}) < bounds.lower) {
    bounds.lower = session.ymin({k, direction});
    session.ymin({slot, direction}) = bounds.lower;
    session.ymin0({slot, direction}) = bounds.lower;
  }
}

void addClasses(Session& session, std::int64_t slot, std::int64_t k, std::int64_t direction) {
  const std::span<const double> added = session.gam.written({k, direction});
  for (std::size_t at = 1; at < added.size(); ++at) {
    const auto lag = static_cast<std::int64_t>(at);
    session.gam.set({slot, direction}, lag, session.gam({slot, direction}, lag) + added[at]);
  }
  session.hlag.copy({k, direction}, {slot, direction});
  // Whichever variables are added, the numbers of pairs are those of variable 1: they decide which
  // classes of the sum a plot shows, and what its tags say.
  session.npairs.copy({1, direction}, {slot, direction});
}

void addVariable(Session& session, std::int64_t slot, std::int64_t k, RunningBounds& bounds) {
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
    addClasses(session, slot, k, direction);
    session.hmax({slot, direction}) = session.hmax({k, direction});
    addLimits(session, slot, k, direction, bounds);
  }
  session.variance(slot) = session.variance(slot).number() + session.variance(k).number();
}

// The axis limits, the smallest semivariance and the fit state stay with their slots: a variable
// that moves down takes over the axes and the models of the slot, and a save writes these for it.
void moveSlot(Session& session, std::int64_t from, std::int64_t to) {
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
    session.hlag.copy({from, direction}, {to, direction});
    session.gam.copy({from, direction}, {to, direction});
    session.npairs.copy({from, direction}, {to, direction});
    session.gmax({to, direction}) = session.gmax({from, direction});
    session.hmax({to, direction}) = session.hmax({from, direction});
  }
  session.variance(to) = session.variance(from);
  session.varname(to) = session.varname(from);
  session.addflag(to) = session.addflag(from);
}

}  // namespace

std::optional<Refusal> createVariable(Session& session, std::string_view typedName,
                                      double shownVariables, bool isLatin1) {
  const std::string_view name = trimmedLeft(typedName);
  if (auto refusal = refusedTicks(session, shownVariables)) return refusal;
  if (auto refusal = refusedName(session, name, isLatin1)) return refusal;
  if (session.nvar >= kLastSlot) return Refusal{"Cannot add more variables!", true};
  if (auto refusal = refusedSums(session)) return refusal;

  const std::int64_t slot = ++session.nvar;
  session.varname(slot) = name;
  clearSlot(session, slot);
  RunningBounds bounds;
  for (std::int64_t k = 1; k < slot; ++k) {
    if (session.addflag(k)) addVariable(session, slot, k, bounds);
  }
  return std::nullopt;
}

std::optional<Refusal> removeVariable(Session& session, std::string_view shownName) {
  if (shownName.empty()) return Refusal{"Select variable!", true};
  if (session.datavar <= session.nvarfile) return Refusal{"Cannot remove this variable!", true};
  for (std::int64_t slot = session.datavar; slot < session.nvar; ++slot) {
    moveSlot(session, slot + 1, slot);
  }
  --session.nvar;
  return std::nullopt;
}

std::optional<std::int64_t> startPair(Session& session) {
  if (!session.hasmodel) {
    session.selvar = session.seldir = 1;
    return std::nullopt;
  }
  for (std::int64_t variable = 1; variable <= session.nvar; ++variable) {
    if (!line(session, {variable, 1}, Line::first).isOn()) continue;
    session.setCurrent({variable, 1});
    return variable;
  }
  return std::nullopt;
}

ClassRow classRow(const Session& session, Pair pair, std::int64_t lag) {
  return {"    Class " + signedText(lag), session.hlag(pair, lag).toText(),
          generalText(session.gam(pair, lag)), generalText(session.npairs(pair, lag))};
}

std::string directionEntry(const Session& session, std::int64_t direction) {
  return "Direction " + signedText(direction) + "  " + session.dirname(direction);
}

}  // namespace zevfit
