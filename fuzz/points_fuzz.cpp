// Tables of points: any bytes are read or refused with a place; the same bytes give the same points
// however the stream hands them out.
#include <cmath>
#include <cstdint>
#include <optional>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>

#include "fuzz/require.h"
#include "zvm/points/data_error.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm {
namespace {

/// Points, or why there are none.
struct Read {
  std::optional<PointSet> points;
  std::string refusal;
};

Read readAs(const std::string& bytes, const ReadOptions& options) {
  std::istringstream in(bytes);
  try {
    return {readPoints(in, "f", options), ""};
  } catch (const DataError& error) {
    require(error.place().column == 0 || error.place().line > 0, "a column has a line");
    return {std::nullopt, error.what()};
  }
}

void checkPoints(const PointSet& points, const ReadOptions& options) {
  require(points.read >= points.skipped && points.read - points.skipped == points.size(),
          "each row is a point or skipped");
  for (const auto* column : {&points.x, &points.y, &points.z})
    for (const double value : *column) require(std::isfinite(value), "coordinates are numbers");
  for (const auto& column : points.values) {
    require(column.size() == points.size(), "columns are of one length");
    for (const double value : column)
      require(!std::isinf(value) && value != -999, "values are numbers or missing");
  }
  require(points.values.size() == options.variables.size(), "each variable has a column");
}

bool isSame(const std::vector<double>& a, const std::vector<double>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i] && !(std::isnan(a[i]) && std::isnan(b[i]))) return false;
  return true;
}

/// Columns 1 to 3, in both formats; a line end at the end changes nothing.
void check(const std::string& bytes) {
  ReadOptions options;
  options.x = "1";
  options.y = "2";
  options.variables = {"3", "1"};
  options.missing = MissingValues({"-999", "none"});
  for (const auto format : {std::optional<PointFormat>(), std::optional(PointFormat::csv),
                            std::optional(PointFormat::geoeas)}) {
    options.format = format;
    const Read read = readAs(bytes, options);
    if (!read.points) {
      require(!read.refusal.empty(), "a refusal has a text");
      continue;
    }
    checkPoints(*read.points, options);
    const Read longer = readAs(bytes + '\n', options);
    require(longer.points && isSame(longer.points->x, read.points->x) &&
                isSame(longer.points->values[0], read.points->values[0]),
            "a line end at the end changes nothing");
  }
}

}  // namespace
}  // namespace zevfit::zvm

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::zvm::check(std::string(data, data + size));
  return 0;
}
