#include "zvm/spatial/source.h"

#include <cpl_error.h>

#include <algorithm>
#include <vector>

#include "zvm/points/names.h"

namespace zevfit::spatial {
namespace {

std::vector<std::string> layersOf(GDALDatasetH set) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(GDALDatasetGetLayerCount(set)));
  for (int i = 0; i < GDALDatasetGetLayerCount(set); ++i)
    names.emplace_back(OGR_L_GetName(GDALDatasetGetLayer(set, i)));
  return names;
}

std::string listed(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
  return all;
}

OGRLayerH onlyLayer(GDALDatasetH set) {
  const std::vector<std::string> names = layersOf(set);
  if (names.size() == 1) return GDALDatasetGetLayer(set, 0);
  if (names.empty()) throw Refusal(kData, "the source has no layer");
  throw Refusal(kUsage, "--layer is missing; there are " + listed(names));
}

OGRLayerH namedLayer(GDALDatasetH set, const std::string& name) {
  // One that a database does not list, such as a view, is found by its name as well.
  if (const OGRLayerH layer = GDALDatasetGetLayerByName(set, name.c_str())) return layer;
  throw Refusal(kData, zvm::noSuchName("layer", name, "the source", layersOf(set)));
}

/// A database tells of a fault in a condition only when it is asked for a feature.
void setCondition(OGRLayerH layer, const std::string& condition) {
  CPLErrorReset();
  bool isGood = OGR_L_SetAttributeFilter(layer, condition.c_str()) == OGRERR_NONE;
  if (isGood) {
    OGR_F_Destroy(OGR_L_GetNextFeature(layer));
    OGR_L_ResetReading(layer);
    isGood = CPLGetLastErrorType() != CE_Failure;
  }
  if (!isGood) throw Refusal(kUsage, "--where `" + condition + "`: " + lastError());
}

}  // namespace

std::string lastError() {
  std::string text = CPLGetLastErrorMsg();
  std::ranges::replace_if(
      text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  text.erase(text.find_last_not_of(' ') + 1);
  return text.empty() ? "OGR does not say why" : text;
}

Source::Source(const Request& request)
    : set_(GDALOpenEx(request.source.c_str(),
                      GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR, nullptr, nullptr,
                      nullptr)) {
  if (set_ == nullptr) throw Refusal(kFile, "cannot open the source: " + lastError());
  try {
    layer_ = chosen(request);
    isQuery_ = !request.sql.empty();
    if (!request.where.empty()) setCondition(layer_, request.where);
  } catch (const Refusal&) {
    GDALClose(set_);
    throw;
  }
}

Source::~Source() {
  if (isQuery_) GDALDatasetReleaseResultSet(set_, layer_);
  GDALClose(set_);
}

OGRLayerH Source::chosen(const Request& request) const {
  if (!request.sql.empty()) {
    CPLErrorReset();
    if (const OGRLayerH result = GDALDatasetExecuteSQL(set_, request.sql.c_str(), nullptr, nullptr))
      return result;
    throw Refusal(kUsage, "--sql `" + request.sql + "` gives no table: " + lastError());
  }
  return request.layer.empty() ? onlyLayer(set_) : namedLayer(set_, request.layer);
}

}  // namespace zevfit::spatial
