#include "plot/drawing/frame.h"

#include <array>

#include "plot/drawing/axis_steps.h"
#include "plot/drawing/data_steps.h"
#include "plot/drawing/legend_steps.h"

namespace zevfit {
namespace {

using Step = void (*)(Drawing&);

// The order is part of the picture.
constexpr auto kFrameSteps =
    std::to_array<Step>({drawDataCaption, drawModelCaption, drawSemivarianceLabel,
                         drawDistanceLegend, drawDataSymbol, drawSillCaption, drawVariableName,
                         drawModelSample, drawSillSample, drawAxes, drawGrid, drawTicks});

constexpr auto kContentSteps = std::to_array<Step>(
    {drawAxisNumbers, placeCurvePen, drawSillLine, drawDataPoints, drawModelCurve});

}  // namespace

void drawFrame(Drawing& drawing) {
  for (const Step step : kFrameSteps) step(drawing);
}

void drawContent(Drawing& drawing) {
  for (const Step step : kContentSteps) step(drawing);
}

}  // namespace zevfit
