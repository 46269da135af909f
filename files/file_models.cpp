#include "files/file_models.h"

#include <algorithm>

#include "session/line.h"

namespace zevfit {

namespace {

/// What of the counts that a file claims the tables have room for.
std::int64_t held(std::int64_t count, int slots) {
  return std::clamp<std::int64_t>(count, 0, slots - 1);
}

bool isOff(const Cell& flag) { return !flag.isText() && flag.number() == 0; }

}  // namespace

bool FileModels::isSame(const LineCells& kept, const Session& session, Pair pair, Line which) {
  const ConstLineRef at = line(session, pair, which);
  const Cell flag = at.flag();
  if (!zevfit::isSame(kept.flag, flag)) return false;
  if (isOff(flag)) return true;
  if (!zevfit::isSame(kept.sill, at.sill())) return false;
  if (which == Line::nugget) return true;
  return zevfit::isSame(kept.range, at.range()) && kept.letter == at.letter();
}

bool FileModels::isSame(const Variable& kept, const Session& session, std::int64_t variable) {
  if (kept.name != session.varname(variable)) return false;
  for (std::size_t d = 0; d < kept.models.size(); ++d)
    for (const Line which : kLines)
      if (!isSame(kept.models[d][indexOf(which)], session,
                  {variable, static_cast<std::int64_t>(d) + 1}, which))
        return false;
  return true;
}

void FileModels::take(const Session& session, std::int64_t variables) {
  variables_.clear();
  for (std::int64_t v = 1; v <= held(variables, kVariableSlots); ++v) {
    Variable& kept = variables_.emplace_back();
    kept.name = session.varname(v);
    for (std::int64_t d = 1; d <= held(session.ndir, kDirectionSlots); ++d) {
      kept.models.push_back(cellsOf(session, {v, d}));
    }
  }
}

bool FileModels::differFrom(const Session& session, std::int64_t variables) const {
  const auto count = static_cast<std::size_t>(held(variables, kVariableSlots));
  const auto directions = static_cast<std::size_t>(held(session.ndir, kDirectionSlots));
  if (variables_.size() != count) return true;
  for (std::size_t v = 0; v < count; ++v)
    if (variables_[v].models.size() != directions ||
        !isSame(variables_[v], session, static_cast<std::int64_t>(v) + 1))
      return true;
  return false;
}

}  // namespace zevfit
