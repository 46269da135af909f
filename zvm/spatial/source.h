#pragma once

#include <gdal.h>
#include <ogr_api.h>

#include <stdexcept>
#include <string>

namespace zevfit::spatial {

/// What is asked for; an empty text is none.
struct Request {
  std::string source;     ///< a file, a folder, or a connection such as "PG:dbname=geo"
  std::string layer;      ///< default: the only one
  std::string where;      ///< a condition on attributes
  std::string sql;        ///< a query in place of a layer
  std::string projected;  ///< the coordinate system to compute in, such as "EPSG:28992"
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

/// What OGR said of the last call that failed.
std::string lastError();

/// An open source and the layer of it that is asked for, closed with this.
class Source {
 public:
  /// Throws Refusal where it can't be opened, or has no such layer.
  explicit Source(const Request& request);
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  ~Source();

  OGRLayerH layer() const { return layer_; }

 private:
  OGRLayerH chosen(const Request& request) const;

  GDALDatasetH set_ = nullptr;
  OGRLayerH layer_ = nullptr;
  bool isQuery_ = false;
};

}  // namespace zevfit::spatial
