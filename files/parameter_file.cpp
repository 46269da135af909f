#include "files/parameter_file.h"

#include <array>
#include <cstddef>
#include <exception>

#include "files/output_file.h"
#include "files/tokens.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

namespace fs = std::filesystem;

constexpr const char* kTemporarySuffix = ".new";

/// An empty first line is an empty path, not a blank in front of the first colour: so a run that
/// never opened a file reads back what it kept.
std::optional<std::string_view> takePath(TokenStream& in) {
  TokenStream ahead = in;
  const auto line = ahead.line();
  if (!line || !line->empty()) return in.text();
  in = ahead;
  return line;
}

bool takeColours(TokenStream& in, ColourSwatches& swatches) {
  for (const auto swatch : kSwatches) {
    const auto colour = integerToken(in);
    if (!colour) return false;
    swatches.*swatch = *colour;
  }
  return true;
}

bool takePatterns(TokenStream& in, FormatSamples& samples) {
  for (std::string& pattern : samples.formato) {
    const auto line = in.line();
    if (!line || line->size() < 2) return false;
    pattern = line->substr(1, line->size() - 2);
  }
  return true;
}

std::optional<float> takeSize(TokenStream& in) {
  const auto token = in.number();
  const auto size = token ? floatOf(*token) : std::nullopt;
  const bool usable = size && *size > 0 && *size <= kLargestFontSize;
  return usable ? size : std::nullopt;
}

bool takeFonts(TokenStream& in, FormatSamples& samples) {
  for (std::size_t i = 0; i < samples.Label2.size(); ++i) {
    const auto caption = in.line();
    const auto name = in.line();
    const auto size = takeSize(in);
    if (!caption || !name || !size) return false;
    samples.Label2[i] = {std::string(*caption), std::string(*name), *size};
    samples.Label3[i] = {generalText(*size), std::string(*name), *size};
  }
  return true;
}

void putLine(std::string& out, std::string_view text) {
  out += text;
  out += kLineEnd;
}

}  // namespace

std::optional<std::string> readParameters(std::string_view bytes, GraphStyle& style) {
  style = GraphStyle();
  TokenStream in(bytes);
  const auto path = takePath(in);
  const bool whole = path && takeColours(in, style.cores) && takePatterns(in, style.Formfont) &&
                     takeFonts(in, style.Formfont);
  if (!whole) return std::nullopt;
  return std::string(*path);
}

std::optional<std::string> loadParameters(const fs::path& folder, GraphStyle& style) {
  const std::string bytes =
      attempt([&] { return readWhole(folder / kParameterFileName); }, [] { return std::string(); });
  return readParameters(bytes, style);
}

std::string composeParameters(const GraphStyle& style, std::string_view inputPath) {
  std::string out;
  putLine(out, inputPath);
  for (const auto swatch : kSwatches)
    putLine(out, fileNumber(static_cast<double>(style.cores.*swatch)));
  for (const std::string& pattern : style.Formfont.formato) putLine(out, "*" + pattern + "*");
  for (const FontSample& sample : style.Formfont.Label2) {
    putLine(out, sample.caption);
    putLine(out, sample.fontname);
    putLine(out, fileNumber(sample.fontsize));
  }
  return out;
}

void writeParameters(const fs::path& folder, const GraphStyle& style, std::string_view inputPath) {
  const fs::path target = folder / kParameterFileName;
  fs::path temporary = target;
  temporary += kTemporarySuffix;
  writeWhole(target, composeParameters(style, inputPath), temporary);
}

}  // namespace zevfit
