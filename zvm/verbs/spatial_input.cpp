#include "zvm/verbs/spatial_input.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "session/numbers.h"
#include "zvm/points/data_error.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/connection.h"
#include "zvm/verbs/module.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

namespace fs = std::filesystem;

constexpr Module kModule{"zvm-ogr", "a spatial source"};
constexpr const char* kFormat = "ogr";

/// How files begin that are databases or shapes, and the drivers of GDAL for them.
struct Beginning {
  std::string_view text;
  const char* drivers;
};
constexpr std::array kBeginnings{Beginning{"SQLite format 3", "GPKG,SQLite"},
                                 Beginning{std::string_view("\0\0\x27\x0A", 4), "ESRI Shapefile"},
                                 Beginning{"fgb\x03", "FlatGeobuf"},
                                 Beginning{"!table", "MapInfo File"}};

/// How names end that tell a source, what they tell, and how a file of that name begins that is a
/// text; nothing where kBeginnings has it.
struct Ending {
  std::string_view name;
  const char* kind;
  std::string_view text;
};
constexpr std::array kEndings{Ending{".gpkg", "a GeoPackage", ""},
                              Ending{".sqlite", "an SQLite database", ""},
                              Ending{".shp", "a Shapefile", ""},
                              Ending{".fgb", "a FlatGeobuf file", ""},
                              Ending{".gdb", "a file geodatabase", ""},
                              Ending{".tab", "a table of MapInfo", ""},
                              Ending{".geojson", "GeoJSON", "{"},
                              Ending{".json", "GeoJSON", "{"},
                              Ending{".gml", "GML", "<"},
                              Ending{".kml", "KML", "<"},
                              Ending{".gpx", "GPX", "<"}};
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The ending of a name that tells a source; nothing where it has none.
const Ending* endingOf(const std::string& source) {
  const std::string name = lowered(source);
  const auto found =
      std::ranges::find_if(kEndings, [&](const Ending& one) { return name.ends_with(one.name); });
  return found == kEndings.end() ? nullptr : found;
}

bool isFile(const std::string& source) {
  std::error_code unknown;
  return fs::is_regular_file(source, unknown);
}

/// The first bytes of a file in small letters; none of what is no file.
std::string startOf(const std::string& source) {
  if (!isFile(source)) return "";
  std::ifstream file(source, std::ios::binary);
  std::array<char, 64> bytes{};
  file.read(bytes.data(), bytes.size());
  return lowered({bytes.data(), static_cast<std::size_t>(file.gcount())});
}

/// The drivers for a file that begins so; empty where it tells none.
std::string driversFor(const std::string& start) {
  const auto found = std::ranges::find_if(kBeginnings, [&](const Beginning& one) {
    return start.starts_with(lowered(std::string(one.text)));
  });
  return found == kBeginnings.end() ? "" : found->drivers;
}

bool beginsAsOne(const std::string& source) {
  std::string start = startOf(source);
  if (!driversFor(start).empty()) return true;
  if (start.starts_with(kByteOrderMark)) start.erase(0, kByteOrderMark.size());
  start.erase(0, start.find_first_not_of(" \t\r\n"));
  const Ending* const ending = endingOf(source);
  return ending != nullptr && !ending->text.empty() && start.starts_with(ending->text);
}

/// A number or a word is no system in a plane, unless a file is named so.
void refuseWord(const std::string& projected) {
  const bool isWord = std::ranges::all_of(projected, [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
  if (projected.empty() || !isWord || isFile(projected)) return;
  throw Failure(Exit::usage,
                "--projected takes a projected coordinate system such as EPSG:28992, not `" +
                    projected + "`");
}

/// What OGR says of a file that none of its drivers knows.
constexpr std::string_view kUnknownToOgr = "not recognized as ";

/// A file that is taken for a spatial source on account of its options alone.
bool isByOptions(const std::string& source, const SpatialOptions& options,
                 const zvm::ReadOptions& read) {
  return !read.format && options.isAny() && isFile(source) && !beginsAsOne(source);
}

/// The message of a fault in a row, which is a feature: the first stands in line 2.
std::string textOf(const zvm::DataError& error, const std::string& shown) {
  const std::string place = placeText(error.place());
  std::string what = error.what();
  if (place.empty()) return what;
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

std::string SpatialOptions::names() const {
  const std::array<std::pair<const std::string*, std::string>, 4> all{
      {{&layer, "--layer"}, {&where, "--where"}, {&sql, "--sql"}, {&projected, "--projected"}}};
  std::vector<std::string> given;
  for (const auto& [value, name] : all)
    if (!value->empty()) given.push_back(name);
  return listed(given);
}

bool isSpatial(const std::string& source, const std::string& format,
               const SpatialOptions& options) {
  if (!format.empty()) return format == kFormat;
  if (source == kStandardStream) return options.isAny();
  std::error_code unknown;
  if (options.isAny() || isConnection(source) || fs::is_directory(source, unknown)) return true;
  if (isFile(source)) return beginsAsOne(source);
  return !fs::exists(source, unknown) && endingOf(source) != nullptr;
}

std::string tableNote(const std::string& source, const std::string& format) {
  const Ending* const ending = format.empty() && isFile(source) ? endingOf(source) : nullptr;
  if (ending == nullptr || beginsAsOne(source)) return "";
  return source + " does not begin as " + ending->kind + " and is taken for a table";
}

std::string titleNameOf(const std::string& source, const SpatialOptions& options) {
  if (isConnection(source)) return options.layer;
  std::error_code unknown;
  if (!fs::is_directory(source, unknown))
    return fs::path(shownSource(source, true)).filename().string();
  // Of "." and "soil/" as well.
  const fs::path folder = (fs::absolute(source, unknown) / "").lexically_normal();
  return folder.parent_path().filename().string();
}

zvm::PointSet spatialPoints(const std::string& source, const SpatialOptions& options,
                            const zvm::ReadOptions& read, Context& context) {
  if (source == kStandardStream)
    throw Failure(Exit::usage, "a spatial source is a file or a connection, not stdin");
  if (!options.layer.empty() && !options.sql.empty())
    throw Failure(Exit::usage, "--layer and --sql are two ways to say the same");
  refuseWord(options.projected);
  std::string request;
  const std::string shown = shownSource(source, true);
  for (const std::string& text :
       {source, driversFor(startOf(source)), shown, options.layer, options.where, options.sql,
        options.projected, read.x, read.y, read.z.value_or("")})
    request += text + '\0';
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
    if (std::string_view(failure.what()).find(kUnknownToOgr) != std::string_view::npos &&
        isByOptions(source, options, read))
      throw Failure(Exit::usage,
                    options.names() +
                        (options.names().find(',') == std::string::npos ? " is" : " are") +
                        " of spatial sources, and " + shown + " is none by its content");
    throw Failure(failure.code(), shown + ": " + failure.what());
  }
}

}  // namespace zevfit::verbs
