// Threads and parts change no byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "tests/zvm/compute/samples.h"
#include "zvm/experimental/moments.h"
#include "zvm/experimental/part_file.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm::test {
namespace {

PointSet somePoints() {
  PointSet points = scattered(3000, 2, false, anywhere);
  for (std::size_t i = 0; i < points.size(); i += 7) points.values[1][i] = kMissing;
  return points;
}

Plan somePlan() {
  Plan plan = planOf(0.05, 8, {toward("0;0", 22.5), toward("45;0", 60), toward("0;0", 90)});
  plan.pairings = {{0, 0, "A"}, {1, 1, "B"}, {0, 1, "A-B"}};
  return plan;
}

std::string partOf(const Job& job, std::uint64_t part, std::uint64_t parts) {
  MemorySink sink;
  writePartHeader(job.frame, part, parts, sink);
  RunOptions options{2, part, parts, {}};
  runTasks(job, options,
           [&](std::uint64_t task, const SumTable& sums) { writePartTask(task, sums, sink); });
  writePartEnd(sink);
  return sink.bytes;
}

/// The variogram file of joined parts.
std::string joined(const std::vector<std::string>& parts) {
  std::vector<std::istringstream> streams;
  streams.reserve(parts.size());
  for (const std::string& part : parts) streams.emplace_back(part);
  std::vector<PartReader> readers;
  for (std::size_t i = 0; i < streams.size(); ++i)
    readers.emplace_back(streams[i], "part" + std::to_string(i));
  return fileOf(mergeParts(readers));
}

std::string refusal(const std::vector<std::string>& parts) {
  try {
    joined(parts);
  } catch (const DataError& error) {
    return error.what();
  }
  return "";
}

TEST(Threads, ChangeNoByte) {
  const PointSet points = somePoints();
  const std::string one = fileOf(computed(points, somePlan(), 1));
  EXPECT_GT(prepare(points, somePlan()).tasks.size(), 8U);
  for (const unsigned threads : {2U, 3U, 8U})
    EXPECT_EQ(fileOf(computed(points, somePlan(), threads)), one) << threads;
}

TEST(Parts, JoinToTheBytesOfAnUndividedRun) {
  const PointSet points = somePoints();
  const std::string whole = fileOf(computed(points, somePlan()));
  const Job job = prepare(points, somePlan());
  for (const std::uint64_t count : {1U, 2U, 3U, 7U, 300U}) {
    std::vector<std::string> parts;
    for (std::uint64_t part = count; part >= 1; --part) parts.push_back(partOf(job, part, count));
    EXPECT_EQ(joined(parts), whole) << count << " parts";
  }
}

TEST(Parts, AreRefusedWhereOneIsMissingTwiceThereOrOfAnotherRun) {
  const Job job = prepare(somePoints(), somePlan());
  const std::string first = partOf(job, 1, 3), second = partOf(job, 2, 3),
                    third = partOf(job, 3, 3);
  EXPECT_EQ(refusal({first, second}), "part 3 of 3 is missing");
  EXPECT_EQ(refusal({third}), "part 1 of 3 is missing");
  EXPECT_EQ(refusal({first, second, second}), "part2: part 2 a second time, as in part1");
  PointSet others = somePoints();
  others.values[0][5] += 1;
  const Job other = prepare(others, somePlan());
  EXPECT_EQ(refusal({first, partOf(other, 2, 3), third}),
            "part1: a part of another computation than part0");
  EXPECT_EQ(refusal({first, partOf(job, 2, 4), third}),
            "part1: a part of another computation than part0");
}

std::uint64_t digestOf(const PointSet& points, const Plan& plan) {
  return prepare(points, plan).frame.digest;
}

// Two values that change their signs leave number, mean and variance as they are.
TEST(Parts, TellPointsWithOtherSignsApart) {
  PointSet points = scattered(4, 1, false, anywhere);
  points.values[0] = {1, -1, 2, -2};
  PointSet turned = points;
  turned.values[0] = {-1, 1, 2, -2};
  EXPECT_EQ(momentsOf(points.values[0], points.values[0]).covariance,
            momentsOf(turned.values[0], turned.values[0]).covariance);
  EXPECT_NE(digestOf(points, planOf(0.2, 3)), digestOf(turned, planOf(0.2, 3)));
}

// What gstat counts depends on the order of the rows, what we count does not.
TEST(Parts, TellRowsInAnotherOrderApartWhereItMatters) {
  PointSet points = scattered(2, 1, true, anywhere);
  PointSet turned = points;
  for (auto* column : {&turned.x, &turned.y, &turned.z, &turned.values[0]})
    std::ranges::reverse(*column);
  Plan plan = planOf(0.2, 3);
  EXPECT_EQ(digestOf(points, plan), digestOf(turned, plan));
  plan.compat = Compat::gstat;
  EXPECT_NE(digestOf(points, plan), digestOf(turned, plan));
}

TEST(Parts, WithoutATaskAreReadToTheirEnd) {
  const Job job = prepare(scattered(20, 1, false, anywhere), planOf(0.2, 3));
  ASSERT_EQ(job.tasks.size(), 1U);
  EXPECT_GT(job.candidates(1, 2), 0U);
  EXPECT_EQ(job.candidates(2, 2), 0U);
  std::istringstream first(partOf(job, 1, 2)), second(partOf(job, 2, 2));
  EXPECT_TRUE(PartReader(first, "1").hasTasks());
  EXPECT_FALSE(PartReader(second, "2").hasTasks());
  EXPECT_EQ(second.peek(), std::istream::traits_type::eof());
  std::istringstream cut(partOf(job, 2, 2).substr(0, partOf(job, 2, 2).size() - 4));
  EXPECT_THROW(PartReader(cut, "2"), DataError);
}

TEST(Parts, AreRefusedWhereTheyAreCutOrNoParts) {
  const Job job = prepare(scattered(20, 1, true, anywhere), planOf(0.2, 3));
  const std::string part = partOf(job, 1, 1);
  for (std::size_t length = 0; length + 1 < part.size(); ++length)
    EXPECT_NE(refusal({part.substr(0, length)}), "") << part.substr(0, length);
  EXPECT_EQ(refusal({part}), "");
  EXPECT_EQ(refusal({"x,y,v\n1,2,3\n"}), "part0:1: this is no part of a computation");
}

// Lines 1 to 11 are the header: what it is, title, lags, rule, points, tasks, variables, a
// variable, directions, a direction, part. Behind it stand a task, of which the first is 0, and its
// sums.
TEST(Parts, AreRefusedByTheLineThatIsNone) {
  const Job job = prepare(scattered(20, 1, true, anywhere), planOf(0.2, 3));
  struct Row {
    std::size_t line;
    const char *text, *refusal;
  };
  const Row rows[] = {
      {2, "tilte t", "`title` is looked for here"},
      {3, "lags q 3", "`q` is no number"},
      {3, "lags 0 0", "a bad number of classes"},
      {4, "rule 0 3", "a bad rule"},
      {5, "points 1 2 3 4 x", "`x` is no count"},
      {7, "variables 0", "a bad number of variables"},
      {7, "variables 41", "a bad number of variables"},
      {9, "directions 0", "a bad number of directions"},
      {9, "directions 21", "a bad number of directions"},
      {11, "part 0 1", "a bad number of the part"},
      {11, "part 2 1", "a bad number of the part"},
      {12, "task 7", "task 0 is looked for here"},
      {13, "99 1 0 0", "a sum of no class"},
  };
  for (const auto& [number, text, why] : rows) {
    std::istringstream part(partOf(job, 1, 1));
    std::string changed, line;
    for (std::size_t at = 1; std::getline(part, line); ++at)
      changed += (at == number ? text : line) + '\n';
    EXPECT_EQ(refusal({changed}), "part0:" + std::to_string(number) + ": " + why) << text;
  }
}

TEST(Progress, EndsARunThatItRefuses) {
  const Job job = prepare(scattered(20'000, 1, false, anywhere), planOf(0.5, 20));
  RunOptions options;
  options.progress = [](double) { return false; };
  EXPECT_THROW(runWhole(job, options), Cancelled);
}

TEST(Sample, DrawsTheSamePointsForASeed) {
  PointSet points = scattered(100, 1, false, anywhere);
  const PointSet all = points;
  drawSample(points, 10, 42);
  ASSERT_EQ(points.size(), 10U);
  PointSet again = all;
  drawSample(again, 10, 42);
  EXPECT_EQ(points.x, again.x);
  PointSet other = all;
  drawSample(other, 10, 43);
  EXPECT_NE(points.x, other.x);
  drawSample(again, 10, 1);
  EXPECT_EQ(again.size(), 10U);
}

// The first numbers of the published generator for the seed 1234567.
TEST(Sample, GeneratorIsSplitMix) {
  SplitMix random(1234567);
  EXPECT_EQ(random.next(), 6457827717110365317U);
  EXPECT_EQ(random.next(), 3203168211198807973U);
  EXPECT_EQ(random.next(), 9817491932198370423U);
}

TEST(Sample, IsNamedInTheTitle) {
  const Job job = prepare(scattered(100, 1, false, anywhere), planOf(0.2, 3), Sample{10, 42});
  EXPECT_EQ(job.frame.title, "title (sample of 10 of 100 points; seed 42)");
  EXPECT_EQ(job.frame.counts.used, 10U);
}

}  // namespace
}  // namespace zevfit::zvm::test
