#include "model/axis_dialogs.h"

#include <optional>

#include "session/illegal_value.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {
namespace {

constexpr const char* kSeenPattern = "#.### ";
constexpr const char* kNewDistancePattern = "####.##";
/// Of a whole legend, with what stands around the user's text.
constexpr std::size_t kLongestLegend = 10;
constexpr const char* kDistanceName = "X-Maximum";
constexpr const char* kTooLong = "Legend too long: Maximum 6 char.!";

/// That of the two lists.
Pair chosenPair(const Fit& fit) {
  return {fit.panel.listPosition(List::Combo2) + 1, fit.panel.listPosition(List::Combodirvar) + 1};
}

bool hasFloor(const Session& session, Pair pair) { return session.ymin(pair) < 0; }

const char* limitName(const Session& session, Pair pair) {
  return hasFloor(session, pair) ? "Y-Minimum" : "Y-Maximum";
}

/// The number in a field; nothing where it overflows, which is warned of.
std::optional<double> fieldValue(std::string_view text, const char* name, Messages& messages) {
  return attempt([&] { return std::optional(leadingNumber(text)); },
                 [&] {
                   messages.warning(illegalValue(name, text));
                   return std::optional<double>();
                 });
}

/// The same of a variance, which a file may have left as a text.
std::optional<double> varianceOf(const Session& session, std::int64_t variable,
                                 Messages& messages) {
  const Cell& variance = session.variance(variable);
  if (!variance.isText()) return variance.number();
  messages.warning(illegalValue("variance", variance.toText()));
  return std::nullopt;
}

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
  texts.Label3_1 = limitName(session, session.current());
}

bool cutgraph_Command2_Click(Session& session, Messages& messages, const ScaleTexts& texts) {
  const Pair pair = session.current();
  const auto limit = fieldValue(texts.novoymax, limitName(session, pair), messages);
  if (!limit) return false;
  const auto variance = varianceOf(session, pair.variable, messages);
  if (!variance) return false;
  const bool floor = hasFloor(session, pair);
  if (floor ? *limit >= *variance : *limit <= *variance) {
    // The text asks for a greater value also where a smaller one is needed; the manual quotes it.
    messages.warning("Illegal value ymax ! Note:  legal value >  " +
                     session.variance(pair.variable).toText());
    return false;
  }
  const auto distance = fieldValue(texts.novoxmax, kDistanceName, messages);
  if (!distance) return false;
  session.xmax(pair) = *distance;
  (floor ? session.ymin : session.ymax)(pair) = *limit;
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
