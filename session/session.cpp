#include "session/session.h"

#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kNarrowFlag = 3;

constexpr double kMaximumSeed = -1e-200;
constexpr double kMinimumSeed = 1e+200;
constexpr double kUnsetRange = 1e-05;

std::size_t lineIndex(int line) {
  if (line < 0 || line >= kLines) throwSubscript();
  return static_cast<std::size_t>(line);
}

void resetModel(Session& session, int variable, int direction) {
  for (const auto table : kFlagTable) (session.*table)(variable, direction) = 0;
  session.use3(variable, direction) = 0;
  for (const auto table : kSillTable) (session.*table)(variable, direction) = 0;
  for (const auto table : kRangeTable) {
    if (table) (session.*table)(variable, direction) = kUnsetRange;
  }
  for (const auto table : kLetterTable) (session.*table)(variable, direction) = "-";
  session.ctotal(variable, direction) = 0;
}

void resetScales(Session& session, int variable, int direction) {
  session.hmax(variable, direction) = 0;
  session.gmax(variable, direction) = kMaximumSeed;
  session.gmin(variable, direction) = kMinimumSeed;
  session.ymax(variable, direction) = 0;
  session.ymin(variable, direction) = 0;
  session.xmax(variable, direction) = 0;
  session.showsill(variable, direction) = 1;
}

}  // namespace

Session::Session() : axiscolor(style.cores.Label1) {
  for (int variable = 1; variable <= 100; ++variable) {
    for (int direction = 1; direction <= 40; ++direction) xlegend(variable, direction) = "h( )";
  }
}

double flag(const Session& session, int line, std::int64_t variable, std::int64_t direction) {
  if (line == kNarrowFlag) return session.use3(variable, direction);
  return (session.*kFlagTable.at(lineIndex(line)))(variable, direction).number();
}

void setFlag(Session& session, int line, std::int64_t variable, std::int64_t direction,
             const Cell& value) {
  if (line == kNarrowFlag) {
    session.use3(variable, direction) = toInt16(value.number());
  } else {
    (session.*kFlagTable.at(lineIndex(line)))(variable, direction) = value;
  }
}

double totalSill(const Session& session, std::int64_t variable, std::int64_t direction) {
  double total = 0;
  for (int line = 0; line < kLines; ++line) {
    const double sill = (session.*kSillTable.at(lineIndex(line)))(variable, direction).number();
    total += flag(session, line, variable, direction) * sill;
  }
  return finite(total);
}

bool hasModel(const Session& session, std::int64_t variable, std::int64_t direction) {
  double flags = 0;
  for (int line = 0; line < kLines; ++line) flags += flag(session, line, variable, direction);
  return flags != 0;
}

void resetFitState(Session& session) {
  for (int variable = 1; variable <= kResetVariables; ++variable) {
    for (int direction = 1; direction <= kResetDirections; ++direction) {
      resetModel(session, variable, direction);
      resetScales(session, variable, direction);
    }
  }
}

}  // namespace zevfit
