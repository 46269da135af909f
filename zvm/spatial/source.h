#pragma once

#include <gdal.h>
#include <ogr_api.h>

#include <stdexcept>
#include <string>

#include "zvm/spatial/errors.h"

namespace zevfit::spatial {

/// What is asked for; an empty text is none.
struct Request {
  std::string source;     ///< a file, a folder, or a connection such as "PG:dbname=geo"
  std::string drivers;    ///< those of GDAL that may open it, with commas; default: each
  std::string shown;      ///< what messages call it: without passwords
  std::string layer;      ///< default: the only one
  std::string where;      ///< a condition on attributes
  std::string sql;        ///< a query in place of a layer
  std::string projected;  ///< the coordinate system to compute in, such as "EPSG:28992"
  std::string x, y, z;    ///< the columns of the coordinates, by name or number from 1
};

/// What ends a run: the message and the exit code of zvm.
class Refusal : public std::runtime_error {
 public:
  Refusal(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
  int code() const { return code_; }

 private:
  int code_;
};
inline constexpr int kUsage = 2, kData = 3, kFile = 4;

/// An open source and the layer of it that is asked for, closed with this. Nothing that is asked
/// for can change it: files are opened for reading and their folders left alone, a query is one
/// statement that reads, and of PostgreSQL all is asked for in one transaction that can't write
/// and that nobody commits.
class Source {
 public:
  /// Throws Refusal where it can't be opened, or has no such layer.
  Source(const Request& request, Errors& errors);
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source();

  OGRLayerH layer() const { return layer_; }
  /// As in "layer `soil`" or "the query".
  const std::string& layerText() const { return layerText_; }
  /// A field that is no text has its text in the field behind it, of the same name with
  /// "_original".
  bool keepsTexts() const;

 private:
  void choose(const Request& request);
  void chooseQuery(const std::string& sql);
  void setCondition(const std::string& condition);
  void beginReading();
  [[noreturn]] void refuseOpening() const;
  void close();
  std::string driver() const;

  Errors& errors_;
  GDALDatasetH set_ = nullptr;
  OGRLayerH layer_ = nullptr;
  std::string layerText_;
  bool isQuery_ = false, inTransaction_ = false;
};

}  // namespace zevfit::spatial
