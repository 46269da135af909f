#include "zvm/experimental/surface_map.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <exception>
#include <limits>
#include <mutex>

#include "zvm/experimental/strips.h"
#include "zvm/experimental/threads.h"
#include "zvm/experimental/walk.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm {
namespace {

/// Into so many runs of points the work is divided, whoever does which.
constexpr std::size_t kTasks = 32;
constexpr std::chrono::milliseconds kTold{100};
/// A step that is above an edge by no more counts below it.
constexpr double kEdgeShare = 1e-9, kEdgeUlps = 4;

struct CellSum {
  double squares = 0;
  std::uint64_t pairs = 0;
};
using Sums = std::vector<CellSum>;

double edgeOf(const PointSet& points, double width) {
  double largest = 0;
  for (const auto* column : {&points.x, &points.y})
    for (const double value : *column) largest = std::max(largest, std::abs(value));
  const double ulp = std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
  const double edge = std::max(kEdgeShare * width, kEdgeUlps * ulp);
  if (!(edge <= width / 4))
    throw DataError({}, "the squares are smaller than what coordinates of this size resolve");
  return edge;
}

PointSet knownPoints(const PointSet& points, std::size_t variable) {
  PointSet known;
  known.values.resize(1);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const double value = points.values[variable][i];
    if (std::isnan(value)) continue;
    known.x.push_back(points.x[i]);
    known.y.push_back(points.y[i]);
    known.values[0].push_back(value);
  }
  return known;
}

/// All threads read the points and sum what they take.
class Surface {
 public:
  Surface(PointSet points, double width, std::int64_t reach)
      : width_(width),
        edge_(edgeOf(points, width)),
        reach_(reach),
        points_(sortIntoStrips(std::move(points), longest(), false)),
        sums_(kTasks) {}

  void run(unsigned threads, const std::function<void(double)>& progress) {
    const unsigned count = std::clamp<unsigned>(threads, 1, kTasks);
    const auto workers = startThreads(count, [this] { work(); });
    std::unique_lock lock(mutex_);
    while (done_ < kTasks && !failed_) {
      changed_.wait_for(lock, kTold);
      if (progress) progress(static_cast<double>(done_) / kTasks);
    }
    if (failed_) std::rethrow_exception(failed_);
  }

  /// Added in the order of the tasks.
  Sums whole() const {
    Sums sums(cellCount());
    for (const Sums& task : sums_)
      for (std::size_t i = 0; i < task.size(); ++i) {
        sums[i].squares += task[i].squares;
        sums[i].pairs += task[i].pairs;
      }
    return sums;
  }

 private:
  std::int64_t side() const { return 2 * reach_ + 1; }
  std::size_t cellCount() const { return static_cast<std::size_t>(side() * side()); }
  double longest() const {
    return std::sqrt(2.0) * (width_ * (static_cast<double>(reach_) + 0.5) + edge_);
  }

  void work() {
    try {
      doTasks();
    } catch (...) {
      const std::lock_guard lock(mutex_);
      failed_ = std::current_exception();
      next_ = kTasks;
      changed_.notify_one();
    }
  }

  void doTasks() {
    Walk walk(points_, longest());
    for (std::size_t task = next_++; task < kTasks; task = next_++) {
      const std::size_t count = points_.size();
      Sums sums(cellCount());
      walk.run(count * task / kTasks, count * (task + 1) / kTasks,
               [&](std::size_t i, std::size_t first, std::size_t last) {
                 for (std::size_t j = first; j < last; ++j) take(i, j, sums);
               });
      const std::lock_guard lock(mutex_);
      sums_[task] = std::move(sums);
      ++done_;
      changed_.notify_one();
    }
  }

  void take(std::size_t i, std::size_t j, Sums& sums) const {
    const double dx = points_.x[j] - points_.x[i], dy = points_.y[j] - points_.y[i];
    const double east = squareOf(dx), north = squareOf(dy);
    const auto reach = static_cast<double>(reach_);
    if ((dx == 0 && dy == 0) || std::abs(east) > reach || std::abs(north) > reach) return;
    const double sign = north < 0 || (north == 0 && east < 0) ? -1 : 1;
    const auto column = static_cast<std::int64_t>(sign * east) + reach_;
    const auto row = static_cast<std::int64_t>(sign * north) + reach_;
    CellSum& sum = sums[static_cast<std::size_t>(row * side() + column)];
    const double difference = points_.values[0][j] - points_.values[0][i];
    sum.squares += difference * difference;
    ++sum.pairs;
  }

  /// The square of a step along an axis, the same on both sides of the origin.
  double squareOf(double step) const {
    const double number = std::ceil((std::abs(step) - edge_) / width_ - 0.5);
    return std::copysign(std::max(number, 0.0), step);
  }

  double width_, edge_;
  std::int64_t reach_;
  SortedPoints points_;
  std::vector<Sums> sums_;
  std::atomic<std::size_t> next_ = 0;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::exception_ptr failed_;
  std::size_t done_ = 0;
};

/// Sums stand in the northern half alone, of the middle row in its eastern.
SurfaceMap mirrored(const Sums& sums, double width, std::int64_t reach) {
  SurfaceMap map{reach, width, std::vector<SurfaceCell>(sums.size())};
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const CellSum& sum = sums[i];
    if (sum.pairs == 0) continue;
    const double semivariance = sum.squares / (2 * static_cast<double>(sum.pairs));
    if (!std::isfinite(semivariance))
      throw DataError({}, "a semivariance is beyond the numbers: the values are too large");
    map.cells[i] = map.cells[sums.size() - 1 - i] = {semivariance, sum.pairs};
  }
  return map;
}

}  // namespace

SurfaceMap surfaceMapOf(const PointSet& points, std::size_t variable, double width,
                        std::int64_t reach, unsigned threads,
                        const std::function<void(double)>& progress) {
  Surface surface(knownPoints(points, variable), width, reach);
  surface.run(threads, progress);
  return mirrored(surface.whole(), width, reach);
}

}  // namespace zevfit::zvm
