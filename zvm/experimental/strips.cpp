#include "zvm/experimental/strips.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zevfit::zvm {

namespace {

/// Parts of the reach that a strip may be high, finest first.
constexpr std::array<int, 6> kParts{8, 6, 4, 3, 2, 1};
constexpr double kMostRows = 2147483648.0;
/// What looking up a run of partners costs, in pairs.
constexpr double kRunCost = 6;

struct Extent {
  double low = 0, high = 0;
  double length() const { return high - low; }
};

Extent extentOf(const std::vector<double>& column) {
  if (column.empty()) return {};
  const auto [low, high] = std::ranges::minmax(column);
  return {low, high};
}

/// The parts for which looking up runs and testing pairs take least, with points spread evenly.
int partsFor(const PointSet& points, const Extent& x, const Extent& y, const Extent& z,
             double reach) {
  const auto within = [reach](const Extent& e) { return std::max(e.length(), reach / 8); };
  const bool inSpace = points.inSpace;
  double density = static_cast<double>(points.size()) / within(x) / within(y);
  if (inSpace) density /= within(z);
  int best = kParts.front();
  double least = std::numeric_limits<double>::infinity();
  for (const int parts : kParts) {
    const double height = reach / parts;
    const double side = 2 * reach + height;
    const double rows = std::min(side, within(y)) / height;
    const double layers = inSpace ? std::min(side, within(z)) / height : 1;
    const double area =
        side * std::min(side, within(y)) * (inSpace ? std::min(side, within(z)) : 1);
    const double cost = rows * layers * kRunCost + density * area;
    if (cost < least) {
      least = cost;
      best = parts;
    }
  }
  return best;
}

/// What points are sorted by.
struct Key {
  double x = 0;
  std::uint32_t layer = 0, row = 0;
  std::uint32_t index = 0;
};

std::uint32_t stripOf(double value, const Extent& extent, double height) {
  return static_cast<std::uint32_t>((value - extent.low) / height);
}

std::vector<double> picked(std::vector<double> column, const std::vector<Key>& keys) {
  std::vector<double> sorted;
  if (column.empty()) return sorted;
  sorted.reserve(column.size());
  for (const Key& key : keys) sorted.push_back(column[key.index]);
  return sorted;
}

void cutStrips(SortedPoints& sorted, const std::vector<Key>& keys) {
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const double y = sorted.y[i], z = sorted.z.empty() ? 0 : sorted.z[i];
    const bool isNew =
        i == 0 || keys[i].layer != keys[i - 1].layer || keys[i].row != keys[i - 1].row;
    if (isNew) sorted.strips.push_back({keys[i].layer, keys[i].row, i, i, y, y, z, z});
    Strip& strip = sorted.strips.back();
    strip.last = i + 1;
    strip.yLow = std::min(strip.yLow, y);
    strip.yHigh = std::max(strip.yHigh, y);
    strip.zLow = std::min(strip.zLow, z);
    strip.zHigh = std::max(strip.zHigh, z);
    const bool again = !isNew && sorted.x[i] == sorted.x[i - 1] && y == sorted.y[i - 1] &&
                       (sorted.z.empty() || z == sorted.z[i - 1]);
    sorted.duplicates += again ? 1U : 0U;
  }
}

}  // namespace

SortedPoints sortIntoStrips(PointSet points, double reach, bool withRows) {
  const Extent x = extentOf(points.x), y = extentOf(points.y), z = extentOf(points.z);
  const int parts = partsFor(points, x, y, z, reach);
  const double height = std::max(reach / parts, y.length() / kMostRows);
  const double depth = std::max(reach / parts, z.length() / kMostRows);
  const bool inSpace = points.inSpace;
  std::vector<Key> keys;
  keys.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i)
    keys.push_back({points.x[i], inSpace ? stripOf(points.z[i], z, depth) : 0,
                    stripOf(points.y[i], y, height), static_cast<std::uint32_t>(i)});
  std::ranges::sort(keys, [&](const Key& a, const Key& b) {
    if (a.layer != b.layer) return a.layer < b.layer;
    if (a.row != b.row) return a.row < b.row;
    if (a.x != b.x) return a.x < b.x;
    if (points.y[a.index] != points.y[b.index]) return points.y[a.index] < points.y[b.index];
    if (inSpace && points.z[a.index] != points.z[b.index])
      return points.z[a.index] < points.z[b.index];
    return a.index < b.index;
  });
  SortedPoints sorted;
  sorted.around = static_cast<std::uint32_t>(parts) + 1;
  sorted.x = picked(std::move(points.x), keys);
  sorted.y = picked(std::move(points.y), keys);
  sorted.z = picked(std::move(points.z), keys);
  for (std::vector<double>& column : points.values)
    sorted.values.push_back(picked(std::exchange(column, {}), keys));
  if (withRows)
    for (const Key& key : keys) sorted.rows.push_back(key.index);
  cutStrips(sorted, keys);
  return sorted;
}

}  // namespace zevfit::zvm
