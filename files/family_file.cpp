#include "files/family_file.h"

#include <exception>
#include <string>

#include "files/output_file.h"
#include "files/tokens.h"
#include "session/policy.h"

namespace zevfit {

namespace {

constexpr int kForeignNumbers = 9;

bool skipForeign(TokenStream& in) {
  for (int i = 0; i < kForeignNumbers; ++i) {
    const auto token = in.number();
    if (!token || !numberOf(*token)) return false;
  }
  return true;
}

bool isFlag(std::int32_t value) { return value == 0 || value == 1; }

}  // namespace

SaveCode readSaveCode(std::string_view bytes) {
  TokenStream in(bytes);
  if (!skipForeign(in)) return {};
  const auto p = integerToken(in);
  const auto q = integerToken(in);
  if (!p || !q || (!isFlag(*p) && !isFlag(*q))) return {};
  return {*p, *q};
}

SaveCode loadSaveCode(const std::filesystem::path& folder) {
  return attempt([&] { return readSaveCode(readWhole(folder / kFamilyFileName)); },
                 [] { return SaveCode(); });
}

}  // namespace zevfit
