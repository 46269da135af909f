#include "zvm/verbs/points_input.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "zvm/verbs/connection.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/progress.h"

namespace zevfit::verbs {

std::string pointsName(const ComputeOptions& options) {
  return options.points == kStandardStream ? "stdin" : shownSource(options.points);
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
