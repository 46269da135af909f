#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "session/session.h"

namespace zevfit {

/// The models of a program that had to end, in the program's folder.
inline constexpr const char* kRescueName = "rescue.zvm";
/// The one before it.
inline constexpr const char* kRescueBeforeName = "rescue-before.zvm";
/// Beside it until a start has told of it: the path of the file that the models belong to.
inline constexpr const char* kRescueNoteName = "rescue.txt";

/// Keeps the first `variables` variables of the session with their models as they stand, as a
/// variogram file in the program's folder; at every moment that file is the old one whole or the
/// new one whole, and the old one keeps a name of its own. The path of the file; nothing when no
/// file is loaded or it can't be written.
std::optional<std::filesystem::path> writeRescue(const Session& session, std::int64_t variables,
                                                 const std::filesystem::path& folder);

/// What a start says of the rescue before it; nothing the next time, nor without one.
std::optional<std::string> takeRescueNote(const std::filesystem::path& folder);

}  // namespace zevfit
