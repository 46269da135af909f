#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/pair.h"
#include "zvm/checking/cursor.h"

namespace zevfit::checking {

/// Errors are what the desktop program would refuse, read out of step or end at.
enum class Severity { error, warning };
/// What a finding is about: how the file is read, or what stands in it.
enum class Topic { reading, content };

struct Finding {
  Severity severity = Severity::error;
  Place place;
  std::string text;  ///< in the bytes of the file, that is in Latin-1
  Topic topic = Topic::content;
};

struct ClassValues {
  double distance = 0, semivariance = 0;
  float pairs = 0;
};

/// A line of a model as it stands: nugget, or structure 1 to 3.
struct ModelLine {
  double flag = 0;
  std::string letter;
  double sill = 0, range = 0;
};
using ModelLines = std::array<ModelLine, 4>;

/// What a file holds, as it was read for the check. Of numbers that are texts, 0. Pairs by variable
/// and within it by direction.
struct FileContent {
  std::string title, tag;
  std::int64_t variables = 0, directions = 0, classes = 0;
  std::vector<std::string> variableNames, directionNames;
  std::vector<double> variances;
  std::vector<std::vector<ClassValues>> data;
  std::vector<ModelLines> models;  ///< empty without a block of models; fewer where it is cut
};

struct CheckResult {
  FileContent content;
  std::vector<Finding> findings;  ///< in the order of their places
  bool hasErrors() const;
};

/// Looks at all of a variogram file. Without errors the reader takes the file in step: its tables
/// hold this content. Behind a count that is none, and behind an early end, nothing is looked at.
/// Throws nothing but the end of the memory; the time is in proportion to the bytes.
CheckResult checkFile(std::string_view bytes);

}  // namespace zevfit::checking
