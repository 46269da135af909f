#include "model/results.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "session/fault.h"
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

struct LetterCode {
  std::string_view letter;
  const char* code;
};
constexpr LetterCode kCodes[] = {{"S", "1"}, {"E", "2"}, {"G", "3"}, {"P", "4"}};

/// Fills the rows one after the other.
class Filler {
 public:
  Filler(const Session& session, std::int64_t variable) : session_(session), variable_(variable) {}

  void fill(ResultRow& row, std::int64_t direction) {
    bool used = showNugget(row, direction);
    for (std::size_t line = 1; line < kLines; ++line)
      used = showStructure(row, direction, line) || used;
    row[kTotalColumn] = used ? generalText(session_.ctotal(variable_, direction)) : kNone;
    row[kLargestColumn] = used ? largestText() : kNone;
  }

 private:
  bool showNugget(ResultRow& row, std::int64_t direction) const {
    const double used = flag(session_, 0, variable_, direction);
    if (used == 0) row[kNuggetColumn] = kNone;
    if (used == 1) row[kNuggetColumn] = session_.c0(variable_, direction).toText();
    return used == 1;
  }

  bool showStructure(ResultRow& row, std::int64_t direction, std::size_t line) {
    const double used = flag(session_, static_cast<int>(line), variable_, direction);
    const std::size_t column = kLetterColumns.at(line - 1);
    if (used == 0) std::fill_n(row.begin() + static_cast<std::ptrdiff_t>(column), 3, kNone);
    if (used != 1) return false;
    const Cell& range = (session_.*kRangeTable.at(line))(variable_, direction);
    row.at(column) = (session_.*kLetterTable.at(line))(variable_, direction);
    row.at(column + 1) = (session_.*kSillTable.at(line))(variable_, direction).toText();
    row.at(column + 2) = range.toText();
    // The range of structure 1 replaces what the direction before has left, the others extend it.
    if (line == 1 || range.number() > (largest_ ? largest_->number() : 0)) largest_ = range;
    return true;
  }

  std::string largestText() const { return largest_ ? largest_->toText() : std::string(); }

  const Session& session_;
  std::int64_t variable_;
  /// Never set back between directions, on purpose: one without structure 1 starts from it.
  std::optional<Cell> largest_;
};

/// The axis that a click fills; nothing when no option was clicked yet.
std::optional<Axis> targetAxis(const Session& session) {
  const auto place = static_cast<std::size_t>(session.targetdir);
  if (session.targetdir < 1 || place > kAxes.size()) return std::nullopt;
  return kAxes.at(place - 1);
}

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
  for (const std::size_t column : kLetterColumns) {
    for (const LetterCode& code : kCodes) {
      if (row.at(column) == code.letter) rowcells.at(column) = code.code;
    }
  }
}

}  // namespace

std::vector<ResultRow> emptyResults(const Session& session) {
  if (session.ndir < 0) throwSubscript();
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
  const std::optional<Axis> target = targetAxis(session);
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
