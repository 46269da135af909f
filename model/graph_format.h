#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "session/messages.h"
#include "session/session.h"
#include "session/style_chooser.h"

namespace zevfit {

// The format window and the window of the colours, without their controls. Fonts, patterns and
// colours stand in the session's style, where every drawing reads them.

/// Keeps fonts, patterns, colours and the grid's colour for Cancel.
void keepFormat(Session& session);
/// Puts them back.
void restoreFormat(Session& session);
/// The button for the default options. Its patterns are its own, not those of the program's start,
/// so that plots tell which of the two was used.
void setDefaultFormat(Session& session);

/// Asks for the font of row 0 to 2 until it is a legal one, and takes it; false on Cancel, at which
/// nothing changes. Sizes that are too large, and a font without a name, are told of.
bool chooseFont(FormatSamples& samples, std::size_t row, StyleChooser& chooser, Messages& messages);

/// What is wrong with the patterns, the first fault of the first faulty one; nothing when both are
/// legal.
std::optional<std::string> patternFault(const std::array<std::string, 2>& patterns);

/// The swatch that option 1 to 5 of the colours stands for.
Colour& swatch(ColourSwatches& cores, std::size_t option);
/// Asks for a colour and gives what the colour dialog then holds to the swatch of an option: after
/// a Cancel the colour that it held before, so that a Cancel repeats the last choice.
void chooseColour(ColourSwatches& cores, std::size_t option, StyleChooser& chooser, Colour& held);

}  // namespace zevfit
