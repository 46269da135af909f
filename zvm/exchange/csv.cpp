// Experimental points and the model of the same direction side by side.
#include <algorithm>

#include "model/axis_fields.h"
#include "model/nested_model.h"
#include "session/number_reading.h"
#include "session/policy.h"
#include "zvm/exchange/targets.h"
#include "zvm/exchange/texts.h"

namespace zevfit::exchange {
namespace {

constexpr const char* kHeading =
    "variable,direction,azimuth,dip,class,pairs,distance,semivariance,model\n";

/// The directions of the request, each once; without Main all of the file.
std::vector<std::int64_t> directionsOf(const Session& session, const Request& request) {
  std::vector<std::int64_t> out;
  if (!request.main) {
    // Of claims beyond the tables, the first one that they refuse is enough.
    const std::int64_t last = std::min<std::int64_t>(session.ndir, kDirectionSlots);
    for (std::int64_t at = 1; at <= last; ++at) out.push_back(at);
    return out;
  }
  for (const auto& picked : {request.main, request.minor1, request.minor2})
    if (picked && std::ranges::count(out, *picked) == 0) out.push_back(*picked);
  return out;
}

/// Azimuth and dip with a comma between them, both empty for a name without.
std::string angleFields(const std::string& name) {
  return attempt(
      [&] {
        const DirectionAngles angles = directionAngles(name);
        return shortest(leadingNumber(angles.azimuth)) + "," + shortest(leadingNumber(angles.dip));
      },
      [] { return std::string(","); });
}

/// Empty where there is no model, and for what is no number.
std::string modelField(const Session& session, Pair pair, const Cell& distance) {
  return attempt(
      [&] {
        if (!hasModel(session, pair)) return std::string();
        return shortest(semivariance(modelOf(session, pair), distance.number()));
      },
      [] { return std::string(); });
}

std::string distanceField(const Cell& distance) {
  return distance.isText() ? csvField(nameText(distance.toText())) : shortest(distance.number());
}

/// The classes that the file holds, whatever number it claims.
std::int64_t classesOf(const Session& session, Pair pair) {
  const std::size_t slots =
      std::max(session.hlag.written(pair).size(), session.gam.written(pair).size());
  return std::min(session.nclass, static_cast<std::int64_t>(slots) - 1);
}

std::string rowsOf(const Session& session, Pair pair) {
  const std::string head = csvField(variableName(session, pair.variable)) + "," +
                           csvField(nameText(session.dirname(pair.direction))) + "," +
                           angleFields(session.dirname(pair.direction)) + ",";
  std::string out;
  for (std::int64_t lag = 1; lag <= classesOf(session, pair); ++lag) {
    const Cell& distance = session.hlag(pair, lag);
    out += head + std::to_string(lag) + "," + shortest(session.npairs(pair, lag)) + "," +
           distanceField(distance) + "," + shortest(session.gam(pair, lag)) + "," +
           modelField(session, pair, distance) + "\n";
  }
  return out;
}

}  // namespace

std::string csvText(const Session& session, const Request& request) {
  std::string out = kHeading;
  for (const std::int64_t variable : request.variables)
    for (const std::int64_t direction : directionsOf(session, request))
      out += rowsOf(session, {variable, direction});
  return out;
}

}  // namespace zevfit::exchange
