#include "plot/overlay/overlay_frame.h"

#include <string>

#include "plot/drawing/plot_form.h"
#include "session/number_pattern.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kDivisions = 5;
constexpr double kTitleTop = 100;
constexpr double kLabelTop = 300, kGammaLeft = 100, kArgumentLeft = 220;
constexpr double kLegendFromBottom = 300;
constexpr double kTick = 10;
constexpr double kNumberGap = 40, kNumberRise = 80;

/// The frame under way.
struct Frame {
  const Session& session;
  const PlotMap& map;
  Surface& surface;

  const PlotBox& box() const { return map.box; }
  Colour ink() const { return session.style.cores.ink(); }
  Font font(FontRole role) const {
    const FontSample& sample = session.style.Formfont.Label2.at(static_cast<std::size_t>(role));
    return {sample.fontname, sample.fontsize};
  }
  /// A text that ends at a place.
  void textTo(double right, double y, const std::string& text, FontRole role) const {
    surface.text(right - surface.textWidth(text, font(role)), y, text, font(role), ink());
  }
  void textAround(double middle, double y, const std::string& text, FontRole role) const {
    textTo(middle + surface.textWidth(text, font(role)) / 2, y, text, role);
  }
};

void drawLabels(const Frame& frame, std::int64_t variable) {
  const PlotBox& box = frame.box();
  const std::string name(trimmed(frame.session.varname(variable)));
  frame.textAround(box.pictureW / 2, kTitleTop, "Semivariogram (" + name + ")", FontRole::title);
  Font gamma = frame.font(FontRole::legend);
  gamma.name = "Symbol";
  frame.surface.text(kGammaLeft, kLabelTop, "g", gamma, frame.ink());
  frame.surface.text(kArgumentLeft, kLabelTop, "(h)", frame.font(FontRole::legend), frame.ink());
  const std::string legend(trimmed(frame.session.xlegend({variable, 1})));
  frame.textTo(box.xright(), box.pictureH - kLegendFromBottom, legend, FontRole::legend);
}

void drawGrid(const Frame& frame) {
  const PlotBox& box = frame.box();
  const Stroke dots{frame.session.axiscolor, 1, LineStyle::dotted};
  for (int k = 1; k <= kDivisions; ++k)
    frame.surface.line(box.xgrid(k), PlotBox::ytop, box.xgrid(k), box.ybottom(), dots);
  for (int k = 0; k < kDivisions; ++k)
    frame.surface.line(PlotBox::xleft, box.ygrid(k), box.xright(), box.ygrid(k), dots);
}

void drawAxes(const Frame& frame) {
  const PlotBox& box = frame.box();
  const Stroke axis{frame.ink(), 1}, tick{frame.ink(), 2};
  frame.surface.line(PlotBox::xleft, PlotBox::ytop, PlotBox::xleft, box.ybottom(), axis);
  frame.surface.line(PlotBox::xleft, box.ybottom(), box.xright(), box.ybottom(), axis);
  for (int k = 1; k <= kDivisions; ++k)
    frame.surface.line(box.xgrid(k), box.ybottom() - kTick, box.xgrid(k), box.ybottom() + kTick,
                       tick);
  for (int k = 0; k < kDivisions; ++k)
    frame.surface.line(PlotBox::xleft - kTick, box.ygrid(k), PlotBox::xleft + kTick, box.ygrid(k),
                       tick);
}

/// Nothing is written as in the corner of a plot, whatever the pattern makes of it.
std::string numberText(double value, std::string_view pattern) {
  return value == 0 ? "0" : std::string(trimmed(formatNumber(value, pattern)));
}

/// Unlike a plot of one direction, the lower end of the semivariance axis has its own number.
void drawNumbers(const Frame& frame) {
  const PlotBox& box = frame.box();
  const auto& patterns = frame.session.style.Formfont.formato;
  const double step = (frame.map.ymax - frame.map.ymin) / kDivisions;
  for (int k = 0; k <= kDivisions; ++k) {
    const std::string distance = numberText(k * frame.map.xmax / kDivisions, patterns[1]);
    frame.textAround(box.xgrid(k), box.ybottom() + kNumberGap, distance, FontRole::numbers);
    const std::string gamma = numberText(frame.map.ymin + k * step, patterns[0]);
    frame.textTo(PlotBox::xleft - kNumberGap, box.ygrid(kDivisions - k) - kNumberRise, gamma,
                 FontRole::numbers);
  }
}

}  // namespace

void drawOverlayFrame(const Session& session, std::int64_t variable, const PlotMap& map,
                      Surface& surface) {
  const Frame frame{session, map, surface};
  surface.clear(session.style.cores.paper());
  drawLabels(frame, variable);
  drawGrid(frame);
  drawAxes(frame);
  drawNumbers(frame);
}

}  // namespace zevfit
