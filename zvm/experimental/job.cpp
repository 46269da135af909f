#include "zvm/experimental/job.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "zvm/experimental/moments.h"
#include "zvm/experimental/sample.h"
#include "zvm/experimental/walk.h"
#include "zvm/points/data_error.h"
#include "zvm/points/names.h"

namespace zevfit::zvm {

namespace {

/// Squares of differences beyond it have no room in a double.
constexpr double kLargestCoordinate = 1e150;
constexpr std::uint64_t kMostTasks = 256;
constexpr std::uint64_t kTaskCandidates = 100'000;
/// Points of which one is asked for the number of its candidates.
constexpr std::size_t kMostInChunk = 64, kChunks = 2048;

double largestOf(const PointSet& points) {
  double largest = 0;
  for (const auto* column : {&points.x, &points.y, &points.z})
    for (const double value : *column) largest = std::max(largest, std::fabs(value));
  return largest;
}

/// FNV-1a over words in place of bytes, turned so that the upper bits of a word change the lower
/// ones of what follows.
class Digest {
 public:
  void add(std::uint64_t word) { state_ = std::rotl((state_ ^ word) * 0x100000001B3U, 29); }
  void add(double value) { add(std::bit_cast<std::uint64_t>(value)); }
  void add(const std::optional<double>& value) { add(value.value_or(-1)); }
  void add(const std::vector<double>& column) {
    for (const double value : column) add(value);
  }
  std::uint64_t value() const { return state_; }

 private:
  std::uint64_t state_ = 0xCBF29CE484222325U;
};

std::uint64_t digestOf(const SortedPoints& points, const Plan& plan) {
  Digest digest;
  for (const auto* column : {&points.x, &points.y, &points.z}) digest.add(*column);
  for (const auto& column : points.values) digest.add(column);
  for (const std::uint32_t row : points.rows) digest.add(std::uint64_t{row});
  for (const Direction& direction : plan.directions) {
    for (const double angle : {direction.azimuth, direction.dip, direction.tolerance})
      digest.add(angle);
    digest.add(direction.band);
    digest.add(direction.vband);
  }
  for (const Pairing& pairing : plan.pairings) {
    digest.add(std::uint64_t{pairing.first});
    digest.add(std::uint64_t{pairing.second});
  }
  return digest.value();
}

std::vector<Frame::Variable> variablesOf(const PointSet& points, const Plan& plan) {
  std::vector<Frame::Variable> variables;
  for (const Pairing& pairing : plan.pairings) {
    const Moments moments = momentsOf(points.values[pairing.first], points.values[pairing.second]);
    variables.push_back({pairing.name, pairing.isCross(), moments.covariance, moments.points});
  }
  return variables;
}

/// gstat answers with another semivariogram, the pseudo cross-variogram, where two variables are
/// not known at the same points.
void refuseDifferentPoints(const PointSet& points, const Plan& plan) {
  for (const Pairing& pairing : plan.pairings)
    for (std::size_t i = 0; i < points.size(); ++i)
      if (std::isnan(points.values[pairing.first][i]) !=
          std::isnan(points.values[pairing.second][i]))
        throw DataError({}, "`" + utf8Of(pairing.name) +
                                "`: gstat has no cross semivariogram of variables that are not "
                                "known at the same points");
}

Frame frameOf(const PointSet& points, const Plan& plan) {
  Frame frame;
  frame.title = plan.title;
  frame.lags = plan.lags;
  frame.zero = plan.zero;
  frame.compat = plan.compat;
  frame.variables = variablesOf(points, plan);
  for (const Direction& direction : plan.directions)
    frame.directions.push_back({direction.name, direction.tolerance >= 90});
  return frame;
}

std::uint64_t candidatesOf(Walk& walk, std::size_t point) {
  std::uint64_t candidates = 0;
  walk.run(point, point + 1,
           [&](std::size_t, std::size_t first, std::size_t last) { candidates += last - first; });
  return candidates;
}

/// Cuts the points where equal numbers of candidates lie between the cuts, as far as one point of
/// each chunk can tell.
std::vector<Task> tasksOf(const SortedPoints& points, double reach) {
  const std::size_t size = points.size();
  const std::size_t chunk = std::clamp<std::size_t>(size / kChunks, 1, kMostInChunk);
  Walk walk(points, reach);
  std::vector<Task> chunks;
  std::uint64_t total = 0;
  for (std::size_t begin = 0; begin < size; begin += chunk) {
    const std::size_t end = std::min(begin + chunk, size);
    chunks.push_back({begin, end, candidatesOf(walk, (begin + end) / 2) * (end - begin)});
    total += chunks.back().candidates;
  }
  const std::uint64_t count = std::clamp<std::uint64_t>(total / kTaskCandidates, 1, kMostTasks);
  std::vector<Task> tasks;
  std::uint64_t passed = 0;
  for (const Task& one : chunks) {
    const std::uint64_t before = std::exchange(passed, passed + one.candidates);
    // A task begins where the chunk in front has passed another share of the whole.
    const std::uint64_t share = total / count + 1;
    const bool begins = tasks.empty() || before / share > tasks.size() - 1;
    if (begins) tasks.push_back({one.begin, one.begin, 0});
    tasks.back().end = one.end;
    tasks.back().candidates += one.candidates;
  }
  return tasks;
}

}  // namespace

std::uint64_t Job::candidates(std::uint64_t part, std::uint64_t parts) const {
  std::uint64_t sum = 0;
  for (std::uint64_t task = part - 1; task < tasks.size(); task += parts)
    sum += tasks[task].candidates;
  return sum;
}

Job prepare(PointSet points, Plan plan, const std::optional<Sample>& sample) {
  if (const auto refusal = planRefusal(plan, points.inSpace)) throw PlanError(*refusal);
  PointCounts counts{points.read, points.skipped, 0, 0, 0};
  counts.unknown = dropUnknown(points);
  if (sample && sample->count < points.size()) {
    plan.title += " (sample of " + std::to_string(sample->count) + " of " +
                  std::to_string(points.size()) + " points; seed " + std::to_string(sample->seed) +
                  ')';
    drawSample(points, sample->count, sample->seed);
  }
  counts.used = points.size();
  const double largest = largestOf(points);
  if (largest > kLargestCoordinate) throw DataError({}, "a coordinate beyond 1e150");
  if (plan.compat == Compat::gstat) refuseDifferentPoints(points, plan);
  Frame frame = frameOf(points, plan);
  const LagRule rule(plan, largest);
  if (rule.edge() > plan.lags.width / 4)
    throw DataError({}, "the lag classes are narrower than what coordinates of this size resolve");
  SortedPoints sorted =
      sortIntoStrips(std::move(points), rule.reach(), plan.compat != Compat::none);
  counts.duplicates = sorted.duplicates;
  frame.counts = counts;
  std::vector<Task> tasks = tasksOf(sorted, rule.reach());
  frame.tasks = tasks.size();
  frame.digest = digestOf(sorted, plan);
  return {std::move(plan), std::move(frame), rule, std::move(sorted), std::move(tasks)};
}

std::optional<std::string> pointsRefusal(const Frame& frame) {
  const std::string plain = "no semivariogram: ", counts = countsText(frame.counts);
  if (frame.counts.used == 0) return plain + "no point with coordinates and a value" + counts;
  if (frame.counts.used == 1) return plain + "one point alone" + counts;
  const auto few = std::ranges::find_if(frame.variables, [](const Frame::Variable& variable) {
    return !variable.isCross && variable.points < 2;
  });
  if (few == frame.variables.end()) return std::nullopt;
  return plain + "`" + utf8Of(few->name) + "` has fewer than two values" + counts;
}

SumTable emptyTable(const Frame& frame) {
  return {frame.variables.size(), summedDirections(frame.compat, frame.directions.size()),
          static_cast<std::size_t>(frame.lags.count)};
}

}  // namespace zevfit::zvm
