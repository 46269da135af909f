#include "zvm/verbs/context.h"

#include <algorithm>
#include <utility>

#include "zvm/verbs/output.h"

namespace zevfit::verbs {

void Context::message(std::string_view kind, std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
  err_ << "zvm: " << kind << ": " << line << '\n' << std::flush;
}

void Context::error(std::string_view text) { message("error", text); }

void Context::warning(std::string_view text) {
  if (!common.quiet) message("warning", text);
}

void Context::save(const std::string& path, std::string bytes) {
  if (path == kStandardStream) return print(bytes);
  requireFree(path, common.overwrite);
  pending_.push_back({path, std::move(bytes)});
}

}  // namespace zevfit::verbs
