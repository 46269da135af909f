#include "model/fields.h"

#include <algorithm>
#include <optional>
#include <string>

#include "model/nested_model.h"
#include "model/sliders.h"
#include "session/hint_number.h"
#include "session/line.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr const char* kTotalPattern = "#####.###";
/// Drags and the slider write ranges by this one.
constexpr const char* kRangePattern = "####.###";
/// This word as the whole text is refused as a sill.
constexpr const char* kRefusedWord = "False";
/// No handler writes this caption, so the check of the field stays silent; the limit that works is
/// the one of the sampled model.
constexpr const char* kDormantCaption = "C0*h^a  (0<a<2)";

bool outsideAxis(const Session& session, double value) {
  return value > session.ymax(session.current()) || value < session.ymin(session.current());
}

std::string refusedSill(const Session& session, std::string_view text) {
  const Pair pair = session.current();
  const std::string reason = text == kRefusedWord
                                 ? std::string(text) + " is no number"
                                 : generalText(leadingNumber(text)) +
                                       " is no sill here: the semivariance axis goes from " +
                                       generalText(session.ymin(pair)) + " to " +
                                       generalText(session.ymax(pair));
  return reason + ". The value before is back.";
}

std::string refusedRange(double typed, double farEnd) {
  return generalText(typed) + " is no range here: ranges go from 0 to " + generalText(farEnd) +
         ", 20 times the largest distance. The far end is taken.";
}

/// The selected line, where that is a structure.
std::optional<ConstLineRef> selectedStructure(const Session& session) {
  if (!session.sel || session.sel == Line::nugget) return std::nullopt;
  return line(session, session.current(), *session.sel);
}

/// Nothing for a text beyond all numbers.
std::optional<double> readingOf(std::string_view text) {
  return attempt([&] { return std::optional(leadingNumber(text)); },
                 [] { return std::optional<double>(); });
}

/// Empty for a text that a number can hold.
std::string beyondNumbers(std::string_view text, std::string_view what, const Cell& stays) {
  if (readingOf(text)) return "";
  return std::string(text) + " is beyond all numbers. The " + std::string(what) + " stays " +
         stays.toText() + ".";
}

std::string beyondNumbers(const Session& session, std::string_view range) {
  const auto selected = selectedStructure(session);
  return selected ? beyondNumbers(range, "range", selected->range()) : "";
}

bool isNought(std::string_view text) {
  return !text.empty() && text.find_first_not_of("+-.0") == text.npos;
}

bool isWholeNumber(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == text.npos) return false;
  text = text.substr(first, text.find_last_not_of(" \t") - first + 1);
  return wholeNumber(text).has_value();
}

std::string asTyped(std::string_view text) {
  return text.empty() ? "The empty field" : "\"" + std::string(text) + "\"";
}

/// Why a drawing has raised the range that a text stands for; empty where it has not.
std::string raisedHint(const Session& session, std::string_view text) {
  const auto selected = selectedStructure(session);
  const auto reading = readingOf(text);
  if (!selected || !reading || *reading > 0) return "";
  if (selected->range().number() != kSmallestRange) return "";
  const std::string why = isNought(text) ? "" : asTyped(text) + " counts as 0, and ";
  return why + "0 is no range: " + generalText(kSmallestRange) + " is taken.";
}

/// Empty where a text stands for another range than the selected structure has, or is that number
/// and nothing else.
std::string countedHint(const Session& session, std::string_view text) {
  const auto selected = selectedStructure(session);
  const auto reading = readingOf(text);
  if (!selected || !reading || selected->range().number() != *reading) return "";
  return isWholeNumber(text) ? "" : asTyped(text) + " counts as " + generalText(*reading) + ".";
}

/// A range that is written as the end of the axis counts as that: the axis has more digits than
/// drags, the slider and most files.
bool isBeyond(double range, double axisEnd) {
  if (range <= axisEnd || hintNumber(range, "") == hintNumber(axisEnd, "")) return false;
  return range > leadingNumber(formatNumber(axisEnd, kRangePattern));
}

/// Empty where the handle of the selected structure is in view as far as its range tells.
std::string rangeOutOfView(const Session& session) {
  const Pair pair = session.current();
  const auto selected = selectedStructure(session);
  if (!selected || !selected->isOn()) return "";
  const double axisEnd = session.xmax(pair) == 0 ? session.hmax(pair) : session.xmax(pair);
  if (!isBeyond(selected->range().number(), axisEnd)) return "";
  const std::string range = selected->range().toText();
  return "a" + std::to_string(indexOf(*session.sel)) + " = " + range +
         " lies beyond the distance axis, which ends at " + hintNumber(axisEnd, range) +
         ": its handle is out of view.";
}

void computeTotal(Fit& fit) {
  Session& session = fit.session;
  const double total = totalSill(session, session.current());
  session.ctotal(session.current()) = total;
  const double variance = session.variance(session.curvar).number();
  fit.panel.setSillBackground(variance > 0 && total > variance ? kRed : kLightGrey);
}

/// False for a text that is refused.
bool takeSillText(Fit& fit, const std::string& text) {
  Session& session = fit.session;
  const double typed = leadingNumber(text);
  if (outsideAxis(session, typed) || text == kRefusedWord) {
    restoreSillText(fit);
    return false;
  }
  session.ctotal(session.current()) = 0;
  if (session.sel) line(session, session.current(), *session.sel).sill() = typed;
  return true;
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
  const std::string text = fit.panel.text(Field::c0);
  bool taken = true;
  endSilently([&] {
    taken = takeSillText(fit, text);
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, generalText(currentTotal(fit.session)));
    if (!fit.session.c0typed(fit.session.current())) fit.plotter.plotvariogram();
  });
  endSilently([&] {
    computeTotal(fit);
    fit.panel.setCaption(Caption::Labelc, formatNumber(currentTotal(fit.session), kTotalPattern));
  });
  // Behind all changes that this one has brought about.
  endSilently([&] {
    const Session& session = fit.session;
    std::string hint;
    if (session.sel)
      hint =
          taken ? beyondNumbers(text, "sill", line(session, session.current(), *session.sel).sill())
                : refusedSill(session, text);
    fit.hints.hint(HintTopic::sill, hint);
  });
}

// A failure ends the handler silently: a text beyond all numbers changes no cell.
void Texta_Change(Fit& fit) {
  if (!requireFile(fit)) return;
  const std::string text = fit.panel.text(Field::a);
  std::string hint = beyondNumbers(fit.session, text);
  endSilently([&] {
    Session& session = fit.session;
    const double farEnd = kRangesInScale * session.hmax(session.current());
    const double typed = leadingNumber(text);
    if (typed < 0 || typed > farEnd) {
      fit.panel.setText(Field::a, generalText(farEnd));
      hint = refusedRange(typed, farEnd);
    }
    if (!checkPowerField(fit)) return;
    takeRangeText(fit);
    if (!session.atyped(session.current())) fit.plotter.plotvariogram();
  });
  endSilently([&] {
    if (hint.empty()) hint = raisedHint(fit.session, text);
    if (hint.empty()) hint = rangeOutOfView(fit.session);
    fit.hints.hint(HintTopic::range, hint);
  });
}

void tellDrawnRange(Fit& fit, std::string_view text) {
  endSilently([&] {
    std::string hint = raisedHint(fit.session, text);
    if (hint.empty()) hint = countedHint(fit.session, text);
    if (!hint.empty()) fit.hints.hint(HintTopic::range, hint);
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
