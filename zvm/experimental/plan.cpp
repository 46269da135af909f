#include "zvm/experimental/plan.h"

#include <charconv>
#include <cmath>

#include "session/tables.h"

namespace zevfit::zvm {

namespace {

constexpr std::int64_t kMostClasses = 100'000;
/// Squares of distances in narrower classes have no room in a double.
constexpr double kLeastWidth = 1e-150;

std::optional<double> numberOf(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::nullopt;
  text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

bool isAbove0(double value) { return std::isfinite(value) && value > 0; }

using Refusal = std::optional<std::string>;

Refusal tooMany(std::size_t count, int most, const char* what) {
  if (count <= static_cast<std::size_t>(most)) return std::nullopt;
  return std::to_string(count) + ' ' + what + ", and a variogram file holds " +
         std::to_string(most);
}

Refusal lagRefusal(const Plan& plan) {
  const LagClasses& lags = plan.lags;
  if (!isAbove0(lags.width)) return "the width of the lag classes has to be above 0";
  if (lags.width < kLeastWidth) return "the width of the lag classes has to be at least 1e-150";
  if (lags.count < 1 || lags.count > kMostClasses)
    return "the number of lag classes has to be from 1 to " + std::to_string(kMostClasses);
  if (!std::isfinite(static_cast<double>(lags.count) * lags.width))
    return "the lag classes go beyond the range of numbers";
  if (lags.tolerance && !isAbove0(*lags.tolerance)) return "the lag tolerance has to be above 0";
  if (lags.tolerance && plan.compat == Compat::gstat) return "gstat has no lag tolerance";
  return std::nullopt;
}

Refusal directionRefusal(const Direction& direction, const Plan& plan, bool inSpace) {
  const std::string of = " of direction `" + direction.name + '`';
  if (!(direction.tolerance > 0 && direction.tolerance <= 90))
    return "the tolerance" + of + " has to be above 0 and at most 90 degrees";
  if (std::fabs(direction.dip) > 90) return "the dip" + of + " has to be from -90 to 90 degrees";
  if (!inSpace && direction.dip != 0) return "the dip" + of + " needs points with z";
  for (const auto& band : {direction.band, direction.vband})
    if (band && !isAbove0(*band)) return "the band" + of + " has to be above 0";
  if (plan.compat == Compat::gstat && (direction.band || direction.vband))
    return "gstat has no bands";
  if (!inSpace && direction.vband) return "the band across the axis" + of + " needs points with z";
  return std::nullopt;
}

}  // namespace

std::optional<Direction> directionOf(std::string_view name) {
  const std::size_t semicolon = name.find(';');
  if (semicolon == std::string_view::npos) return std::nullopt;
  const auto azimuth = numberOf(name.substr(0, semicolon));
  const auto dip = numberOf(name.substr(semicolon + 1));
  if (!azimuth || !dip) return std::nullopt;
  Direction direction;
  direction.name = name;
  direction.azimuth = *azimuth;
  direction.dip = *dip;
  return direction;
}

std::optional<std::string> planRefusal(const Plan& plan, bool inSpace) {
  if (auto many =
          tooMany(plan.pairings.size(), kResetVariables, "variables with their cross variables"))
    return many;
  if (auto many = tooMany(plan.directions.size(), kResetDirections, "directions")) return many;
  if (plan.pairings.empty()) return "no variable is chosen";
  if (plan.directions.empty()) return "no direction is chosen";
  if (auto lags = lagRefusal(plan)) return lags;
  if (plan.compat == Compat::gamv && plan.zero == ZeroDistances::first)
    return "gamv has pairs at the same place in no class";
  for (const Direction& direction : plan.directions)
    if (auto refusal = directionRefusal(direction, plan, inSpace)) return refusal;
  return std::nullopt;
}

}  // namespace zevfit::zvm
