#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "zvm/points/data_error.h"
#include "zvm/points/field.h"
#include "zvm/points/point_set.h"

namespace zevfit::zvm {

enum class PointFormat { csv, geoeas };

/// A part of the values that is kept: lowest to highest, both in.
struct Trim {
  double lowest = 0, highest = 0;
};

/// What is taken from a table of points. A column is told by its name or by its number from 1; a
/// name goes before a number.
struct ReadOptions {
  std::optional<PointFormat> format;  ///< else found out from the first two lines
  std::string x, y;
  std::optional<std::string> z;
  std::vector<std::string> variables;
  std::vector<std::string> logs;  ///< of these variables the natural logarithm
  MissingValues missing;
  std::optional<Trim> trim;  ///< of the raw values of all variables; others count as missing
};

/// Told the bytes read so far; false ends the reading with Cancelled.
using ReadProgress = std::function<bool(std::uint64_t)>;

/// Reads a table of points from a stream, block by block, so that memory is that of the points.
/// `name` is what messages call it. CSV: a header line, then rows, separated by comma, semicolon or
/// tab, whichever stands most often in the header; quotes as in RFC 4180; UTF-8 with or without
/// byte order mark. GeoEAS (GSLIB): title, number of columns, a name a line, rows of free-field
/// numbers. Throws DataError with line and column for what can't be used, OptionError for a
/// logarithm of what is no variable, ReadError where the stream fails.
PointSet readPoints(std::istream& in, const std::string& name, const ReadOptions& options,
                    const ReadProgress& progress = {});

}  // namespace zevfit::zvm
