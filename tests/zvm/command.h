#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"
#include "zvm/verbs/command_line.h"

namespace zevfit::test {

/// What a run of the command has left.
struct Ran {
  int code = 0;
  std::string out, err;
};

/// Runs the command in this process.
inline Ran ran(const std::vector<std::string>& arguments, const std::string& in = "") {
  std::istringstream input(in);
  std::ostringstream out, err;
  const int code = verbs::runCommand(arguments, input, out, err);
  return {code, out.str(), err.str()};
}

/// A file of lines, of which a test changes some.
class Lines {
 public:
  explicit Lines(std::vector<std::string> lines) : lines_(std::move(lines)) {}

  /// The same with another line, counted from 1.
  Lines with(std::size_t number, const std::string& line) const {
    Lines changed = *this;
    changed.lines_.at(number - 1) = line;
    return changed;
  }
  /// The first lines alone.
  Lines first(std::size_t count) const {
    return Lines({lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(count)});
  }
  Lines and_(const std::string& line) const {
    Lines more = *this;
    more.lines_.push_back(line);
    return more;
  }
  std::string bytes(const std::string& end = "\n") const {
    std::string all;
    for (const std::string& line : lines_) all += line + end;
    return all;
  }

 private:
  std::vector<std::string> lines_;
};

/// Two variables, one direction and two classes.
inline const Lines kData({"t", "zevra", "2", "zinc", "lead", "1", "2", "0;0",  // 1 to 8
                          "1", "10 0.5 40", "20 1.5 40",                       // 9 to 11
                          "4", "10 1 40", "20 2 40"});                         // 12 to 14

/// One variable with a model: nugget 0.1, spherical 0.5 with range 15.
inline const Lines kModel({"t", "zevRA1",    "1",         "zinc",   "1",   "2",  "0;0",  // 1 to 7
                           "1", "10 0.5 40", "20 1.5 40",                                // 8 to 10
                           "1", "0.1",       "1",         "S",      "0.5", "15",         // 11 to 16
                           "0", "-",         "0",         "0.0001",                      // 17 to 20
                           "0", "-",         "0",         "0.0001"});                    // 21 to 24

}  // namespace zevfit::test
