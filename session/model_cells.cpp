#include "session/model_cells.h"

#include <algorithm>

namespace zevfit {

LineCells cellsOf(const FitTables& tables, Pair pair, Line which) {
  const ConstLineRef at = line(tables, pair, which);
  if (which == Line::nugget) return {at.flag(), at.sill(), {}, {}};
  return {at.flag(), at.sill(), at.range(), at.letter()};
}

ModelCells cellsOf(const FitTables& tables, Pair pair) {
  ModelCells cells;
  for (const Line which : kLines) cells.at(indexOf(which)) = cellsOf(tables, pair, which);
  return cells;
}

bool isSame(const Cell& one, const Cell& other) {
  if (one.isText() != other.isText()) return false;
  return one.isText() ? *one.text() == *other.text() : one.number() == other.number();
}

bool isSame(const ModelCells& one, const ModelCells& other) {
  return std::ranges::equal(one, other, [](const LineCells& a, const LineCells& b) {
    return isSame(a.flag, b.flag) && isSame(a.sill, b.sill) && isSame(a.range, b.range) &&
           a.letter == b.letter;
  });
}

}  // namespace zevfit
