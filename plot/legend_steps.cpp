#include <string_view>

#include "plot/drawing_steps.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

// The legend column keeps its distance from the right edge and grows with the height, of which its
// places are fractions of 3012.
constexpr double kLegendParts = 3012;
double legendY(const PlotBox& box, double part) { return (part / kLegendParts) * box.pictureH; }

struct LegendCaption {
  std::string_view text;
  double fromRight;
  double part;
};
constexpr LegendCaption kDataCaption{"Data", 600, 1080};
constexpr LegendCaption kModelCaption{"Model", 650, 2280};
constexpr LegendCaption kSillCaption{"   Sill", 750, 1680};

struct LegendSample {
  double fromPart;
  double toPart;
};
constexpr LegendSample kModelSample{2160, 2040};
constexpr LegendSample kSillSample{1560, 1440};

constexpr double kSampleFromRight = 600, kSampleToRight = 300;
constexpr double kSymbolFromRight = 450, kSymbolPart = 960;
constexpr double kNameFromRight = 400, kNameTop = 350;
constexpr double kGammaLeft = 100, kGammaArgumentLeft = 220, kGammaTop = 300;
constexpr double kDistanceFromRight = 800, kDistanceFromBottom = 450;

void drawCaption(const Drawing& drawing, const LegendCaption& caption) {
  const PlotBox box = drawing.box();
  drawing.text(box.pictureW - caption.fromRight, legendY(box, caption.part), caption.text,
               drawing.font(FontRole::legend), drawing.colours().Label1);
}

void drawSample(const Drawing& drawing, const LegendSample& sample, Colour colour) {
  const PlotBox box = drawing.box();
  drawing.line(box.pictureW - kSampleFromRight, legendY(box, sample.fromPart),
               box.pictureW - kSampleToRight, legendY(box, sample.toPart), colour);
}

bool showsSill(const Drawing& drawing) {
  const Session& session = drawing.session();
  return drawing.form.legendShowsSill(session, session.plotvar, session.plotdir);
}

}  // namespace

void drawDataCaption(Drawing& drawing) { drawCaption(drawing, kDataCaption); }

void drawModelCaption(Drawing& drawing) {
  if (drawing.hasModel()) drawCaption(drawing, kModelCaption);
}

void drawSemivarianceLabel(Drawing& drawing) {
  const Font legend = drawing.font(FontRole::legend);
  const Colour colour = drawing.colours().Label1;
  drawing.text(kGammaLeft, kGammaTop, "g", {"Symbol", legend.size}, colour);
  drawing.text(kGammaArgumentLeft, kGammaTop, "(h)", legend, colour);
}

void drawDistanceLegend(Drawing& drawing) {
  const PlotBox box = drawing.box();
  const Session& session = drawing.session();
  const std::string_view legend = trimmed(session.xlegend(session.plotvar, session.plotdir));
  drawing.text(box.pictureW - kDistanceFromRight, box.pictureH - kDistanceFromBottom, legend,
               drawing.font(FontRole::legend), drawing.colours().Label1);
}

void drawDataSymbol(Drawing& drawing) {
  const PlotBox box = drawing.box();
  drawing.disc(box.pictureW - kSymbolFromRight, legendY(box, kSymbolPart),
               drawing.colours().Label2);
}

void drawSillCaption(Drawing& drawing) {
  if (showsSill(drawing)) drawCaption(drawing, kSillCaption);
}

void drawVariableName(Drawing& drawing) {
  const std::string_view name = trimmed(drawing.variableName());
  const double x =
      drawing.box().pictureW - kNameFromRight - halfWidth(name, drawing.form.nameCharacterWidth);
  drawing.text(x, kNameTop, name, drawing.font(FontRole::legend), drawing.colours().Label2);
}

void drawModelSample(Drawing& drawing) {
  if (drawing.hasModel()) drawSample(drawing, kModelSample, drawing.colours().Label3);
}

void drawSillSample(Drawing& drawing) {
  if (showsSill(drawing)) drawSample(drawing, kSillSample, drawing.colours().Label4);
}

}  // namespace zevfit
