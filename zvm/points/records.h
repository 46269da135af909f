#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace zevfit::zvm {

/// A line of a table without its end; in a CSV file with quotes it can run over several lines.
struct Record {
  std::string_view text;
  std::uint64_t line = 0;  ///< from 1, of its first byte
};

/// Hands out the records of a stream, of which it keeps one block and what of a record stands in
/// front of it.
class Records {
 public:
  /// `quotes`: a line end between double quotes ends no record. `progress` is told the bytes read
  /// before each block; false throws Cancelled.
  Records(std::istream& in, std::string name, std::function<bool(std::uint64_t)> progress);

  /// Decides whether quotes count; before the first record that `next` returns.
  void setQuotes(bool quotes) { quotes_ = quotes; }
  /// The next record; false at the end. The text stays until the call after it. Throws DataError
  /// for a quote that nothing closes.
  bool next(Record& record);
  /// The first lines of the stream as they stand, at most `count`, without taking them.
  std::string_view peek(std::size_t count);
  /// Drops bytes at the beginning of the stream.
  void skip(std::size_t bytes) { at_ += bytes; }

 private:
  bool fill();
  bool findEnd(std::size_t& end);
  void refuseOpenQuote() const;

  std::istream& in_;
  std::string name_;
  std::function<bool(std::uint64_t)> progress_;
  bool quotes_ = false, ended_ = false;
  std::string block_;
  std::size_t at_ = 0;       ///< where the next record begins in the block
  std::size_t quoteAt_ = 0;  ///< of the next quote in the block; 0 where it is not known
  std::size_t seen_ = 0;     ///< how much of it is known to hold no end
  bool inQuotes_ = false;    ///< what was seen ends between quotes
  std::uint64_t lines_ = 0;  ///< line ends in what was seen
  std::uint64_t line_ = 1;
  std::size_t bytes_ = 0;  ///< read so far
};

}  // namespace zevfit::zvm
