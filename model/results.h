#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/axis_fields.h"
#include "session/session.h"

namespace zevfit {

inline constexpr int kResultColumns = 13;
/// Columns of the table of results: the direction's name; the nugget; letter, sill and range of
/// structures 1 to 3; total sill; largest range.
using ResultRow = std::array<std::string, kResultColumns>;
/// Columns 1 to 12 of the row that Main was taken from, with codes for the model letters; slot 0 is
/// not used.
using RowCells = std::array<std::string, kResultColumns>;

/// The rows before a variable is shown: the names of the directions, and "-" in all other columns.
/// Throws Fault for directions that the tables have no room for.
std::vector<ResultRow> emptyResults(const Session& session);

/// Shows the models of a variable in the rows, of which the first is direction 1. A line whose flag
/// is neither 0 nor 1 keeps what it shows. Throws Fault for a text in place of a flag or of a range
/// that is compared; the rows are then filled up to there.
void fillResults(const Session& session, std::int64_t variable, std::vector<ResultRow>& rows);

/// What a click on the row of a direction does: its ranges and angles go into the axis that
/// `targetdir` names, a first pick for Main into the minor ones too, and the row of Main into
/// `rowcells`. Throws Fault for a name without a separator, whatever the target; the ranges are
/// then in their fields.
void transferRow(const Session& session, const ResultRow& row, std::int64_t direction,
                 AxisFields& fields, RowCells& rowcells);

}  // namespace zevfit
