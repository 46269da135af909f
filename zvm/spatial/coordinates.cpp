#include "zvm/spatial/coordinates.h"

#include <cmath>
#include <string>

namespace zevfit::spatial {
namespace {

std::string nameOf(OGRSpatialReferenceH system) {
  const char* const name = OSRGetName(system);
  return name == nullptr ? "without a name" : name;
}

/// What a GeoPackage calls a system that nobody knows; a Shapefile has other letters between the
/// words. OGR takes the one of them for degrees on an ellipsoid.
bool isUndefined(OGRSpatialReferenceH system) {
  const std::string name = nameOf(system);
  return name == "Undefined geographic SRS" || name == "GCS_Undefined_geographic_SRS" ||
         name == "Undefined Cartesian SRS";
}

/// East before north, whatever the authority has first.
void putEastFirst(OGRSpatialReferenceH system) {
  OSRSetAxisMappingStrategy(system, OAMS_TRADITIONAL_GIS_ORDER);
}

OGRSpatialReferenceH systemNamed(const std::string& name, Errors& errors) {
  errors.forget();
  const OGRSpatialReferenceH system = OSRNewSpatialReference(nullptr);
  const bool isKnown = OSRSetFromUserInput(system, name.c_str()) == OGRERR_NONE;
  if (isKnown && OSRIsProjected(system) != 0) {
    putEastFirst(system);
    return system;
  }
  OSRDestroySpatialReference(system);
  throw Refusal(kUsage,
                "--projected takes a projected coordinate system such as EPSG:32631, not `" + name +
                    "`" + (isKnown ? ", which is none" : ": " + errors.reason()));
}

/// The point itself, or the only one of several.
OGRGeometryH pointOf(OGRGeometryH geometry) {
  const auto type = wkbFlatten(OGR_G_GetGeometryType(geometry));
  if (type == wkbPoint) return geometry;
  if (type == wkbMultiPoint && OGR_G_GetGeometryCount(geometry) == 1)
    return OGR_G_GetGeometryRef(geometry, 0);
  return nullptr;
}

Coordinates::Place placeOfPoint(OGRGeometryH point) {
  Coordinates::Place place{OGR_G_GetX(point, 0), OGR_G_GetY(point, 0), std::nullopt};
  if (OGR_G_Is3D(point) != 0) place.z = OGR_G_GetZ(point, 0);
  return place;
}

bool isEmpty(OGRGeometryH geometry) { return geometry == nullptr || OGR_G_IsEmpty(geometry) != 0; }

}  // namespace

void Coordinates::requirePlane(OGRSpatialReferenceH own, const std::string& layer) const {
  if (own == nullptr) return;
  if (OSRIsGeocentric(own) != 0)
    throw Refusal(kData, "the coordinates of " + layer + " are geocentric (" + nameOf(own) +
                             "), and none of a plane; --projected EPSG:n reprojects them");
  if (OSRIsGeographic(own) == 0) return;
  if (isUndefined(own))
    return errors_.warn("the coordinate system of " + layer +
                        " is undefined: its coordinates are taken for those of a plane, as they "
                        "stand");
  throw Refusal(kData, "the coordinates of " + layer + " are geographic (" + nameOf(own) +
                           "), and degrees are no distances; --projected EPSG:n reprojects them");
}

Coordinates::Coordinates(const Source& source, const std::string& projected, Errors& errors)
    : errors_(errors) {
  const OGRSpatialReferenceH own = OGR_L_GetSpatialRef(source.layer());
  if (projected.empty()) {
    requirePlane(own, source.layerText());
    return;
  }
  if (own == nullptr || isUndefined(own))
    throw Refusal(kData, source.layerText() + " has no coordinate system to reproject from");
  target_ = systemNamed(projected, errors);
  const OGRSpatialReferenceH from = OSRClone(own);
  putEastFirst(from);
  errors.forget();
  transformation_ = OCTNewCoordinateTransformation(from, target_);
  OSRDestroySpatialReference(from);
  if (transformation_ == nullptr) {
    OSRDestroySpatialReference(target_);
    throw Refusal(kData,
                  "no way from " + nameOf(own) + " to " + projected + ": " + errors.reason());
  }
}

Coordinates::~Coordinates() {
  if (transformation_ == nullptr) return;
  OCTDestroyCoordinateTransformation(transformation_);
  OSRDestroySpatialReference(target_);
}

std::optional<Coordinates::Place> Coordinates::placeOf(OGRFeatureH feature, long number) const {
  const OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
  if (isEmpty(geometry)) return std::nullopt;
  const std::string what = "feature " + std::to_string(number);
  const OGRGeometryH point = pointOf(geometry);
  if (point == nullptr)
    throw Refusal(kData, what + " is no point: " + OGR_G_GetGeometryName(geometry));
  Place place = placeOfPoint(point);
  if (transformation_ == nullptr) return place;
  double height = place.z.value_or(0);
  const bool isDone = OCTTransform(transformation_, 1, &place.x, &place.y, &height) != 0;
  if (!isDone || !std::isfinite(place.x) || !std::isfinite(place.y))
    throw Refusal(kData, what + " can't be reprojected: " + errors_.reason());
  if (place.z) place.z = height;
  return place;
}

std::optional<Coordinates::Place> rawPlaceOf(OGRFeatureH feature) {
  const OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
  const OGRGeometryH point = isEmpty(geometry) ? nullptr : pointOf(geometry);
  if (point == nullptr) return std::nullopt;
  return placeOfPoint(point);
}

}  // namespace zevfit::spatial
