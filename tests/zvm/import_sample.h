#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "tests/zvm/command.h"

namespace zevfit::test {

using Arguments = std::vector<std::string>;

/// A title and lines as gamv prints them: a74, and 1x,i3,1x,f12.3,1x,f12.5,1x,i8,4(1x,f14.5).
inline std::string title(const std::string& kind, const std::string& tail, const std::string& head,
                         int direction) {
  char line[128];
  std::snprintf(line, sizeof line, "%-24stail:%-12s head:%-12s direction %2d", kind.c_str(),
                tail.c_str(), head.c_str(), direction);
  std::string padded = line;
  padded.resize(74, ' ');
  return padded + '\n';
}

inline std::string line(int number, double distance, double value, int pairs) {
  char text[128];
  std::snprintf(text, sizeof text, " %3d %12.3f %12.5f %8d %14.5f %14.5f %14.5f %14.5f\n", number,
                distance, value, pairs, 1.5, 1.5, 0.25, 0.25);
  return text;
}

/// Distance 0, near pairs, and two lags of 10; the pairs of near ones and of both lags.
inline std::string listing(const std::string& kind, const std::string& tail,
                           const std::string& head, int direction, int near, int first,
                           int second) {
  return title(kind, tail, head, direction) + line(1, 0, 0, 8) +
         line(2, near > 0 ? 3.5 : 0, near > 0 ? 0.25 : 0, near) + line(3, 10.125, 0.5, first) +
         line(4, second > 0 ? 19.75 : 0, second > 0 ? 1.5 : 0, second);
}

inline const std::string kSemivariogram = "Semivariogram", kCross = "Cross Semivariogram";

/// Two variables and their cross, one direction: ids as gstat makes them, every pair of the cross
/// counted twice.
inline constexpr const char* kTable =
    "\"\",\"np\",\"dist\",\"gamma\",\"dir.hor\",\"dir.ver\",\"id\"\n"
    "\"1\",8,9.5,-0.25,0,0,\"zinc.lead\"\n"
    "\"2\",12,31,0.5,0,0,\"zinc.lead\"\n"
    "\"3\",4,9.5,1,0,0,\"lead\"\n"
    "\"4\",6,31,2,0,0,\"lead\"\n"
    "\"5\",4,9.5,1.5,0,0,\"zinc\"\n"
    "\"6\",6,31,2.5,0,0,\"zinc\"\n";

class ImportVerb : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string write(const std::string& name, const std::string& bytes) const {
    putFile(folder_ / name, bytes);
    return path(name);
  }
  /// Imports from stdin to stdout.
  Ran imported(const std::string& system, const std::string& bytes, const Arguments& more) const {
    Arguments arguments{"import", system, "-", "-", "--title", "t"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return ran(arguments, bytes);
  }

 private:
  ScratchFolder folder_;
};

}  // namespace zevfit::test
