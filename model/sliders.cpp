#include "model/sliders.h"

#include <algorithm>
#include <cmath>

#include "session/fault.h"
#include "session/numbers.h"

namespace zevfit {

namespace {

constexpr int kEnter = 13;
constexpr const char* kTotalPattern = "#####.###";
// The full steps of a slider in its large and in its small change.
constexpr double kLargeSteps = 20, kSmallSteps = 500;
/// A boolean in words is no number of a sill; as a whole text it is refused.
constexpr const char* kRefusedWord = "False";
/// No handler writes this caption, so the check of the field stays silent; the limit that works is
/// the one of the sampled model.
constexpr const char* kDormantCaption = "C0*h^a  (0<a<2)";

int step(double scale, double steps) {
  return static_cast<int>(std::max(1.0, std::floor(scale / steps)));
}

Cell& currentSill(Session& session, std::size_t line) {
  return (session.*kSillTable[line])(session.curvar, session.curdir);
}

/// Puts the stored value of the selected line back into the field. All four marks are tested.
void restoreSillText(Fit& fit) {
  for (std::size_t line = 0; line < kLines; ++line)
    if (fit.session.sel[line] == 1)
      fit.panel.setText(Field::c0, currentSill(fit.session, line).toText());
}

bool outsideAxis(const Session& session, double value) {
  return value > session.ymax(session.curvar, session.curdir) ||
         value < session.ymin(session.curvar, session.curdir);
}

void computeTotal(Fit& fit) {
  Session& session = fit.session;
  const double total = totalSill(session, session.curvar, session.curdir);
  session.ctotal(session.curvar, session.curdir) = total;
  const double variance = session.variance(session.curvar).number();
  fit.panel.setSillBackground(variance > 0 && total > variance ? kRed : kLightGrey);
}

void takeSillText(Fit& fit) {
  Session& session = fit.session;
  const std::string text = fit.panel.text(Field::c0);
  if (outsideAxis(session, leadingNumber(text)) || text == kRefusedWord)
    return restoreSillText(fit);
  session.ctotal(session.curvar, session.curdir) = 0;
  for (std::size_t line = 0; line < kLines; ++line)
    if (session.sel[line] == 1) currentSill(session, line) = leadingNumber(text);
}

double currentTotal(const Session& session) {
  return session.ctotal(session.curvar, session.curdir);
}

template <class Body>
void endSilently(Body&& body) {
  try {
    body();
  } catch (const Fault&) {
    return;
  }
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

bool requireFile(Fit& fit) {
  if (!fit.session.loaded) fit.dialogs.plain(kNoFileText);
  return fit.session.loaded;
}

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

void HScrollc0_GotFocus(Fit& fit) {
  fit.session.c0typed(fit.session.curvar, fit.session.curdir) = 0;
}

void HScrolla_GotFocus(Fit& fit) { fit.session.atyped(fit.session.curvar, fit.session.curdir) = 0; }

// A failure passes on to the second computation of the total, which always runs; one in there ends
// the handler silently.
void Textc0_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    takeSillText(fit);
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, generalText(currentTotal(fit.session)));
    if (fit.session.c0typed(fit.session.curvar, fit.session.curdir) == 0)
      fit.plotter.plotvariogram();
  });
  endSilently([&] {
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, formatNumber(currentTotal(fit.session), kTotalPattern));
  });
}

namespace {

/// False when the dormant check has ended the handler.
bool checkPowerField(Fit& fit) {
  const Session& session = fit.session;
  if (fit.panel.caption(Caption::label10) != kDormantCaption) return true;
  if (leadingNumber(fit.panel.text(Field::a)) <= 2) return true;
  fit.dialogs.warning("Power Model (0 < a < 2)");
  fit.panel.setText(Field::a, "2");
  fit.panel.setPosition(
      Slider::a,
      rangePosition(rangeScale(session, session.curvar, session.curdir), fit.panel.text(Field::a)));
  return false;
}

void takeRangeText(Fit& fit) {
  Session& session = fit.session;
  for (std::size_t line = 1; line < kLines; ++line)
    if (session.sel[line] == 1)
      (session.*kRangeTable[line])(session.curvar, session.curdir) =
          leadingNumber(fit.panel.text(Field::a));
}

}  // namespace

// A failure ends the handler silently: a text that reads as no number changes no cell.
void Texta_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    Session& session = fit.session;
    const double farEnd = 20 * session.hmax(session.curvar, session.curdir);
    const double typed = leadingNumber(fit.panel.text(Field::a));
    if (typed < 0 || typed > farEnd) fit.panel.setText(Field::a, generalText(farEnd));
    if (!checkPowerField(fit)) return;
    takeRangeText(fit);
    if (session.atyped(session.curvar, session.curdir) == 0) fit.plotter.plotvariogram();
  });
}

void Textc0_Click(Fit& fit) { fit.session.c0typed(fit.session.curvar, fit.session.curdir) = 1; }

void Texta_Click(Fit& fit) {
  if (requireFile(fit)) fit.session.atyped(fit.session.curvar, fit.session.curdir) = 1;
}

// Failures are ignored.
void Text_KeyDown(Fit& fit, int keyCode) {
  if (keyCode == kEnter) endSilently([&] { fit.plotter.plotvariogram(); });
}

void Labelvariance_Click(Fit& fit) {
  HScrollc0_GotFocus(fit);
  fit.panel.setText(Field::c0, fit.panel.caption(Caption::Labelvariance));
}

}  // namespace zevfit
