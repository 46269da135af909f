#pragma once

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

#include "files/output_file.h"
#include "files/variogram_writer.h"

namespace zevfit::bench {

inline constexpr int kVariables = 40, kDirections = 20, kClasses = 1000;
inline constexpr std::size_t kTableBytes = std::size_t{kVariables} * kDirections * (kClasses + 1) *
                                           (sizeof(Cell) + sizeof(double) + sizeof(float));
/// The head of an old file that a save takes its title and tag from.
inline constexpr std::string_view kOldFile = "Title\r\nzevra\r\n40\r\n.";

/// Numbers in files have 15 digits.
inline double rounded(double value) {
  std::array<char, 40> text{};
  const auto scientific = std::chars_format::scientific;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, scientific, 14);
  std::from_chars(text.data(), end.ptr, value);
  return value;
}

inline void fillClasses(Session& session, Pair pair) {
  const auto v = static_cast<double>(pair.variable), d = static_cast<double>(pair.direction);
  for (int lag = 1; lag <= kClasses; ++lag) {
    const double h = 100 * lag + 30 * std::sin(lag * 1.7 + d * 0.37 + v * 0.0113);
    session.hlag.set(pair, lag, rounded(h));
    session.gam.set(pair, lag, rounded(1 - std::exp(-h / 30000) + v * 0.001));
    session.npairs.set(pair, lag, static_cast<float>(20 + (lag * 37L + pair.direction) % 900));
  }
}

/// All variables and directions with so many classes, which `fill` puts in for a pair.
inline Session fullSession(int classes, void (*fill)(Session&, Pair)) {
  Session session;
  session.nvar = kVariables;
  session.ndir = kDirections;
  session.nclass = classes;
  session.hlag.create(classes);
  session.gam.create(classes);
  session.npairs.create(classes);
  resetFitState(session);
  for (int d = 1; d <= kDirections; ++d) session.dirname(d) = std::to_string(9 * d) + ";0";
  for (int v = 1; v <= kVariables; ++v) {
    session.varname(v) = "variable " + std::to_string(v);
    session.variance(v) = 1;
    for (int d = 1; d <= kDirections; ++d) fill(session, {v, d});
  }
  return session;
}

inline Session fullSession() { return fullSession(kClasses, fillClasses); }

inline std::string fileOf(Session& session) {
  MemorySink memory;
  composeVariogramFile(session, kVariables, kOldFile, memory);
  return std::move(memory.bytes);
}

/// A file in the temporary folder, gone with its owner.
class ScratchFile {
 public:
  explicit ScratchFile(const char* name) : path_(std::filesystem::temp_directory_path() / name) {}
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace zevfit::bench
