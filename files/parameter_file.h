#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "session/style.h"

/// The parameters that are kept from one run to the next, a single-byte text file of 17 lines:
///
///     path of the last input file
///     five colours, one a line       32 bit integers, as file numbers
///     two number patterns, one a line, each between two asterisks that protect its blanks
///     for each of the three font samples: caption, font name, size in points
///
/// The path is read as a text token, so a comma ends it and what stands behind is out of step.
namespace zevfit {

/// The name of the file in the program's folder.
inline constexpr const char* kParameterFileName = "zevfit.ini";
/// The largest size of a font, in points, that is taken from the file.
inline constexpr float kLargestFontSize = 2160;

/// Sets the style to its start values and then to those of the file, as far as they can be read.
/// Returns the path of the last input file (empty: there was none) when all could be read.
std::optional<std::string> readParameters(std::string_view bytes, GraphStyle& style);

/// The same with the file in the program's folder; one that can't be opened counts as empty.
std::optional<std::string> loadParameters(const std::filesystem::path& folder, GraphStyle& style);

/// The bytes of the file.
std::string composeParameters(const GraphStyle& style, std::string_view inputPath);

/// Writes the file whole and puts it in the place of the old one. Throws Fault when it can't; the
/// old file is then as it was.
void writeParameters(const std::filesystem::path& folder, const GraphStyle& style,
                     std::string_view inputPath);

}  // namespace zevfit
