#include "model/model_curve.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <string_view>

#include "model/sliders.h"

namespace zevfit {

namespace {

constexpr int kSamples = 100;
constexpr double kSmallestRange = 1e-05;
constexpr double kLargestExponent = 2;

using Row = Table<double, kSamples + 1>;
using Samples = std::span<double, std::size_t{kSamples}>;
using Distances = std::span<const double, std::size_t{kSamples}>;

Samples samplesOf(Row& row) { return row.slots().last<kSamples>(); }

double exponential(double h, double sill, double range) {
  return sill * (1 - std::exp((-3 * h) / range));
}

double spherical(double h, double sill, double range) {
  if (h > range) return sill;
  const double t = h / range;
  return sill * (1.5 * t - std::pow(t, 3) * 0.5);
}

double gaussian(double h, double sill, double range) {
  return sill * (1 - std::exp(-3 * std::pow(h / range, 2)));
}

/// The sill takes no part, on purpose; the expression on show says so.
double power(double h, double /*sill*/, double range) { return std::pow(h, range); }

template <double (*formula)(double h, double sill, double range)>
void fillRow(Samples row, Distances distances, double sill, double range) {
  for (std::size_t i = 0; i < row.size(); ++i) row[i] = finite(formula(distances[i], sill, range));
}

struct Form {
  std::string_view letter;
  void (*fill)(Samples row, Distances distances, double sill, double range);
  bool isPower;
};
constexpr std::array<Form, 4> kForms{{{"E", fillRow<exponential>, false},
                                      {"S", fillRow<spherical>, false},
                                      {"G", fillRow<gaussian>, false},
                                      {"P", fillRow<power>, true}}};

/// What happens when the exponent of a power structure is above 2; the warnings count the lines
/// from the nugget. The reset values, the order and the slider differ on purpose.
struct PowerRefusal {
  const char* warning;
  const char* resetText;
  bool textFirst;  ///< the field is reset before the handles are let go
  bool placesSlider;
};
constexpr std::array<PowerRefusal, 4> kPowerRefusals{{
    {"", "", false, false},
    {"Structure II : Power Model (0 < a < 2)", "2", true, true},
    {"Structure III : Power Model (0 < a < 2)", "0.001", false, false},
    {"Structure IV : Power Model (0 < a < 2)", "0.001", false, false},
}};

void letHandlesGo(Session& session) {
  for (std::size_t i = 0; i < 4; ++i) session.dragsel[i] = 0;
}

void refusePower(Fit& fit, int structure) {
  const PowerRefusal& refusal = kPowerRefusals[static_cast<std::size_t>(structure)];
  fit.dialogs.warning(refusal.warning);
  if (!refusal.textFirst) letHandlesGo(fit.session);
  fit.panel.setText(Field::a, refusal.resetText);
  if (refusal.textFirst) letHandlesGo(fit.session);
  if (!refusal.placesSlider) return;
  const Session& session = fit.session;
  const RangeScale scale = rangeScale(session, session.curvar, session.curdir);
  fit.panel.setPosition(Slider::a, rangePosition(scale, fit.panel.text(Field::a)));
}

/// False when the sampling ends here.
bool fillStructure(Fit& fit, int structure, std::int64_t variable, std::int64_t direction) {
  Session& session = fit.session;
  const auto line = static_cast<std::size_t>(structure);
  if (flag(session, structure, variable, direction) != 1) return true;
  const std::string& letter = (session.*kLetterTable[line])(variable, direction);
  const auto form = std::ranges::find(kForms, letter, &Form::letter);
  // The row of any other letter stays as it was, on purpose, and counts in the sum.
  if (form == kForms.end()) return true;
  const double range = (session.*kRangeTable[line])(variable, direction).number();
  if (form->isPower && range > kLargestExponent) {
    refusePower(fit, structure);
    return false;
  }
  const Cell& sill = (session.*kSillTable[line])(variable, direction);
  form->fill(samplesOf(session.curverow[line]), samplesOf(session.curveh),
             form->isPower ? 0 : sill.number(), range);
  return true;
}

void raiseRanges(Session& session, std::int64_t variable, std::int64_t direction) {
  for (std::size_t line = 1; line < kLines; ++line) {
    Cell& range = (session.*kRangeTable[line])(variable, direction);
    if (range.number() <= 0) range = kSmallestRange;
  }
}

void fillDistances(Session& session, double distanceend) {
  const Samples distances = samplesOf(session.curveh);
  for (std::size_t i = 0; i < distances.size(); ++i)
    distances[i] = finite((distanceend / kSamples) * static_cast<double>(i + 1));
}

void fillNugget(Session& session, std::int64_t variable, std::int64_t direction) {
  if (flag(session, 0, variable, direction) == 1)
    std::ranges::fill(samplesOf(session.curverow[0]), session.c0(variable, direction).number());
}

/// Lines with flag 0 are multiplied out, so what their rows still hold does no harm.
void addRows(Session& session, std::int64_t variable, std::int64_t direction) {
  std::array<double, kLines> flags{};
  for (int line = 0; line < kLines; ++line)
    flags[static_cast<std::size_t>(line)] = flag(session, line, variable, direction);
  auto& [nugget, first, second, third] = session.curverow;
  const Distances row0 = samplesOf(nugget), row1 = samplesOf(first), row2 = samplesOf(second),
                  row3 = samplesOf(third);
  const Samples total = samplesOf(session.curvegam);
  for (std::size_t i = 0; i < total.size(); ++i)
    total[i] =
        finite(flags[0] * row0[i] + flags[1] * row1[i] + flags[2] * row2[i] + flags[3] * row3[i]);
}

}  // namespace

void modelcurve(Fit& fit, std::int64_t direction, std::int64_t variable, double /*top*/,
                double distanceend) {
  Session& session = fit.session;
  session.curdir = direction;
  session.curvar = variable;
  raiseRanges(session, variable, direction);
  fillDistances(session, distanceend);
  fillNugget(session, variable, direction);
  for (int structure = 1; structure < kLines; ++structure)
    if (!fillStructure(fit, structure, variable, direction)) return;
  addRows(session, variable, direction);
}

}  // namespace zevfit
