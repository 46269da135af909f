#include "zvm/spatial/table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

#include "zvm/spatial/coordinates.h"

namespace zevfit::spatial {
namespace {

constexpr std::size_t kFlushAt = 1 << 16;
constexpr std::array<std::string_view, 3> kOfGeometry{"geometry.x", "geometry.y", "geometry.z"};
/// In front of the name of an attribute that is called as one of them.
constexpr std::string_view kOfAttributes = "attribute.";

/// Between quotes where it has to be, so that a comma is the separator; line ends become blanks, so
/// that a line is a feature.
void appendText(std::string_view text, std::string& line) {
  const bool isPlain = text.find_first_of(",;\t\"\r\n") == text.npos;
  if (isPlain) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c == '\n' || c == '\r' ? ' ' : c;
  }
  line += '"';
}

template <class Number>
void appendNumber(Number number, std::string& line) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  line.append(text.data(), end);
}

void appendField(OGRFeatureH feature, int field, std::string& line) {
  if (OGR_F_IsFieldSetAndNotNull(feature, field) == 0) return;
  const OGRFieldType type = OGR_Fld_GetType(OGR_F_GetFieldDefnRef(feature, field));
  if (type == OFTReal) return appendNumber(OGR_F_GetFieldAsDouble(feature, field), line);
  if (type == OFTInteger || type == OFTInteger64)
    return appendNumber(OGR_F_GetFieldAsInteger64(feature, field), line);
  appendText(OGR_F_GetFieldAsString(feature, field), line);
}

void appendPlace(const std::optional<Coordinates::Place>& place, std::string& line) {
  if (place) appendNumber(place->x, line);
  line += ',';
  if (place) appendNumber(place->y, line);
  line += ',';
  if (place && place->z) appendNumber(*place->z, line);
}

/// The columns: attributes, and behind them those of the geometry.
std::vector<std::string> columnsOf(OGRFeatureDefnH definition) {
  std::vector<std::string> names;
  for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
    const std::string name = OGR_Fld_GetNameRef(OGR_FD_GetFieldDefn(definition, i));
    const bool isTaken = std::ranges::count(kOfGeometry, name) > 0;
    names.push_back((isTaken ? std::string(kOfAttributes) : "") + name);
  }
  names.insert(names.end(), kOfGeometry.begin(), kOfGeometry.end());
  return names;
}

/// Whether a column, by name or number from 1, is one of the geometry.
bool isOfGeometry(const std::string& column, const std::vector<std::string>& columns) {
  const auto named = static_cast<std::size_t>(std::ranges::find(columns, column) - columns.begin());
  std::size_t number = 0;
  const char* const end = column.data() + column.size();
  const bool isNumber = std::from_chars(column.data(), end, number).ptr == end;
  const std::size_t index = named == columns.size() && isNumber ? number - 1 : named;
  return index >= columns.size() - kOfGeometry.size() && index < columns.size();
}

using Feature = std::unique_ptr<void, void (*)(OGRFeatureH)>;

/// What is asked of the geometries of a layer: the coordinates, or for a column alone what stands
/// in them.
class Places {
 public:
  Places(const Request& request, const Source& source, Errors& errors)
      : request_(request), source_(source) {
    const OGRFeatureDefnH definition = OGR_L_GetLayerDefn(source.layer());
    columns_ = columnsOf(definition);
    hasGeometry_ = OGR_FD_GetGeomFieldCount(definition) > 0;
    isInUse_ = isOfGeometry(request.x, columns_) || isOfGeometry(request.y, columns_);
    takesHeights_ = isOfGeometry(request.z, columns_);
    if (isInUse_) coordinates_.emplace(source, request.projected, errors);
    if (!isInUse_ && !request.projected.empty())
      throw Refusal(kUsage,
                    "--projected reprojects the coordinates of geometries, and --x and --y name "
                    "attributes");
  }

  const std::vector<std::string>& columns() const { return columns_; }

  std::optional<Coordinates::Place> placeOf(OGRFeatureH feature, long number) {
    if ((isInUse_ || takesHeights_) && !hasGeometry_)
      throw Refusal(
          kData, source_.layerText() + " has no geometry; --x and --y name columns of coordinates");
    const auto place = coordinates_ ? coordinates_->placeOf(feature, number) : rawPlaceOf(feature);
    places_ += place ? 1 : 0;
    heights_ += place && place->z ? 1 : 0;
    return place;
  }

  /// Throws Refusal where no point can be among so many features, which are all that there are.
  void refuseNothing(long features) const {
    if (features == 0 && !request_.where.empty())
      throw Refusal(
          kData, "--where `" + request_.where + "` holds for no feature of " + source_.layerText());
    if (features == 0) throw Refusal(kData, source_.layerText() + " has no feature");
    if (takesHeights_ && places_ > 0 && heights_ == 0)
      throw Refusal(kData, "the points of " + source_.layerText() +
                               " have no heights, which --z geometry.z asks for");
  }

 private:
  const Request& request_;
  const Source& source_;
  std::vector<std::string> columns_;
  std::optional<Coordinates> coordinates_;
  bool hasGeometry_ = false, isInUse_ = false, takesHeights_ = false;
  long places_ = 0, heights_ = 0;
};

std::string headerOf(const std::vector<std::string>& columns) {
  std::string line;
  for (const std::string& name : columns) {
    appendText(name, line);
    line += ',';
  }
  line.back() = '\n';
  return line;
}

}  // namespace

void writeTable(const Request& request, Errors& errors, std::ostream& out) {
  const Source source(request, errors);
  Places places(request, source, errors);
  const int fields = OGR_FD_GetFieldCount(OGR_L_GetLayerDefn(source.layer()));
  std::string text = headerOf(places.columns());
  errors.forget();
  long read = 0;
  for (;;) {
    const Feature feature(OGR_L_GetNextFeature(source.layer()), OGR_F_Destroy);
    if (!feature) break;
    ++read;
    for (int i = 0; i < fields; ++i) {
      appendField(feature.get(), i, text);
      text += ',';
    }
    appendPlace(places.placeOf(feature.get(), read), text);
    text += '\n';
    if (text.size() < kFlushAt) continue;
    out << text;
    text.clear();
  }
  if (errors.isAny())
    throw Refusal(kFile, "the source can't be read to its end: " + errors.reason());
  if (!(out << text << std::flush)) throw Refusal(kFile, "nobody takes the points");
  places.refuseNothing(read);
}

}  // namespace zevfit::spatial
