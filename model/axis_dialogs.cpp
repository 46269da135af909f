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

std::int64_t entry(const Fit& fit, List list) { return fit.panel.listPosition(list) + 1; }

bool hasFloor(const Session& session, std::int64_t v, std::int64_t d) {
  return session.ymin(v, d) < 0;
}

/// A distance maximum that is set already leaves the field with what it showed last, also where
/// that was another plot's; on purpose.
void showDistance(Session& session, ScaleTexts& texts) {
  const std::int64_t v = session.plotvar, d = session.plotdir;
  if (session.xmax(v, d) == 0) {
    session.xmax(v, d) = session.hmax(v, d);
    texts.novoxmax = formatNumber(session.xmax(v, d), kNewDistancePattern);
  }
  texts.Labelxm = formatNumber(session.hmax(v, d), kSeenPattern);
}

/// The real limit is that of the current pair, which need not be the one of the lists; on purpose.
void showLimit(const Session& session, ScaleTexts& texts) {
  const std::int64_t v = session.plotvar, d = session.plotdir;
  const bool floor = hasFloor(session, v, d);
  const auto& real = floor ? session.ymin0 : session.ymax0;
  const auto& seen = floor ? session.ymin : session.ymax;
  texts.Labelym = generalText(real(session.curvar, session.curdir));
  texts.novoymax = formatNumber(seen(v, d), kSeenPattern);
}

/// What the program writes around a legend of the user.
std::string legendOf(std::string_view text) { return "h (" + std::string(trimmedLeft(text)) + ")"; }

}  // namespace

bool Command1_Click(Fit& fit, ScaleTexts& texts) {
  if (!requireFile(fit)) return false;
  Session& session = fit.session;
  session.plotdir = entry(fit, List::Combodirvar);
  session.plotvar = entry(fit, List::Combo2);
  texts.caption = "Axis Scale (X,Y):  (" + session.dirname(session.plotdir) + ")";
  showDistance(session, texts);
  showLimit(session, texts);
  return true;
}

void cutgraph_Activate(const Session& session, ScaleTexts& texts) {
  texts.Label3_1 = hasFloor(session, session.curvar, session.curdir) ? "Y-Minimum" : "Y-Maximum";
}

bool cutgraph_Command2_Click(Fit& fit, const ScaleTexts& texts) {
  Session& session = fit.session;
  const std::int64_t v = session.curvar, d = session.curdir;
  const double limit = leadingNumber(texts.novoymax);
  const double variance = session.variance(v).number();
  const bool floor = hasFloor(session, v, d);
  if (floor ? limit >= variance : limit <= variance) {
    // The text asks for a greater value also where a smaller one is needed; on purpose.
    fit.dialogs.warning("Illegal value ymax ! Note:  legal value >  " +
                        session.variance(v).toText());
    return false;
  }
  session.xmax(v, d) = leadingNumber(texts.novoxmax);
  (floor ? session.ymin : session.ymax)(v, d) = limit;
  return true;
}

bool Command4_Click(Fit& fit, std::string& caption) {
  if (!requireFile(fit)) return false;
  Session& session = fit.session;
  session.curdir = entry(fit, List::Combodirvar);
  session.curvar = entry(fit, List::Combo2);
  // The direction is that of the last drawing, not the one just taken; on purpose.
  caption = "Variogram  (" + session.dirname(session.plotdir) + ")";
  return true;
}

bool legenda_Command2_Click(Fit& fit, std::string_view text) {
  Session& session = fit.session;
  std::string& legend = session.xlegend(session.curvar, session.curdir);
  legend = legendOf(text);
  if (trimmed(legend).size() > kLongestLegend) {
    fit.dialogs.plain(kTooLong);
    legend = legendOf("");
    return false;
  }
  return true;
}

}  // namespace zevfit
