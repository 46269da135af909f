#include "zvm/spatial/coordinates.h"

#include <cmath>
#include <string>

namespace zevfit::spatial {
namespace {

std::string nameOf(OGRSpatialReferenceH system) {
  const char* const name = OSRGetName(system);
  return name == nullptr ? "without a name" : name;
}

/// East before north, whatever the authority has first.
void putEastFirst(OGRSpatialReferenceH system) {
  OSRSetAxisMappingStrategy(system, OAMS_TRADITIONAL_GIS_ORDER);
}

OGRSpatialReferenceH systemNamed(const std::string& name) {
  const OGRSpatialReferenceH system = OSRNewSpatialReference(nullptr);
  const bool isKnown = OSRSetFromUserInput(system, name.c_str()) == OGRERR_NONE;
  if (isKnown && OSRIsProjected(system) != 0) {
    putEastFirst(system);
    return system;
  }
  OSRDestroySpatialReference(system);
  throw Refusal(kUsage,
                "--projected takes a projected coordinate system such as EPSG:32631, not `" + name +
                    "`" + (isKnown ? ", which is none" : ": " + lastError()));
}

/// The point itself, or the only one of several.
OGRGeometryH pointOf(OGRGeometryH geometry) {
  const auto type = wkbFlatten(OGR_G_GetGeometryType(geometry));
  if (type == wkbPoint) return geometry;
  if (type == wkbMultiPoint && OGR_G_GetGeometryCount(geometry) == 1)
    return OGR_G_GetGeometryRef(geometry, 0);
  return nullptr;
}

}  // namespace

Coordinates::Coordinates(OGRLayerH layer, const std::string& projected) {
  const OGRSpatialReferenceH own = OGR_L_GetSpatialRef(layer);
  if (projected.empty()) {
    if (own != nullptr && OSRIsGeographic(own) != 0)
      throw Refusal(kData, std::string("the coordinates of `") + OGR_L_GetName(layer) +
                               "` are geographic (" + nameOf(own) +
                               "), and degrees are no distances; --projected EPSG:n reprojects "
                               "them");
    return;
  }
  if (own == nullptr)
    throw Refusal(kData, std::string("`") + OGR_L_GetName(layer) +
                             "` has no coordinate system to reproject from");
  target_ = systemNamed(projected);
  const OGRSpatialReferenceH from = OSRClone(own);
  putEastFirst(from);
  transformation_ = OCTNewCoordinateTransformation(from, target_);
  OSRDestroySpatialReference(from);
  if (transformation_ == nullptr) {
    OSRDestroySpatialReference(target_);
    throw Refusal(kData, "no way from " + nameOf(own) + " to " + projected + ": " + lastError());
  }
}

Coordinates::~Coordinates() {
  if (transformation_ == nullptr) return;
  OCTDestroyCoordinateTransformation(transformation_);
  OSRDestroySpatialReference(target_);
}

std::optional<Coordinates::Place> Coordinates::placeOf(OGRFeatureH feature, long number) const {
  const OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
  if (geometry == nullptr || OGR_G_IsEmpty(geometry) != 0) return std::nullopt;
  const std::string what = "feature " + std::to_string(number);
  const OGRGeometryH point = pointOf(geometry);
  if (point == nullptr)
    throw Refusal(kData, what + " is no point: " + OGR_G_GetGeometryName(geometry));
  Place place{OGR_G_GetX(point, 0), OGR_G_GetY(point, 0), std::nullopt};
  if (OGR_G_Is3D(point) != 0) place.z = OGR_G_GetZ(point, 0);
  if (transformation_ == nullptr) return place;
  double height = place.z.value_or(0);
  const bool isDone = OCTTransform(transformation_, 1, &place.x, &place.y, &height) != 0;
  if (!isDone || !std::isfinite(place.x) || !std::isfinite(place.y))
    throw Refusal(kData, what + " can't be reprojected: " + lastError());
  if (place.z) place.z = height;
  return place;
}

}  // namespace zevfit::spatial
