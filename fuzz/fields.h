#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "session/fault.h"
#include "session/number_reading.h"

namespace zevfit {

/// An input as lines that are taken one after the other; behind the last one they are empty.
class Fields {
 public:
  Fields(const std::uint8_t* data, std::size_t size) : bytes_(data, data + size), left_(bytes_) {}
  explicit Fields(std::string_view text) : bytes_(text), left_(bytes_) {}
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;
  ~Fields() = default;

  bool atEnd() const { return left_.empty(); }

  std::string next() {
    const std::size_t end = std::min(left_.find('\n'), left_.size());
    const std::string_view line = left_.substr(0, end);
    left_.remove_prefix(std::min(end + 1, left_.size()));
    return std::string(line);
  }

  /// A line as a number; 0 where it is none.
  double number() {
    try {
      return leadingNumber(next());
    } catch (const Fault&) {
      return 0;
    }
  }

  /// A line as one of `count` numbers from 0: its first character, counted from the digit 0.
  int pick(int count) {
    const std::string line = next();
    const int digit = line.empty() ? 0 : static_cast<unsigned char>(line.front()) - '0';
    return (digit % count + count) % count;
  }

  /// All lines that are left.
  std::string rest() {
    std::string all(left_);
    left_ = {};
    return all;
  }

 private:
  std::string bytes_;
  std::string_view left_;
};

}  // namespace zevfit
