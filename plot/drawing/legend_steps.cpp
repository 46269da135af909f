#include "plot/drawing/legend_steps.h"

#include <string_view>

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
constexpr double kDistanceFromBottom = 450;

void drawCaption(const Drawing& drawing, const LegendCaption& caption) {
  const PlotBox box = drawing.box();
  drawing.text(kCaption, box.pictureW - caption.fromRight, legendY(box, caption.part), caption.text,
               drawing.colours().ink());
}

void drawSample(const Drawing& drawing, const LegendSample& sample, Colour colour) {
  const PlotBox box = drawing.box();
  drawing.line(box.pictureW - kSampleFromRight, legendY(box, sample.fromPart),
               box.pictureW - kSampleToRight, legendY(box, sample.toPart), colour);
}

bool showsSill(const Drawing& drawing) {
  const Session& session = drawing.session();
  return drawing.form.legendShowsSill(session, session.plotted());
}

/// All of a name that is measured, half of one that is centred.
double nameShift(const Drawing& drawing, std::string_view name) {
  const double character = drawing.form.nameCharacterWidth;
  if (character > 0) return halfWidth(name, character);
  return drawing.target.picture().textWidth(name, drawing.font(kName));
}

}  // namespace

void drawDataCaption(Drawing& drawing) { drawCaption(drawing, kDataCaption); }

void drawModelCaption(Drawing& drawing) {
  if (drawing.hasModel()) drawCaption(drawing, kModelCaption);
}

void drawSemivarianceLabel(Drawing& drawing) {
  const Colour colour = drawing.colours().ink();
  // The sign has the size of the captions before it, also where the text behind it is smaller.
  Font gamma = drawing.font(kCaption);
  gamma.name = "Symbol";
  drawing.target.picture().text(kGammaLeft, kGammaTop, "g", gamma, colour);
  drawing.text(kArgument, kGammaArgumentLeft, kGammaTop, "(h)", colour);
}

void drawDistanceLegend(Drawing& drawing) {
  const PlotBox box = drawing.box();
  const Session& session = drawing.session();
  const std::string_view legend = trimmed(session.xlegend(session.plotted()));
  drawing.text(kDistanceLegend, box.xright(), box.pictureH - kDistanceFromBottom, legend,
               drawing.colours().ink());
}

void drawDataSymbol(Drawing& drawing) {
  const PlotBox box = drawing.box();
  drawing.disc(box.pictureW - kSymbolFromRight, legendY(box, kSymbolPart),
               drawing.colours().data());
}

void drawSillCaption(Drawing& drawing) {
  if (showsSill(drawing)) drawCaption(drawing, kSillCaption);
}

void drawVariableName(Drawing& drawing) {
  const std::string_view name = trimmed(drawing.variableName());
  const double x = drawing.box().pictureW - kNameFromRight - nameShift(drawing, name);
  const bool keeps = drawing.form.nameKeepsColour && showsSill(drawing);
  drawing.text(kName, x, kNameTop, name,
               keeps ? drawing.colours().ink() : drawing.colours().data());
}

void drawModelSample(Drawing& drawing) {
  if (drawing.hasModel()) drawSample(drawing, kModelSample, drawing.colours().curve());
}

void drawSillSample(Drawing& drawing) {
  if (showsSill(drawing)) drawSample(drawing, kSillSample, drawing.colours().sill());
}

}  // namespace zevfit
