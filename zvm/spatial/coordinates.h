#pragma once

#include <ogr_srs_api.h>

#include <array>
#include <optional>

#include "zvm/spatial/source.h"

namespace zevfit::spatial {

/// The places of the features of a layer, in a plane.
class Coordinates {
 public:
  /// `projected`: the system to compute in; empty: that of the layer, which may be none, or
  /// undefined, of which is warned. Throws Refusal for geographic coordinates without another
  /// system, and for a system that is none.
  Coordinates(const Source& source, const std::string& projected, Errors& errors);
  Coordinates(const Coordinates&) = delete;
  Coordinates& operator=(const Coordinates&) = delete;
  ~Coordinates();

  /// Easting, northing, and the height where the point has one.
  struct Place {
    double x = 0, y = 0;
    std::optional<double> z;
  };
  /// Where a feature lies; nothing without a geometry. Throws Refusal where it is no point, or
  /// can't be reprojected. `number`: of the feature, for the message.
  std::optional<Place> placeOf(OGRFeatureH feature, long number) const;

 private:
  void requirePlane(OGRSpatialReferenceH own, const std::string& layer) const;

  Errors& errors_;
  OGRSpatialReferenceH target_ = nullptr;
  OGRCoordinateTransformationH transformation_ = nullptr;
};

/// The place of a point as it stands in the source, in whatever system; nothing for what is no
/// point.
std::optional<Coordinates::Place> rawPlaceOf(OGRFeatureH feature);

}  // namespace zevfit::spatial
