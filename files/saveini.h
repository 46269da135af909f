#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "session/messages.h"
#include "session/style.h"

namespace zevfit {

inline constexpr const char* kSaveQuestion = "Save configuration data file to zevFIT.INI ?";

/// Decides by two numbers, and where they leave it open by a question, whether the parameters are
/// written to the program's folder; true when the program ends. A file that can't be written is
/// told of, and the program ends all the same.
bool saveini(const GraphStyle& style, std::string_view inputPath,
             const std::filesystem::path& folder, std::int32_t p, std::int32_t q,
             Messages& messages);

/// What a request to close the program does: saveini with the numbers of the family's file.
bool closeRequest(const GraphStyle& style, std::string_view inputPath,
                  const std::filesystem::path& folder, Messages& messages);

}  // namespace zevfit
