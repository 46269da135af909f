// Directions of a file as axes.
#include <string>

#include "files/orthogonality.h"
#include "session/numbers.h"
#include "zvm/exchange/spatial_model.h"
#include "zvm/exchange/texts.h"

namespace zevfit::exchange {
namespace {

using Directions = std::array<Direction, kAxes.size()>;

std::string directionText(const Session& session, std::int64_t direction) {
  if (direction < 1 || direction > session.ndir)
    throw Refusal("there is no direction " + std::to_string(direction) + "; the file has " +
                  std::to_string(session.ndir));
  return nameText(session.dirname(direction));
}

Direction directionOf(const Session& session, std::int64_t direction) {
  const std::optional<Direction> named = directionNamed(session.dirname(direction));
  if (!named)
    throw Refusal("direction " + directionText(session, direction) +
                  " has no azimuth and dip, as in 45;0");
  return *named;
}

bool same(const Direction& a, const Direction& b) {
  return a.azimuth == b.azimuth && a.dip == b.dip;
}

bool areRightAngled(const Directions& named) {
  const auto& [main, minor1, minor2] = named;
  return AngleTest().Normal_verif(toSingle(main.azimuth), toSingle(main.dip),
                                  toSingle(minor1.azimuth), toSingle(minor1.dip),
                                  toSingle(minor2.azimuth), toSingle(minor2.dip)) != 0;
}

std::string namesOf(const Triad& triad) {
  std::string out;
  for (const Axis axis : kAxes) {
    const auto at = static_cast<std::size_t>(axis);
    out += std::string(out.empty() ? "" : ", ") + std::string(kAxisNames.at(at)) + " " +
           triad.names.at(at);
  }
  return out;
}

}  // namespace

Triad triadOf(const Session& session, const Picked& picked, Warnings& warnings) {
  const std::int64_t minor1 = picked.minor1.value_or(picked.main);
  Triad triad;
  triad.directions = {picked.main, minor1, picked.minor2.value_or(minor1)};
  for (std::size_t at = 0; at < kAxes.size(); ++at)
    triad.names.at(at) = directionText(session, triad.directions.at(at));
  triad.isotropic = minor1 == picked.main && triad.directions[2] == picked.main;
  if (triad.isotropic) {
    triad.axes = rightAngled({0, 0}, {90, 0});
    return triad;
  }
  Directions named;
  for (std::size_t at = 0; at < kAxes.size(); ++at)
    named.at(at) = directionOf(session, triad.directions.at(at));
  if (!areRightAngled(named))
    throw Refusal("the directions are not at right angles within " +
                  shortest(kRightAngleTolerance) + " degrees: " + namesOf(triad));
  triad.axes = rightAngled(named[0], named[1]);
  const bool sameMinors = same(named[1], named[2]);
  const bool level = named[0].dip == 0 && named[1].dip == 0;
  triad.dimensions = sameMinors && level ? 2 : 3;
  if (sameMinors) triad.directions[2] = triad.directions[1];
  if (sameMinors && !level)
    warnings.push_back("Minor 2 is Minor 1: across their plane the ranges of Minor 1 are taken");
  return triad;
}

}  // namespace zevfit::exchange
