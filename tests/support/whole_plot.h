#pragma once

#include <array>
#include <cmath>
#include <string>

#include "tests/support/plot_bench.h"

namespace zevfit {

/// Where a whole plot of the sample is drawn, and what of it differs between window and paper.
struct WholePlot {
  double left, top, width, height;  ///< of the picture on its surface
  int pen;                          ///< width that the pen had before
  Operation ground;                 ///< what empties the picture
  double titleX, nameX;             ///< of texts that are measured

  Colour nameColour;
  Font title, caption, gamma, argument, distance, number;
  double argumentRight = 0, argumentDown = 0;  ///< from their places on the screen
  double distanceRight = 0, distanceDown = 0;
  double originRight = 0, numberDown = 0;
};

/// The operations of a whole plot of the sample in their order, by the box of its picture: 800 from
/// the sides, 600 from top and bottom.
class WholePlotBuilder {
 public:
  explicit WholePlotBuilder(const WholePlot& plot) : plot_(plot) {}

  Operations operations() {
    legend();
    axes();
    grid();
    ticks();
    numbers();
    data();
    curve();
    return all_;
  }

 private:
  double boxLeft() const { return plot_.left + 800; }
  double boxRight() const { return plot_.left + plot_.width - 800; }
  double boxTop() const { return plot_.top + 600; }
  double boxBottom() const { return plot_.top + plot_.height - 600; }
  /// Column k = 0 to 5 from the left, row k = 0 to 5 from the top.
  double column(int k) const { return boxLeft() + k * (boxRight() - boxLeft()) / 5; }
  double row(int k) const { return boxTop() + k * (boxBottom() - boxTop()) / 5; }
  /// Distances go up to 100, semivariances up to 10.
  double x(double h) const { return boxLeft() + h * (boxRight() - boxLeft()) / 100; }
  double y(double gamma) const { return boxBottom() - gamma * (boxBottom() - boxTop()) / 10; }
  /// So far from the right side; so many of 3012 parts of the height.
  double fromRight(double across) const { return plot_.left + plot_.width - across; }
  double part(double parts) const { return plot_.top + plot_.height * parts / 3012; }

  void text(double x, double y, const char* text, const Font& font, Colour colour = kText) {
    all_.push_back(TextOf{{x, y}, text, font, colour});
  }
  void line(Place from, Place to, Colour colour, int width, LineStyle style = LineStyle::solid) {
    all_.push_back(LineOf{from, to, {colour, width, style}});
  }
  void disc(double x, double y, int width) {
    all_.push_back(DiscOf{{x, y}, 27, {kData, width, LineStyle::solid}, kData});
  }

  void legend() {
    const double left = plot_.left, top = plot_.top;
    all_.push_back(plot_.ground);
    text(plot_.titleX, top + 100, "Semivariogram (45 0 NE)", plot_.title);
    text(fromRight(600), part(1080), "Data", plot_.caption);
    text(fromRight(650), part(2280), "Model", plot_.caption);
    text(left + 100, top + 300, "g", plot_.gamma);
    text(left + 220 + plot_.argumentRight, top + 300 + plot_.argumentDown, "(h)", plot_.argument);
    text(fromRight(800) + plot_.distanceRight, top + plot_.height - 450 + plot_.distanceDown,
         "h( )", plot_.distance);
    disc(fromRight(450), part(960), plot_.pen);
    text(fromRight(750), part(1680), "   Sill", plot_.caption);
    text(plot_.nameX, top + 350, "zinc", plot_.caption, plot_.nameColour);
    line({fromRight(600), part(2160)}, {fromRight(300), part(2040)}, kCurve, plot_.pen);
    line({fromRight(600), part(1560)}, {fromRight(300), part(1440)}, kSill, plot_.pen);
  }

  void axes() {
    line({boxLeft(), boxTop()}, {boxLeft(), boxBottom()}, kText, 1);
    line({boxLeft(), boxBottom()}, {boxRight(), boxBottom()}, kText, 1);
  }

  void grid() {
    for (int k = 1; k <= 5; ++k)
      line({column(k), boxTop()}, {column(k), boxBottom()}, kGrid, 1, LineStyle::dotted);
    for (int k = 0; k <= 4; ++k)
      line({boxLeft(), row(k)}, {boxRight(), row(k)}, kGrid, 1, LineStyle::dotted);
  }

  void ticks() {
    for (int k = 1; k <= 5; ++k)
      line({column(k), boxBottom() - 10}, {column(k), boxBottom() + 10}, kText, 2);
    for (int k = 0; k <= 4; ++k) line({boxLeft() - 5, row(k)}, {boxLeft() + 10, row(k)}, kText, 2);
  }

  /// Patterns "####.#0" and "#0.#0 "; a number of n characters is n * 75 to the left of its place,
  /// whatever its size.
  void numbers() {
    const auto put = [this](double at, double down, const std::string& number) {
      text(at - 75.0 * static_cast<double>(number.size()), down, number.c_str(), plot_.number);
    };
    const double down = boxBottom() + plot_.numberDown;
    text(boxLeft() - 50 + plot_.originRight, down, "0", plot_.number);
    int k = 0;
    for (const char* number : {"20.00", "40.00", "60.00", "80.00", "100.00"})
      put(column(++k), down, number);
    k = 0;
    for (const char* number : {"10.00 ", "8.00 ", "6.00 ", "4.00 ", "2.00 "})
      put(boxLeft(), row(k++) - 80, number);
  }

  void data() {
    line({boxRight(), y(5)}, {boxLeft(), y(5)}, kSill, 2);
    constexpr std::array<std::array<double, 2>, 4> kPoints{{{10, 2}, {25, 4}, {50, 8}, {75, 6}}};
    for (const auto& [h, gamma] : kPoints) disc(x(h), y(gamma), 2);
  }

  /// The nugget of 2 at 100 distances; the first piece has no length.
  void curve() {
    for (int i = 1; i <= 100; ++i) line({x(std::max(i - 1, 1)), y(2)}, {x(i), y(2)}, kCurve, 2);
  }

  WholePlot plot_;
  Operations all_;
};

inline Operations operationsOf(const WholePlot& plot) {
  return WholePlotBuilder(plot).operations();
}

}  // namespace zevfit
