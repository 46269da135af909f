#include "zvm/plotting/request.h"

#include <charconv>
#include <nlohmann/json.hpp>

#include "session/fault.h"

// A request is a row of pieces, each with its length in front: a head in JSON, style, data, and the
// names of the maps, whose bytes JSON would not take.

namespace zevfit::plotting {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kPiecesInFront = 3;

Json jsonOf(const Page& page) {
  Json json{{"kind", page.kind}, {"variable", page.variable}, {"direction", page.direction}};
  json["shown"] = page.shown.to_ullong();
  if (!page.map) return json;
  const zvm::SurfaceMap& surface = page.map->surface;
  Json cells = Json::array();
  for (const zvm::SurfaceCell& cell : surface.cells)
    cells.push_back(Json::array({cell.semivariance, cell.pairs}));
  json["map"] = {{"reach", surface.reach}, {"width", surface.width}, {"cells", cells}};
  return json;
}

Map mapOf(const Json& json, const std::string& name) {
  Map map{name, {json.at("reach"), json.at("width"), {}}};
  for (const Json& cell : json.at("cells")) map.surface.cells.push_back({cell.at(0), cell.at(1)});
  return map;
}

Page pageOf(const Json& json) {
  Page page{json.at("kind"), json.at("variable"), json.at("direction"), {}, {}};
  page.shown = Directions(json.at("shown").get<unsigned long long>());
  return page;
}

}  // namespace

std::string bytesOf(const std::vector<std::string>& files) {
  std::string bytes;
  for (const std::string& file : files) bytes += std::to_string(file.size()) + '\n' + file;
  return bytes;
}

std::vector<std::string> filesOf(std::string_view bytes) {
  std::vector<std::string> files;
  while (!bytes.empty()) {
    std::size_t size = 0;
    const char* const end = bytes.data() + bytes.size();
    const auto read = std::from_chars(bytes.data(), end, size);
    if (read.ec != std::errc() || read.ptr == end || *read.ptr != '\n') throw Fault("No length");
    bytes.remove_prefix(static_cast<std::size_t>(read.ptr - bytes.data()) + 1);
    if (size > bytes.size()) throw Fault("The pieces are not whole");
    files.emplace_back(bytes.substr(0, size));
    bytes.remove_prefix(size);
  }
  return files;
}

std::string bytesOf(const Request& request) {
  Json head{{"format", request.format}, {"width", request.width}, {"height", request.height},
            {"scale", request.scale},   {"dots", request.dots},   {"pages", Json::array()}};
  std::vector<std::string> pieces{"", request.style, request.data};
  for (const Page& page : request.pages) {
    head["pages"].push_back(jsonOf(page));
    if (page.map) pieces.push_back(page.map->name);
  }
  pieces.front() = head.dump();
  return bytesOf(pieces);
}

Request requestOf(std::string_view bytes) {
  const std::vector<std::string> pieces = filesOf(bytes);
  try {
    const Json head = Json::parse(pieces.at(0));
    Request request{head.at("format"), head.at("width"), head.at("height"), head.at("scale"),
                    head.at("dots"),   pieces.at(1),     pieces.at(2),      {}};
    std::size_t next = kPiecesInFront;
    for (const Json& json : head.at("pages")) {
      request.pages.push_back(pageOf(json));
      if (json.contains("map")) request.pages.back().map = mapOf(json["map"], pieces.at(next++));
    }
    return request;
  } catch (const Json::exception& error) {
    throw Fault(error.what());
  } catch (const std::out_of_range&) {
    throw Fault("The pieces are not whole");
  }
}

}  // namespace zevfit::plotting
