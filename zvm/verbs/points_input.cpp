#include "zvm/verbs/points_input.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "zvm/verbs/connection.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/option_values.h"
#include "zvm/verbs/progress.h"

namespace zevfit::verbs {
namespace {

/// A header and a row of as many cells, or title and number of columns of a GeoEAS file.
bool beginsAsTable(std::istream& in) {
  std::string first, second;
  if (!std::getline(in, first) || !std::getline(in, second)) return false;
  for (const char separator : {',', ';', '\t'}) {
    const auto count = std::ranges::count(first, separator);
    if (count > 0 && std::ranges::count(second, separator) == count) return true;
  }
  while (!second.empty() && (second.back() == '\r' || second.back() == ' ')) second.pop_back();
  return readNumber<std::uint32_t>(second).value_or(0) > 1;
}

}  // namespace

std::string pointsName(const ComputeOptions& options) {
  return options.points == kStandardStream ? "stdin" : shownPoints(options);
}

std::string shownPoints(const ComputeOptions& options) {
  return shownSource(options.points, isSpatial(options.points, options.format, options.spatial));
}

bool looksLikePoints(const ComputeOptions& options) {
  const std::string& path = options.points;
  if (isConnection(path)) return true;
  std::error_code unknown;
  if (!std::filesystem::exists(path, unknown)) return false;
  if (isSpatial(path, options.format, options.spatial)) return true;
  std::ifstream file(path, std::ios::binary);
  return std::filesystem::is_regular_file(path, unknown) && beginsAsTable(file);
}

zvm::PointSet pointsOf(const ComputeOptions& options, const zvm::ReadOptions& read,
                       Context& context) {
  const std::string& path = options.points;
  if (isSpatial(path, options.format, options.spatial))
    return spatialPoints(path, options.spatial, read, context);
  if (path == kStandardStream) return zvm::readPoints(context.in(), pointsName(options), read);
  std::ifstream file = openInput(path);
  std::error_code unknown;
  const auto size = static_cast<double>(std::filesystem::file_size(path, unknown));
  Progress progress(context, "reading");
  return zvm::readPoints(file, path, read, [&](std::uint64_t bytes) {
    if (!unknown) progress.tell(static_cast<double>(bytes) / size);
    return true;
  });
}

}  // namespace zevfit::verbs
