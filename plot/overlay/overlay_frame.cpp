#include "plot/overlay/overlay_frame.h"

#include <array>
#include <string>

#include "plot/drawing/plot_form.h"
#include "plot/overlay/fitting_text.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kDivisions = 5;
constexpr double kTitleTop = 100;
constexpr double kLabelTop = 300, kGammaLeft = 100, kArgumentLeft = 220;
constexpr double kLegendFromBottom = 300;
constexpr double kTick = 10;
constexpr double kNumberGap = 40, kNumberRise = 80;
/// What a title leaves free on both sides.
constexpr double kTitleGap = 150;

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
  const std::string title =
      elidedWithin(frame.surface, frame.font(FontRole::title), "Semivariogram (", name, ")",
                   box.pictureW - 2 * kTitleGap);
  frame.textAround(box.pictureW / 2, kTitleTop, title, FontRole::title);
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

using Numbers = std::array<double, kDivisions + 1>;

/// In a room of that width.
std::vector<std::string> textsOf(const Frame& frame, const Numbers& numbers,
                                 std::string_view pattern, double room) {
  return axisNumbers(numbers, pattern, [&](const std::string& text) {
    return frame.surface.textWidth(text, frame.font(FontRole::numbers)) <= room;
  });
}

/// Where not all distances have room the last one has, and the first. Unlike a plot of one
/// direction, the lower end of the semivariance axis has its own number.
void drawNumbers(const Frame& frame) {
  const PlotBox& box = frame.box();
  const auto& patterns = frame.session.style.Formfont.formato;
  const double step = (frame.map.ymax - frame.map.ymin) / kDivisions;
  Numbers distances{}, gammas{};
  for (std::size_t k = 0; k < distances.size(); ++k) {
    distances.at(k) = static_cast<double>(k) * frame.map.xmax / kDivisions;
    gammas.at(k) = frame.map.ymin + static_cast<double>(k) * step;
  }
  const double room = box.xgrid(1) - PlotBox::xleft - 2 * kNumberGap;
  const auto across = textsOf(frame, distances, patterns[1], room);
  const auto up = textsOf(frame, gammas, patterns[0], PlotBox::xleft - 2 * kNumberGap);
  const auto stride = strideOf(frame.surface, frame.font(FontRole::numbers), across, room);
  for (int k = 0; k <= kDivisions; ++k) {
    const auto at = static_cast<std::size_t>(k);
    if (k == 0 || (across.size() - 1 - at) % stride == 0)
      frame.textAround(box.xgrid(k), box.ybottom() + kNumberGap, across.at(at), FontRole::numbers);
    frame.textTo(PlotBox::xleft - kNumberGap, box.ygrid(kDivisions - k) - kNumberRise, up.at(at),
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
