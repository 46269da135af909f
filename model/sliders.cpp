#include "model/sliders.h"

#include <algorithm>
#include <cmath>

#include "model/fields.h"
#include "session/form.h"
#include "session/line.h"
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

/// A line of the model into the fields and sliders, in this order; scales are read after the
/// events of the texts have run.
void showLine(Fit& fit, Line which, Pair pair) {
  Session& session = fit.session;
  const bool hasRange = which != Line::nugget;
  const LineRef at = line(session, pair, which);
  fit.panel.setText(Field::c0, at.sill().toText());
  if (hasRange) fit.panel.setText(Field::a, at.range().toText());
  fit.panel.setPosition(Slider::c0, sillPosition(sillScale(session, pair), at.sill().number()));
  if (hasRange)
    fit.panel.setPosition(Slider::a,
                          rangePosition(rangeScale(session, pair), fit.panel.text(Field::a)));
}

std::string stoppedSlider(const Session& session, Pair pair, double value) {
  const double end = value < session.ymin(pair) ? session.ymin(pair) : session.ymax(pair);
  return "The slider does not take the end of the axis: type " + generalText(end) + " to have it.";
}

bool isKnownLetter(std::string_view letter) {
  return letter == kNoLetter || formOf(letter).has_value();
}

}  // namespace

SillScale sillScale(const Session& session, Pair pair) {
  return {session.ymin(pair), session.ymax(pair), session.c0scale};
}

RangeScale rangeScale(const Session& session, Pair pair) {
  return {session.hmax(pair), session.ascale};
}

void scalesliders(Fit& fit, Pair pair) {
  Session& session = fit.session;
  session.setCurrent(pair);
  session.ascale = rangeSliderMaximum(session.hmax(pair));
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

void showmodel(Fit& fit, Pair pair) {
  Session& session = fit.session;
  session.setCurrent(pair);
  for (const Line structure : kStructures) {
    const std::string& letter = line(session, pair, structure).letter();
    if (isKnownLetter(letter)) fit.panel.setLetter(structure, letter);
  }
  if (!session.dragging && session.sel) showLine(fit, *session.sel, pair);
}

void resynchroniseSliders(Fit& fit, Pair pair) {
  Session& session = fit.session;
  if (session.c0typed(pair)) {
    const double typed = leadingNumber(fit.panel.text(Field::c0));
    fit.panel.setPosition(Slider::c0, sillPosition(sillScale(session, pair), typed));
  }
  if (session.atyped(pair))
    fit.panel.setPosition(Slider::a,
                          rangePositionWhole(rangeScale(session, pair), fit.panel.text(Field::a)));
}

// A failure ends the handler silently.
void HScrollc0_Change(Fit& fit) {
  endSilently([&] {
    const Session& session = fit.session;
    const Pair pair = session.current();
    if (session.c0typed(pair)) return;
    const double value = sillValue(sillScale(session, pair), fit.panel.position(Slider::c0));
    // The top itself is refused here, unlike in the field.
    if (value >= session.ymax(pair) || value < session.ymin(pair)) {
      restoreSillText(fit);
      return fit.hints.hint(HintTopic::sill, stoppedSlider(session, pair, value));
    }
    fit.hints.hint(HintTopic::sill, "");
    fit.panel.setText(Field::c0, generalText(value));
  });
}

// A failure ends the handler silently.
void HScrolla_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    const Session& session = fit.session;
    const Pair pair = session.current();
    if (session.atyped(pair)) return;
    fit.panel.setText(Field::a,
                      rangeText(rangeScale(session, pair), fit.panel.position(Slider::a)));
  });
}

// No failure is expected in the two, and none is caught.
void HScrollc0_GotFocus(Fit& fit) { fit.session.c0typed(fit.session.current()) = false; }

void HScrolla_GotFocus(Fit& fit) { fit.session.atyped(fit.session.current()) = false; }

}  // namespace zevfit
