#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

#include "files/output_file.h"
#include "zvm/experimental/job.h"
#include "zvm/experimental/outcome.h"
#include "zvm/experimental/sums.h"

namespace zevfit::zvm {

// One part of a job, as text with a line end "\n"; numbers that are no counts in hexadecimal, so
// that each comes back with all its bits:
//
//     zvm part 1
//     what the frame holds, one thing a line
//     part I N
//     task T              for each task of the part, in their order
//     SLOT PAIRS DISTANCE PRODUCT     for each sum with pairs
//     end

/// Writes the first lines of part `part` of `parts`.
void writePartHeader(const Frame& frame, std::uint64_t part, std::uint64_t parts, ByteSink& out);
void writePartTask(std::uint64_t task, const SumTable& sums, ByteSink& out);
void writePartEnd(ByteSink& out);

/// Reads a part task by task. Throws DataError with the line for a file that is no part.
class PartReader {
 public:
  /// `name`: what messages call it.
  PartReader(std::istream& in, std::string name);

  const std::string& name() const { return name_; }
  const Frame& frame() const { return frame_; }
  /// The header without the number of the part: the same in all parts of one run.
  const std::string& header() const { return header_; }
  std::uint64_t part() const { return part_; }
  std::uint64_t parts() const { return parts_; }
  /// Whether any task is in this part; where none is it has been read to its end.
  bool hasTasks() const { return part_ <= frame_.tasks; }

  /// The sums of the next task, which has to be this one.
  SumTable task(std::uint64_t number);
  /// The last line has to come next.
  void end();

 private:
  std::string line();
  [[noreturn]] void refuse(const std::string& text) const;
  template <class Number>
  Number number(std::string_view& rest, int base = 10) const;
  double real(std::string_view& rest) const;
  std::string_view word(std::string_view& rest) const;
  std::string value(const char* key);
  void readFrame();

  std::istream& in_;
  std::string name_, header_;
  std::uint64_t at_ = 0;  ///< line last read
  Frame frame_;
  std::uint64_t part_ = 0, parts_ = 0;
};

/// Joins all parts of a job, in whatever order they come. Throws DataError where one is missing,
/// twice there or of another job.
Experimental mergeParts(std::vector<PartReader>& parts);

}  // namespace zevfit::zvm
