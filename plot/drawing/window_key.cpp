#include "plot/drawing/window_key.h"

#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr const char* kKeyPattern = "00";
constexpr std::size_t kKeyDigits = 2;
constexpr std::size_t kDirectionAt = 3;

std::int64_t keyNumber(std::string_view caption, std::size_t at) {
  if (at >= caption.size()) return 0;
  return static_cast<std::int64_t>(leadingNumber(caption.substr(at, kKeyDigits)));
}

std::string keyText(std::int64_t subscript) {
  return formatNumber(static_cast<double>(subscript), kKeyPattern);
}

}  // namespace

std::string windowCaption(const Session& session, Pair pair) {
  return keyText(pair.variable) + "," + keyText(pair.direction) +
         "  Variable: " + session.varname(pair.variable) +
         "  Direction: " + session.dirname(pair.direction);
}

Pair windowKey(std::string_view caption) {
  const std::string_view key = trimmed(caption);
  return {keyNumber(key, 0), keyNumber(key, kDirectionAt)};
}

void takeKey(Session& session, const PlotWindow& window) {
  session.setCurrent(windowKey(window.caption()));
}

}  // namespace zevfit
