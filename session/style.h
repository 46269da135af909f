#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zevfit {

/// A colour as files keep it: red plus 256 times green plus 65536 times blue.
using Colour = std::int32_t;

inline constexpr Colour kBlack = 0;
inline constexpr Colour kGreen = 32768;
inline constexpr Colour kBlue = 16711680;
inline constexpr Colour kRed = 255;
inline constexpr Colour kWhite = 16777215;
inline constexpr Colour kLightGrey = 0xC0C0C0;

/// Fields are named for the swatches and samples of the dialogs that edit them.
struct ColourSwatches {
  Colour Label1 = kBlack;  ///< text, axes, ticks, handles, guide lines
  Colour Label2 = kGreen;  ///< data points, their legend symbol, the variable's name
  Colour Label3 = kBlue;   ///< model curve and its legend sample
  Colour Label4 = kRed;    ///< sill line and its legend sample
  Colour Label5 = kWhite;  ///< background of pictures on screen

  // The same in the words of a plot.
  Colour ink() const { return Label1; }
  Colour data() const { return Label2; }
  Colour curve() const { return Label3; }
  Colour sill() const { return Label4; }
  Colour paper() const { return Label5; }
};

/// The swatches in the order of files and dialogs.
inline constexpr std::array kSwatches{&ColourSwatches::Label1, &ColourSwatches::Label2,
                                      &ColourSwatches::Label3, &ColourSwatches::Label4,
                                      &ColourSwatches::Label5};

/// A sample of a font, written in that font; sizes in points.
struct FontSample {
  std::string caption;
  std::string fontname;
  float fontsize = 0;
};

inline constexpr const char* kPlotFont = "Times New Roman";

/// Entries 0 to 2 of the samples: title, axis numbers, legend. Entries 0 and 1 of the patterns:
/// semivariance axis, distance axis.
struct FormatSamples {
  std::array<FontSample, 3> Label2{FontSample{kPlotFont, kPlotFont, 10.0F},
                                   FontSample{kPlotFont, kPlotFont, 7.8F},
                                   FontSample{kPlotFont, kPlotFont, 7.8F}};
  std::array<FontSample, 3> Label3{FontSample{"10", kPlotFont, 10.0F},
                                   FontSample{"7.8", kPlotFont, 7.8F},
                                   FontSample{"7.8", kPlotFont, 7.8F}};
  std::array<std::string, 2> formato{"#0.#0 ", "####.#0"};
};

/// Colours, fonts and number patterns that every plot takes at the moment it draws.
struct GraphStyle {
  ColourSwatches cores;
  FormatSamples Formfont;
};

/// What the format window's Cancel puts back.
struct FormatBackup {
  std::array<std::string, 3> fontname;
  std::array<float, 3> fontsize{};
  std::array<std::string, 2> formato;
  ColourSwatches cores;
  Colour axiscolor = kBlack;
};

/// A font as the font dialog gives it, in points.
struct FontChoice {
  std::string name;
  float size = 0;
};

}  // namespace zevfit
