#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "plot/overlay/overlay.h"
#include "zvm/experimental/surface_map.h"

/// What the command has to say to the program that draws, and what it gets back.
namespace zevfit::plotting {

enum class Format { svg, pdf, png };

/// The plot of a direction of a variable, all directions of a variable, or a semivariogram surface.
enum class Kind { direction, overlay, map };

/// A surface and what it is of.
struct Map {
  std::string name;  ///< of the variable, Latin-1
  zvm::SurfaceMap surface;
};

/// One picture. Of an overlay `shown` tells the directions; a map alone has a `map`.
struct Page {
  Kind kind = Kind::direction;
  std::int64_t variable = 0, direction = 0;
  Directions shown;
  std::optional<Map> map;
};

/// No PNG file has more dots a side.
inline constexpr int kMostDots = 32000;

/// Pictures of one size that are drawn from one file; a PDF file has them as its pages.
struct Request {
  Format format = Format::svg;
  double width = 0, height = 0;  ///< twips
  double scale = 1;              ///< twips of a picture for each that its drawing knows
  double dots = 0;               ///< of a PNG file to the inch
  std::string style;             ///< as a parameter file has it
  std::string data;              ///< a variogram file; empty where there are maps alone
  std::vector<Page> pages;
};

/// A request as bytes, and back. Throws Fault for other bytes.
std::string bytesOf(const Request& request);
Request requestOf(std::string_view bytes);

/// The files of the pictures as bytes one behind the other, and back. Throws Fault for other bytes.
std::string bytesOf(const std::vector<std::string>& files);
std::vector<std::string> filesOf(std::string_view bytes);

}  // namespace zevfit::plotting
