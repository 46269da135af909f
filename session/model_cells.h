#pragma once

#include <array>
#include <string>

#include "session/line.h"

namespace zevfit {

/// The cells of a line, taken from their tables; the nugget has neither range nor letter.
struct LineCells {
  Cell flag, sill, range;
  std::string letter;
};

/// Those of the model of a pair, by lines.
using ModelCells = std::array<LineCells, kLines.size()>;

/// Throws Fault for a pair outside the tables.
LineCells cellsOf(const FitTables& tables, Pair pair, Line which);
ModelCells cellsOf(const FitTables& tables, Pair pair);

/// The same number or the same text.
bool isSame(const Cell& one, const Cell& other);
bool isSame(const ModelCells& one, const ModelCells& other);

}  // namespace zevfit
