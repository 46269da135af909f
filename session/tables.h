#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <span>
#include <vector>

#include "session/fault.h"
#include "session/pair.h"

namespace zevfit {

/// Slots of the tables. Variables and directions count from 1, slot 0 is never used.
inline constexpr int kVariableSlots = 42;
inline constexpr int kDirectionSlots = 22;
/// What a load resets: variables 1 to 40, directions 1 to 20.
inline constexpr int kResetVariables = 40;
inline constexpr int kResetDirections = 20;

/// Throws a Fault that names the table and the subscripts, as in "Subscript out of range: c0(43,
/// 1)".
[[noreturn]] void throwSubscript(const char* table, std::initializer_list<std::int64_t> subscripts);

/// A table of one subscript, 0 to N - 1; a subscript outside throws Fault.
template <class T, int N>
class Table {
 public:
  /// `name`: a literal, for faults.
  explicit Table(const char* name) : name_(name) {}

  T& operator()(std::int64_t i) { return cells_[check(i)]; }
  const T& operator()(std::int64_t i) const { return cells_[check(i)]; }
  void fill(const T& value) { cells_.fill(value); }

  /// All slots in a row, for loops that run over them.
  std::span<T, std::size_t{N}> slots() { return cells_; }
  std::span<const T, std::size_t{N}> slots() const { return cells_; }

 private:
  std::size_t check(std::int64_t i) const {
    if (i < 0 || i >= N) throwSubscript(name_, {i});
    return static_cast<std::size_t>(i);
  }
  const char* name_;
  std::array<T, std::size_t{N}> cells_{};
};

/// A table by pair. A pair whose subscripts are outside 0 to Variables - 1, 0 to Directions - 1
/// throws Fault.
template <class T, int Variables = kVariableSlots, int Directions = kDirectionSlots>
class PairTable {
 public:
  /// `name`: a literal, for faults.
  explicit PairTable(const char* name) : name_(name), cells_(std::size_t{Variables} * Directions) {}

  T& operator()(Pair pair) { return cells_[check(pair)].value; }
  const T& operator()(Pair pair) const { return cells_[check(pair)].value; }

 private:
  /// So that a table of bool has cells of its own, too.
  struct Slot {
    T value{};
  };

  std::size_t check(Pair pair) const {
    const auto& [variable, direction] = pair;
    if (variable < 0 || variable >= Variables || direction < 0 || direction >= Directions)
      throwSubscript(name_, {variable, direction});
    return static_cast<std::size_t>(variable * Directions + direction);
  }
  const char* name_;
  std::vector<Slot> cells_;
};

/// A table by pair and class, classes 0 to the number of classes plus 1. A row, which is all
/// classes of a pair, takes memory only up to the highest class ever written; what lies behind
/// reads as T{}. A pair or a class outside the table throws Fault.
template <class T>
class LagTable {
 public:
  /// `name`: a literal, for faults.
  explicit LagTable(const char* name) : name_(name), rows_(name) {}

  /// Drops the content; then classes 0 to `classes` + 1 exist. A negative number leaves slot 0.
  void create(std::int64_t classes) {
    rows_ = PairTable<std::vector<T>>(name_);
    last_ = classes < 0 ? 0 : std::min(classes, kMostClasses) + 1;
  }

  const T& operator()(Pair pair, std::int64_t lag) const {
    const std::vector<T>& row = rows_(pair);
    check(pair, lag);
    return static_cast<std::size_t>(lag) < row.size() ? row[static_cast<std::size_t>(lag)] : none();
  }

  void set(Pair pair, std::int64_t lag, T value) {
    std::vector<T>& row = rows_(pair);
    check(pair, lag);
    const auto at = static_cast<std::size_t>(lag);
    if (at >= row.size()) row.resize(at + 1);
    row[at] = std::move(value);
  }

  /// Takes a whole row over, from slot 0; throws Fault for a row with slots outside the table.
  void setRow(Pair pair, std::vector<T> row) {
    std::vector<T>& place = rows_(pair);
    const std::int64_t highest = static_cast<std::int64_t>(row.size()) - 1;
    if (highest > last_) throwSubscript(name_, {pair.variable, pair.direction, highest});
    place = std::move(row);
  }

  /// The slots of a row that may differ from T{}, from slot 0; empty when none was written.
  std::span<const T> written(Pair pair) const { return rows_(pair); }

  /// Sets all classes of a row to T{}.
  void clear(Pair pair) { rows_(pair) = std::vector<T>(); }

  /// Copies all classes of one row over another.
  void copy(Pair from, Pair to) { rows_(to) = rows_(from); }

 private:
  static const T& none() {
    static const T value{};
    return value;
  }
  void check(Pair pair, std::int64_t lag) const {
    if (lag < 0 || lag > last_) throwSubscript(name_, {pair.variable, pair.direction, lag});
  }
  static constexpr std::int64_t kMostClasses = std::numeric_limits<std::int64_t>::max() - 1;

  const char* name_;
  PairTable<std::vector<T>> rows_;
  std::int64_t last_ = -1;
};

}  // namespace zevfit
