#pragma once

#include <optional>

#include "session/style.h"

namespace zevfit {

/// Asks the user for fonts and colours.
class StyleChooser {
 public:
  virtual ~StyleChooser() = default;

  /// Asks for a font among those of the screen; nothing on Cancel.
  virtual std::optional<FontChoice> chooseFont(const FontChoice& start) = 0;
  /// Asks for a colour; nothing on Cancel.
  virtual std::optional<Colour> chooseColour(Colour start) = 0;
};

}  // namespace zevfit
