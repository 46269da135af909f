#include "zvm/points/rows.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include "session/short_decimal.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// Behind the quote that ends the field that begins with one; the end where none does.
const char* behindQuotes(const char* at, const char* end) {
  for (++at; at != end; ++at) {
    if (*at != '"') continue;
    if (at + 1 == end || at[1] != '"') return at + 1;
    ++at;
  }
  return end;
}

}  // namespace

RowReader::RowReader(const Columns& columns, const MissingValues& missing, char separator,
                     const std::string& file)
    : columns_(columns),
      missing_(missing),
      separator_(separator),
      file_(file),
      fields_(columns.wanted.size()) {}

const char* RowReader::skipBlanks(const char* at, const char* end) const {
  while (at != end && *at != separator_ && isBlank(*at)) ++at;
  return at;
}

bool RowReader::endsField(const char* at, const char* end) const {
  if (at == end) return true;
  return separator_ == 0 ? isBlank(*at) || *at == ',' : *at == separator_;
}

const char* RowReader::fieldEnd(const char* at, const char* end) const {
  if (separator_ != 0) {
    const char* first = skipBlanks(at, end);
    if (first != end && *first == '"') at = behindQuotes(first, end);
  }
  while (!endsField(at, end)) ++at;
  return at;
}

Place RowReader::placeOf(const Record& record, const char* at) const {
  const std::string_view before(record.text.data(),
                                static_cast<std::size_t>(at - record.text.data()));
  const std::size_t line = before.rfind('\n');
  const std::size_t start = line == std::string_view::npos ? 0 : line + 1;
  return {file_, record.line + static_cast<std::uint64_t>(std::ranges::count(before, '\n')),
          before.size() - start + 1};
}

/// A plain number at once; the rest, which is rare, by the whole field.
const char* RowReader::number(const char* at, const char* end, const Record& record,
                              RowField& field) const {
  const char* first = skipBlanks(at, end);
  field.at = first;
  const char* const behind = shortDecimal(first, end, field.value);
  if (behind != nullptr && endsField(behind, end)) {
    if (missing_.isMissing(field.value)) field.value = kMissing;
    return behind;
  }
  const auto read = std::from_chars(first, end, field.value);
  if (read.ec == std::errc() && endsField(read.ptr, end) && std::isfinite(field.value)) {
    if (missing_.isMissing(field.value)) field.value = kMissing;
    return read.ptr;
  }
  const char* last = fieldEnd(at, end);
  const std::string_view text(first, static_cast<std::size_t>(std::max(first, last) - first));
  const Field value = readField(separator_ == 0 ? std::string(text) : unquoted(text), missing_);
  if (value.refusal) throw DataError(placeOf(record, first), *value.refusal);
  field.value = value.value;
  return last;
}

void RowReader::refuseCount(const Record& record, std::size_t count, const char* extra) const {
  throw DataError(placeOf(record, extra), "the row has " + std::to_string(count) +
                                              (count == 1 ? " field" : " fields") + ", the table " +
                                              std::to_string(columns_.count) + " columns");
}

const std::vector<RowField>& RowReader::read(const Record& record) {
  const char* at = record.text.data();
  const char* const end = at + record.text.size();
  if (separator_ == 0) at = skipBlanks(at, end);
  const char* extra = nullptr;
  std::size_t column = 0, next = 0;
  for (;;) {
    if (column == columns_.count) extra = at;
    if (next < fields_.size() && columns_.wanted[next] == column)
      at = number(at, end, record, fields_[next++]);
    else
      at = fieldEnd(at, end);
    ++column;
    if (separator_ == 0) {
      // Blanks and one comma separate; blanks alone end a row.
      at = skipBlanks(at, end);
      if (at == end) break;
      if (*at == ',') at = skipBlanks(at + 1, end);
    } else {
      if (at == end) break;
      ++at;
    }
  }
  if (column != columns_.count) refuseCount(record, column, extra == nullptr ? end : extra);
  return fields_;
}

std::string unquoted(std::string_view field) {
  field = withoutBlanks(field);
  if (!field.starts_with('"')) return std::string(field);
  std::string text;
  const char* const end = field.data() + field.size();
  const char* const behind = behindQuotes(field.data(), end);
  if (behind != end) return std::string(field);
  for (const char* at = field.data() + 1; at < behind; ++at) {
    if (*at == '"' && (at + 1 == behind || *++at != '"')) break;
    text += *at;
  }
  return text;
}

char separatorOf(std::string_view header) {
  constexpr std::array<char, 3> kSeparators{',', ';', '\t'};
  std::array<std::size_t, 3> counts{};
  bool inQuotes = false;
  for (const char c : header) {
    if (c == '"') inQuotes = !inQuotes;
    if (inQuotes) continue;
    for (std::size_t i = 0; i < kSeparators.size(); ++i) counts[i] += c == kSeparators[i] ? 1U : 0U;
  }
  const auto most = std::ranges::max_element(counts);
  return kSeparators[static_cast<std::size_t>(most - counts.begin())];
}

std::vector<std::string_view> fieldsOf(std::string_view line, char separator) {
  std::vector<std::string_view> fields;
  const char* at = line.data();
  const char* const end = at + line.size();
  for (;;) {
    const char* first = at;
    while (at != end && *at != separator && isBlank(*at)) ++at;
    if (at != end && *at == '"') at = behindQuotes(at, end);
    at = std::find(at, end, separator);
    fields.emplace_back(first, static_cast<std::size_t>(at - first));
    if (at == end) return fields;
    ++at;
  }
}

std::vector<std::string> headerNames(std::string_view line, char separator) {
  std::vector<std::string> names;
  for (const std::string_view field : fieldsOf(line, separator)) names.push_back(unquoted(field));
  return names;
}

}  // namespace zevfit::zvm
