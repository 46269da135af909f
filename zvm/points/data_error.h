#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zevfit::zvm {

/// Where in an input something stands: the file as the user named it, the line and the byte of the
/// line, both from 1; 0 where there is none.
struct Place {
  std::string file;
  std::uint64_t line = 0, column = 0;
};

/// "FILE:LINE:COLUMN", without what there is none of.
std::string placeText(const Place& place);

/// A text for what(), which ends at the first zero byte: with that shown instead.
std::string withoutNul(const std::string& text);

/// Data that can't be used, as "FILE:LINE:COLUMN: text" in what().
class DataError : public std::runtime_error {
 public:
  DataError(Place place, const std::string& text);

  const Place& place() const { return place_; }

 private:
  Place place_;
};

/// An option that does not go with the others, whatever the data.
class OptionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An input that can't be read to its end.
class ReadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The caller's progress function has asked for an end.
struct Cancelled {};

}  // namespace zevfit::zvm
