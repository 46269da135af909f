#include "model/model_curve.h"

#include <array>
#include <cmath>
#include <optional>

#include "model/sliders.h"

namespace zevfit {

namespace {

constexpr int kSamples = 100;
constexpr double kSmallestRange = 1e-05;
constexpr double kLargestExponent = 2;

using Row = Table<double, kSamples + 1>;
using Form = double (*)(double h, double sill, double range);

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

/// Nothing for another letter: its row is then left as it was.
Form formOf(const std::string& letter) {
  if (letter == "E") return exponential;
  if (letter == "S") return spherical;
  if (letter == "G") return gaussian;
  if (letter == "P") return power;
  return nullptr;
}

/// What happens when the exponent of a power structure is above 2; the lines are counted from the
/// nugget. The reset values, the order and the slider differ on purpose.
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

void fillRow(Row& row, const Row& distances, Form form, double sill, double range) {
  for (int i = 1; i <= kSamples; ++i) row(i) = finite(form(distances(i), sill, range));
}

/// False when the sampling ends here.
bool fillStructure(Fit& fit, int structure, std::int64_t variable, std::int64_t direction) {
  Session& session = fit.session;
  const auto line = static_cast<std::size_t>(structure);
  if (flag(session, structure, variable, direction) != 1) return true;
  const Form form = formOf((session.*kLetterTable[line])(variable, direction));
  if (!form) return true;
  const double range = (session.*kRangeTable[line])(variable, direction).number();
  if (form == power && range > kLargestExponent) {
    refusePower(fit, structure);
    return false;
  }
  const double sill = (session.*kSillTable[line])(variable, direction).number();
  fillRow(session.curverow[line], session.curveh, form, sill, range);
  return true;
}

void raiseRanges(Session& session, std::int64_t variable, std::int64_t direction) {
  for (std::size_t line = 1; line < kLines; ++line) {
    Cell& range = (session.*kRangeTable[line])(variable, direction);
    if (range.number() <= 0) range = kSmallestRange;
  }
}

/// Lines with flag 0 are multiplied out, so what their rows still hold does no harm.
void addRows(Session& session, std::int64_t variable, std::int64_t direction) {
  std::array<double, kLines> flags{};
  for (int line = 0; line < kLines; ++line)
    flags[static_cast<std::size_t>(line)] = flag(session, line, variable, direction);
  const auto& rows = session.curverow;
  for (int i = 1; i <= kSamples; ++i)
    session.curvegam(i) = finite(flags[0] * rows[0](i) + flags[1] * rows[1](i) +
                                 flags[2] * rows[2](i) + flags[3] * rows[3](i));
}

}  // namespace

void modelcurve(Fit& fit, std::int64_t direction, std::int64_t variable, double /*top*/,
                double distanceend) {
  Session& session = fit.session;
  session.curdir = direction;
  session.curvar = variable;
  raiseRanges(session, variable, direction);
  for (int i = 1; i <= kSamples; ++i) session.curveh(i) = (distanceend / kSamples) * i;
  if (flag(session, 0, variable, direction) == 1) {
    const double nugget = session.c0(variable, direction).number();
    for (int i = 1; i <= kSamples; ++i) session.curverow[0](i) = nugget;
  }
  for (int structure = 1; structure < kLines; ++structure)
    if (!fillStructure(fit, structure, variable, direction)) return;
  addRows(session, variable, direction);
}

}  // namespace zevfit
