// The program zvm-ogr: reads what is asked for from stdin, five texts with a zero byte behind each
// (source, layer, condition, query, coordinate system), and writes the features of a layer to
// stdout as CSV: their attributes, and behind them the coordinates of their points. Only zvm runs
// it. What fails is told on stderr.

#include <cpl_conv.h>
#include <cpl_error.h>
#include <sys/prctl.h>

#include <array>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "zvm/spatial/coordinates.h"
#include "zvm/spatial/source.h"

namespace {

using namespace zevfit::spatial;

constexpr std::size_t kFlushAt = 1 << 16;
/// Nothing that a query says may change a database.
constexpr const char* kReadOnly = " -c default_transaction_read_only=on";

/// Tells a warning of OGR once; errors are asked for where they count.
void CPL_STDCALL warn(CPLErr kind, CPLErrorNum, const char* text) {
  if (kind != CE_Warning) return;
  std::string line = text;
  for (char& c : line)
    if (c == '\n' || c == '\r') c = ' ';
  std::cerr << "warning: " << line << '\n';
}

Request requestFrom(std::istream& in) {
  Request request;
  for (std::string* text :
       {&request.source, &request.layer, &request.where, &request.sql, &request.projected})
    if (!std::getline(in, *text, '\0')) throw Refusal(kUsage, "the request is not whole");
  return request;
}

/// Between quotes where it has to be; line ends become blanks, so that a line is a feature.
void appendText(std::string_view text, std::string& line) {
  const bool isPlain = text.find_first_of(",\"\r\n") == text.npos;
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

std::string headerOf(OGRFeatureDefnH definition) {
  std::string line;
  for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
    appendText(OGR_Fld_GetNameRef(OGR_FD_GetFieldDefn(definition, i)), line);
    line += ',';
  }
  return line + "geometry.x,geometry.y,geometry.z\n";
}

using Feature = std::unique_ptr<void, void (*)(OGRFeatureH)>;

void write(const Request& request, std::ostream& out) {
  const Source source(request);
  const Coordinates coordinates(source.layer(), request.projected);
  const OGRFeatureDefnH definition = OGR_L_GetLayerDefn(source.layer());
  const int fields = OGR_FD_GetFieldCount(definition);
  std::string text = headerOf(definition);
  CPLErrorReset();
  for (long number = 1;; ++number) {
    const Feature feature(OGR_L_GetNextFeature(source.layer()), OGR_F_Destroy);
    if (!feature) break;
    for (int i = 0; i < fields; ++i) {
      appendField(feature.get(), i, text);
      text += ',';
    }
    appendPlace(coordinates.placeOf(feature.get(), number), text);
    text += '\n';
    if (text.size() < kFlushAt) continue;
    out << text;
    text.clear();
  }
  if (CPLGetLastErrorType() == CE_Failure)
    throw Refusal(kFile, "the source can't be read to its end: " + lastError());
  if (!(out << text << std::flush)) throw Refusal(kFile, "nobody takes the points");
}

}  // namespace

int main() {
  // The points of a command that has been ended are nobody's.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  const char* const given = std::getenv("PGOPTIONS");
  ::setenv("PGOPTIONS", ((given == nullptr ? "" : given) + std::string(kReadOnly)).c_str(), 1);
  CPLSetErrorHandler(warn);
  GDALAllRegister();
  try {
    write(requestFrom(std::cin), std::cout);
    return 0;
  } catch (const Refusal& refusal) {
    std::cerr << "error: " << refusal.what() << '\n';
    return refusal.code();
  } catch (const std::bad_alloc&) {
    std::cerr << "error: not enough memory\n";
    return kData;
  }
}
