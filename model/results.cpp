#include "model/results.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "session/fault.h"
#include "session/form.h"
#include "session/illegal_value.h"
#include "session/line.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr const char* kNone = "-";
constexpr std::size_t kNuggetColumn = 1;
constexpr std::size_t kLargestColumn = 12;
/// The entries of the ranges and the columns that they come from.
constexpr std::array<std::pair<std::size_t, std::size_t>, 3> kRanges{{{2, 4}, {3, 7}, {4, 10}}};

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

  /// The warning of the text that has ended a filling.
  const std::optional<std::string>& illegal() const { return illegal_; }

 private:
  bool showNugget(ResultRow& row, Pair pair) {
    const ConstLineRef nugget = line(session_, pair, Line::nugget);
    const double used = number(nugget.flag(), "flag of Nugget Effect", pair);
    if (used == 0) row[kNuggetColumn] = kNone;
    if (used == 1) row[kNuggetColumn] = nugget.sill().toText();
    return used == 1;
  }

  bool showStructure(ResultRow& row, Pair pair, Line structure) {
    const ConstLineRef at = line(session_, pair, structure);
    const std::string order = std::to_string(indexOf(structure));
    const double used = number(at.flag(), "flag of Structure " + order, pair);
    const std::size_t column = kLetterColumns.at(indexOf(structure) - 1);
    if (used == 0) std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(column), 3, kNone);
    if (used != 1) return false;
    row.at(column) = at.letter();
    row.at(column + 1) = at.sill().toText();
    row.at(column + 2) = at.range().toText();
    const Range range{at.range(), "range 'a" + order + "'", pair};
    // The range of structure 1 replaces what the direction before has left, the others extend it.
    if (structure == Line::first || number(range) > (largest_ ? number(*largest_) : 0))
      largest_ = range;
    return true;
  }

  struct Range {
    Cell cell;
    std::string name;
    Pair pair;
  };
  double number(const Range& range) { return number(range.cell, range.name, range.pair); }

  /// The number of a cell; a text is kept for illegal() before the Fault goes on.
  double number(const Cell& cell, const std::string& name, Pair pair) {
    if (cell.isText())
      illegal_ = illegalValue(
          name + " in Direction (" + std::string(trimmed(session_.dirname(pair.direction))) + ")",
          cell.toText());
    return cell.number();
  }

  std::string largestText() const { return largest_ ? largest_->cell.toText() : std::string(); }

  const Session& session_;
  std::int64_t variable_;
  /// Never set back between directions: the last column of one without structure 1 starts from it.
  std::optional<Range> largest_;
  std::optional<std::string> illegal_;
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

std::optional<std::string> fillResults(const Session& session, std::int64_t variable,
                                       std::vector<ResultRow>& rows) {
  Filler filler(session, variable);
  std::vector<ResultRow> filled = rows;
  try {
    std::int64_t direction = 0;
    for (ResultRow& row : filled) filler.fill(row, ++direction);
  } catch (const Fault&) {
    if (!filler.illegal()) throw;
    return filler.illegal();
  }
  rows = std::move(filled);
  return std::nullopt;
}

bool hasOtherTotal(const Session& session, Pair pair, const ResultRow& row) {
  if (row[kTotalColumn] == kNone) return false;
  double total = 0;
  for (const Line which : kLines) {
    const ConstLineRef at = line(session, pair, which);
    if (at.flag().isText() || !at.isOn()) continue;
    if (at.sill().isText()) return true;
    total += at.sill().number();
  }
  return !std::isfinite(total) || row[kTotalColumn] != generalText(total);
}

bool isInPlane(const Session& session) {
  bool any = false;
  for (std::int64_t direction = 1; direction <= session.ndir; ++direction) {
    if (rowRefusal(session, direction)) continue;
    if (fieldNumber(directionAngles(session.dirname(direction)).dip) != 0) return false;
    any = true;
  }
  return any;
}

std::optional<std::string> rowRefusal(const Session& session, std::int64_t direction) {
  const std::string_view name = trimmed(session.dirname(direction));
  return attempt(
      [&] {
        directionAngles(name);
        return std::optional<std::string>();
      },
      [&] {
        return std::optional("Direction (" + std::string(name) +
                             ") has no azimuth and dip, as in 0;0.");
      });
}

void transferRow(const Session& session, const ResultRow& row, std::int64_t direction,
                 AxisFields& fields, RowCells& rowcells) {
  const std::optional<Axis> target = session.targetdir;
  const DirectionAngles angles = directionAngles(session.dirname(direction));
  if (target) putRanges(row, fields, *target);
  if (target == Axis::main) {
    for (const Axis minor : {Axis::minor1, Axis::minor2})
      if (isUnset(fields, minor)) putRanges(row, fields, minor);
  }
  if (target) putAngles(angles, fields, *target);
  if (target != Axis::main) return;
  for (const Axis minor : {Axis::minor1, Axis::minor2})
    if (followsMain(fields, minor)) putAngles(angles, fields, minor);
  keepRow(row, rowcells);
}

}  // namespace zevfit
