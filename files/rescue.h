#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "session/session.h"

namespace zevfit {

/// Models that are in no file of the user's when the program ends or loads another file, in the
/// program's folder.
inline constexpr const char* kRescueName = "rescue.zvm";
/// The one before it.
inline constexpr const char* kRescueBeforeName = "rescue-before.zvm";
/// Beside it until it was told of, one or the other: the path of the file that the models belong
/// to.
inline constexpr const char* kRescueNoteName = "rescue.txt";
inline constexpr const char* kUnsavedNoteName = "unsaved.txt";

/// Why models go into the rescue file: the program had to end, or nobody has saved them.
enum class RescueReason { earlyEnd, unsaved };

/// Keeps the first `variables` variables of the session with their models as they stand, as a
/// variogram file in the program's folder; at every moment that file is the old one whole or the
/// new one whole, and the old one keeps a name of its own. The path of the file; nothing when no
/// file is loaded or it can't be written.
std::optional<std::filesystem::path> writeRescue(const Session& session, std::int64_t variables,
                                                 const std::filesystem::path& folder,
                                                 RescueReason reason = RescueReason::earlyEnd);

/// What is to be told of the last rescue; nothing the next time, nor without one.
std::optional<std::string> takeRescueNote(const std::filesystem::path& folder);

}  // namespace zevfit
