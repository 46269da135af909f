#include "plot/overlay/looks.h"

#include <array>
#include <cmath>
#include <span>

#include "plot/overlay/dashes.h"

namespace zevfit {
namespace {

constexpr Colour rgb(int red, int green, int blue) { return red + 256 * green + 65536 * blue; }

/// Behind the ink; the pale yellow comes last.
constexpr std::array kPalette{rgb(213, 94, 0),    rgb(0, 114, 178),  rgb(0, 158, 115),
                              rgb(204, 121, 167), rgb(86, 180, 233), rgb(230, 159, 0),
                              rgb(240, 228, 66)};
constexpr std::int64_t kColours = 1 + kPalette.size();
constexpr std::array kMarks{Mark::disc, Mark::square, Mark::triangle, Mark::diamond,
                            Mark::plus, Mark::cross,  Mark::wedge,    Mark::star};
constexpr std::array kDashes{Dash::solid, Dash::dashed, Dash::dotted};
/// By so many marks a colour that comes again is ahead of itself.
constexpr std::int64_t kMarkShift = 3;

/// Half of what a mark reaches across, twips.
constexpr double kReach = 52;
constexpr int kPen = 2;

struct Piece {
  double x1, y1, x2, y2;  ///< in halves of the mark
};
constexpr std::array<Piece, 3> kTriangle{{{-1, 0.8, 1, 0.8}, {1, 0.8, 0, -1}, {0, -1, -1, 0.8}}};
constexpr std::array<Piece, 3> kWedge{{{-1, -0.8, 1, -0.8}, {1, -0.8, 0, 1}, {0, 1, -1, -0.8}}};
constexpr std::array<Piece, 4> kDiamond{
    {{0, -1.2, 1.2, 0}, {1.2, 0, 0, 1.2}, {0, 1.2, -1.2, 0}, {-1.2, 0, 0, -1.2}}};
constexpr std::array<Piece, 2> kPlus{{{-1.2, 0, 1.2, 0}, {0, -1.2, 0, 1.2}}};
constexpr std::array<Piece, 2> kCross{{{-1, -1, 1, 1}, {-1, 1, 1, -1}}};
constexpr std::array<Piece, 4> kStar{
    {{-1.2, 0, 1.2, 0}, {0, -1.2, 0, 1.2}, {-1, -1, 1, 1}, {-1, 1, 1, -1}}};

/// The lines of a mark; those of the filled ones are none.
constexpr std::array<std::span<const Piece>, kMarks.size()> kPieces{std::span<const Piece>(),
                                                                    std::span<const Piece>(),
                                                                    kTriangle,
                                                                    kDiamond,
                                                                    kPlus,
                                                                    kCross,
                                                                    kWedge,
                                                                    kStar};

}  // namespace

Look lookOf(std::int64_t direction, Colour ink) {
  const std::int64_t place = direction - 1, round = place / kColours, within = place % kColours;
  const auto mark = static_cast<std::size_t>((within + kMarkShift * round) % kColours);
  const auto dash = static_cast<std::size_t>(round) % kDashes.size();
  return {within == 0 ? ink : kPalette.at(static_cast<std::size_t>(within - 1)), kMarks.at(mark),
          kDashes.at(dash)};
}

void drawMark(Surface& surface, const Look& look, double x, double y) {
  const Stroke stroke{look.colour, kPen};
  if (look.mark == Mark::disc) return surface.disc(x, y, kReach, {look.colour}, look.colour);
  if (look.mark == Mark::square)
    return surface.box(x - kReach, y - kReach, 2 * kReach, 2 * kReach, look.colour);
  for (const Piece& piece : kPieces.at(static_cast<std::size_t>(look.mark)))
    surface.line(x + piece.x1 * kReach, y + piece.y1 * kReach, x + piece.x2 * kReach,
                 y + piece.y2 * kReach, stroke);
}

void drawSample(Surface& surface, const Look& look, double left, double y, double width) {
  DashedLine line(surface, {look.colour, kPen}, look.dash);
  line.moveTo(left, y);
  line.lineTo(left + width, y);
  drawMark(surface, look, left + width / 2, y);
}

}  // namespace zevfit
