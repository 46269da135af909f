#include "zvm/points/points_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "zvm/points/columns.h"
#include "zvm/points/records.h"
#include "zvm/points/rows.h"

namespace zevfit::zvm {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Those of UTF-16, low byte and high byte first.
constexpr std::string_view kWideMarks[] = {"\xFF\xFE", "\xFE\xFF"};

/// The names of a table's columns, and what separates the fields of its rows.
struct Layout {
  std::vector<std::string> names;
  char separator = 0;
};

std::string_view lineOf(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The number of columns that the second line of a GeoEAS file begins with.
std::optional<std::size_t> columnCount(std::string_view line) {
  line = withoutBlanks(line);
  std::size_t count = 0;
  const char* const end = line.data() + line.size();
  const auto read = std::from_chars(line.data(), end, count);
  const bool isWhole = read.ptr == end || *read.ptr == ' ' || *read.ptr == '\t';
  if (read.ec != std::errc() || !isWhole || count < 1) return std::nullopt;
  return count;
}

/// The second line of a GeoEAS file is a count alone, or one with other numbers behind blanks; the
/// second line of a CSV file has its separators.
PointFormat formatOf(std::string_view twoLines) {
  const std::string_view first = lineOf(twoLines), second = lineOf(twoLines);
  if (second.find_first_of(",;") != std::string_view::npos || !columnCount(second))
    return PointFormat::csv;
  const bool isTabbed = std::ranges::count(second, '\t') > 0 &&
                        std::ranges::count(first, '\t') == std::ranges::count(second, '\t');
  return isTabbed ? PointFormat::csv : PointFormat::geoeas;
}

bool isNumber(const std::string& name) {
  const Field field = readField(name, {});
  return !field.refusal && !std::isnan(field.value);
}

Layout csvLayout(Records& records, const std::string& file) {
  records.setQuotes(true);
  Record record;
  if (!records.next(record)) throw DataError({file, 0, 0}, "the file is empty");
  if (withoutBlanks(record.text).empty())
    throw DataError({file, record.line, 1}, "an empty line, where names are looked for");
  const char separator = separatorOf(record.text);
  Layout layout{headerNames(record.text, separator), separator};
  if (std::ranges::all_of(layout.names, isNumber))
    throw DataError({file, record.line, 1},
                    "numbers in the first line, where names are looked for");
  return layout;
}

Layout geoeasLayout(Records& records, const std::string& file) {
  Record record;
  if (!records.next(record)) throw DataError({file, 0, 0}, "the file is empty");
  const bool hasSecond = records.next(record);
  const auto count = hasSecond ? columnCount(record.text) : std::nullopt;
  if (!count) throw DataError({file, 2, 1}, "the number of columns is looked for here");
  Layout layout;
  while (layout.names.size() < *count) {
    if (!records.next(record))
      throw DataError({file, record.line, 1}, "the file ends after " +
                                                  std::to_string(layout.names.size()) + " of " +
                                                  std::to_string(*count) + " names of columns");
    layout.names.emplace_back(withoutBlanks(record.text));
  }
  return layout;
}

/// Takes rows into the columns of a point set.
class Collector {
 public:
  Collector(const Columns& columns, const ReadOptions& options, const RowReader& rows)
      : columns_(columns), options_(options), rows_(rows) {
    set_.names = columns.names;
    set_.inSpace = columns.inSpace;
    set_.values.resize(columns.names.size());
  }

  void take(const Record& record, const std::vector<RowField>& fields) {
    ++set_.read;
    const std::size_t coordinates = columns_.inSpace ? 3 : 2;
    for (std::size_t i = 0; i < coordinates; ++i)
      if (std::isnan(fields[columns_.targets[i]].value)) {
        ++set_.skipped;
        return;
      }
    std::vector<double>* const axes[] = {&set_.x, &set_.y, &set_.z};
    for (std::size_t i = 0; i < coordinates; ++i)
      axes[i]->push_back(fields[columns_.targets[i]].value);
    for (std::size_t v = 0; v < set_.values.size(); ++v)
      set_.values[v].push_back(valueOf(record, fields[columns_.targets[coordinates + v]], v));
  }

  PointSet& set() { return set_; }

 private:
  double valueOf(const Record& record, const RowField& field, std::size_t variable) const {
    const double value = field.value;
    const auto& trim = options_.trim;
    if (std::isnan(value) || (trim && (value < trim->lowest || value > trim->highest)))
      return kMissing;
    if (!columns_.logs[variable]) return value;
    if (value <= 0)
      throw DataError(rows_.placeOf(record, field.at),
                      "`" + columns_.names[variable] + "` is not above 0 and has no logarithm");
    return std::log(value);
  }

  const Columns& columns_;
  const ReadOptions& options_;
  const RowReader& rows_;
  PointSet set_;
};

}  // namespace

PointSet readPoints(std::istream& in, const std::string& name, const ReadOptions& options,
                    const ReadProgress& progress) {
  Records records(in, name, progress);
  std::string_view start = records.peek(2);
  for (const std::string_view mark : kWideMarks)
    if (start.starts_with(mark))
      throw DataError({name, 1, 1}, "the file is in UTF-16; tables are read as UTF-8");
  if (start.starts_with(kByteOrderMark)) {
    start.remove_prefix(kByteOrderMark.size());
    records.skip(kByteOrderMark.size());
  }
  const PointFormat format = options.format.value_or(formatOf(start));
  const Layout layout =
      format == PointFormat::csv ? csvLayout(records, name) : geoeasLayout(records, name);
  const Columns columns = findColumns(layout.names, options, name);
  RowReader rows(columns, options.missing, layout.separator, name);
  Collector collector(columns, options, rows);
  // A byte order mark stands before column 1 and takes no place there.
  for (Record record; records.next(record);)
    if (record.text.find_first_not_of(" \t") != std::string_view::npos)
      collector.take(record, rows.read(record));
  return std::move(collector.set());
}

}  // namespace zevfit::zvm
