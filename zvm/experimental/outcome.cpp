#include "zvm/experimental/outcome.h"

#include <cmath>

#include "files/variogram_writer.h"
#include "session/session.h"
#include "zvm/points/data_error.h"
#include "zvm/points/names.h"

namespace zevfit::zvm {

namespace {

/// gamv counts a pair from both of its points where all directions count together.
std::uint64_t timesCounted(const Frame& frame, std::size_t variable, std::size_t direction) {
  const bool isTwice = frame.compat == Compat::gamv && !frame.variables[variable].isCross &&
                       frame.directions[direction].isOmnidirectional;
  return isTwice ? 2 : 1;
}

/// Pairs at the same place count in the first class where that was asked for, and always for gstat.
bool countsZero(const Frame& frame) {
  return frame.zero == ZeroDistances::first || frame.compat == Compat::gstat;
}

/// What counts in class k. gstat's crosses go through both steps of each pair.
Sum sumOf(const Frame& frame, const SumTable& sums, std::size_t variable, std::size_t direction,
          std::int64_t k) {
  const auto slot = static_cast<std::size_t>(k);
  const bool isBoth = frame.compat == Compat::gstat && frame.variables[variable].isCross;
  Sum sum = sums.at(variable, direction, slot);
  if (isBoth) sum.add(sums.at(variable, frame.directions.size() + direction, slot));
  if (k != 1 || !countsZero(frame)) return sum;
  const Sum& zero = sums.at(variable, 0, 0);
  sum.add(zero);
  if (isBoth) sum.add(zero);
  return sum;
}

LagClass classOf(const Frame& frame, const Sum& sum, std::int64_t k) {
  if (sum.pairs == 0) return {frame.lags.centre(k), 0, 0};
  const auto pairs = static_cast<double>(sum.pairs);
  return {sum.distance / pairs, sum.product / (2 * pairs), sum.pairs};
}

std::vector<LagClass> classesOf(const Frame& frame, const SumTable& sums, std::size_t variable,
                                std::size_t direction) {
  std::vector<LagClass> classes;
  for (std::int64_t k = 1; k <= frame.lags.count; ++k) {
    LagClass lag = classOf(frame, sumOf(frame, sums, variable, direction, k), k);
    if (!std::isfinite(lag.distance) || !std::isfinite(lag.semivariance))
      throw DataError({}, "the values of `" + utf8Of(frame.variables[variable].name) +
                              "` are too large for a semivariance");
    lag.pairs *= timesCounted(frame, variable, direction);
    classes.push_back(lag);
  }
  return classes;
}

/// One row of a table of the session, whose slot 0 is not used.
template <class T, class Of>
std::vector<T> rowOf(const std::vector<LagClass>& classes, Of&& of) {
  std::vector<T> row(1);
  for (const LagClass& lag : classes) row.push_back(of(lag));
  return row;
}

void fill(FileTables& tables, const Experimental& experimental) {
  const Frame& frame = experimental.frame;
  tables.nvar = static_cast<std::int64_t>(frame.variables.size());
  tables.ndir = static_cast<std::int64_t>(frame.directions.size());
  tables.nclass = frame.lags.count;
  tables.hlag.create(tables.nclass);
  tables.gam.create(tables.nclass);
  tables.npairs.create(tables.nclass);
  for (std::int64_t d = 1; d <= tables.ndir; ++d)
    tables.dirname(d) = frame.directions[static_cast<std::size_t>(d - 1)].name;
  for (std::int64_t v = 1; v <= tables.nvar; ++v) {
    const Frame::Variable& variable = frame.variables[static_cast<std::size_t>(v - 1)];
    tables.varname(v) = variable.name;
    tables.variance(v) = variable.variance;
    for (std::int64_t d = 1; d <= tables.ndir; ++d) {
      const auto& classes =
          experimental.classes[static_cast<std::size_t>(v - 1)][static_cast<std::size_t>(d - 1)];
      tables.hlag.setRow({v, d}, rowOf<Cell>(classes, [](const auto& c) { return c.distance; }));
      tables.gam.setRow({v, d},
                        rowOf<double>(classes, [](const auto& c) { return c.semivariance; }));
      tables.npairs.setRow(
          {v, d}, rowOf<float>(classes, [](const auto& c) { return static_cast<float>(c.pairs); }));
    }
  }
}

}  // namespace

std::string countsText(const PointCounts& counts) {
  return " (" + std::to_string(counts.read) + " read, " + std::to_string(counts.skipped) +
         " without coordinates, " + std::to_string(counts.unknown) + " without a value)";
}

Experimental experimentalOf(const Frame& frame, const SumTable& sums) {
  Experimental experimental{frame, {}, {}};
  for (std::size_t v = 0; v < frame.variables.size(); ++v) {
    if (!std::isfinite(frame.variables[v].variance))
      throw DataError({}, "the values of `" + utf8Of(frame.variables[v].name) +
                              "` are too large for a variance");
    experimental.zeroPairs.push_back(sums.at(v, 0, 0).pairs);
    experimental.classes.emplace_back();
    for (std::size_t d = 0; d < frame.directions.size(); ++d)
      experimental.classes.back().push_back(classesOf(frame, sums, v, d));
  }
  return experimental;
}

void composeExperimental(const Experimental& experimental, ByteSink& out) {
  Session session;
  fill(session, experimental);
  composeData(session, session.nvar, experimental.frame.title, out);
}

}  // namespace zevfit::zvm
