#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "files/output_file.h"
#include "zvm/experimental/plan.h"
#include "zvm/experimental/sums.h"

namespace zevfit::zvm {

/// What became of the points.
struct PointCounts {
  std::uint64_t read = 0;        ///< rows of the file
  std::uint64_t skipped = 0;     ///< without coordinates
  std::uint64_t unknown = 0;     ///< without a value of any variable
  std::uint64_t used = 0;        ///< drawn, where a sample was asked for
  std::uint64_t duplicates = 0;  ///< of those used, at the very place of another
  bool operator==(const PointCounts&) const = default;
};

/// Of points that make no semivariogram how many there are and why they do not count, as in
/// " (155 read, 2 without coordinates, 153 without a value)".
std::string countsText(const PointCounts& counts);

/// All that a finished computation says beside its sums; the same in each part of it.
struct Frame {
  struct Variable {
    std::string name;  ///< Latin-1
    bool isCross = false;
    double variance = 0;       ///< of a cross variable the covariance
    std::uint64_t points = 0;  ///< with a value; of a cross variable with both
    bool operator==(const Variable&) const = default;
  };
  /// A direction's name, and whether gamv counts its pairs twice.
  struct Toward {
    std::string name;
    bool isOmnidirectional = false;
    bool operator==(const Toward&) const = default;
  };

  std::string title;  ///< Latin-1
  LagClasses lags;
  ZeroDistances zero = ZeroDistances::skip;
  Compat compat = Compat::none;
  std::vector<Variable> variables;
  std::vector<Toward> directions;
  PointCounts counts;
  std::uint64_t tasks = 0;   ///< into which the pairs are divided, whoever computes them
  std::uint64_t digest = 0;  ///< of all that the sums depend on
};

/// A class of an experimental semivariogram.
struct LagClass {
  double distance = 0;      ///< mean of its pairs; of an empty class its centre
  double semivariance = 0;  ///< 0 in an empty class
  std::uint64_t pairs = 0;  ///< unordered; as a peer counts them where that was asked for
};

/// An experimental semivariogram for each variable and direction.
struct Experimental {
  Frame frame;
  std::vector<std::vector<std::vector<LagClass>>> classes;  ///< by variable, direction, class
  std::vector<std::uint64_t> zeroPairs;                     ///< at the same place, by variable
};

/// Means of sums. Throws DataError where one is no finite number.
Experimental experimentalOf(const Frame& frame, const SumTable& sums);

/// Writes a variogram file without models. Throws Fault where it can't be written.
void composeExperimental(const Experimental& experimental, ByteSink& out);

}  // namespace zevfit::zvm
