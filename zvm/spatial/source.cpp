#include "zvm/spatial/source.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "zvm/points/names.h"
#include "zvm/spatial/statement.h"

namespace zevfit::spatial {
namespace {

constexpr const char* kPostgres = "PostgreSQL";
/// Whose own SQL reads a file that is open for reading.
constexpr std::array<std::string_view, 2> kSqlite{"GPKG", "SQLite"};
/// That of OGR, in which SELECT only reads, in the place of what a driver has.
constexpr const char* kOgrSql = "OGRSQL";

/// GML would leave a file of its own beside the source. In CSV all is text unless its driver is to
/// look for numbers, which it does in the whole file.
struct DriverOption {
  std::string_view driver;
  const char* option;
};
constexpr const char* kCsv = "CSV";
constexpr std::array kOptions{DriverOption{"GML", "WRITE_GFS=NO"},
                              DriverOption{kCsv, "AUTODETECT_TYPE=YES"},
                              DriverOption{kCsv, "AUTODETECT_SIZE_LIMIT=0"}};
/// The texts beside the numbers, in columns that a query would take for those of the file.
constexpr const char* kKeepTexts = "KEEP_SOURCE_COLUMNS=YES";

bool isSqlite(std::string_view driver) { return std::ranges::count(kSqlite, driver) > 0; }

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

/// The first twenty bytes of an SQLite file, two of which tell of its log; nothing of any other.
std::optional<std::string> databaseHead(const std::string& file) {
  constexpr std::string_view kBegin("SQLite format 3\0", 16);
  std::string head(20, ' ');
  VSILFILE* const in = VSIFOpenL(file.c_str(), "rb");
  if (in == nullptr) return std::nullopt;
  const std::size_t read = VSIFReadL(head.data(), 1, head.size(), in);
  VSIFCloseL(in);
  if (read < head.size() || !head.starts_with(kBegin)) return std::nullopt;
  return head;
}

/// Whether it is written by a log beside it.
bool isLogged(const std::string& head) { return head[18] == 2; }

/// SQLite would take the log into the file, and remove it.
void requireTakenLog(const std::string& file) {
  const std::string log = file + "-wal";
  VSIStatBufL found;
  if (VSIStatL(log.c_str(), &found) == 0 && found.st_size > 0)
    throw Refusal(kFile,
                  "cannot open the source as it stands: changes wait in the file of that "
                  "name with -wal, until the program that made them ends or the file is "
                  "opened and closed with it");
}

/// Settings that GDAL speaks of and that are fixed here.
std::string withoutAdvice(const std::string& reason) {
  return reason.substr(0, reason.find(" Set SHAPE_RESTORE_SHX"));
}

GDALDatasetH openedBy(const char* const* drivers, std::vector<const char*> options,
                      const std::string& source) {
  options.push_back(nullptr);
  return GDALOpenEx(source.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
                    drivers, options.data(), nullptr);
}

/// Only by drivers that leave it alone: others open it for writing to see whether it is theirs.
GDALDatasetH openedDatabase(const std::string& source, const std::string& head) {
  static constexpr std::array<const char*, 3> kDrivers{"GPKG", "SQLite", nullptr};
  std::vector<const char*> options;
  if (isLogged(head)) {
    requireTakenLog(source);
    // Of the option both know, SQLite does not tell.
    options.push_back("@IMMUTABLE=YES");
  }
  return openedBy(kDrivers.data(), options, source);
}

/// The names of drivers as GDAL takes them, from a list with commas.
std::vector<const char*> driversIn(std::string& list) {
  std::vector<const char*> names;
  for (std::size_t begin = 0; begin < list.size();) {
    const std::size_t comma = std::min(list.find(',', begin), list.size());
    list[comma] = '\0';
    names.push_back(list.data() + begin);
    begin = comma + 1;
  }
  names.push_back(nullptr);
  return names;
}

GDALDatasetH opened(const Request& request) {
  if (const auto head = databaseHead(request.source)) return openedDatabase(request.source, *head);
  std::string list = request.drivers;
  const std::vector<const char*> drivers = driversIn(list);
  const char* const* const allowed = request.drivers.empty() ? nullptr : drivers.data();
  const GDALDriverH driver =
      GDALIdentifyDriverEx(request.source.c_str(), GDAL_OF_VECTOR, allowed, nullptr);
  const std::string name = driver == nullptr ? "" : GDALGetDriverShortName(driver);
  std::vector<const char*> options;
  for (const DriverOption& one : kOptions)
    if (one.driver == name) options.push_back(one.option);
  if (name == kCsv && request.sql.empty()) options.push_back(kKeepTexts);
  return openedBy(allowed, options, request.source);
}

/// The first value of a query's answer; empty where there is none.
std::string answerOf(GDALDatasetH set, const char* sql) {
  const OGRLayerH layer = GDALDatasetExecuteSQL(set, sql, nullptr, nullptr);
  if (layer == nullptr) return "";
  const OGRFeatureH feature = OGR_L_GetNextFeature(layer);
  std::string answer = feature == nullptr ? "" : OGR_F_GetFieldAsString(feature, 0);
  OGR_F_Destroy(feature);
  GDALDatasetReleaseResultSet(set, layer);
  return answer;
}

/// A name as a query has it.
std::string quoted(const std::string& name) {
  std::string text = "\"";
  for (const char c : name) text += c == '"' ? "\"\"" : std::string(1, c);
  return text + '"';
}

}  // namespace

Source::Source(const Request& request, Errors& errors) : errors_(errors) {
  errors_.forget();
  set_ = opened(request);
  if (set_ == nullptr) refuseOpening();
  try {
    if (driver() == kPostgres) beginReading();
    choose(request);
    // What leads to another source opens it only now, and has no field where that fails.
    if (OGR_FD_GetFieldCount(OGR_L_GetLayerDefn(layer_)) == 0 && errors_.isAny()) refuseOpening();
    if (!request.where.empty()) setCondition(request.where);
  } catch (const Refusal&) {
    close();
    throw;
  }
}

Source::~Source() { close(); }

void Source::refuseOpening() const {
  throw Refusal(kFile, "cannot open the source: " + withoutAdvice(errors_.reason()));
}

bool Source::keepsTexts() const { return driver() == kCsv && !isQuery_; }

void Source::close() {
  if (isQuery_) GDALDatasetReleaseResultSet(set_, layer_);
  // A transaction that is open still would be committed, and even one that only reads can write a
  // large object.
  if (inTransaction_) GDALDatasetRollbackTransaction(set_);
  GDALClose(set_);
}

std::string Source::driver() const { return GDALGetDriverShortName(GDALGetDatasetDriver(set_)); }

/// Whatever the options of the connection say. A transaction can't be made one that writes once it
/// has answered a query.
void Source::beginReading() {
  errors_.forget();
  for (const char* const setting :
       {"SET standard_conforming_strings = on", "SET default_transaction_read_only = on"})
    answerOf(set_, setting);
  inTransaction_ = GDALDatasetStartTransaction(set_, FALSE) == OGRERR_NONE;
  if (!inTransaction_ || answerOf(set_, "SELECT current_setting('transaction_read_only')") != "on")
    throw Refusal(kFile, "the server gives no transaction that only reads: " + errors_.reason());
}

void Source::choose(const Request& request) {
  if (!request.sql.empty()) return chooseQuery(request.sql);
  errors_.forget();
  layer_ = request.layer.empty() ? onlyLayer(set_) : namedLayer(set_, request.layer);
  layerText_ = std::string("layer `") + OGR_L_GetName(layer_) + '`';
}

void Source::chooseQuery(const std::string& sql) {
  if (const auto refusal = queryRefusal(sql))
    throw Refusal(kUsage, "--sql takes one query that reads, not `" + sql + "`: " + *refusal);
  const std::string kind = driver();
  const std::string query =
      kind == kPostgres ? "SELECT * FROM " + bracketed(sql) + " AS query" : sql;
  const bool isOwn = kind == kPostgres || isSqlite(kind);
  errors_.forget();
  layer_ = GDALDatasetExecuteSQL(set_, query.c_str(), nullptr, isOwn ? nullptr : kOgrSql);
  if (layer_ == nullptr)
    throw Refusal(kUsage, "--sql `" + sql + "` gives no table: " + errors_.reason());
  isQuery_ = true;
  layerText_ = "the query";
}

/// A database tells of a fault in a condition only when it is asked for a feature, and SQLite of
/// its reason only in a query.
void Source::setCondition(const std::string& condition) {
  if (const auto refusal = conditionRefusal(condition))
    throw Refusal(kUsage, "--where takes one condition, not `" + condition + "`: " + *refusal);
  errors_.forget();
  if (!isQuery_ && isSqlite(driver()))
    answerOf(set_, ("SELECT 1 FROM " + quoted(OGR_L_GetName(layer_)) + " WHERE " +
                    bracketed(condition) + " LIMIT 1")
                       .c_str());
  if (!errors_.isAny() && OGR_L_SetAttributeFilter(layer_, condition.c_str()) == OGRERR_NONE) {
    OGR_F_Destroy(OGR_L_GetNextFeature(layer_));
    OGR_L_ResetReading(layer_);
    if (!errors_.isAny()) return;
  }
  throw Refusal(kUsage, "--where `" + condition + "`: " + errors_.reason());
}

}  // namespace zevfit::spatial
