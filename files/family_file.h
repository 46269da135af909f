#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

/// The parameter file of the program family, which another member writes: eleven free-field number
/// tokens, of which the last two tell what becomes of the parameters when the program ends.
namespace zevfit {

/// The name of the file in the program's folder.
inline constexpr const char* kFamilyFileName = "zpam.pam";

/// The two numbers; (1, 0) ends without a save, (1, 1) saves without asking, all others ask.
struct SaveCode {
  std::int32_t p = 0;
  std::int32_t q = 0;
  bool operator==(const SaveCode&) const = default;
};

/// The numbers of the file; 0, 0 when neither is 0 or 1, or when one of the eleven can't be read.
SaveCode readSaveCode(std::string_view bytes);

/// The same with the file in the program's folder; one that can't be opened counts as empty.
SaveCode loadSaveCode(const std::filesystem::path& folder);

}  // namespace zevfit
