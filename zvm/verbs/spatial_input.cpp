#include "zvm/verbs/spatial_input.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string_view>
#include <system_error>

#include "session/numbers.h"
#include "zvm/points/data_error.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/module.h"

namespace zevfit::verbs {
namespace {

namespace fs = std::filesystem;

constexpr Module kModule{"zvm-ogr", "a spatial source"};
constexpr const char* kFormat = "ogr";

/// How files begin that are databases or shapes.
constexpr std::array<std::string_view, 3> kBeginnings{
    "SQLite format 3", std::string_view("\0\0\x27\x0A", 4), "fgb\x03"};
constexpr std::array<std::string_view, 11> kEndings{".gpkg", ".shp",    ".geojson", ".json",
                                                    ".gml",  ".kml",    ".fgb",     ".gdb",
                                                    ".tab",  ".sqlite", ".gpx"};

/// "PG:dbname=geo" or "postgresql://...", which is no file.
bool isConnection(const std::string& source) {
  const std::size_t colon = source.find(':');
  if (colon == source.npos || colon < 2) return false;
  const auto isLetter = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  std::error_code unknown;
  return std::all_of(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(colon),
                     isLetter) &&
         !fs::exists(source, unknown);
}

bool beginsAsOne(const std::string& source) {
  std::ifstream file(source, std::ios::binary);
  std::array<char, 16> bytes{};
  file.read(bytes.data(), bytes.size());
  const std::string_view start(bytes.data(), static_cast<std::size_t>(file.gcount()));
  return std::ranges::any_of(kBeginnings,
                             [&](std::string_view begin) { return start.starts_with(begin); });
}

/// The message of a fault in a row, which is a feature: the first stands in line 2.
std::string textOf(const zvm::DataError& error, const std::string& shown) {
  const std::string what = error.what(), place = placeText(error.place());
  const std::string text = what.starts_with(place + ": ") ? what.substr(place.size() + 2) : what;
  const std::uint64_t line = error.place().line;
  return shown + ": " + (line > 1 ? "feature " + std::to_string(line - 1) + ": " : "") + text;
}

}  // namespace

void declareOptions(CLI::App& app, SpatialOptions& options) {
  const AddOption add{app};
  add("--layer", options.layer, "Of a spatial source: the layer; default: the only one", "NAME");
  add("--where", options.where, "Of a spatial source: which features, a condition as in SQL",
      "CONDITION");
  add("--sql", options.sql, "Of a spatial source: a query in place of a layer", "QUERY");
  add("--projected", options.projected, "Reprojects the coordinates, which geographic ones take",
      "EPSG:n");
}

bool isSpatial(const std::string& source, const std::string& format,
               const SpatialOptions& options) {
  if (!format.empty()) return format == kFormat;
  if (source == kStandardStream) return options.isAny();
  std::error_code unknown;
  const std::string name = lowered(source);
  return options.isAny() || isConnection(source) || fs::is_directory(source, unknown) ||
         std::ranges::any_of(kEndings, [&](std::string_view end) { return name.ends_with(end); }) ||
         (fs::is_regular_file(source, unknown) && beginsAsOne(source));
}

std::string shownSource(const std::string& source) {
  static const std::regex user("://[^@/]*@"),
      word("\\s*password\\s*=\\s*('[^']*'|[^' ]\\S*)", std::regex::icase);
  if (!isConnection(source)) return source;
  return std::regex_replace(std::regex_replace(source, user, "://"), word, "");
}

std::string titleNameOf(const std::string& source, const SpatialOptions& options) {
  return isConnection(source) ? options.layer : fs::path(source).filename().string();
}

zvm::PointSet spatialPoints(const std::string& source, const SpatialOptions& options,
                            const zvm::ReadOptions& read, Context& context) {
  if (source == kStandardStream)
    throw Failure(Exit::usage, "a spatial source is a file or a connection, not stdin");
  if (!options.layer.empty() && !options.sql.empty())
    throw Failure(Exit::usage, "--layer and --sql are two ways to say the same");
  std::string request;
  for (const std::string& text :
       {source, options.layer, options.where, options.sql, options.projected})
    request += text + '\0';
  const std::string shown = shownSource(source);
  ModuleRun run(kModule, {}, request);
  zvm::ReadOptions table = read;
  table.format = zvm::PointFormat::csv;
  try {
    // Where it ends at once there is no header, and it says itself why.
    if (run.out().peek() == std::istream::traits_type::eof()) run.finish(context);
    zvm::PointSet points = zvm::readPoints(run.out(), shown, table);
    run.finish(context);
    return points;
  } catch (const zvm::DataError& error) {
    throw Failure(Exit::data, textOf(error, shown));
  } catch (const Failure& failure) {
    throw Failure(failure.code(), shown + ": " + failure.what());
  }
}

}  // namespace zevfit::verbs
