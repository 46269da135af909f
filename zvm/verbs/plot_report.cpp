#include "zvm/verbs/plot_report.h"

#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

using plotting::Kind;
using plotting::Page;

Json cellsOf(const zvm::SurfaceMap& surface) {
  Json cells = Json::array();
  for (std::int64_t north = -surface.reach; north <= surface.reach; ++north)
    for (std::int64_t east = -surface.reach; east <= surface.reach; ++east) {
      const zvm::SurfaceCell& cell = surface.at(east, north);
      cells.push_back({{"east", static_cast<double>(east) * surface.width},
                       {"north", static_cast<double>(north) * surface.width},
                       {"semivariance", cell.pairs == 0 ? Json() : Json(cell.semivariance)},
                       {"pairs", cell.pairs}});
    }
  return cells;
}

Json jsonOf(const Page& page, const PictureRow& row) {
  Json json{{"variable", row.variable}};
  if (page.kind == Kind::direction) json["direction"] = row.directions.front();
  if (page.kind == Kind::overlay) json["directions"] = row.directions;
  if (page.kind == Kind::map) json["used"] = row.points;
  if (page.map) json["cells"] = cellsOf(page.map->surface);
  return json;
}

}  // namespace

Json jsonReport(const std::string& source, const Pictures& pictures,
                const std::vector<std::string>& files) {
  Json rows = Json::array();
  for (std::size_t i = 0; i < files.size(); ++i) {
    Json row = jsonOf(pictures.request.pages[i], pictures.rows[i]);
    row["file"] = files[i];
    if (pictures.request.format == plotting::Format::pdf) row["page"] = i + 1;
    rows.push_back(row);
  }
  Json report{{"schema", "zvm.plot/1"}, {"file", source}, {"pictures", rows}};
  if (!pictures.points) return report;
  const MapPoints& points = *pictures.points;
  report["lag"] = points.lag;
  report["lags"] = points.lags;
  report["points"] = {{"read", points.read}, {"withoutCoordinates", points.skipped}};
  return report;
}

std::string textReport(const Pictures& pictures, const std::vector<std::string>& files) {
  if (files.size() == 1) return "";
  const bool arePages = pictures.request.format == plotting::Format::pdf;
  std::vector<std::vector<std::string>> rows{{"file", "variable", "direction"}};
  for (std::size_t i = 0; i < files.size(); ++i)
    rows.push_back({files[i] + (arePages ? ", page " + std::to_string(i + 1) : ""),
                    pictures.rows[i].variable, listed(pictures.rows[i].directions)});
  return table(rows);
}

}  // namespace zevfit::verbs
