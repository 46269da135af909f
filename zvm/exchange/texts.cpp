#include "zvm/exchange/texts.h"

#include <charconv>

#include "session/numbers.h"

namespace zevfit::exchange {
namespace {

template <class Number>
std::string shortestOf(Number value) {
  std::array<char, 32> room{};
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value).ptr;
  return {room.data(), end};
}

bool isControl(unsigned char letter) { return letter < 0x20 || (letter >= 0x7f && letter < 0xa0); }

void appendUtf8(std::string& out, unsigned char letter) {
  if (letter < 0x80) {
    out += static_cast<char>(letter);
    return;
  }
  out += static_cast<char>(0xc0 | (letter >> 6));
  out += static_cast<char>(0x80 | (letter & 0x3f));
}

}  // namespace

std::string shortest(double value) { return shortestOf(value); }
std::string shortest(float value) { return shortestOf(value); }

std::string listed(std::initializer_list<double> values) {
  std::string out;
  for (const double value : values) out += (out.empty() ? "" : ", ") + shortest(value);
  return out;
}

std::string nameText(std::string_view latin1) {
  std::string out;
  for (const char letter : latin1) {
    const auto code = static_cast<unsigned char>(letter);
    appendUtf8(out, isControl(code) ? static_cast<unsigned char>(' ') : code);
  }
  return std::string(trimmed(out));
}

std::string quoted(std::string_view text) {
  std::string out = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') out += '\\';
    out += letter;
  }
  return out + '"';
}

std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == text.npos) return std::string(text);
  std::string out = "\"";
  for (const char letter : text) {
    if (letter == '"') out += '"';
    out += letter;
  }
  return out + '"';
}

}  // namespace zevfit::exchange
