#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/axis_fields.h"
#include "session/session.h"

namespace zevfit {

inline constexpr int kResultColumns = 13;
/// Columns of the table of results: the direction's name; the nugget; letter, sill and range of
/// structures 1 to 3; total sill; largest range.
using ResultRow = std::array<std::string, kResultColumns>;
inline constexpr std::array<std::size_t, 3> kLetterColumns{2, 5, 8};
inline constexpr std::size_t kTotalColumn = 11;
/// Columns 1 to 12 of the row that Main was taken from, with codes for the model letters; slot 0 is
/// not used.
using RowCells = std::array<std::string, kResultColumns>;

/// The rows before a variable is shown: the names of the directions, and "-" in all other columns.
/// Throws Fault for directions that the tables have no room for.
std::vector<ResultRow> emptyResults(const Session& session);

/// Shows the models of a variable in the rows, of which the first is direction 1. A line whose flag
/// is neither 0 nor 1 keeps what it shows. A text in place of a flag or of a range that is compared
/// leaves all rows as they were: the result is the warning that names it, otherwise nothing.
[[nodiscard]] std::optional<std::string> fillResults(const Session& session, std::int64_t variable,
                                                     std::vector<ResultRow>& rows);
/// CTOTAL of a row that shows the model of a pair is another number than the sum of the sills of
/// its ticked lines; false for a row without a model.
bool hasOtherTotal(const Session& session, Pair pair, const ResultRow& row);

/// The directions of the file lie in the horizontal plane, so that none is at right angles to two
/// others. Those without azimuth and dip do not count, and one at least must.
bool isInPlane(const Session& session);

/// Why the row of a direction can't be taken for an axis, as a warning tells it: a name without
/// azimuth and dip.
std::optional<std::string> rowRefusal(const Session& session, std::int64_t direction);
/// What a click on the row of a direction does: its ranges and angles go into the axis that
/// `targetdir` names, a first pick for Main into the minor ones too, and the row of Main into
/// `rowcells`. Throws Fault for what rowRefusal tells of, whatever the target, before anything
/// has changed.
void transferRow(const Session& session, const ResultRow& row, std::int64_t direction,
                 AxisFields& fields, RowCells& rowcells);

}  // namespace zevfit
