#include "model/results.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "session/fault.h"
#include "session/form.h"
#include "session/line.h"
#include "session/numbers.h"

namespace zevfit {

namespace {

constexpr const char* kNone = "-";
constexpr std::size_t kNuggetColumn = 1;
constexpr std::size_t kTotalColumn = 11;
constexpr std::size_t kLargestColumn = 12;
constexpr std::size_t kAzimuth = 0, kDip = 1;
/// The entries of the ranges and the columns that they come from.
constexpr std::array<std::pair<std::size_t, std::size_t>, 3> kRanges{{{2, 4}, {3, 7}, {4, 10}}};
constexpr std::array<std::size_t, 3> kLetterColumns{2, 5, 8};

/// Fills the rows one after the other.
class Filler {
 public:
  Filler(const Session& session, std::int64_t variable) : session_(session), variable_(variable) {}

  void fill(ResultRow& row, std::int64_t direction) {
    const Pair pair{variable_, direction};
    bool used = showNugget(row, pair);
    for (const Line structure : kStructures) used = showStructure(row, pair, structure) || used;
    row[kTotalColumn] = used ? generalText(session_.ctotal(pair)) : kNone;
    row[kLargestColumn] = used ? largestText() : kNone;
  }

 private:
  bool showNugget(ResultRow& row, Pair pair) const {
    const ConstLineRef nugget = line(session_, pair, Line::nugget);
    const double used = nugget.used();
    if (used == 0) row[kNuggetColumn] = kNone;
    if (used == 1) row[kNuggetColumn] = nugget.sill().toText();
    return used == 1;
  }

  bool showStructure(ResultRow& row, Pair pair, Line structure) {
    const ConstLineRef at = line(session_, pair, structure);
    const double used = at.used();
    const std::size_t column = kLetterColumns.at(indexOf(structure) - 1);
    if (used == 0) std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(column), 3, kNone);
    if (used != 1) return false;
    row.at(column) = at.letter();
    row.at(column + 1) = at.sill().toText();
    row.at(column + 2) = at.range().toText();
    // The range of structure 1 replaces what the direction before has left, the others extend it.
    if (structure == Line::first || at.range().number() > (largest_ ? largest_->number() : 0))
      largest_ = at.range();
    return true;
  }

  std::string largestText() const { return largest_ ? largest_->toText() : std::string(); }

  const Session& session_;
  std::int64_t variable_;
  /// Never set back between directions: the last column of one without structure 1 starts from it.
  std::optional<Cell> largest_;
};

void putRanges(const ResultRow& row, AxisFields& fields, Axis axis) {
  for (const auto& [entry, column] : kRanges) fields.setText(axis, entry, row.at(column));
}

void putAngles(const DirectionAngles& angles, AxisFields& fields, Axis axis) {
  fields.setText(axis, kAzimuth, angles.azimuth);
  fields.setText(axis, kDip, angles.dip);
}

double number(const AxisFields& fields, Axis axis, std::size_t entry) {
  return fieldNumber(fields.text(axis, entry));
}

bool isUnset(const AxisFields& fields, Axis axis) {
  for (std::size_t entry = 0; entry < kAxisEntries; ++entry)
    if (number(fields, axis, entry) != 0) return false;
  return true;
}

/// The axis has no angles yet, and the ranges of Main.
bool followsMain(const AxisFields& fields, Axis axis) {
  if (number(fields, axis, kAzimuth) != 0 || number(fields, axis, kDip) != 0) return false;
  return std::all_of(kRanges.begin(), kRanges.end(), [&](const auto& range) {
    return number(fields, axis, range.first) == number(fields, Axis::main, range.first);
  });
}

void keepRow(const ResultRow& row, RowCells& rowcells) {
  std::copy(row.begin() + 1, row.end(), rowcells.begin() + 1);
  for (const std::size_t column : kLetterColumns)
    if (const auto form = formOf(row.at(column))) rowcells.at(column) = codeOf(*form);
}

}  // namespace

std::vector<ResultRow> emptyResults(const Session& session) {
  if (session.ndir < 0) throwSubscript("dirname", {session.ndir});
  std::vector<ResultRow> rows;
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
    ResultRow& row = rows.emplace_back();
    row.fill(kNone);
    row[0] = session.dirname(direction);
  }
  return rows;
}

void fillResults(const Session& session, std::int64_t variable, std::vector<ResultRow>& rows) {
  Filler filler(session, variable);
  std::int64_t direction = 0;
  for (ResultRow& row : rows) filler.fill(row, ++direction);
}

void transferRow(const Session& session, const ResultRow& row, std::int64_t direction,
                 AxisFields& fields, RowCells& rowcells) {
  const std::optional<Axis> target = session.targetdir;
  if (target) putRanges(row, fields, *target);
  if (target == Axis::main) {
    for (const Axis minor : {Axis::minor1, Axis::minor2})
      if (isUnset(fields, minor)) putRanges(row, fields, minor);
  }
  const DirectionAngles angles = directionAngles(session.dirname(direction));
  if (target) putAngles(angles, fields, *target);
  if (target != Axis::main) return;
  for (const Axis minor : {Axis::minor1, Axis::minor2})
    if (followsMain(fields, minor)) putAngles(angles, fields, minor);
  keepRow(row, rowcells);
}

}  // namespace zevfit
