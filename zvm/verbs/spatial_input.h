#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "zvm/points/points_reader.h"
#include "zvm/verbs/context.h"

namespace zevfit::verbs {

/// What of a spatial source is read, as the options have it; an empty text is none.
struct SpatialOptions {
  std::string layer, where, sql, projected;

  bool isAny() const {
    return !layer.empty() || !where.empty() || !sql.empty() || !projected.empty();
  }
  /// "--layer, --where", those that are there.
  std::string names() const;
};

void declareOptions(CLI::App& app, SpatialOptions& options);

/// Points come from a spatial source and not from a table: with one of the options, or with a
/// connection, a folder, or a file that begins as one, whatever its name; of one that is not there
/// the name counts. `format` is that of --format, "ogr" says so itself.
bool isSpatial(const std::string& source, const std::string& format, const SpatialOptions& options);

/// Why a file whose name tells a spatial source is a table, as in "a.gpkg does not begin as a
/// GeoPackage and is taken for a table"; empty where the name or `format` tells a table, or the
/// file is a source.
std::string tableNote(const std::string& source, const std::string& format);

/// The columns that have the coordinates of points.
inline constexpr const char* kEasting = "geometry.x";
inline constexpr const char* kNorthing = "geometry.y";

/// What a title calls a source: a file or a folder by its own name alone, a connection by its
/// layer; empty where it has none.
std::string titleNameOf(const std::string& source, const SpatialOptions& options);

/// Reads the points of a spatial source by the program zvm-ogr. Throws Failure.
zvm::PointSet spatialPoints(const std::string& source, const SpatialOptions& options,
                            const zvm::ReadOptions& read, Context& context);

}  // namespace zevfit::verbs
