#include "plot/overlay/legend.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "plot/drawing/plot_form.h"
#include "plot/overlay/fitting_text.h"
#include "plot/overlay/looks.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr double kSample = 600, kGap = 100, kMargin = 150;
/// From line to line, in heights of the letters: at most, and at least.
constexpr double kPitch = 1.5, kLeastPitch = 1.2;
constexpr double kTwipsPerPoint = 20;
/// Above the baseline of a text of one line that stands in the middle of it, in its size.
constexpr double kHalfLine = 0.6;
constexpr int kVariancePen = 1;
constexpr const char* kVariance = "Variance";

/// A line of the legend; without a look that of the variance.
struct Entry {
  std::string name;
  std::optional<Look> look;
};

Font fontOf(const Session& session) {
  const FontSample& sample =
      session.style.Formfont.Label2.at(static_cast<std::size_t>(FontRole::legend));
  return {sample.fontname, sample.fontsize};
}

std::vector<Entry> entriesOf(const Session& session, const OverlayContent& content) {
  std::vector<Entry> entries;
  for (const std::int64_t d : listed(session, content.shown))
    entries.push_back(
        {std::string(trimmed(session.dirname(d))), lookOf(d, session.style.cores.ink())});
  if (shownVariance(session, content)) entries.push_back({kVariance, std::nullopt});
  return entries;
}

void drawSample(const Session& session, Surface& surface, const Entry& entry, double left,
                double y) {
  if (entry.look) return drawSample(surface, *entry.look, left, y, kSample);
  surface.line(left, y, left + kSample, y, {session.style.cores.sill(), kVariancePen});
}

}  // namespace

double legendWidth(const Session& session, const OverlayContent& content, Surface& surface,
                   double pictureWidth) {
  double widest = 0;
  for (const Entry& entry : entriesOf(session, content))
    widest = std::max(widest, surface.textWidth(entry.name, fontOf(session)));
  return std::min(kSample + kGap + widest + kMargin, pictureWidth / 3);
}

void drawLegend(const Session& session, const OverlayContent& content, Surface& surface,
                const LegendBox& box) {
  const auto entries = entriesOf(session, content);
  const double lines = std::max(1.0, static_cast<double>(entries.size()));
  Font font = fontOf(session);
  double letters = static_cast<double>(font.size) * kTwipsPerPoint;
  const double pitch = std::min(kPitch * letters, box.height / lines);
  const double shrink = std::min(1.0, pitch / (kLeastPitch * letters));
  font.size *= static_cast<float>(shrink);
  letters *= shrink;
  const double room = box.width - kSample - kGap - kMargin;
  double y = box.top + pitch / 2;
  for (const Entry& entry : entries) {
    drawSample(session, surface, entry, box.left, y);
    surface.text(box.left + kSample + kGap, y - kHalfLine * letters,
                 elided(surface, font, entry.name, room), font, session.style.cores.ink());
    y += pitch;
  }
}

}  // namespace zevfit
