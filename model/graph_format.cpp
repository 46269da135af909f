#include "model/graph_format.h"

#include "session/numbers.h"

namespace zevfit {
namespace {

struct FontLimit {
  float size;
  const char* message;
};
constexpr std::array<FontLimit, 3> kFontLimits{{
    {16, "Illegal value for Fontsize: max. value = 16!"},
    {10, "Illegal value for Fontsize: max. value = 10!"},
    {9, "Illegal value for Fontsize: max. value = 9!"},
}};
constexpr const char* kNoFont = "Please select the Font!";
constexpr std::string_view kSymbols = "#0. ";

constexpr std::array<const char*, 2> kDefaultPatterns{"###0.#0 ", "###.#0"};

std::optional<std::string> faultOf(std::string_view pattern) {
  int points = 0;
  for (const char symbol : pattern) {
    if (symbol == '.' && ++points == 2) return "Illegal format string: Two . detected!";
    if (kSymbols.find(symbol) == std::string_view::npos)
      return std::string("Illegal format symbol - ") + symbol;
  }
  return std::nullopt;
}

/// What is wrong with a font for a row; nothing when it is legal.
const char* fontFault(std::size_t row, const FontChoice& font) {
  const FontLimit& limit = kFontLimits.at(row);
  if (font.size > limit.size) return limit.message;
  return font.name.empty() ? kNoFont : nullptr;
}

}  // namespace

void keepFormat(Session& session) {
  const FormatSamples& samples = session.style.Formfont;
  FormatBackup& backup = session.backup;
  for (std::size_t row = 0; row < samples.Label2.size(); ++row) {
    backup.fontname.at(row) = samples.Label2.at(row).fontname;
    backup.fontsize.at(row) = samples.Label2.at(row).fontsize;
  }
  backup.formato = samples.formato;
  backup.cores = session.style.cores;
  backup.axiscolor = session.axiscolor;
}

void restoreFormat(Session& session) {
  const FormatBackup& backup = session.backup;
  FormatSamples& samples = session.style.Formfont;
  for (std::size_t row = 0; row < samples.Label2.size(); ++row) {
    const std::string& name = backup.fontname.at(row);
    const float size = backup.fontsize.at(row);
    samples.Label2.at(row) = {name, name, size};
    samples.Label3.at(row) = {generalText(size), samples.Label3.at(row).fontname, size};
  }
  samples.formato = backup.formato;
  session.style.cores = backup.cores;
  session.axiscolor = backup.axiscolor;
}

void setDefaultFormat(Session& session) {
  FormatSamples& samples = session.style.Formfont;
  samples = FormatSamples();
  for (std::size_t i = 0; i < kDefaultPatterns.size(); ++i)
    samples.formato.at(i) = kDefaultPatterns.at(i);
  session.style.cores = ColourSwatches();
  session.axiscolor = kBlack;
}

bool chooseFont(FormatSamples& samples, std::size_t row, StyleChooser& chooser,
                Messages& messages) {
  FontSample& sample = samples.Label2.at(row);
  FontChoice shown{sample.fontname, sample.fontsize};
  for (;;) {
    const std::optional<FontChoice> chosen = chooser.chooseFont(shown);
    if (!chosen) return false;
    shown = *chosen;
    const char* fault = fontFault(row, shown);
    if (!fault) break;
    messages.plain(fault);
  }
  sample = {shown.name, shown.name, shown.size};
  // The size stands there as a text; the type of that text is not touched.
  samples.Label3.at(row).caption = generalText(shown.size);
  return true;
}

std::optional<std::string> patternFault(const std::array<std::string, 2>& patterns) {
  for (const std::string& pattern : patterns)
    if (auto fault = faultOf(pattern)) return fault;
  return std::nullopt;
}

Colour& swatch(ColourSwatches& cores, std::size_t option) {
  return cores.*kSwatches.at(option - 1);
}

void chooseColour(ColourSwatches& cores, std::size_t option, StyleChooser& chooser, Colour& held) {
  if (const auto chosen = chooser.chooseColour(held)) held = *chosen;
  swatch(cores, option) = held;
}

}  // namespace zevfit
