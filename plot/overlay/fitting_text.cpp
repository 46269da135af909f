#include "plot/overlay/fitting_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "session/number_pattern.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr const char* kPoints = "...";
/// A room may have been reckoned from the text itself, with rounded sums; twips.
constexpr double kSlack = 0.5;

/// What a number may be off, and what counts as nothing, in steps of the axis.
constexpr double kOff = 0.25, kNothing = 1e-9;
/// Decimals behind the first digit of the step.
constexpr int kMoreDigits = 2, kFewerDigits = 1;
constexpr int kMostDigits = 16;

/// The longest beginning that fits with the points behind it.
std::size_t fittingLength(Surface& surface, const Font& font, std::string_view text, double room) {
  std::size_t fits = 0, tooLong = text.size();
  while (fits + 1 < tooLong) {
    const std::size_t middle = fits + (tooLong - fits) / 2;
    const std::string begun = std::string(text.substr(0, middle)) + kPoints;
    (surface.textWidth(begun, font) <= room ? fits : tooLong) = middle;
  }
  return fits;
}

double stepOf(std::span<const double> values) {
  const double length = std::abs(values.back() - values.front());
  return length > 0 ? length / static_cast<double>(values.size() - 1) : std::abs(values.back());
}

bool isNothing(double value, double step) { return std::abs(value) <= kNothing * step; }

/// The worth of the last decimal of a pattern.
double unitOf(std::string_view pattern) {
  const std::size_t point = std::min(pattern.find('.'), pattern.size());
  const auto isPlace = [](char symbol) { return symbol == '#' || symbol == '0'; };
  return std::pow(10.0,
                  -static_cast<double>(std::ranges::count_if(pattern.substr(point), isPlace)));
}

std::string patternText(double value, double step, std::string_view pattern) {
  return isNothing(value, step) ? "0" : std::string(trimmed(formatNumber(value, pattern)));
}

/// With so many decimals, or else as many as it takes.
std::string exponentText(double value, std::optional<int> decimals = std::nullopt) {
  constexpr auto kForm = std::chars_format::scientific;
  std::array<char, 40> text{};
  char *const begin = text.data(), *const end = begin + text.size();
  const auto written = decimals ? std::to_chars(begin, end, value, kForm, *decimals)
                                : std::to_chars(begin, end, value, kForm);
  std::string all(begin, written.ptr);
  std::ranges::replace(all, 'e', 'E');
  return all;
}

/// Rounded to a power of ten, in the shorter form.
std::string shortText(double value, double step, int exponent) {
  if (isNothing(value, step)) return "0";
  const int first = static_cast<int>(std::floor(std::log10(std::abs(value))));
  const std::string digits = exponentText(value, std::clamp(first - exponent, 0, kMostDigits));
  double rounded = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), rounded);
  const std::string plain = generalText(rounded), exponential = exponentText(rounded);
  return exponential.size() < plain.size() ? exponential : plain;
}

template <class Write>
std::vector<std::string> written(std::span<const double> values, const Write& write) {
  std::vector<std::string> texts;
  texts.reserve(values.size());
  for (const double value : values) texts.push_back(write(value));
  return texts;
}

}  // namespace

std::string elided(Surface& surface, const Font& font, std::string_view text, double room) {
  if (surface.textWidth(text, font) <= room + kSlack) return std::string(text);
  return std::string(text.substr(0, fittingLength(surface, font, text, room))) + kPoints;
}

std::string elidedWithin(Surface& surface, const Font& font, const std::string& before,
                         std::string_view text, const std::string& behind, double room) {
  const double others = surface.textWidth(before + behind, font);
  return before + elided(surface, font, text, room - others) + behind;
}

std::vector<std::string> axisNumbers(std::span<const double> values, std::string_view pattern,
                                     const std::function<bool(const std::string&)>& fits) {
  const double step = stepOf(values), unit = unitOf(pattern);
  const bool isExact = std::ranges::all_of(
      values, [&](double value) { return std::abs(std::remainder(value, unit)) <= kOff * step; });
  auto texts = written(values, [&](double value) { return patternText(value, step, pattern); });
  if (!(step > 0) || (isExact && std::ranges::all_of(texts, fits))) return texts;
  const int first = static_cast<int>(std::floor(std::log10(step)));
  const auto inDigits = [&](int more) {
    return written(values, [&](double value) { return shortText(value, step, first - more); });
  };
  texts = inDigits(kMoreDigits);
  if (std::ranges::all_of(texts, fits)) return texts;
  const auto fewer = inDigits(kFewerDigits);
  return std::ranges::all_of(fewer, fits) ? fewer : texts;
}

std::size_t strideOf(Surface& surface, const Font& font, std::span<const std::string> texts,
                     double room) {
  double widest = 0;
  for (const std::string& text : texts) widest = std::max(widest, surface.textWidth(text, font));
  if (!(room > 0)) return texts.size();
  const double stride =
      std::clamp(std::ceil(widest / room), 1.0, static_cast<double>(texts.size()));
  return static_cast<std::size_t>(stride);
}

}  // namespace zevfit
