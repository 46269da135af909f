#include "model/sliders.h"

#include <algorithm>
#include <cmath>

#include "model/fields.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

// The full steps of a slider in its large and in its small change.
constexpr double kLargeSteps = 20, kSmallSteps = 500;

int step(double scale, double steps) {
  return static_cast<int>(std::max(1.0, std::floor(scale / steps)));
}

/// One line of the model into the fields and sliders, in this order; scales are read after the
/// events of the texts have run.
void showLine(Fit& fit, std::size_t line, std::int64_t direction, std::int64_t variable) {
  Session& session = fit.session;
  const Cell& sill = (session.*kSillTable[line])(variable, direction);
  fit.panel.setText(Field::c0, sill.toText());
  if (line > 0)
    fit.panel.setText(Field::a, (session.*kRangeTable[line])(variable, direction).toText());
  fit.panel.setPosition(Slider::c0,
                        sillPosition(sillScale(session, variable, direction), sill.number()));
  if (line > 0)
    fit.panel.setPosition(Slider::a, rangePosition(rangeScale(session, variable, direction),
                                                   fit.panel.text(Field::a)));
}

void makeCurrent(Session& session, std::int64_t direction, std::int64_t variable) {
  session.curdir = direction;
  session.curvar = variable;
}

bool isKnownLetter(std::string_view letter) {
  return letter == "-" || letter == "E" || letter == "S" || letter == "P" || letter == "G";
}

}  // namespace

SillScale sillScale(const Session& session, std::int64_t variable, std::int64_t direction) {
  return {session.ymin(variable, direction), session.ymax(variable, direction), session.c0scale};
}

RangeScale rangeScale(const Session& session, std::int64_t variable, std::int64_t direction) {
  return {session.hmax(variable, direction), session.ascale};
}

void scalesliders(Fit& fit, std::int64_t direction, std::int64_t variable) {
  Session& session = fit.session;
  makeCurrent(session, direction, variable);
  session.ascale = rangeSliderMaximum(session.hmax(variable, direction));
  session.c0scale = kSillSliderMaximum;
  session.c0step = step(session.c0scale, kLargeSteps);
  session.astep = step(session.ascale, kLargeSteps);
  const int sillStep = step(session.c0scale, kSmallSteps);
  const int rangeStep = step(session.ascale, kSmallSteps);
  FitPanel& panel = fit.panel;
  panel.setMaximum(Slider::c0, toInt16(session.c0scale));
  panel.setMaximum(Slider::a, toInt16(session.ascale));
  panel.setMinimum(Slider::c0, 0);
  panel.setMinimum(Slider::a, 0);
  panel.setSmallChange(Slider::c0, sillStep);
  panel.setSmallChange(Slider::a, rangeStep);
  panel.setLargeChange(Slider::c0, toInt16(session.c0step));
  panel.setLargeChange(Slider::a, toInt16(session.astep));
}

void showmodel(Fit& fit, std::int64_t direction, std::int64_t variable) {
  Session& session = fit.session;
  makeCurrent(session, direction, variable);
  for (std::size_t line = 1; line < kLines; ++line) {
    const std::string& letter = (session.*kLetterTable[line])(variable, direction);
    if (isKnownLetter(letter)) fit.panel.setLetter(static_cast<int>(line), letter);
  }
  if (session.dragging != 0) return;
  for (std::size_t line = 0; line < kLines; ++line)
    if (session.sel[line] == 1) showLine(fit, line, direction, variable);
}

void resynchroniseSliders(Fit& fit, std::int64_t direction, std::int64_t variable) {
  Session& session = fit.session;
  if (session.c0typed(variable, direction) == 1) {
    const double typed = leadingNumber(fit.panel.text(Field::c0));
    fit.panel.setPosition(Slider::c0, sillPosition(sillScale(session, variable, direction), typed));
  }
  if (session.atyped(variable, direction) == 1)
    fit.panel.setPosition(Slider::a, rangePositionWhole(rangeScale(session, variable, direction),
                                                        fit.panel.text(Field::a)));
}

// A failure ends the handler silently.
void HScrollc0_Change(Fit& fit) {
  endSilently([&] {
    Session& session = fit.session;
    const std::int64_t v = session.curvar, d = session.curdir;
    if (session.c0typed(v, d) != 0) return;
    const double value = sillValue(sillScale(session, v, d), fit.panel.position(Slider::c0));
    // The top itself is refused here, unlike in the field.
    if (value >= session.ymax(v, d) || value < session.ymin(v, d)) return restoreSillText(fit);
    fit.panel.setText(Field::c0, generalText(value));
  });
}

// A failure ends the handler silently.
void HScrolla_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    Session& session = fit.session;
    const std::int64_t v = session.curvar, d = session.curdir;
    if (session.atyped(v, d) != 0) return;
    fit.panel.setText(Field::a,
                      rangeText(rangeScale(session, v, d), fit.panel.position(Slider::a)));
  });
}

// No failure is expected in the two, and none is caught.
void HScrollc0_GotFocus(Fit& fit) {
  fit.session.c0typed(fit.session.curvar, fit.session.curdir) = 0;
}

void HScrolla_GotFocus(Fit& fit) { fit.session.atyped(fit.session.curvar, fit.session.curdir) = 0; }

}  // namespace zevfit
