// Derived variables: lines of commands up to one of a point alone, then a variogram file. A command
// is a letter and its text: t and the number of a variable ticks or unticks it, c and a name makes
// a variable, r and a number removes one, s starts the fit, v shows a class.
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "fuzz/fields.h"
#include "fuzz/require.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"
#include "session/structure_view.h"

namespace zevfit {
namespace {

constexpr std::size_t kMostCommands = 100;
constexpr std::int64_t kMostVariables = kVariableSlots - 1;

std::int64_t variableOf(const Session& session, const std::string& text) {
  const auto number = wholeNumber(text);
  const bool listed = number && *number >= 1 && *number <= static_cast<double>(session.nvar);
  return listed ? static_cast<std::int64_t>(*number) : 0;
}

void toggle(Session& session, const std::string& text) {
  const std::int64_t v = variableOf(session, text);
  if (v > 0) session.addflag(v) = !session.addflag(v);
}

/// The sum of a class over the ticked variables; the last of them in `last`.
double sumOf(const Session& session, std::int64_t slot, std::int64_t d, std::int64_t lag,
             std::int64_t& last) {
  double sum = 0;
  for (std::int64_t v = 1; v < slot; ++v) {
    if (!session.addflag(v)) continue;
    sum += session.gam({v, d}, lag);
    last = v;
  }
  return sum;
}

void checkClass(const Session& session, std::int64_t slot, std::int64_t d, std::int64_t lag) {
  std::int64_t last = 0;
  require(session.gam({slot, d}, lag) == sumOf(session, slot, d, lag, last), "a class is the sum");
  require(last > 0, "something was ticked");
  require(session.hlag({slot, d}, lag).toText() == session.hlag({last, d}, lag).toText(),
          "its distance is that of the last variable added");
  require(session.npairs({slot, d}, lag) == session.npairs({1, d}, lag),
          "its pairs are those of variable 1");
}

void checkMade(const Session& session, const std::string& name) {
  const std::int64_t slot = session.nvar;
  require(session.varname(slot) == trimmedLeft(name), "it has its name");
  require(std::isfinite(session.variance(slot).number()), "its variance is a number");
  const std::int64_t lags = std::min<std::int64_t>(session.nclass, 20);
  for (std::int64_t d = 1; d <= session.ndir; ++d)
    for (std::int64_t lag = 1; lag <= lags; ++lag) checkClass(session, slot, d, lag);
}

void create(Session& session, const std::string& name) {
  const std::int64_t before = session.nvar;
  const auto shown = static_cast<double>(session.nvarfile);
  require(createVariable(session, name, shown, false) && session.nvar == before,
          "a name beyond Latin-1 is refused");
  const auto refusal = createVariable(session, name, shown);
  require(session.nvar == before + (refusal ? 0 : 1), "a refusal makes nothing");
  if (refusal) return require(!refusal->warning.empty(), "and says why");
  require(name.find_first_of(",\"\t") == std::string::npos, "a file holds its name");
  checkMade(session, name);
}

void remove(Session& session, const std::string& text) {
  const std::int64_t v = variableOf(session, text);
  if (v == 0) return;
  session.datavar = v;
  const std::int64_t before = session.nvar;
  std::vector<std::string> names;
  for (std::int64_t k = 1; k <= before; ++k)
    if (k != v) names.push_back(session.varname(k));
  const auto refusal = removeVariable(session, session.varname(v));
  if (refusal) return require(session.nvar == before, "a refusal removes nothing");
  require(v > session.nvarfile && session.nvar == before - 1, "what was made can be removed");
  for (std::int64_t k = 1; k <= session.nvar; ++k)
    require(session.varname(k) == names.at(static_cast<std::size_t>(k - 1)), "the others move up");
}

void start(Session& session) {
  const auto variable = startPair(session);
  if (variable) require(session.use1({*variable, 1}).number() == 1, "the fit starts with a model");
  require(session.hasmodel || !variable, "without models it starts with none");
}

void show(const Session& session, const std::string& text) {
  const auto lag = wholeNumber(text);
  if (!lag || std::abs(*lag) > 1e6) return;
  const ClassRow row = classRow(session, {1, 1}, static_cast<std::int64_t>(*lag));
  require(wholeNumber(row.gamma).has_value() && wholeFloat(row.pairs).has_value(),
          "a class shows numbers");
}

void run(Session& session, const std::string& command) {
  const std::string text = command.substr(std::min<std::size_t>(1, command.size()));
  endSilently([&] {
    switch (command.empty() ? ' ' : command.front()) {
      case 't':
        return toggle(session, text);
      case 'c':
        return create(session, text);
      case 'r':
        return remove(session, text);
      case 's':
        return start(session);
      case 'v':
        return show(session, text);
      default:
        return;
    }
  });
}

void check(Fields& in) {
  std::vector<std::string> commands;
  while (!in.atEnd() && commands.size() < kMostCommands) {
    commands.push_back(in.next());
    if (commands.back() == ".") break;
  }
  Session session;
  if (!readVariogramBytes(in.rest(), session)) return;
  // Beyond the tables the program ends with a fault when the file is shown.
  if (session.nvar > kMostVariables || session.ndir >= kDirectionSlots) return;
  acceptLoad(session, "file.zvm");
  for (const std::string& command : commands) run(session, command);
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  zevfit::Fields in(data, size);
  zevfit::check(in);
  return 0;
}
