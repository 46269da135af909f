#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>

#include "session/cell.h"
#include "session/numbers.h"
#include "session/pair.h"
#include "session/session.h"

namespace zevfit {

inline constexpr std::array kLines{Line::nugget, Line::first, Line::second, Line::third};
inline constexpr std::array kStructures{Line::first, Line::second, Line::third};

/// The place of a line in tables of four: 0 for the nugget, 1 to 3 for the structures.
constexpr std::size_t indexOf(Line line) { return static_cast<std::size_t>(line); }

/// A line of the model of a pair: a view of the cells, which stay in the tables of the session.
/// Sills are in squared units of the variable, ranges in units of distance; a power structure has
/// its exponent as range. Every access throws Fault for a pair outside the tables, and
/// std::logic_error for a range or a letter of the nugget, which has none.
template <class Tables>
class LineView {
 public:
  LineView(Tables& tables, Pair pair, Line line) : tables_(&tables), pair_(pair), line_(line) {}

  auto& sill() const { return (tables_->*kSills[indexOf(line_)])(pair_); }
  auto& range() const { return (tables_->*kRanges.at(structure()))(pair_); }
  auto& letter() const { return (tables_->*kLetters.at(structure()))(pair_); }

  /// The flag as it stands: 1 for a line that is part of the model, 0 for one that is not; a file
  /// may have left another number or a text.
  Cell flag() const {
    if (isNarrow()) return static_cast<double>(tables_->use3(pair_));
    return (tables_->*kFlags[indexOf(line_)])(pair_);
  }
  /// The same as a number; throws Fault for a text.
  double used() const {
    if (isNarrow()) return tables_->use3(pair_);
    return (tables_->*kFlags[indexOf(line_)])(pair_).number();
  }
  /// The flag is exactly 1; throws Fault for a text.
  bool isOn() const { return used() == 1; }
  /// Stores a flag; throws Fault where the table can't hold it (structure 3: 16 bits, no text).
  void use(const Cell& flag) const requires(!std::is_const_v<Tables>) {
    if (isNarrow())
      tables_->use3(pair_) = toInt16(flag.number());
    else
      (tables_->*kFlags[indexOf(line_)])(pair_) = flag;
  }

 private:
  static constexpr std::array kFlags{&FitTables::use0, &FitTables::use1, &FitTables::use2};
  static constexpr std::array kSills{&FitTables::c0, &FitTables::c1, &FitTables::c2,
                                     &FitTables::c3};
  static constexpr std::array kRanges{&FitTables::a1, &FitTables::a2, &FitTables::a3};
  static constexpr std::array kLetters{&FitTables::model1, &FitTables::model2, &FitTables::model3};

  /// The one place that knows that the flags of structure 3 have a narrower table than the others.
  bool isNarrow() const { return line_ == Line::third; }

  /// Counted from 0; that of the nugget is beyond all.
  std::size_t structure() const { return indexOf(line_) - 1; }

  Tables* tables_;
  Pair pair_;
  Line line_;
};

using LineRef = LineView<FitTables>;
using ConstLineRef = LineView<const FitTables>;

inline LineRef line(FitTables& tables, Pair pair, Line line) { return {tables, pair, line}; }
inline ConstLineRef line(const FitTables& tables, Pair pair, Line line) {
  return {tables, pair, line};
}

/// Sum of the sills of all lines, each times its flag, whatever their letters. Throws Fault for a
/// text and on overflow.
double totalSill(const FitTables& tables, Pair pair);
/// Some line is part of the model: the four flags do not add up to 0. Throws Fault for a text.
bool hasModel(const FitTables& tables, Pair pair);

}  // namespace zevfit
