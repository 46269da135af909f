#pragma once

#include <cstdint>

#include "plot/drawing/surface.h"

namespace zevfit {

/// What the points of a direction look like.
enum class Mark { disc, square, triangle, diamond, plus, cross, wedge, star };
/// How its curve is stroked.
enum class Dash { solid, dashed, dotted };

/// What tells a direction from the others.
struct Look {
  Colour colour = kBlack;
  Mark mark = Mark::disc;
  Dash dash = Dash::solid;
  bool operator==(const Look&) const = default;
};

/// The look of a direction, from 1: eight colours that colour-blind people can tell apart (Okabe
/// and Ito, "Color Universal Design", 2008; `ink` stands for their black), then the same with other
/// marks and dashes. No two of 24 are alike, no two of eight in a row have the same colour or mark.
Look lookOf(std::int64_t direction, Colour ink);

/// A mark around a place.
void drawMark(Surface& surface, const Look& look, double x, double y);
/// A piece of the curve with its mark in the middle, as a legend has it: from a place to the right.
void drawSample(Surface& surface, const Look& look, double left, double y, double width);

}  // namespace zevfit
