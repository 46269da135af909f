#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <sstream>
#include <utility>

#include "session/numbers.h"
#include "zvm/exchange/import.h"
#include "zvm/exchange/import_fields.h"
#include "zvm/exchange/import_join.h"
#include "zvm/points/names.h"
#include "zvm/points/records.h"
#include "zvm/points/rows.h"

// What write.csv or write.table makes of a gstatVariogram: np, dist, gamma, dir.hor, dir.ver and
// id, with or without the names of the rows in front, which write.table gives no heading.

namespace zevfit::exchange {
namespace {

constexpr std::array<const char*, 6> kColumns{"np", "dist", "gamma", "dir.hor", "dir.ver", "id"};
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Columns that only a variogram cloud has.
constexpr std::array<const char*, 2> kCloudColumns{"left", "right"};
/// How far above an edge, in widths, a mean distance counts below it.
constexpr double kEdge = 1e-9;

/// Where fields end at one or more blanks or tabs.
constexpr char kBlanks = ' ';

struct Layout {
  std::array<std::size_t, kColumns.size()> columns{};
  std::size_t count = 0;
  char separator = ',';
  std::size_t rowNames = 0;  ///< fields of a row in front of those that the header names
};

bool isBlank(char c) { return c == ' ' || c == '\t'; }

/// Behind the field at a place that is no blank; blanks between quotes end none.
std::size_t blankAfter(std::string_view line, std::size_t at) {
  bool inQuotes = false;
  for (; at < line.size() && (inQuotes || !isBlank(line[at])); ++at)
    if (line[at] == '"') inQuotes = !inQuotes;
  return at;
}

std::vector<std::string_view> fieldsOf(std::string_view line, char separator) {
  if (separator != kBlanks) return zvm::fieldsOf(line, separator);
  std::vector<std::string_view> fields;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (isBlank(line[at])) continue;
    const std::size_t end = blankAfter(line, at);
    fields.push_back(line.substr(at, end - at));
    at = end;
  }
  return fields;
}

/// That of a table with separators, blanks where the header line has none.
char separatorOf(std::string_view header) {
  const char separator = zvm::separatorOf(header);
  return zvm::fieldsOf(header, separator).size() > 1 ? separator : kBlanks;
}

Layout layoutOf(const zvm::Record& header, const std::string& file) {
  Layout layout;
  layout.separator = separatorOf(header.text);
  std::vector<std::string> names;
  for (const std::string_view field : fieldsOf(header.text, layout.separator))
    names.push_back(zvm::unquoted(field));
  layout.count = names.size();
  for (const char* cloud : kCloudColumns)
    if (std::ranges::find(names, cloud) != names.end())
      throw zvm::DataError({file, header.line, 1}, "a variogram cloud can't be imported");
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const auto found = std::ranges::find(names, kColumns[i]);
    if (found == names.end()) {
      std::vector<std::string> told = names;
      std::erase(told, "");
      throw zvm::DataError({file, header.line, 1},
                           zvm::noSuchName("column", kColumns[i], "the table", told));
    }
    layout.columns[i] = static_cast<std::size_t>(found - names.begin());
  }
  return layout;
}

GstatRow rowOf(const zvm::Record& record, const Layout& layout, const std::string& file) {
  const auto texts = fieldsOf(record.text, layout.separator);
  if (texts.size() != layout.count + layout.rowNames)
    throw zvm::DataError({file, record.line, 1},
                         "the row has " + std::to_string(texts.size()) +
                             (texts.size() == 1 ? " field" : " fields") + ", the table " +
                             std::to_string(layout.count + layout.rowNames) + " columns");
  std::array<ListedField, kColumns.size()> fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string_view text = texts[layout.columns[i] + layout.rowNames];
    const auto column = static_cast<std::uint64_t>(text.data() - record.text.data()) + 1;
    fields[i] = {text, {file, record.line, column}};
  }
  const auto& [np, dist, gamma, horizontal, vertical, id] = fields;
  return {{numberIn(dist), numberIn(gamma), pairsIn(np), dist.place, np.place},
          numberIn(horizontal),
          numberIn(vertical),
          zvm::unquoted(id.text),
          id.place};
}

// ---- Variables.

/// The two ids that an id is the cross of.
using Pair = std::pair<std::string, std::string>;

class Ids {
 public:
  Ids(const std::vector<GstatRow>& rows, const std::vector<ToldCross>& told) {
    for (const GstatRow& row : rows)
      if (std::ranges::count(ids_, row.id) == 0) ids_.push_back(row.id);
    for (const ToldCross& cross : told) {
      if (std::ranges::count(ids_, cross.id) == 0)
        throw zvm::DataError({}, zvm::noSuchName("id", cross.id, "the table", ids_));
      told_[cross.id] = {cross.first, cross.second};
    }
  }

  /// The same id twice for a variable by itself.
  Pair pairOf(const GstatRow& row) const {
    if (const auto found = told_.find(row.id); found != told_.end()) return found->second;
    const std::vector<Pair> splits = splitsOf(row.id);
    if (splits.size() > 1)
      throw zvm::DataError(row.place, "`" + row.id + "` may be the cross of " + textOf(splits[0]) +
                                          " or of " + textOf(splits[1]) + "; --cross-of \"" +
                                          row.id + "=A,B\" tells");
    return splits.empty() ? Pair{row.id, row.id} : splits.front();
  }

  /// Variables by themselves whose id looks like that of a cross.
  std::vector<std::string> doubtful() const {
    std::vector<std::string> found;
    for (const std::string& id : ids_)
      if (id.find('.') != id.npos && !told_.contains(id) && splitsOf(id).empty())
        found.push_back(id);
    return found;
  }

 private:
  static std::string textOf(const Pair& pair) { return pair.first + " and " + pair.second; }

  std::vector<Pair> splitsOf(const std::string& id) const {
    std::vector<Pair> splits;
    for (std::size_t dot = id.find('.'); dot != id.npos; dot = id.find('.', dot + 1)) {
      Pair pair{id.substr(0, dot), id.substr(dot + 1)};
      const bool areIds =
          std::ranges::count(ids_, pair.first) > 0 && std::ranges::count(ids_, pair.second) > 0;
      if (areIds && pair.first != pair.second) splits.push_back(std::move(pair));
    }
    return splits;
  }

  std::vector<std::string> ids_;
  std::map<std::string, Pair> told_;
};

// ---- Directions.

/// The name of gstat's direction, whose dip is positive up and goes round the circle.
std::string directionName(const GstatRow& row) {
  double azimuth = std::fmod(row.azimuth, 360), dip = -std::fmod(row.dip, 360);
  if (dip > 180) dip -= 360;
  if (dip <= -180) dip += 360;
  if (std::abs(dip) > 90) {
    dip = std::copysign(180, dip) - dip;
    azimuth += azimuth < 180 ? 180 : -180;
  }
  return generalText(azimuth + 0.0) + ';' + generalText(dip + 0.0);
}

bool isLevelOrUpright(const GstatRow& row) { return std::fmod(row.dip, 90) == 0; }

// ---- Classes.

/// gstat counts each pair of a cross variogram from both its ends; where a direction dips it may
/// take one of them alone.
std::uint64_t pairsOf(const GstatRow& row, bool isCross) {
  const std::uint64_t pairs = row.lag.pairs;
  if (isCross && pairs % 2 != 0 && isLevelOrUpright(row))
    throw zvm::DataError(row.lag.pairsPlace,
                         "an odd number of pairs, and gstat counts each pair of a cross variogram "
                         "twice; a pseudo cross variogram, or points on the edge of a direction, "
                         "can't be imported");
  return isCross ? pairs / 2 + pairs % 2 : pairs;
}

void refuseNoDistance(const GstatRow& row, bool isCross) {
  if (row.lag.distance > 0) return;
  throw zvm::DataError(row.lag.distancePlace,
                       isCross && row.lag.distance == 0
                           ? "distance 0, which a pseudo cross variogram has: it can't be imported"
                       : row.lag.distance == 0
                           ? "distance 0, which a covariogram has: it can't be imported"
                           : "a distance below 0");
}

/// The class of a row, from 0: widths up to and with their upper edge.
std::size_t classOf(const GstatRow& row, double width) {
  const double k = std::ceil(row.lag.distance / width - kEdge);
  if (k > static_cast<double>(kMostImportedClasses))
    throw zvm::DataError(row.lag.distancePlace, "the distance lies in class " + generalText(k) +
                                                    " of this --width; is it that of gstat?");
  return k < 1 ? 0 : static_cast<std::size_t>(k) - 1;
}

void place(const GstatRow& row, bool isCross, double width, std::vector<zvm::LagClass>& classes) {
  refuseNoDistance(row, isCross);
  std::size_t k = classOf(row, width);
  const auto isTaken = [&] { return k < classes.size() && classes[k].pairs > 0; };
  // Where all pairs lie on an edge, rounding may have put them above it.
  const bool isOnEdge = row.lag.distance >= static_cast<double>(k + 1) * width * (1 - kEdge);
  if (isTaken() && isOnEdge) ++k;
  if (isTaken())
    throw zvm::DataError(row.lag.distancePlace,
                         "a second row of class " + std::to_string(k + 1) + " of `" + row.id +
                             "`; --width is not that of gstat, or it is a variogram cloud");
  if (classes.size() <= k) classes.resize(k + 1);
  classes[k] = {row.lag.distance, row.lag.semivariance, pairsOf(row, isCross)};
}

/// The blocks of a table, which has a row for each class with pairs.
class Blocks {
 public:
  Blocks(const Ids& ids, double width) : ids_(ids), width_(width) {}

  void add(const GstatRow& row) {
    const auto [first, second] = ids_.pairOf(row);
    const std::string name = directionName(row);
    const auto found = std::ranges::find(directions_, name);
    const auto direction = static_cast<std::size_t>(found - directions_.begin());
    if (found == directions_.end()) directions_.push_back(name);
    // Rows of one block stand together: of another file they make a second one.
    const bool isNext = !blocks_.empty() && blocks_.back().first == first &&
                        blocks_.back().second == second && blocks_.back().direction == direction &&
                        blocks_.back().place.file == row.place.file;
    if (!isNext) blocks_.push_back({first, second, direction, {}, row.place});
    if (row.lag.pairs > 0) place(row, first != second, width_, blocks_.back().classes);
  }

  const std::vector<ImportedBlock>& blocks() const { return blocks_; }
  std::vector<std::string>& directions() { return directions_; }

  /// Of the classes up to the last, those without a row.
  bool areMostEmpty() const {
    std::size_t count = 0, filled = 0;
    for (const ImportedBlock& block : blocks_)
      for (const zvm::LagClass& lag : block.classes) {
        ++count;
        filled += lag.pairs > 0 ? 1U : 0U;
      }
    return 2 * filled < count;
  }

 private:
  const Ids& ids_;
  double width_;
  std::vector<ImportedBlock> blocks_;
  std::vector<std::string> directions_;
};

}  // namespace

std::vector<GstatRow> readGstat(std::string_view bytes, const std::string& file) {
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  std::istringstream in{std::string(bytes)};
  zvm::Records records(in, file, {});
  records.setQuotes(true);
  zvm::Record record;
  if (!records.next(record)) throw zvm::DataError({file}, "the file is empty");
  Layout layout = layoutOf(record, file);
  std::vector<GstatRow> rows;
  while (records.next(record)) {
    if (record.text.empty()) continue;
    // As R itself takes a table whose rows have one field more than its header.
    if (rows.empty() && fieldsOf(record.text, layout.separator).size() == layout.count + 1)
      layout.rowNames = 1;
    rows.push_back(rowOf(record, layout, file));
  }
  if (rows.empty()) throw zvm::DataError({file}, "the table has no rows");
  return rows;
}

Imported importGstat(const std::vector<GstatRow>& rows, const GstatOptions& options) {
  const Ids ids(rows, options.crosses);
  Blocks blocks(ids, options.width);
  for (const GstatRow& row : rows) blocks.add(row);
  Imported imported =
      joinBlocks(blocks.blocks(), std::move(blocks.directions()),
                 [&](std::size_t k) { return (static_cast<double>(k) + 0.5) * options.width; });
  for (const std::string& id : ids.doubtful()) {
    std::string warning = '`' + id + "` is taken for a variable by itself; --cross-of \"";
    warning += id + "=A,B\" makes it a cross";
    imported.warnings.push_back(std::move(warning));
  }
  if (blocks.areMostEmpty())
    imported.warnings.push_back("most classes have no row; is --width that of gstat?");
  return imported;
}

}  // namespace zevfit::exchange
