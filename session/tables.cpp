#include "session/tables.h"

#include <string>

namespace zevfit {

void throwSubscript(const char* table, std::initializer_list<std::int64_t> subscripts) {
  std::string text;
  for (const std::int64_t subscript : subscripts)
    text += (text.empty() ? "" : ", ") + std::to_string(subscript);
  throw Fault(std::string("Subscript out of range: ") + table + "(" + text + ")");
}

}  // namespace zevfit
