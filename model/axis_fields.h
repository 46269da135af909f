#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "session/axis.h"
#include "session/messages.h"

namespace zevfit {

/// The fields of the three axes as the rules of the results window see them.
class AxisFields {
 public:
  virtual ~AxisFields() = default;
  virtual std::string text(Axis axis, std::size_t entry) const = 0;
  /// A text other than the one that stands there runs checkRanges before this returns.
  virtual void setText(Axis axis, std::size_t entry, std::string_view text) = 0;
};

/// The number in a field, as leadingNumber has it; one that overflows is infinite.
double fieldNumber(std::string_view text);

/// What a change of any field of an axis does: the first negative range is warned of and becomes
/// "0".
void checkRanges(AxisFields& fields, Axis axis, Messages& messages);

/// The outer parts of a direction's name.
struct DirectionAngles {
  std::string azimuth, dip;
};

/// Splits a name, its outer blanks dropped, at the first "-" or ";" behind its first character,
/// which may be the sign of the azimuth. Throws Fault where there is none.
DirectionAngles directionAngles(std::string_view name);

/// The angles of an axis are those of a direction. False for fields that nothing has filled, and
/// for a name that can't be split.
bool isAxis(const AxisFields& fields, Axis axis, std::string_view name);

}  // namespace zevfit
