#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "session/fault.h"

namespace zevfit {

/// Slots of the tables. Variables and directions count from 1, slot 0 is never used.
inline constexpr int kVariableSlots = 42;
inline constexpr int kDirectionSlots = 22;
/// What a load resets: variables 1 to 40, directions 1 to 20.
inline constexpr int kResetVariables = 40;
inline constexpr int kResetDirections = 20;

[[noreturn]] inline void throwSubscript() { throw Fault("Subscript out of range"); }

/// A table of one subscript, 0 to N - 1; a subscript outside throws Fault.
template <class T, int N>
class Table {
 public:
  T& operator()(std::int64_t i) { return cells_[check(i)]; }
  const T& operator()(std::int64_t i) const { return cells_[check(i)]; }
  void fill(const T& value) { cells_.fill(value); }

  /// All slots in a row, for loops that run over them.
  std::span<T, std::size_t{N}> slots() { return cells_; }
  std::span<const T, std::size_t{N}> slots() const { return cells_; }

 private:
  static std::size_t check(std::int64_t i) {
    if (i < 0 || i >= N) throwSubscript();
    return static_cast<std::size_t>(i);
  }
  std::array<T, std::size_t{N}> cells_{};
};

/// A table of two subscripts in the order (variable, direction) unless its owner says otherwise;
/// a subscript outside 0 to Rows - 1, 0 to Columns - 1 throws Fault.
template <class T, int Rows = kVariableSlots, int Columns = kDirectionSlots>
class PairTable {
 public:
  PairTable() : cells_(std::size_t{Rows} * Columns) {}
  T& operator()(std::int64_t row, std::int64_t column) { return cells_[check(row, column)]; }
  const T& operator()(std::int64_t row, std::int64_t column) const {
    return cells_[check(row, column)];
  }

 private:
  static std::size_t check(std::int64_t row, std::int64_t column) {
    if (row < 0 || row >= Rows || column < 0 || column >= Columns) throwSubscript();
    return static_cast<std::size_t>(row * Columns + column);
  }
  std::vector<T> cells_;
};

/// A table of (variable, direction, class), classes 0 to the number of classes plus 1. A row takes
/// memory only up to the highest class ever written; what lies behind reads as T{}.
template <class T>
class LagTable {
 public:
  /// Drops the content; then classes 0 to `classes` + 1 exist. A negative number leaves slot 0.
  void create(std::int64_t classes) {
    rows_ = PairTable<std::vector<T>>();
    last_ = classes < 0 ? 0 : std::min(classes, kMostClasses) + 1;
  }

  /// Throws Fault for a subscript outside the table.
  const T& operator()(std::int64_t variable, std::int64_t direction, std::int64_t lag) const {
    const std::vector<T>& row = rows_(variable, direction);
    if (lag < 0 || lag > last_) throwSubscript();
    return static_cast<std::size_t>(lag) < row.size() ? row[static_cast<std::size_t>(lag)] : none();
  }

  /// Stores a value; throws Fault for a subscript outside the table.
  void set(std::int64_t variable, std::int64_t direction, std::int64_t lag, T value) {
    std::vector<T>& row = rows_(variable, direction);
    if (lag < 0 || lag > last_) throwSubscript();
    const auto at = static_cast<std::size_t>(lag);
    if (at >= row.size()) row.resize(at + 1);
    row[at] = std::move(value);
  }

  /// Takes a whole row over, from slot 0; throws Fault for a row with slots outside the table.
  void setRow(std::int64_t variable, std::int64_t direction, std::vector<T> row) {
    std::vector<T>& place = rows_(variable, direction);
    if (static_cast<std::int64_t>(row.size()) - 1 > last_) throwSubscript();
    place = std::move(row);
  }

  /// Makes room for classes up to `lag` at once; a hint, never a promise to hold values there.
  void reserve(std::int64_t variable, std::int64_t direction, std::int64_t lag) {
    const std::int64_t highest = std::clamp<std::int64_t>(lag, -1, last_);
    rows_(variable, direction).reserve(static_cast<std::size_t>(highest + 1));
  }

  /// The slots of a row that may differ from T{}, from slot 0; empty when none was written.
  std::span<const T> written(std::int64_t variable, std::int64_t direction) const {
    return rows_(variable, direction);
  }

  /// Sets all classes of a row to T{}.
  void clear(std::int64_t variable, std::int64_t direction) {
    rows_(variable, direction) = std::vector<T>();
  }

  /// Copies all classes of one row over another.
  void copy(std::int64_t variable, std::int64_t direction, std::int64_t toVariable) {
    rows_(toVariable, direction) = rows_(variable, direction);
  }

 private:
  static const T& none() {
    static const T value{};
    return value;
  }
  static constexpr std::int64_t kMostClasses = std::numeric_limits<std::int64_t>::max() - 1;

  PairTable<std::vector<T>> rows_;
  std::int64_t last_ = -1;
};

}  // namespace zevfit
