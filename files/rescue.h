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
/// How the names of those before it begin: rescue-before.zvm, then rescue-before-2.zvm, and so on.
inline constexpr const char* kRescueBeforeStem = "rescue-before";
/// So many are kept in all.
inline constexpr int kMostRescues = 10;
/// Beside it until it was told of, one or the other: the path of the file that the models belong
/// to.
inline constexpr const char* kRescueNoteName = "rescue.txt";
inline constexpr const char* kUnsavedNoteName = "unsaved.txt";

/// Why models go into the rescue file: the program had to end, or nobody has saved them.
enum class RescueReason { earlyEnd, unsaved };

/// Keeps the first `variables` variables of the session with their models as they stand, as a
/// variogram file in the program's folder. The rescues before it move on by a name, and the oldest
/// goes where there are more than kMostRescues; one with the very bytes of the newest takes its
/// place. The path of the file; nothing when no file is loaded or it can't be written, and all are
/// as they were.
std::optional<std::filesystem::path> writeRescue(const Session& session, std::int64_t variables,
                                                 const std::filesystem::path& folder,
                                                 RescueReason reason = RescueReason::earlyEnd);

/// What is to be told of the last rescue; nothing the next time, nor without one.
std::optional<std::string> takeRescueNote(const std::filesystem::path& folder);

}  // namespace zevfit
