#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace zevfit {

/// The powers of ten that a number of that type holds exactly.
template <class Number>
struct ExactPowers;
template <>
struct ExactPowers<double> {
  static constexpr std::array<double, 23> kTens{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  /// Whole numbers up to it are exact, too.
  static constexpr std::uint64_t kMostWhole = std::uint64_t{1} << 53;
};
template <>
struct ExactPowers<float> {
  static constexpr std::array<float, 11> kTens{1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F,
                                               1e6F, 1e7F, 1e8F, 1e9F, 1e10F};
  static constexpr std::uint64_t kMostWhole = std::uint64_t{1} << 24;
};

/// Digits as they are read into a whole number.
class DigitReader {
 public:
  DigitReader(const char* at, const char* last) : at_(at), last_(last) {}

  void take() {
    while (std::endian::native == std::endian::little && last_ - at_ >= kTogether)
      if (takeTogether() < kTogether) return;
    for (; at_ != last_ && *at_ >= '0' && *at_ <= '9'; ++at_)
      number_ = number_ * 10 + static_cast<std::uint64_t>(*at_ - '0');
  }
  bool takePoint() {
    const bool isPoint = at_ != last_ && *at_ == '.';
    at_ += isPoint ? 1 : 0;
    return isPoint;
  }
  const char* at() const { return at_; }
  std::uint64_t number() const { return number_; }

 private:
  static constexpr std::ptrdiff_t kTogether = 8;
  static constexpr std::array<std::uint64_t, kTogether + 1> kTens{
      1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

  /// Takes the digits of the next eight bytes, up to the first other letter: pairs of neighbours
  /// first, then pairs of those.
  int takeTogether() {
    std::uint64_t letters = 0;
    std::memcpy(&letters, at_, sizeof letters);
    const std::uint64_t digits = letters - 0x3030303030303030;
    // The first letter below '0' borrows and the first above '9' carries into the highest bit.
    const std::uint64_t others = (digits | (letters + 0x4646464646464646)) & 0x8080808080808080;
    const int count = std::countr_zero(others) / 8;
    if (count == 0) return 0;
    constexpr std::uint64_t kBytes = 0x00ff00ff00ff00ff, kPairs = 0x0000ffff0000ffff;
    const std::uint64_t whole = digits << (64 - 8 * count);  // with zeros in front
    const std::uint64_t twos = (whole & kBytes) * 10 + (whole >> 8 & kBytes);
    const std::uint64_t fours = (twos & kPairs) * 100 + (twos >> 16 & kPairs);
    number_ = number_ * kTens[static_cast<std::size_t>(count)] + (fours & 0xffffffff) * 10'000 +
              (fours >> 32);
    at_ += count;
    return count;
  }

  const char* at_;
  const char* last_;
  std::uint64_t number_ = 0;
};

/// Reads a decimal without exponent whose digits make a whole number that the type holds exactly,
/// as most are: its quotient by a power of ten is rounded once, and so as the decimal itself would
/// be (Clinger, "How to read floating point numbers accurately", 1990). The end of what was read;
/// null for any other text.
template <class Number>
const char* shortDecimal(const char* first, const char* last, Number& value) {
  using Powers = ExactPowers<Number>;
  constexpr std::ptrdiff_t kMostDigits = 19;  // of which any fit a whole number of 64 bits
  const bool isNegative = first != last && *first == '-';
  DigitReader reader(first + (isNegative ? 1 : 0), last);
  const char* const start = reader.at();
  reader.take();
  const std::ptrdiff_t before = reader.at() - start;
  std::ptrdiff_t decimals = 0;
  if (reader.takePoint()) {
    const char* const fraction = reader.at();
    reader.take();
    decimals = reader.at() - fraction;
  }
  const std::ptrdiff_t digits = before + decimals;
  if (digits == 0 || digits > kMostDigits || reader.number() > Powers::kMostWhole) return nullptr;
  if (decimals >= std::ssize(Powers::kTens)) return nullptr;
  const Number quotient =
      static_cast<Number>(reader.number()) / Powers::kTens[static_cast<std::size_t>(decimals)];
  value = isNegative ? -quotient : quotient;
  return reader.at();
}

}  // namespace zevfit
