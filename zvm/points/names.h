#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevfit::zvm {

/// UTF-8 as Latin-1; nothing where it holds another character or is no UTF-8.
std::optional<std::string> latin1Of(std::string_view utf8);
/// The same with "?" for each other character.
std::string nearestLatin1(std::string_view utf8);
/// Latin-1 as UTF-8.
std::string utf8Of(std::string_view latin1);

/// Why a name or title (UTF-8) can't stand in a variogram file, as in "it holds a comma"; nothing
/// where it can. Blanks around it do not count.
std::optional<std::string> nameRefusal(std::string_view utf8);

/// The names in the order of their likeness to another, those as like as they stood. The measure is
/// the number of letters to be inserted, dropped or changed, whatever their case (Levenshtein,
/// "Binary codes", 1966).
std::vector<std::string> nearestFirst(std::string_view to, std::vector<std::string> names);

/// "no column `zin` in meuse.csv; there are zinc, lead": what there is, nearest first, at most
/// twenty. `kind` is "column", `where` the file.
std::string noSuchName(std::string_view kind, std::string_view name, std::string_view where,
                       const std::vector<std::string>& names);

}  // namespace zevfit::zvm
