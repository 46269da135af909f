#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "session/line.h"
#include "session/numbers.h"
#include "session/session.h"

namespace zevfit::test {

/// Lines as a save ends them.
inline std::string lines(std::initializer_list<std::string_view> texts) {
  std::string bytes;
  for (const std::string_view text : texts) {
    bytes += text;
    bytes += "\r\n";
  }
  return bytes;
}

/// A file of two variables, two directions and two classes up to its model block, and its tag.
inline std::string sampleFile(std::string_view tag) {
  return lines({"Flood plain", tag, " 2 ", "zinc", "lead", " 2 ", " 2 ", "0;0", "45;0",   //
                " 5.5 ", " 10  1  100 ", " 20  7  200 ", " 11  3  300 ", " 21  2  400 ",  //
                " 6.5 ", " 12  5  500 ", " 22  6  600 ", " 13  8  700 ", " 23  9  800 "});
}

/// The model of a pair in the order of the file, parted by blanks.
inline std::string modelText(const Session& session, Pair pair) {
  const ConstLineRef nugget = line(session, pair, Line::nugget);
  std::string text = nugget.flag().toText() + " " + nugget.sill().toText();
  for (const Line structure : kStructures) {
    const ConstLineRef at = line(session, pair, structure);
    text += " " + at.flag().toText() + " " + at.letter() + " " + at.sill().toText() + " " +
            at.range().toText();
  }
  return text;
}

inline std::string times(std::string_view text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

/// What a save writes for lines that are not used, with its line ends.
inline constexpr const char* kUnusedNugget = " 0 \r\n0\r\n";
inline constexpr const char* kUnusedStructure = " 0 \r\n-\r\n0\r\n0.0001\r\n";
inline std::string unusedModel() { return kUnusedNugget + times(kUnusedStructure, 3); }

/// The same as `modelText` has it: so many structures behind others, and a whole model.
inline std::string unusedText(int structures) { return times(" 0 - 0 0.0001", structures); }
inline std::string unusedModelText() { return "0 0" + unusedText(3); }

/// The model of a pair after the reset.
inline constexpr const char* kResetModel = "0 0 0 - 0 1E-05 0 - 0 1E-05 0 - 0 1E-05";

/// A class as distance, semivariance and pairs, parted by blanks.
inline std::string classText(const Session& session, Pair pair, std::int64_t lag) {
  return session.hlag(pair, lag).toText() + " " + generalText(session.gam(pair, lag)) + " " +
         generalText(session.npairs(pair, lag));
}

}  // namespace zevfit::test
