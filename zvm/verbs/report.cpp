#include "zvm/verbs/report.h"

#include <cstddef>
#include <string_view>

#include "zvm/checking/letters.h"

namespace zevfit::verbs {
namespace {

/// A character of Latin-1 by its code, as JSON has it in a text; nothing else holds such ones.
std::string escaped(char latin1) { return "\\u00" + checking::hexText(latin1); }

/// The library leaves U+007F to U+009F as they are.
std::string withoutControls(std::string_view json) {
  std::string text;
  for (std::size_t at = 0; at < json.size(); ++at) {
    const bool isTwo = json[at] == '\xC2' && at + 1 < json.size();
    const char latin1 = json[at + (isTwo ? 1 : 0)];
    const bool isLeft = (isTwo || latin1 == '\x7F') && checking::isControl(latin1);
    text += isLeft ? escaped(latin1) : std::string(1, json[at]);
    if (isLeft && isTwo) ++at;
  }
  return text;
}

}  // namespace

std::string textOf(const Json& report) {
  return withoutControls(report.dump(2, ' ', false, Json::error_handler_t::replace)) + '\n';
}

}  // namespace zevfit::verbs
