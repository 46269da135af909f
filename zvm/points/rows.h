#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "zvm/points/columns.h"
#include "zvm/points/field.h"
#include "zvm/points/records.h"

namespace zevfit::zvm {

/// A number of a row, and where its field begins.
struct RowField {
  double value = kMissing;
  const char* at = nullptr;
};

/// Reads the wanted numbers of rows.
class RowReader {
 public:
  /// `separator`: of the fields; 0 where blanks, tabs and commas are, as in GeoEAS files.
  RowReader(const Columns& columns, const MissingValues& missing, char separator,
            const std::string& file);

  /// The wanted fields of a row, in the order of the table. Throws DataError for a text in place of
  /// a number and for a row with more or fewer fields than there are columns.
  const std::vector<RowField>& read(const Record& record);

  /// Where a byte of the record stands.
  Place placeOf(const Record& record, const char* at) const;

 private:
  const char* skipBlanks(const char* at, const char* end) const;
  const char* fieldEnd(const char* at, const char* end) const;
  const char* number(const char* at, const char* end, const Record& record, RowField& field) const;
  bool endsField(const char* at, const char* end) const;
  [[noreturn]] void refuseCount(const Record& record, std::size_t count, const char* extra) const;

  const Columns& columns_;
  const MissingValues& missing_;
  char separator_;
  std::string file_;
  std::vector<RowField> fields_;
};

/// The fields of a line as they stand in it, with quotes and blanks; a separator between quotes
/// parts none.
std::vector<std::string_view> fieldsOf(std::string_view line, char separator);
/// The fields of a header line without their quotes and blanks.
std::vector<std::string> headerNames(std::string_view line, char separator);
/// Comma, semicolon or tab, whichever stands most often outside quotes.
char separatorOf(std::string_view header);
/// The text of a field as it stands in the row: without quotes, each pair of quotes inside as one;
/// with them where more stands behind the second.
std::string unquoted(std::string_view field);

}  // namespace zevfit::zvm
