#include "zvm/verbs/context.h"

#include <utility>

#include "zvm/points/data_error.h"
#include "zvm/verbs/output.h"
#include "zvm/verbs/terminal.h"

namespace zevfit::verbs {

Failure::Failure(Exit code, const std::string& message)
    : std::runtime_error(zvm::withoutNul(message)), code_(code) {}

std::istream& Context::in() {
  if (isInTaken_) throw Failure(Exit::usage, kStdinTwice);
  isInTaken_ = true;
  return in_;
}

void Context::message(std::string_view kind, std::string_view text) {
  err_ << "zvm: " << kind << ": " << terminalText(text) << '\n' << std::flush;
}

void Context::error(std::string_view text) { message("error", text); }

void Context::warning(std::string_view text) {
  if (!common.quiet) message("warning", text);
}

void Context::save(const std::string& path, std::string bytes, AcceptBytes accept) {
  if (path == kStandardStream) return print(bytes);
  requireFree(path, common.overwrite);
  pending_.push_back({path, std::move(bytes), std::move(accept)});
}

}  // namespace zevfit::verbs
