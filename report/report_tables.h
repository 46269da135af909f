#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "session/tables.h"

namespace zevfit {

inline constexpr int kReports = 6;

/// A table of the cells of all reports: row 0 to 7, column 0 to 3, report 0 to 6, each counted from
/// 1. A subscript outside throws Fault.
template <class T>
class CellTable {
 public:
  /// `name`: a literal, for faults.
  explicit CellTable(const char* name) : name_(name) {}

  T& operator()(int row, int column, int report) { return cells_[check(row, column, report)]; }
  const T& operator()(int row, int column, int report) const {
    return cells_[check(row, column, report)];
  }

  void fill(const T& value) { cells_.fill(value); }

 private:
  static constexpr int kRowSlots = 8, kColumnSlots = 4, kReportSlots = kReports + 1;

  std::size_t check(int row, int column, int report) const {
    const bool inside = row >= 0 && row < kRowSlots && column >= 0 && column < kColumnSlots &&
                        report >= 0 && report < kReportSlots;
    if (!inside) throwSubscript(name_, {row, column, report});
    const int slot = (row * kColumnSlots + column) * kReportSlots + report;
    return static_cast<std::size_t>(slot);
  }
  const char* name_;
  std::array<T, std::size_t{kRowSlots} * kColumnSlots * kReportSlots> cells_{};
};

/// What stands on the report sheets; kept as long as the program runs. Mind the two numberings: a
/// report is 1 to 6 in the tables of cells and 0 to 5 in `reportcolumns` and among the pages.
struct ReportTables {
  Table<std::int16_t, kReports> reportcolumns{"reportcolumns"};
  Table<std::int16_t, 4> rowsforcolumns{
      "rowsforcolumns"};                 ///< by columns minus 1; the last slot is never used
  CellTable<bool> cellused{"cellused"};  ///< the cell holds a plot
  CellTable<std::int64_t> celldir{"celldir"};
  CellTable<std::int16_t> cellvar{"cellvar"};
};

/// One column each, 2, 4 or 7 rows, all cells empty.
void resetReports(ReportTables& tables);

}  // namespace zevfit
