#include "model/fields.h"

#include "model/sliders.h"
#include "session/line.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr const char* kTotalPattern = "#####.###";
/// This word as the whole text is refused as a sill.
constexpr const char* kRefusedWord = "False";
/// No handler writes this caption, so the check of the field stays silent; the limit that works is
/// the one of the sampled model.
constexpr const char* kDormantCaption = "C0*h^a  (0<a<2)";

bool outsideAxis(const Session& session, double value) {
  return value > session.ymax(session.current()) || value < session.ymin(session.current());
}

void computeTotal(Fit& fit) {
  Session& session = fit.session;
  const double total = totalSill(session, session.current());
  session.ctotal(session.current()) = total;
  const double variance = session.variance(session.curvar).number();
  fit.panel.setSillBackground(variance > 0 && total > variance ? kRed : kLightGrey);
}

void takeSillText(Fit& fit) {
  Session& session = fit.session;
  const std::string text = fit.panel.text(Field::c0);
  const double typed = leadingNumber(text);
  if (outsideAxis(session, typed) || text == kRefusedWord) return restoreSillText(fit);
  session.ctotal(session.current()) = 0;
  if (session.sel) line(session, session.current(), *session.sel).sill() = typed;
}

double currentTotal(const Session& session) { return session.ctotal(session.current()); }

/// False when the dormant check has ended the handler.
bool checkPowerField(Fit& fit) {
  const Session& session = fit.session;
  if (fit.panel.caption(Caption::label10) != kDormantCaption) return true;
  if (leadingNumber(fit.panel.text(Field::a)) <= 2) return true;
  fit.messages.warning("Power Model (0 < a < 2)");
  fit.panel.setText(Field::a, "2");
  fit.panel.setPosition(
      Slider::a, rangePosition(rangeScale(session, session.current()), fit.panel.text(Field::a)));
  return false;
}

void takeRangeText(Fit& fit) {
  Session& session = fit.session;
  const double typed = leadingNumber(fit.panel.text(Field::a));
  if (session.sel && session.sel != Line::nugget)
    line(session, session.current(), *session.sel).range() = typed;
}

}  // namespace

void restoreSillText(Fit& fit) {
  const Session& session = fit.session;
  if (!session.sel) return;
  fit.panel.setText(Field::c0, line(session, session.current(), *session.sel).sill().toText());
}

// A failure passes on to the second computation of the total, which always runs and whose caption
// is what stays; one in there ends the handler silently.
void Textc0_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    takeSillText(fit);
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, generalText(currentTotal(fit.session)));
    if (!fit.session.c0typed(fit.session.current())) fit.plotter.plotvariogram();
  });
  endSilently([&] {
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, formatNumber(currentTotal(fit.session), kTotalPattern));
  });
}

// A failure ends the handler silently: a text beyond all numbers changes no cell.
void Texta_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  endSilently([&] {
    Session& session = fit.session;
    const double farEnd = kRangesInScale * session.hmax(session.current());
    const double typed = leadingNumber(fit.panel.text(Field::a));
    if (typed < 0 || typed > farEnd) fit.panel.setText(Field::a, generalText(farEnd));
    if (!checkPowerField(fit)) return;
    takeRangeText(fit);
    if (!session.atyped(session.current())) fit.plotter.plotvariogram();
  });
}

// These two catch no failure.
void Textc0_Click(Session& session) { session.c0typed(session.current()) = true; }

void Texta_Click(Session& session, Messages& messages) {
  if (requireFile(session, messages)) session.atyped(session.current()) = true;
}

// Failures are ignored.
void Text_KeyDown(Plotter& plotter, int keyCode) {
  if (keyCode == kEnterKeyCode) endSilently([&] { plotter.plotvariogram(); });
}

// Catches no failure of its own.
void Labelvariance_Click(Fit& fit) {
  HScrollc0_GotFocus(fit);
  fit.panel.setText(Field::c0, fit.panel.caption(Caption::Labelvariance));
}

}  // namespace zevfit
