#include "model/axis_dialogs.h"

#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr const char* kSeenPattern = "#.### ";
constexpr const char* kNewDistancePattern = "####.##";
/// Of a whole legend, with what stands around the user's text.
constexpr std::size_t kLongestLegend = 10;
constexpr const char* kTooLong = "Legend too long: Maximum 6 char.!";

/// That of the two lists.
Pair chosenPair(const Fit& fit) {
  return {fit.panel.listPosition(List::Combo2) + 1, fit.panel.listPosition(List::Combodirvar) + 1};
}

bool hasFloor(const Session& session, Pair pair) { return session.ymin(pair) < 0; }

/// A distance maximum that is set already leaves the field with what it showed last, also where
/// that was another plot's: OK then gives this plot that maximum.
void showDistance(Session& session, ScaleTexts& texts) {
  const Pair pair = session.plotted();
  if (session.xmax(pair) == 0) {
    session.xmax(pair) = session.hmax(pair);
    texts.novoxmax = formatNumber(session.xmax(pair), kNewDistancePattern);
  }
  texts.Labelxm = formatNumber(session.hmax(pair), kSeenPattern);
}

/// The real limit is that of the current pair, whose axis OK changes; the lists may show another.
void showLimit(const Session& session, ScaleTexts& texts) {
  const Pair pair = session.plotted();
  const bool floor = hasFloor(session, pair);
  const auto& real = floor ? session.ymin0 : session.ymax0;
  const auto& seen = floor ? session.ymin : session.ymax;
  texts.Labelym = generalText(real(session.current()));
  texts.novoymax = formatNumber(seen(pair), kSeenPattern);
}

/// What the program writes around a legend of the user.
std::string legendOf(std::string_view text) { return "h (" + std::string(trimmedLeft(text)) + ")"; }

}  // namespace

bool Command1_Click(Fit& fit, ScaleTexts& texts) {
  if (!requireFile(fit)) return false;
  Session& session = fit.session;
  session.setPlotted(chosenPair(fit));
  texts.caption = "Axis Scale (X,Y):  (" + session.dirname(session.plotdir) + ")";
  showDistance(session, texts);
  showLimit(session, texts);
  return true;
}

void cutgraph_Activate(const Session& session, ScaleTexts& texts) {
  texts.Label3_1 = hasFloor(session, session.current()) ? "Y-Minimum" : "Y-Maximum";
}

bool cutgraph_Command2_Click(Session& session, Messages& messages, const ScaleTexts& texts) {
  const Pair pair = session.current();
  const double limit = leadingNumber(texts.novoymax);
  const double variance = session.variance(pair.variable).number();
  const bool floor = hasFloor(session, pair);
  if (floor ? limit >= variance : limit <= variance) {
    // The text asks for a greater value also where a smaller one is needed; the manual quotes it.
    messages.warning("Illegal value ymax ! Note:  legal value >  " +
                     session.variance(pair.variable).toText());
    return false;
  }
  session.xmax(pair) = leadingNumber(texts.novoxmax);
  (floor ? session.ymin : session.ymax)(pair) = limit;
  return true;
}

bool Command4_Click(Fit& fit, std::string& caption) {
  if (!requireFile(fit)) return false;
  Session& session = fit.session;
  session.setCurrent(chosenPair(fit));
  // The caption tells of the plot drawn last, while the legend goes to the pair just taken.
  caption = "Variogram  (" + session.dirname(session.plotdir) + ")";
  return true;
}

bool legenda_Command2_Click(Session& session, Messages& messages, std::string_view text) {
  std::string& legend = session.xlegend(session.current());
  legend = legendOf(text);
  if (trimmed(legend).size() > kLongestLegend) {
    messages.plain(kTooLong);
    legend = legendOf("");
    return false;
  }
  return true;
}

}  // namespace zevfit
