#include "zvm/verbs/plot_options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <optional>

#include "files/parameter_file.h"
#include "session/numbers.h"
#include "zvm/points/names.h"
#include "zvm/verbs/add_option.h"
#include "zvm/verbs/input.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

using plotting::Format;

struct FormatRow {
  const char* name;
  Format format;
};
constexpr std::array kFormats{FormatRow{"svg", Format::svg}, FormatRow{"pdf", Format::pdf},
                              FormatRow{"png", Format::png}};

/// Twips in a unit of --size.
struct Unit {
  std::string_view name;
  double twips;
};
constexpr double kTwipsPerInch = 1440;
constexpr std::array kUnits{Unit{"", kTwipsPerInch / 25.4},
                            Unit{"mm", kTwipsPerInch / 25.4},
                            Unit{"cm", kTwipsPerInch / 2.54},
                            Unit{"in", kTwipsPerInch},
                            Unit{"pt", 20},
                            Unit{"px", 15}};

/// Twips.
struct Size {
  double width = 0, height = 0;
};

/// What one kind of picture has by itself, and the least in which its texts have room: smaller ones
/// are drawn so and made smaller as a whole.
struct KindSize {
  const char* common;
  Size least;
};
constexpr KindSize kPlotSize{"160x100", {4535, 2834}}, kMapSize{"160x130", {4535, 3685}};
/// Which every reader takes, and at which a picture can be seen; twips.
constexpr double kLeastSide = kTwipsPerInch, kGreatestSide = 100 * kTwipsPerInch;
constexpr int kLeastDots = 24, kGreatestDots = 2400;

const KindSize& kindSize(const PlotOptions& options) { return options.map ? kMapSize : kPlotSize; }

std::optional<Format> formatNamed(const std::string& name) {
  const auto found = std::ranges::find(kFormats, name, &FormatRow::name);
  return found == kFormats.end() ? std::nullopt : std::optional(found->format);
}

Format formatOf(const PlotOptions& options, const std::string& output) {
  const std::string extension = std::filesystem::path(output).extension().string();
  const std::string ending = extension.empty() ? "" : lowered(extension.substr(1));
  const std::string& name = options.format.empty() ? ending : options.format;
  if (const auto format = formatNamed(name)) return *format;
  if (!options.format.empty())
    throw Failure(Exit::usage, "no --format `" + name + "`; there are " +
                                   nearestFirst(name, {"svg", "pdf", "png"}));
  throw Failure(Exit::usage, "the name " + output +
                                 " tells no format: it ends with .svg, .pdf or .png, or --format "
                                 "tells it");
}

/// A number in front of a text, which is cut off; nothing where there is none.
std::optional<double> takeNumber(std::string_view& text) {
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  return value;
}

/// As in "160x100" or "800x600px", in whole twips.
std::optional<Size> sizeNamed(std::string_view text) {
  const auto width = takeNumber(text);
  if (!width || !text.starts_with('x')) return std::nullopt;
  text.remove_prefix(1);
  const auto height = takeNumber(text);
  const auto unit = std::ranges::find(kUnits, text, &Unit::name);
  if (!height || unit == kUnits.end()) return std::nullopt;
  return Size{std::round(*width * unit->twips), std::round(*height * unit->twips)};
}

Size sizeOf(const PlotOptions& options) {
  const auto size = sizeNamed(options.size.empty() ? kindSize(options).common : options.size);
  if (!size)
    throw Failure(Exit::usage,
                  "--size takes WIDTHxHEIGHT in millimetres, or with mm, cm, in, pt or px behind "
                  "it, as in 160x100 or 800x500px, not `" +
                      options.size + "`");
  const auto fits = [](double side) { return side >= kLeastSide && side <= kGreatestSide; };
  if (!fits(size->width) || !fits(size->height))
    throw Failure(Exit::usage,
                  "--size " + options.size + ": a side is from 1 to 100 inches (25.4 to 2540 mm)");
  return *size;
}

/// What a bitmap of that size would be, where that is more than a PNG file takes.
void refuseDots(const Size& size, int dots) {
  const double longest = std::max(size.width, size.height) / kTwipsPerInch;
  if (longest * dots <= plotting::kMostDots) return;
  const auto fitting = static_cast<int>(plotting::kMostDots / longest);
  throw Failure(Exit::usage, "a PNG file of this --size has " +
                                 std::to_string(std::lround(longest * dots)) +
                                 " dots a side at --dpi " + std::to_string(dots) +
                                 ", and at most " + std::to_string(plotting::kMostDots) +
                                 ": --dpi " + std::to_string(fitting) + " and less do");
}

/// "NAME" or "NAME,POINTS".
struct FontOption {
  std::string name;
  std::optional<double> points;
};

FontOption fontOf(const std::string& given) {
  const std::size_t comma = given.rfind(',');
  const auto name = zvm::latin1Of(zvm::withoutBlanks(given.substr(0, comma)));
  if (!name || name->empty() || name->find_first_of("\r\n") != name->npos)
    throw Failure(Exit::usage, "--font takes NAME or NAME,POINTS, not `" + given + "`");
  if (comma == given.npos) return {*name, std::nullopt};
  std::string_view text = zvm::withoutBlanks(std::string_view(given).substr(comma + 1));
  const auto points = takeNumber(text);
  if (!points || !text.empty() || !(*points >= 1 && *points <= 200))
    throw Failure(Exit::usage,
                  "--font takes NAME,POINTS with 1 to 200 points, not `" + given + "`");
  return {*name, points};
}

/// Of a parameter file and --font.
GraphStyle styleOf(const PlotOptions& options, const std::optional<FontOption>& font,
                   Context& context) {
  GraphStyle style;
  if (!options.style.empty() && !readParameters(readInput(context, options.style), style))
    throw Failure(Exit::data, options.style + " is no parameter file of zevFIT");
  for (FontSample& sample : style.Formfont.Label2)
    if (font) sample.fontname = font->name;
  return style;
}

/// A title of other points than the style has makes all of a picture larger or smaller, so that its
/// texts keep their room; what is still too little for them makes it smaller again.
double scaleOf(const PlotOptions& options, const Size& size, const std::optional<FontOption>& font,
               const GraphStyle& style, Context& context) {
  const double title = style.Formfont.Label2[0].fontsize;
  const bool isAsked = font && font->points;
  const double asked = isAsked ? *font->points / title : 1;
  const Size& least = kindSize(options).least;
  const double fitting = std::min(size.width / least.width, size.height / least.height);
  if (asked <= fitting) return asked;
  if (isAsked)
    context.warning("--font " + options.font +
                    ": a picture of this --size has room for a title of " +
                    std::to_string(std::lround(std::floor(fitting * title))) + " points");
  return fitting;
}

}  // namespace

void declareOptions(CLI::App& app, PlotOptions& options) {
  const AddOption add{app};
  const AddEach addEach{app};
  add("FILE", options.points.points, "A variogram file, with --map a table of points; - for stdin",
      "")
      ->required();
  add("OUT", options.output,
      "The picture to write, named *.svg, *.pdf or *.png; several as pages of a PDF file, or "
      "numbered",
      "");
  add("-o,--output", options.outputOption, "The same", "OUT");
  add("--format", options.format, "The format where the name of OUT does not tell it",
      "svg|pdf|png");
  addEach("--var", options.points.variables, "A variable by its name or number; default: all",
          "NAME");
  addEach("--dir", options.directions, "A direction by its name or number; default: all",
          "DIRECTION");
  app.add_flag("--overlay", options.overlay, "All directions of a variable in one picture");
  app.add_flag("--map", options.map, "The semivariogram surface in the plane, of points");
  add("--size", options.size,
      "Default: 160x100 millimetres, of a map 160x130; units: mm, cm, in, pt, px", "WIDTHxHEIGHT");
  add("--font", options.font, "The font of all texts, and the size of the title in points",
      "NAME[,POINTS]");
  add("--style", options.style, "Colours, fonts and numbers as zevFIT keeps them in zevfit.ini",
      "FILE.ini");
  add("--dpi", options.dots, "Dots to the inch of a PNG file; default: 192", "N");
  add("--x", options.points.x, "With --map: the column of the eastings, by name or number",
      "COLUMN");
  add("--y", options.points.y, "With --map: that of the northings", "COLUMN");
  addEach("--log", options.points.logs, "With --map: of these variables the natural logarithm",
          "A,...");
  addEach("--missing", options.points.missing,
          "With --map: stands for no value, beside nothing, NA and NaN", "VALUE");
  add("--trim", options.points.trim, "With --map: keeps the values from MIN to MAX", "MIN:MAX");
  add("--lag", options.points.lag, "With --map: the width of a square", "W");
  add("--lags", options.points.lags, "With --map: the squares on each side of the middle one", "N");
  declareOptions(app, options.points.spatial);
}

std::string outputOf(const PlotOptions& options) {
  ComputeOptions both;
  both.output = options.output;
  both.outputOption = options.outputOption;
  return outputOf(both);
}

void refuseMixture(const PlotOptions& options) {
  const ComputeOptions& points = options.points;
  if (options.dots < kLeastDots || options.dots > kGreatestDots)
    throw Failure(Exit::usage, "--dpi takes 24 to 2400");
  if (options.overlay && options.map)
    throw Failure(Exit::usage, "--overlay and --map are two kinds of pictures");
  if (!options.map) {
    const bool isOfPoints = !points.x.empty() || !points.y.empty() || !points.logs.empty() ||
                            !points.missing.empty() || !points.trim.empty() || points.lag != 0 ||
                            points.lags != 0 || points.spatial.isAny();
    if (isOfPoints)
      throw Failure(Exit::usage,
                    "--x, --y, --log, --missing, --trim, --lag, --lags and the options of spatial "
                    "sources take --map");
    return;
  }
  if (!options.directions.empty()) throw Failure(Exit::usage, "--map takes no --dir");
  const bool hasPlaces = (!points.x.empty() && !points.y.empty()) ||
                         isSpatial(options.points.points, "", points.spatial);
  if (!hasPlaces || points.variables.empty() || points.lag == 0 || points.lags == 0)
    throw Failure(Exit::usage, "--map is of points: it takes --x, --y, --var, --lag and --lags");
  if (!(points.lag > 0 && points.lag < 1e150))
    throw Failure(Exit::usage, "--lag takes a width above 0");
  if (points.lags < 1 || points.lags > zvm::kLargestReach)
    throw Failure(Exit::usage, "--lags of a map takes 1 to 100");
}

plotting::Request requestOf(const PlotOptions& options, const std::string& output,
                            Context& context) {
  const Size size = sizeOf(options);
  plotting::Request request;
  request.format = formatOf(options, output);
  if (request.format == Format::png) refuseDots(size, options.dots);
  const auto font = options.font.empty() ? std::nullopt : std::optional(fontOf(options.font));
  const GraphStyle style = styleOf(options, font, context);
  request.width = size.width;
  request.height = size.height;
  request.scale = scaleOf(options, size, font, style, context);
  request.dots = options.dots;
  request.style = composeParameters(style, "");
  return request;
}

}  // namespace zevfit::verbs
