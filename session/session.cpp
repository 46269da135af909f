#include "session/session.h"

#include "session/form.h"
#include "session/line.h"

namespace zevfit {
namespace {

constexpr double kMaximumSeed = -1e-200;
constexpr double kMinimumSeed = 1e+200;
constexpr double kUnsetRange = 1e-05;

void resetModel(Session& session, Pair pair) {
  for (const Line which : kLines) {
    const LineRef at = line(session, pair, which);
    at.use(0);
    at.sill() = 0;
  }
  for (const Line which : kStructures) {
    const LineRef at = line(session, pair, which);
    at.range() = kUnsetRange;
    at.letter() = kNoLetter;
  }
  session.model0(pair) = kNoLetter;
  session.ctotal(pair) = 0;
}

void resetScales(Session& session, Pair pair) {
  session.hmax(pair) = 0;
  session.gmax(pair) = kMaximumSeed;
  session.gmin(pair) = kMinimumSeed;
  session.ymax(pair) = 0;
  session.ymin(pair) = 0;
  session.xmax(pair) = 0;
  session.showsill(pair) = true;
}

}  // namespace

Session::Session() : axiscolor(style.cores.Label1) {
  for (int variable = 1; variable <= 100; ++variable) {
    for (int direction = 1; direction <= 40; ++direction) xlegend({variable, direction}) = "h( )";
  }
}

void resetFitState(Session& session) {
  for (int variable = 1; variable <= kResetVariables; ++variable) {
    for (int direction = 1; direction <= kResetDirections; ++direction) {
      resetModel(session, {variable, direction});
      resetScales(session, {variable, direction});
    }
  }
}

}  // namespace zevfit
