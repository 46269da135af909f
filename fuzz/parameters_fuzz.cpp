// The parameter files, each read from the whole input.
#include <cstdint>
#include <string>
#include <string_view>

#include "files/family_file.h"
#include "files/parameter_file.h"
#include "fuzz/require.h"

namespace zevfit {
namespace {

bool isFlag(std::int32_t value) { return value == 0 || value == 1; }

// A path that is written as it stands and then read as a token comes back only if it has no quote,
// comma or line end, and no blank in front.
bool isPlain(std::string_view path) {
  return path.find_first_of("\",\r\n") == std::string_view::npos &&
         (path.empty() || (path.front() != ' ' && path.front() != '\t'));
}

void checkParameters(std::string_view bytes) {
  GraphStyle style;
  const auto path = readParameters(bytes, style);
  const std::string kept = path && isPlain(*path) ? *path : "a.zvm";
  const std::string written = composeParameters(style, kept);
  GraphStyle again;
  require(readParameters(written, again) == kept, "what is written reads back whole");
  require(composeParameters(again, kept) == written, "what reads back is the same");
  for (std::size_t i = 0; i < style.Formfont.Label2.size(); ++i) {
    const float size = style.Formfont.Label2.at(i).fontsize;
    require(size > 0 && size <= kLargestFontSize, "a font has a usable size");
    require(size == style.Formfont.Label3.at(i).fontsize, "both samples have one size");
  }
}

void checkFamily(std::string_view bytes) {
  const SaveCode code = readSaveCode(bytes);
  require(isFlag(code.p) || isFlag(code.q), "one of the numbers is a flag");
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  zevfit::checkParameters(bytes);
  zevfit::checkFamily(bytes);
  return 0;
}
