#include "plot/overlay/legend.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "plot/drawing/plot_form.h"
#include "plot/overlay/looks.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr double kSample = 600, kGap = 100, kMargin = 150;
/// From line to line, in heights of the letters.
constexpr double kPitch = 1.5;
constexpr double kTwipsPerPoint = 20;
/// Above the baseline of a text of one line that stands in the middle of it, in its size.
constexpr double kHalfLine = 0.6;

Font fontOf(const Session& session) {
  const FontSample& sample =
      session.style.Formfont.Label2.at(static_cast<std::size_t>(FontRole::legend));
  return {sample.fontname, sample.fontsize};
}

std::vector<std::int64_t> listed(const Session& session, const Directions& shown) {
  std::vector<std::int64_t> directions;
  for (std::int64_t d = 1; d <= directionCount(session); ++d)
    if (shown.test(static_cast<std::size_t>(d))) directions.push_back(d);
  return directions;
}

}  // namespace

double legendWidth(const Session& session, const Directions& shown, Surface& surface,
                   double pictureWidth) {
  double widest = 0;
  for (const std::int64_t d : listed(session, shown))
    widest = std::max(widest, surface.textWidth(trimmed(session.dirname(d)), fontOf(session)));
  return std::min(kSample + kGap + widest + kMargin, pictureWidth / 3);
}

void drawLegend(const Session& session, const Directions& shown, Surface& surface, double left,
                double top, double height) {
  const auto directions = listed(session, shown);
  const Font font = fontOf(session);
  const Colour ink = session.style.cores.ink();
  const double letters = static_cast<double>(font.size) * kTwipsPerPoint;
  const double lines = std::max(1.0, static_cast<double>(directions.size()));
  const double pitch = std::min(kPitch * letters, height / lines);
  double y = top + pitch / 2;
  for (const std::int64_t d : directions) {
    drawSample(surface, lookOf(d, ink), left, y, kSample);
    surface.text(left + kSample + kGap, y - kHalfLine * letters, trimmed(session.dirname(d)), font,
                 ink);
    y += pitch;
  }
}

}  // namespace zevfit
