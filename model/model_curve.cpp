#include "model/model_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>

#include "model/nested_model.h"
#include "model/sliders.h"
#include "model/wide_registers.h"

namespace zevfit {

namespace {

constexpr double kLargestExponent = 2;

using Row = Table<double, kCurvePoints + 1>;
using Samples = std::span<double, std::size_t{kCurvePoints}>;
using Distances = std::span<const double, std::size_t{kCurvePoints}>;

Samples samplesOf(Row& row) { return row.slots().last<kCurvePoints>(); }

template <double (*formula)(double h, double sill, double range)>
void fillRow(Samples row, Distances distances, double sill, double range) {
  for (std::size_t i = 0; i < row.size(); ++i) row[i] = finite(formula(distances[i], sill, range));
}

/// By Form.
constexpr std::array kFillRows{fillRow<spherical>, fillRow<exponential>, fillRow<gaussian>,
                               fillRow<power>};

/// What happens when the exponent of a power structure is above 2; the warnings count the lines
/// from the nugget. Reset values, order and slider differ: on the order depends whether a drawing
/// that the new text runs still sees a handle held.
struct PowerRefusal {
  const char* warning;
  const char* resetText;
  bool textFirst;  ///< the field is reset before the handles are let go
  bool placesSlider;
};
/// By line, from structure 1.
constexpr std::array<PowerRefusal, kStructures.size()> kPowerRefusals{{
    {"Structure II : Power Model (0 < a < 2)", "2", true, true},
    {"Structure III : Power Model (0 < a < 2)", "0.001", false, false},
    {"Structure IV : Power Model (0 < a < 2)", "0.001", false, false},
}};

void refusePower(Fit& fit, Line structure) {
  const PowerRefusal& refusal = kPowerRefusals.at(indexOf(structure) - 1);
  fit.messages.warning(refusal.warning);
  if (!refusal.textFirst) fit.session.dragsel = {};
  fit.panel.setText(Field::a, refusal.resetText);
  if (refusal.textFirst) fit.session.dragsel = {};
  if (!refusal.placesSlider) return;
  const RangeScale scale = rangeScale(fit.session, fit.session.current());
  fit.panel.setPosition(Slider::a, rangePosition(scale, fit.panel.text(Field::a)));
}

/// False for a power structure whose exponent is too large.
bool fillStructure(Session& session, Pair pair, Line structure) {
  const LineRef at = line(session, pair, structure);
  if (!at.isOn()) return true;
  const std::optional<Form> form = formOf(at.letter());
  // The row of any other letter stays as it was and counts in the sum: the curve shows that line
  // with the form that it had last.
  if (!form) return true;
  const bool isPower = form == Form::power;
  const double range = at.range().number();
  if (isPower && range > kLargestExponent) return false;
  kFillRows[static_cast<std::size_t>(*form)](samplesOf(session.curverow[indexOf(structure)]),
                                             samplesOf(session.curveh),
                                             isPower ? 0 : at.sill().number(), range);
  return true;
}

void raiseRanges(Session& session, Pair pair) {
  for (const Line structure : kStructures) {
    Cell& range = line(session, pair, structure).range();
    if (const double raised = raisedRange(range.number()); raised != range.number()) range = raised;
  }
}

void fillDistances(Session& session, double distanceend) {
  const Samples distances = samplesOf(session.curveh);
  for (std::size_t i = 0; i < distances.size(); ++i)
    distances[i] = finite((distanceend / kCurvePoints) * static_cast<double>(i + 1));
}

void fillNugget(Session& session, Pair pair) {
  const LineRef nugget = line(session, pair, Line::nugget);
  if (nugget.isOn()) std::ranges::fill(samplesOf(session.curverow[0]), nugget.sill().number());
}

/// Lines with flag 0 are multiplied out, so what their rows still hold does no harm.
void addRows(Session& session, Pair pair) {
  std::array<double, kLines.size()> flags{};
  for (const Line which : kLines) flags[indexOf(which)] = line(session, pair, which).used();
  auto& [nugget, first, second, third] = session.curverow;
  const Distances row0 = samplesOf(nugget), row1 = samplesOf(first), row2 = samplesOf(second),
                  row3 = samplesOf(third);
  const Samples total = samplesOf(session.curvegam);
  for (std::size_t i = 0; i < total.size(); ++i)
    total[i] =
        finite(flags[0] * row0[i] + flags[1] * row1[i] + flags[2] * row2[i] + flags[3] * row3[i]);
}

}  // namespace

std::optional<Line> sampleCurve(Session& session, Pair pair, double distanceend) {
  emptyWideRegisters();
  raiseRanges(session, pair);
  fillDistances(session, distanceend);
  fillNugget(session, pair);
  for (const Line structure : kStructures)
    if (!fillStructure(session, pair, structure)) return structure;
  addRows(session, pair);
  return std::nullopt;
}

void modelcurve(Fit& fit, Pair pair, double distanceend) {
  fit.session.setCurrent(pair);
  if (const auto refused = sampleCurve(fit.session, pair, distanceend)) refusePower(fit, *refused);
}

}  // namespace zevfit
