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
/// Behind the name of a field, where a driver keeps its text.
constexpr std::string_view kOfText = "_original";
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

std::string nameOf(OGRFeatureDefnH definition, int field) {
  return OGR_Fld_GetNameRef(OGR_FD_GetFieldDefn(definition, field));
}

/// The field behind another has the text of it.
bool isTextBehind(OGRFeatureDefnH definition, int field) {
  if (field + 1 >= OGR_FD_GetFieldCount(definition)) return false;
  return OGR_Fld_GetType(OGR_FD_GetFieldDefn(definition, field)) != OFTString &&
         OGR_Fld_GetType(OGR_FD_GetFieldDefn(definition, field + 1)) == OFTString &&
         nameOf(definition, field + 1) == nameOf(definition, field) + std::string(kOfText);
}

/// An attribute and the field that has what is written of it: the text where it is kept, whose
/// digits are those of the source.
struct Attribute {
  std::string name;
  int field;
};

std::vector<Attribute> attributesOf(OGRFeatureDefnH definition, bool keepsTexts) {
  std::vector<Attribute> attributes;
  for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
    attributes.push_back({nameOf(definition, i), i});
    if (keepsTexts && isTextBehind(definition, i)) attributes.back().field = ++i;
  }
  return attributes;
}

/// The columns: attributes, and behind them those of the geometry.
std::vector<std::string> columnsOf(const std::vector<Attribute>& attributes) {
  std::vector<std::string> names;
  for (const Attribute& one : attributes) {
    const bool isTaken = std::ranges::count(kOfGeometry, one.name) > 0;
    names.push_back((isTaken ? std::string(kOfAttributes) : "") + one.name);
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
  Places(const Request& request, const Source& source, const std::vector<std::string>& columns,
         Errors& errors)
      : request_(request), source_(source), errors_(errors) {
    hasGeometry_ = OGR_FD_GetGeomFieldCount(OGR_L_GetLayerDefn(source.layer())) > 0;
    isInUse_ = isOfGeometry(request.x, columns) || isOfGeometry(request.y, columns);
    takesHeights_ = isOfGeometry(request.z, columns);
    if (!isInUse_ && !request.projected.empty())
      throw Refusal(kUsage,
                    "--projected reprojects the coordinates of geometries, and --x and --y name "
                    "attributes");
  }

  std::optional<Coordinates::Place> placeOf(OGRFeatureH feature, long number) {
    if ((isInUse_ || takesHeights_) && !hasGeometry_)
      throw Refusal(
          kData, source_.layerText() + " has no geometry; --x and --y name columns of coordinates");
    // The system of a layer without a feature is no reason to refuse it.
    if (isInUse_ && !coordinates_) coordinates_.emplace(source_, request_.projected, errors_);
    const auto place = coordinates_ ? coordinates_->placeOf(feature, number) : rawPlaceOf(feature);
    places_ += place ? 1 : 0;
    heights_ += place && place->z ? 1 : 0;
    return place;
  }

  [[noreturn]] void refuseEmpty() const {
    if (!request_.where.empty())
      throw Refusal(
          kData, "--where `" + request_.where + "` holds for no feature of " + source_.layerText());
    throw Refusal(kData, source_.layerText() + " has no feature");
  }

  /// Behind the last feature: throws Refusal where none has the height that is asked for.
  void refuseFlat() const {
    if (takesHeights_ && places_ > 0 && heights_ == 0)
      throw Refusal(kData, "the points of " + source_.layerText() +
                               " have no heights, which --z geometry.z asks for");
  }

 private:
  const Request& request_;
  const Source& source_;
  Errors& errors_;
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
  const std::vector<Attribute> attributes =
      attributesOf(OGR_L_GetLayerDefn(source.layer()), source.keepsTexts());
  const std::vector<std::string> columns = columnsOf(attributes);
  Places places(request, source, columns, errors);
  std::string text = headerOf(columns);
  errors.forget();
  long read = 0;
  for (;;) {
    const Feature feature(OGR_L_GetNextFeature(source.layer()), OGR_F_Destroy);
    if (!feature) break;
    ++read;
    for (const Attribute& one : attributes) {
      appendField(feature.get(), one.field, text);
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
  if (read == 0) places.refuseEmpty();
  if (!(out << text << std::flush)) throw Refusal(kFile, "nobody takes the points");
  places.refuseFlat();
}

}  // namespace zevfit::spatial
