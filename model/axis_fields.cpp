#include "model/axis_fields.h"

#include <array>
#include <cmath>
#include <limits>

#include "session/fault.h"
#include "session/number_reading.h"
#include "session/numbers.h"
#include "session/policy.h"

namespace zevfit {

namespace {

/// The names of the axes in the warnings, of which only the first has a capital.
constexpr std::array<const char*, kAxes.size()> kAxisNames{"Main", "minor1", "minor2"};

}  // namespace

double fieldNumber(std::string_view text) {
  return attempt([&] { return leadingNumber(text); },
                 [&] {
                   const bool negative = text.find('-') == text.find_first_not_of(" \t");
                   return std::copysign(std::numeric_limits<double>::infinity(), negative ? -1 : 1);
                 });
}

void checkRanges(AxisFields& fields, Axis axis, Messages& messages) {
  for (std::size_t entry = kFirstRange; entry < kAxisEntries; ++entry) {
    if (fieldNumber(fields.text(axis, entry)) >= 0) continue;
    messages.warning("Illegal value for range 'a" + std::to_string(entry - 1) + "' of " +
                     kAxisNames.at(static_cast<std::size_t>(axis)) + " Direction!");
    return fields.setText(axis, entry, "0");
  }
}

DirectionAngles directionAngles(std::string_view name) {
  name = trimmed(name);
  const std::size_t separator = name.find_first_of("-;", 1);
  if (separator == std::string_view::npos)
    throw Fault("No azimuth and dip in the direction's name '" + std::string(name) + "'");
  return {std::string(name.substr(0, separator)), std::string(name.substr(separator + 1))};
}

bool isAxis(const AxisFields& fields, Axis axis, std::string_view name) {
  const std::string azimuth = fields.text(axis, 0);
  if (trimmed(azimuth).empty()) return false;
  return attempt(
      [&] {
        const DirectionAngles angles = directionAngles(name);
        return fieldNumber(azimuth) == fieldNumber(angles.azimuth) &&
               fieldNumber(fields.text(axis, 1)) == fieldNumber(angles.dip);
      },
      [] { return false; });
}

}  // namespace zevfit
