#include "zvm/plotting/map_drawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <vector>

#include "plot/drawing/plot_form.h"
#include "plot/overlay/fitting_text.h"

namespace zevfit::plotting {
namespace {

struct Rgb {
  double red, green, blue;
};
/// At equal steps of the share.
constexpr std::array<Rgb, 9> kRamp{{{68, 1, 84},
                                    {71, 44, 122},
                                    {59, 81, 139},
                                    {44, 113, 142},
                                    {33, 144, 141},
                                    {39, 173, 129},
                                    {92, 200, 99},
                                    {170, 220, 50},
                                    {253, 231, 37}}};
/// On a square of a greater share numbers are black, on others white.
constexpr double kLightFrom = 0.6;

constexpr double kTitleTop = 100, kTitleGap = 150, kLabelRise = 300;
constexpr double kLeft = 900, kTop = 600, kBottom = 650, kRight = 1450;
constexpr double kScaleGap = 250, kScaleWidth = 220, kNumberGap = 40, kNumberRise = 80;
constexpr double kTick = 50;
constexpr int kScaleSteps = 64;
/// From the south to the north, and from the foot of the scale to its top.
constexpr std::size_t kAxisNumbers = 5, kScaleNumbers = 5;
/// What a square reaches below the next one, so that no seam shows between them.
constexpr double kOverlap = 8;
constexpr double kTwipsPerPoint = 20;
/// Numbers of pairs: no smaller than this, in points; the share of a square that they may take.
constexpr float kLeastFont = 3.5F;
constexpr double kFilled = 0.86, kLineHeight = 1.15;

struct Range {
  double low = 0, high = 0;
  double share(double value) const { return high > low ? (value - low) / (high - low) : 0; }
  double at(double share) const { return low + (high - low) * share; }
};

Range rangeOf(const zvm::SurfaceMap& surface) {
  Range range;
  bool isFirst = true;
  for (const zvm::SurfaceCell& cell : surface.cells) {
    if (cell.pairs == 0) continue;
    range = isFirst ? Range{cell.semivariance, cell.semivariance}
                    : Range{std::min(range.low, cell.semivariance),
                            std::max(range.high, cell.semivariance)};
    isFirst = false;
  }
  return range;
}

/// A map under way.
class Drawing {
 public:
  Drawing(const GraphStyle& style, const Map& map, Surface& surface, double width, double height)
      : style_(style),
        map_(map),
        surface_(surface),
        width_(width),
        range_(rangeOf(map.surface)),
        side_(std::max(std::min(width - kLeft - kRight, height - kTop - kBottom), 1.0)),
        left_(kLeft + std::max(width - kLeft - side_ - kRight, 0.0) / 2) {}

  void draw() {
    surface_.clear(style_.cores.paper());
    const std::string title =
        elidedWithin(surface_, font(FontRole::title), "Semivariogram surface (", map_.name, ")",
                     width_ - 2 * kTitleGap);
    around(width_ / 2, kTitleTop, title, FontRole::title);
    drawSquares();
    drawCounts();
    drawFrame(left_, kTop, side_, side_);
    drawAxes();
    drawScale();
  }

 private:
  Font font(FontRole role) const {
    const FontSample& sample = style_.Formfont.Label2.at(static_cast<std::size_t>(role));
    return {sample.fontname, sample.fontsize};
  }
  void around(double middle, double y, const std::string& text, FontRole role) const {
    surface_.text(middle - surface_.textWidth(text, font(role)) / 2, y, text, font(role),
                  style_.cores.ink());
  }

  double square() const { return side_ / static_cast<double>(map_.surface.side()); }
  /// The western edge of a column, and the northern one of a row.
  double xOf(std::int64_t east) const {
    return left_ + static_cast<double>(east + map_.surface.reach) * square();
  }
  double yOf(std::int64_t north) const {
    return kTop + static_cast<double>(map_.surface.reach - north) * square();
  }

  template <class Visit>
  void eachSquare(Visit&& visit) const {
    const std::int64_t reach = map_.surface.reach;
    for (std::int64_t north = reach; north >= -reach; --north)
      for (std::int64_t east = -reach; east <= reach; ++east)
        visit(east, north, map_.surface.at(east, north));
  }

  /// From the north-west, so that each covers what its neighbours reach below it.
  void drawSquares() const {
    const std::int64_t reach = map_.surface.reach;
    eachSquare([&](std::int64_t east, std::int64_t north, const zvm::SurfaceCell& cell) {
      const Colour colour =
          cell.pairs == 0 ? style_.cores.paper() : rampColour(range_.share(cell.semivariance));
      surface_.box(xOf(east), yOf(north), square() + (east < reach ? kOverlap : 0),
                   square() + (north > -reach ? kOverlap : 0), colour);
    });
  }

  /// In the greatest size in which the widest fits.
  void drawCounts() const {
    Font counts = font(FontRole::numbers);
    double widest = 0;
    eachSquare([&](std::int64_t, std::int64_t, const zvm::SurfaceCell& cell) {
      widest = std::max(widest, surface_.textWidth(std::to_string(cell.pairs), counts));
    });
    const double high = static_cast<double>(counts.size) * kTwipsPerPoint * kLineHeight;
    const double shrink = std::min({1.0, kFilled * square() / widest, kFilled * square() / high});
    counts.size *= static_cast<float>(shrink);
    if (!(counts.size >= kLeastFont)) return;
    const double half = static_cast<double>(counts.size) * kTwipsPerPoint * kLineHeight / 2;
    eachSquare([&](std::int64_t east, std::int64_t north, const zvm::SurfaceCell& cell) {
      if (cell.pairs == 0) return;
      const std::string text = std::to_string(cell.pairs);
      const double middle = xOf(east) + square() / 2;
      const bool isLight = range_.share(cell.semivariance) > kLightFrom;
      surface_.text(middle - surface_.textWidth(text, counts) / 2, yOf(north) + square() / 2 - half,
                    text, counts, isLight ? kBlack : kWhite);
    });
  }

  void drawFrame(double left, double top, double width, double height) const {
    const Stroke stroke{style_.cores.ink(), 1};
    surface_.line(left, top, left + width, top, stroke);
    surface_.line(left, top + height, left + width, top + height, stroke);
    surface_.line(left, top, left, top + height, stroke);
    surface_.line(left + width, top, left + width, top + height, stroke);
  }

  /// In a room of that width.
  std::vector<std::string> textsOf(std::span<const double> numbers, std::size_t pattern,
                                   double room) const {
    return axisNumbers(numbers, style_.Formfont.formato.at(pattern), [&](const std::string& text) {
      return surface_.textWidth(text, font(FontRole::numbers)) <= room;
    });
  }

  /// Numbers at the middle of the outermost squares, of the middle one and half way.
  void drawAxes() const {
    const Stroke tick{style_.cores.ink(), 1};
    const double bottom = kTop + side_, step = (side_ - square()) / (kAxisNumbers - 1);
    const double reach = static_cast<double>(map_.surface.reach) * map_.surface.width;
    const std::array<double, kAxisNumbers> numbers{-reach, -reach / 2, 0, reach / 2, reach};
    const double room = std::min(kLeft - kTick, step) - 2 * kNumberGap;
    const auto texts = textsOf(numbers, 1, room);
    const std::size_t stride =
        strideOf(surface_, font(FontRole::numbers), texts, step - 2 * kNumberGap);
    for (std::size_t k = 0; k < texts.size(); ++k) {
      const double shift = square() / 2 + static_cast<double>(k) * step;
      const double x = left_ + shift, y = bottom - shift;
      surface_.line(x, bottom, x, bottom + kTick, tick);
      if ((texts.size() - 1 - k) % stride == 0)
        around(x, bottom + kTick + kNumberGap, texts[k], FontRole::numbers);
      surface_.line(left_ - kTick, y, left_, y, tick);
      const double wide = surface_.textWidth(texts[k], font(FontRole::numbers));
      surface_.text(left_ - kTick - kNumberGap - wide, y - kNumberRise, texts[k],
                    font(FontRole::numbers), style_.cores.ink());
    }
    around(left_, kTop - kLabelRise, "north", FontRole::legend);
    around(left_ + side_ / 2, bottom + kLabelRise, "east", FontRole::legend);
  }

  void drawScale() const {
    const double left = left_ + side_ + kScaleGap, step = side_ / kScaleSteps;
    for (int k = kScaleSteps - 1; k >= 0; --k)
      surface_.box(left, kTop + side_ - (k + 1) * step, kScaleWidth, step + (k > 0 ? kOverlap : 0),
                   rampColour((k + 0.5) / kScaleSteps));
    drawFrame(left, kTop, kScaleWidth, side_);
    const double right = left + kScaleWidth;
    std::array<double, kScaleNumbers> numbers{};
    for (std::size_t k = 0; k < numbers.size(); ++k)
      numbers.at(k) = range_.at(static_cast<double>(k) / (kScaleNumbers - 1));
    const double room = kRight - kScaleGap - kScaleWidth - kTick - 2 * kNumberGap;
    const auto texts = textsOf(numbers, 0, room);
    for (std::size_t k = 0; k < texts.size(); ++k) {
      const double y = kTop + side_ - side_ * static_cast<double>(k) / (kScaleNumbers - 1);
      surface_.line(right, y, right + kTick, y, {style_.cores.ink(), 1});
      surface_.text(right + kTick + kNumberGap, y - kNumberRise, texts[k], font(FontRole::numbers),
                    style_.cores.ink());
    }
    Font gamma = font(FontRole::legend);
    gamma.name = "Symbol";
    surface_.text(left, kTop - kLabelRise, "g", gamma, style_.cores.ink());
    surface_.text(left + kScaleWidth / 2, kTop - kLabelRise, "(h)", font(FontRole::legend),
                  style_.cores.ink());
  }

  const GraphStyle& style_;
  const Map& map_;
  Surface& surface_;
  double width_;
  Range range_;
  double side_, left_;
};

}  // namespace

Colour rampColour(double share) {
  const double place = std::clamp(share, 0.0, 1.0) * (kRamp.size() - 1);
  const auto index = std::min(static_cast<std::size_t>(place), kRamp.size() - 2);
  const double along = place - static_cast<double>(index);
  const Rgb &from = kRamp.at(index), &to = kRamp.at(index + 1);
  const auto part = [along](double a, double b) {
    return static_cast<Colour>(std::lround(a + along * (b - a)));
  };
  return part(from.red, to.red) + 256 * part(from.green, to.green) +
         65536 * part(from.blue, to.blue);
}

void drawMap(const GraphStyle& style, const Map& map, Surface& surface, double width,
             double height) {
  Drawing(style, map, surface, width, height).draw();
}

}  // namespace zevfit::plotting
