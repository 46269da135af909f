#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "zvm/points/names.h"

namespace zevfit::verbs {

/// Files are in Latin-1, all that is printed in UTF-8.
using zvm::utf8Of;
/// The characters of a text in UTF-8.
std::size_t lengthOf(std::string_view utf8);

/// Names in the order in which they are like the one that was asked for, parted by ", ".
std::string nearestFirst(std::string_view asked, std::vector<std::string> names);

/// Texts, parted by ", ".
std::string listed(const std::vector<std::string>& texts);

/// The names of all variables and of all directions, without outer blanks, in UTF-8.
std::vector<std::string> variableNames(const Session& session);
std::vector<std::string> directionNames(const Session& session);

/// The subscript of a variable, or of a direction, by its name or else by its number from 1. Throws
/// Failure with what there is. `file` is named in the message.
std::int64_t variableOf(const Session& session, const std::string& file, const std::string& asked);
std::int64_t directionOf(const Session& session, const std::string& file, const std::string& asked);

/// Rows of cells as columns of even width, two blanks between them, for a terminal; the first row
/// is the heading.
std::string table(std::vector<std::vector<std::string>> rows);

}  // namespace zevfit::verbs
